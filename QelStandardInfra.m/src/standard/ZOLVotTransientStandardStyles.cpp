// The style face of the standard object.
#include <string>

#include "ZOLSysLog.h"
#include "standard/ZOLVotTransientStandard.h"

using Node = ZOLVotStandardNode;

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
