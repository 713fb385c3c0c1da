// The style object: every read goes to the standard at "type.name.path", where the standard finds
// the style under "Styles" by itself and has filed its values without that component.
#include "ZOLVotDftStyle.h"

#include "ZOLClassDictionary.h"
#include "ZOLIDftStyleManager.h"
#include "ZOLSysLog.h"
#include "ZOLTIE.h"
#include "standard/ZOLVotTransientStandard.h"

ZOLImplementMetaObject(ZOLVotDftStyle, Implementation, ZOLIDftStyle::MetaObject(), "QelStandardInfra", nullptr, "ZOLNull")

ZOLIDftStyle* CreateBOAZOLIDftStyleZOLVotDftStyle(ZOLBaseUnknown* iObject) {
  return ZOLAttachBOA<ZOLIDftStyle, ZOLVotDftStyle>(iObject);
}

namespace {

void* AttachStyle(ZOLBaseUnknown* object) { return CreateBOAZOLIDftStyleZOLVotDftStyle(object); }

ZOLClassRegistrar s_styleClass(ZOLVotDftStyle::MetaObject());
ZOLAttachmentRegistrar s_style(ZOLVotDftStyle::MetaObject(), ZOLIDftStyle::MetaObject(), &AttachStyle);

HRESULT WideCopy(const ZOLUnicodeString& text, wchar_t** oText) {
  if (!oText || *oText) {
    ZOLAssertBool("");
    return E_INVALIDARG;
  }
  *oText = text.ConvertToWChar();
  if (!*oText) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  return S_OK;
}

}  // namespace

ZOLVotDftStyle::~ZOLVotDftStyle() {
  if (_Standard) _Standard->Release();
}

HRESULT ZOLVotDftStyle::Initialize(ZOLIDrwStandard_var& iStandard, ZOLUnicodeString iName, ZOLUnicodeString iType) {
  if (_Standard) {
    ZOLAssertBool("");
    return E_FAIL;
  }
  if (iStandard.IsNull()) {
    ZOLAssertPointer("NULL handler");
    return E_INVALIDARG;
  }
  void* standard = nullptr;
  iStandard->QueryInterface(IID_ZOLIDrwStandard, &standard);
  _Standard = static_cast<ZOLIDrwStandard*>(standard);
  _Transient = _Standard ? dynamic_cast<ZOLVotTransientStandard*>(_Standard->GetImpl()) : nullptr;
  _Name = std::move(iName);
  _Type = std::move(iType);
  _Path = _Type.str() + "." + _Name.str() + ".";
  _PrefixLength = _Path.size();
  return S_OK;
}

HRESULT ZOLVotDftStyle::GetName(wchar_t** oName) { return WideCopy(_Name, oName); }

HRESULT ZOLVotDftStyle::GetType(wchar_t** oType) { return WideCopy(_Type, oType); }

// Our own standard is read directly, with the length of the path known; another through its interface.
template <class R, class Read>
R ZOLVotDftStyle::Forward(const char* iPath, R iNone, Read read) {
  if (!_Standard) return iNone;
  _Path.resize(_PrefixLength);
  if (iPath) _Path += iPath;
  return _Transient ? read(_Transient, std::string_view(_Path)) : read(_Standard, _Path.c_str());
}

unsigned char ZOLVotDftStyle::HasNode(const char* iPath) {
  return Forward(iPath, static_cast<unsigned char>(0), [](auto* s, auto path) { return s->HasNode(path); });
}

HRESULT ZOLVotDftStyle::GetValueType(const char* iPath, ZOLDftStandardValueType* oType, int* oCount) {
  return Forward(iPath, E_FAIL, [&](auto* s, auto path) { return s->GetValueType(path, oType, oCount); });
}

HRESULT ZOLVotDftStyle::GetValue(const char* iPath, int iIndex, ZOLUnicodeString& oValue) {
  return Forward(iPath, E_FAIL, [&](auto* s, auto path) { return s->GetValue(path, iIndex, oValue); });
}

HRESULT ZOLVotDftStyle::GetValue(const char* iPath, ZOLUnicodeString** oValues, int* oCount) {
  return Forward(iPath, E_FAIL, [&](auto* s, auto path) { return s->GetValue(path, oValues, oCount); });
}

HRESULT ZOLVotDftStyle::GetValue(const char* iPath, int iIndex, double& oValue) {
  return Forward(iPath, E_FAIL, [&](auto* s, auto path) { return s->GetValue(path, iIndex, oValue); });
}

HRESULT ZOLVotDftStyle::GetValue(const char* iPath, double* oValues, int* oCount) {
  return Forward(iPath, E_FAIL, [&](auto* s, auto path) { return s->GetValue(path, oValues, oCount); });
}

HRESULT ZOLVotDftStyle::GetValue(const char* iPath, int iIndex, int& oValue) {
  return Forward(iPath, E_FAIL, [&](auto* s, auto path) { return s->GetValue(path, iIndex, oValue); });
}

HRESULT ZOLVotDftStyle::GetValue(const char* iPath, int* oValues, int* oCount) {
  return Forward(iPath, E_FAIL, [&](auto* s, auto path) { return s->GetValue(path, oValues, oCount); });
}

HRESULT ZOLVotDftStyle::GetValue(const char* iPath, int* oValues, int iCapacity, int* oCount) {
  return Forward(iPath, E_FAIL, [&](auto* s, auto path) { return s->GetValue(path, oValues, iCapacity, oCount); });
}

HRESULT ZOLVotDftStyle::GetValue(const char* iPath, double* oValues, int iCapacity, int* oCount) {
  return Forward(iPath, E_FAIL, [&](auto* s, auto path) { return s->GetValue(path, oValues, iCapacity, oCount); });
}

HRESULT ZOLVotDftStyle::GetValue(const char* iPath, ZOLUnicodeString** oValues, int iCapacity, int* oCount) {
  return Forward(iPath, E_FAIL, [&](auto* s, auto path) { return s->GetValue(path, oValues, iCapacity, oCount); });
}

HRESULT ZOLVotDftStyle::GetStyleManager(ZOLIDftStyleManager** oManager) {
  if (!oManager) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  if (*oManager) {
    ZOLAssertBool("");
    return E_INVALIDARG;
  }
  void* manager = nullptr;
  if (_Standard) _Standard->QueryInterface(IID_ZOLIDftStyleManager, &manager);
  if (!manager) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  *oManager = static_cast<ZOLIDftStyleManager*>(manager);
  return S_OK;
}

int ZOLVotDftStyle::GetStdVersion() { return _Standard ? _Standard->GetStdVersion() : 0; }
