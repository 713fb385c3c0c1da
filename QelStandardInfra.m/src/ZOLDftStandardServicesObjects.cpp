// Standard objects by file and text, their filed values, and the path helpers.
#include <new>

#include "ZOLDftStandardServices.h"
#include "ZOLSysLog.h"
#include "ZOLVotTransientStandard.h"

namespace {

ZOLIDrwStandard_var Handle(ZOLVotTransientStandard* object) {
  // The handle's cast takes its own reference; the creator's is dropped.
  ZOLIDrwStandard_var standard(static_cast<ZOLBaseUnknown*>(object));
  if (object) object->Release();
  if (!standard) ZOLAssertPointer("NULL handler");
  return standard;
}

}  // namespace

ZOLIDrwStandard_var ZOLDftStandardServices::GetStandardFromFile(const ZOLUnicodeString& path, const ZOLUnicodeString& name) {
  return Handle(new (std::nothrow) ZOLVotTransientStandard(path, name));
}

ZOLIDrwStandard_var ZOLDftStandardServices::GetStandardFromBuffer(const ZOLUnicodeString* text, const ZOLUnicodeString& name) {
  return Handle(new (std::nothrow) ZOLVotTransientStandard(text, name));
}

ZOLUnicodeString ZOLDftStandardServices::GetAttributeSingleName(ZOLUnicodeString path) {
  size_t dot = path.str().rfind('.');
  if (dot == std::string::npos || dot + 1 == path.str().size()) return ZOLUnicodeString();
  return ZOLUnicodeString(path.str().substr(dot + 1));
}

ZOLUnicodeString ZOLDftStandardServices::GetFatherNode(ZOLUnicodeString path) {
  size_t dot = path.str().rfind('.');
  if (dot == std::string::npos) return ZOLUnicodeString();
  return ZOLUnicodeString(path.str().substr(0, dot));
}

long ZOLDftStandardServices::ListFiledValues(ZOLIDrwStandard* standard, const ZOLUnicodeString& prefix,
                                             ZOLListValZOLUnicodeString& keys, ZOLListValZOLUnicodeString& kinds,
                                             ZOLListValZOLUnicodeString& values) {
  auto* object = standard ? dynamic_cast<ZOLVotTransientStandard*>(standard->GetImpl()) : nullptr;
  if (!object) return E_INVALIDARG;
  std::vector<ZOLVotFiledValue> filed;
  object->ListFiledValues(prefix.str(), filed);
  for (auto& f : filed) {
    keys.Append(ZOLUnicodeString(std::move(f.key)));
    kinds.Append(f.kind);
    values.Append(ZOLUnicodeString(std::move(f.text)));
  }
  return S_OK;
}
