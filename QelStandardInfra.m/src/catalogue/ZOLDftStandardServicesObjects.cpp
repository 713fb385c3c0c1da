// Standard objects by file, text and name, their filed values, sheet formats and path helpers.
#include <new>

#include "ZOLDftStandardServices.h"
#include "ZOLSysLog.h"
#include "standard/ZOLVotTransientStandard.h"

namespace {

// The default standards, kept for the life of the process and dropped at unload.
ZOLIDrwStandard_var s_iso;
ZOLIDrwStandard_var s_jis;
ZOLIDrwStandard_var s_asme;

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


ZOLIDrwStandard_var ZOLDftStandardServices::GetOOTBStandard(const ZOLUnicodeString& name, int) {
  ZOLIDrwStandard_var* kept = name == "ISO" ? &s_iso : name == "JIS" ? &s_jis : name == "ASME" ? &s_asme : nullptr;
  if (kept && *kept) return *kept;
  ZOLUnicodeString fileName = name == "ASME" ? ZOLUnicodeString("ANSI-ASME") : name;
  ZOLUnicodeString path;
  if (FindStandardFileInEnv(fileName, path, false) != 0 || path.IsEmpty()) {
    ZOLAssertBool("");
    return nullptr;
  }
  // Kept on purpose: only the three names keep an object; "ANSI-ASME" is located and refused.
  if (!kept) return nullptr;
  *kept = GetStandardFromFile(path, name);
  return *kept;
}

long ZOLDftStandardServices::GetFormatData(ZOLIDftStandard& standard, int index, ZOLDrwStdSheetFormat& format) {
  int counted = 0;
  counted += standard.GetValue("SheetFormat.Name", index, format.name) == S_OK;
  counted += standard.GetValue("SheetFormat.Width", index, format.width) == S_OK;
  counted += standard.GetValue("SheetFormat.Height", index, format.height) == S_OK;
  ZOLUnicodeString orientation;
  if (standard.GetValue("SheetFormat.FormatOrientationType", index, orientation) == S_OK)
    counted += GetEnumFromName(orientation, format.orientation) == S_OK;
  format.reserved = 0;
  return counted < 4 ? E_FAIL : S_OK;
}

long ZOLDftStandardServices::GetSheetFormats(ZOLIDftStandard* standard, ZOLDrwStdSheetFormat** formats, int& count) {
  if (!standard) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  if (!formats || *formats || count != 0) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  ZOLDftStandardValueType type = ZOLDftStandardValueTypeUnknown;
  int size = 0;
  if (standard->GetValueType("SheetFormat", &type, &size) != S_OK || type != ZOLDftStandardValueTypeTypedEntry || size < 1) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  auto* array = new ZOLDrwStdSheetFormat[size];
  int read = 0;
  for (int i = 1; i <= size; ++i) read += GetFormatData(*standard, i, array[i - 1]) == S_OK;
  if (read != size) {
    delete[] array;
    ZOLAssertMessage("Bad imbedded standard structure");
    return E_FAIL;
  }
  *formats = array;
  count = size;
  return S_OK;
}
