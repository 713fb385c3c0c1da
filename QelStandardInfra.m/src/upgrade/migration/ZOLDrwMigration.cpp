// The operations that steps share: the version node, edits in every style of a family, and the
// parent as a step sees it.
#include "upgrade/migration/ZOLDrwMigration.h"

#include <string_view>
#include <vector>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLDftStdPersistence.h"
#include "ZOLRefCounted.h"
#include "ZOLSysLog.h"
#include "document/ZOLDftParentStandard.h"

namespace {

// Applies one of the shared "in all styles" operations to every style of a family.
template <typename Add>
HRESULT ForAllStyles(ZOLAnnStandardXMLParser* parser, const char* stylePath, const char* suffix, Add add) {
  if (!parser || !stylePath) return E_FAIL;
  ZOLRef<ZOLAnnStandardXMLNode> family = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(parser->GetNodeWithPath(stylePath));
  if (!family || family->GetNumOfNode() == 0) return E_FAIL;
  // Names first: an edit may add to the family itself and move the vector under the walk.
  std::vector<ZOLUnicodeString> names;
  names.reserve(family->SubNodes().size());
  for (const ZOLAnnStandardXMLNode* style : family->SubNodes()) names.push_back(style->Name());
  for (const ZOLUnicodeString& name : names) {
    ZOLUnicodeString text(stylePath);
    text += std::string_view(".");
    text += name;
    text += std::string_view(suffix ? suffix : "");
    add(text);
  }
  return S_OK;
}

}  // namespace

int ZOLDrwMigrationContext::ParentFlag() const { return ZOLDftParentFlag(ZOLDftParentOf(_driver._ParentStandard)); }

int ZOLDrwParentBit(const ZOLUnicodeString& parent) {
  const int flag = ZOLDftParentFlag(ZOLDftParentOf(parent));
  return flag ? flag : kZOLDrwOtherParent;
}

void UpdateVersionNode(ZOLAnnStandardXMLParser* parser, const char* oldText, const char* newText) {
  if (!parser || !oldText || !newText) {
    ZOLAssertPointer("");
    return;
  }
  ZOLRef<ZOLAnnStandardXMLNode> node = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(
      parser->GetNodeWithPath(ZOLUnicodeString("Root.") + ZOLDftStdPersistence::GetVersionNodePath()));
  if (!node) {
    ZOLAssertPointer("");
    return;
  }
  if (node->GetNumOfNode() != 0 || node->GetNumOfValue() != 1) {
    ZOLAssertBool("");
    return;
  }
  ZOLAnnStandardXMLValue* value = node->Values()[0];
  if (!value) {
    ZOLAssertPointer("");
    return;
  }
  if (value->GetType() != ZOLAnnStandardXMLValue::IntValue || !(value->Value() == oldText)) {
    ZOLAssertBool("");
    return;
  }
  value->SetValue(newText);
}

HRESULT AddValueInAllStyles(ZOLAnnStandardXMLParser* parser, const char* stylePath, const char* suffix, int flag) {
  return ForAllStyles(parser, stylePath, suffix, [&](const ZOLUnicodeString& text) { parser->AddValueWithPath(text, flag); });
}

HRESULT AddNodeInAllStyles(ZOLAnnStandardXMLParser* parser, const char* stylePath, const char* suffix, int flag) {
  return ForAllStyles(parser, stylePath, suffix, [&](const ZOLUnicodeString& text) { parser->AddNodeWithPath(text, flag); });
}
