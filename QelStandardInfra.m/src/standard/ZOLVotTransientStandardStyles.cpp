// The style face of the standard object: style types and names in document order, style objects
// made anew on each call, and the default style of a type, kept on this object only.
#include <string>

#include "ZOLIDftStyle.h"
#include "ZOLIDftStyleManager.h"
#include "ZOLIDrwStandard.h"
#include "ZOLIUnknownList.h"
#include "ZOLSysLog.h"
#include "ZOLVotDftStyle.h"
#include "standard/ZOLVotTransientStandard.h"

using Node = ZOLVotStandardNode;

namespace {

ZOLUnicodeString FromWide(const wchar_t* text) {
  ZOLUnicodeString s;
  if (text) s.BuildFromWChar(text);
  return s;
}

bool IsEmpty(const wchar_t* text) { return !text || !*text; }

// The list that GetStyles hands out: the runtime's own, under a class of the library.
class ZOLVotStyleList final : public ZOLIUnknownListImpl {};

}  // namespace

HRESULT ZOLVotTransientStandard::GetStyleTypes(ZOLListValZOLUnicodeString* oTypes) {
  if (!oTypes) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  oTypes->RemoveAll();
  const Node* styles = FindNode("Styles", 1);
  if (!styles) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  for (const Node* c = FirstChild(*styles); c; c = NextSibling(*c))
    if (c->name.len) oTypes->Append(ZOLUnicodeString(Name(*c)));
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetStyleNames(const char* iType, ZOLListValZOLUnicodeString* oNames) {
  if (!oNames) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  oNames->RemoveAll();
  std::string path = "Styles.";
  path += iType ? iType : "";
  const Node* node = FindNode(path, 1);
  if (!node) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  for (const Node* c = FirstChild(*node); c; c = NextSibling(*c)) {
    if (c->kind != ZOLDftStdElement::Node) ZOLAssertBool("");
    else if (c->name.len) oNames->Append(ZOLUnicodeString(Name(*c)));
  }
  return S_OK;
}

// ---------------------------------------------------------------------------------------------
// Style objects

HRESULT ZOLVotTransientStandard::GetStyle(ZOLUnicodeString iName, ZOLUnicodeString iType, ZOLIDftStyle_var& oStyle) {
  oStyle = nullptr;
  ZOLIDrwStandard_var standard(GetImpl());
  if (standard.IsNull()) {
    ZOLAssertPointer("NULL handler");
    return E_UNEXPECTED;
  }
  auto* created = new ZOLVotDftStyle;
  if (FAILED(created->Initialize(standard, std::move(iName), std::move(iType)))) {
    ZOLAssertBool("");
  } else {
    oStyle = ZOLIDftStyle_var(static_cast<ZOLBaseUnknown*>(created));
    if (oStyle.IsNull()) ZOLAssertPointer("NULL handler");
  }
  created->Release();
  return oStyle.IsNull() ? E_FAIL : S_OK;
}

HRESULT ZOLVotTransientStandard::GetStyle(const wchar_t* iName, const wchar_t* iType, ZOLIDftStyle** oStyle) {
  if (!oStyle || *oStyle) {
    ZOLAssertBool("");
    return E_INVALIDARG;
  }
  if (IsEmpty(iName)) return E_INVALIDARG;
  if (IsEmpty(iType)) {
    ZOLAssertBool("");
    return E_INVALIDARG;
  }
  ZOLIDftStyle_var style;
  if (FAILED(GetStyle(FromWide(iName), FromWide(iType), style))) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  *oStyle = style.Detach();
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetStyles(ZOLUnicodeString iType, ZOLIUnknownList* iList, ZOLUnicodeString) {
  if (!iList) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  ZOLIDrwStandard_var standard(GetImpl());
  if (standard.IsNull()) {
    ZOLAssertPointer("NULL handler");
    return E_UNEXPECTED;
  }
  ZOLListValZOLUnicodeString types;
  GetStyleTypes(&types);
  int position = 0;
  for (const ZOLUnicodeString& type : types) {
    if (!iType.IsEmpty() && !(iType == type)) continue;
    ZOLListValZOLUnicodeString names;
    if (FAILED(standard->GetStyleNames(type.ConvertToChar(), &names))) {
      ZOLAssertBool("");
      return E_UNEXPECTED;
    }
    for (const ZOLUnicodeString& name : names) {
      ZOLIDftStyle_var style;
      if (FAILED(GetStyle(name, type, style))) {
        ZOLAssertBool("");
        continue;
      }
      if (FAILED(iList->Add(position, style->GetImpl()))) ZOLAssertBool("");
      else ++position;
    }
  }
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetStyles(const wchar_t* iType, ZOLIUnknownList** oList, const wchar_t* iContext) {
  if (!oList) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  auto* list = new ZOLVotStyleList;
  void* queried = nullptr;
  list->QueryInterface(IID_ZOLIUnknownList, &queried);
  *oList = static_cast<ZOLIUnknownList*>(queried);
  list->Release();
  if (!*oList) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  if (FAILED(GetStyles(FromWide(iType), *oList, FromWide(iContext)))) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetStdVersion(int* oVersion) {
  if (!oVersion) {
    ZOLAssertPointer("");
    return E_INVALIDARG;
  }
  ZOLIDrwStandard_var standard(GetImpl());
  if (standard.IsNull()) {
    ZOLAssertPointer("NULL handler");
    return E_UNEXPECTED;
  }
  *oVersion = standard->GetStdVersion();
  return S_OK;
}

// ---------------------------------------------------------------------------------------------
// Default styles

HRESULT ZOLVotTransientStandard::GetDefaultStyle(ZOLUnicodeString iType, ZOLUnicodeString& oName, ZOLUnicodeString) {
  auto found = _DefaultStyles.find(iType.str());
  if (found == _DefaultStyles.end()) {
    // Every type has a style "Default" unless this object was told another.
    oName = "Default";
    return S_OK;
  }
  if (found->second.IsEmpty()) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  oName = found->second;
  return S_OK;
}

HRESULT ZOLVotTransientStandard::GetDefaultStyle(const wchar_t* iType, wchar_t** oName, const wchar_t* iContext) {
  if (!oName || *oName || IsEmpty(iType)) {
    ZOLAssertBool("");
    return E_INVALIDARG;
  }
  ZOLUnicodeString name;
  if (FAILED(GetDefaultStyle(FromWide(iType), name, FromWide(iContext)))) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  *oName = name.ConvertToWChar();
  return S_OK;
}

HRESULT ZOLVotTransientStandard::SetDefaultStyle(ZOLUnicodeString iType, ZOLUnicodeString iName, ZOLUnicodeString) {
  _DefaultStyles.insert_or_assign(std::move(iType.str()), std::move(iName));
  return S_OK;
}

HRESULT ZOLVotTransientStandard::SetDefaultStyle(const wchar_t* iType, const wchar_t* iName, const wchar_t* iContext) {
  if (IsEmpty(iType) || IsEmpty(iName)) {
    ZOLAssertBool("");
    return E_INVALIDARG;
  }
  if (FAILED(SetDefaultStyle(FromWide(iType), FromWide(iName), FromWide(iContext)))) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  return S_OK;
}

HRESULT ZOLVotTransientStandard::StyleReserved3() { return Stub(); }
HRESULT ZOLVotTransientStandard::StyleReserved7() { return Stub(); }
