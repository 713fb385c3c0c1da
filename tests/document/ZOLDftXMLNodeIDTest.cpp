// Element identity and child iteration over the platform's DOM.
#include <gtest/gtest.h>

#include <memory>
#include <string>

#include "document/ZOLDftStdElement.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLDftXMLNodeID.h"
#include "ZOLDftXMLNodeIterator.h"
#include "ZOLReportCountTest.h"
#include "ZOLXMLDOM.h"
#include "ZOLXMLSAX.h"

namespace {

ZOLIDOMDocument_var Read(const std::string& text, bool namespaces = true) {
  std::unique_ptr<ZOLIXMLDOMDocumentBuilder> builder;
  EXPECT_EQ(CreateZOLIXMLDOMDocumentBuilder(builder), S_OK);
  ZOLIXMLInputSource source(ZOLIXMLInputSource::Kind::Text, text, "test");
  ZOLListValZOLUnicodeString names, values;
  names.Append("ZOLEnableNameSpaces");
  values.Append(namespaces ? "true" : "false");
  ZOLIDOMDocument_var doc;
  EXPECT_EQ(builder->BuildDocumentFromSource(source, names, values, doc), S_OK);
  return doc;
}

ZOLIDOMElement_var Top(const ZOLIDOMDocument_var& doc) {
  ZOLIDOMElement_var e;
  doc.GetDocumentElement(e);
  return e;
}

class XMLNodeID : public ZOLReportCountTest {};
class XMLNodeIterator : public ZOLReportCountTest {};

}  // namespace

TEST_F(XMLNodeID, NullIdentifiersAreEqualAndDifferFromAnyOther) {
  ZOLDftXMLNodeID a, b;
  ZOLDftXMLNodeID c("urn:a", "node");
  EXPECT_TRUE(a.IsNULL());
  EXPECT_TRUE(a == b);
  EXPECT_TRUE(a != c);
  EXPECT_TRUE(c == ZOLDftXMLNodeID("urn:a", "node"));
  EXPECT_TRUE(c != ZOLDftXMLNodeID("urn:b", "node"));  // same local name, other namespace
  EXPECT_TRUE(c != ZOLDftXMLNodeID("urn:a", "Node"));
  EXPECT_EQ(c.ToString().str(), "<urn:a>node");
}

TEST_F(XMLNodeID, EmptyLocalNameAndGettersOfTheNullIdentifierAreReported) {
  ZOLDftXMLNodeID empty("urn:a", "");
  EXPECT_TRUE(empty.IsNULL());
  EXPECT_EQ(r.CountContaining("Local name can't be empty"), 1);
  EXPECT_EQ(empty.GetNamespaceURI().str(), "");
  EXPECT_EQ(empty.GetLocalName().str(), "");
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE: ID is null"), 2);
  reports = 3;
}

TEST_F(XMLNodeID, BuildFromElementReadsNamespaceAndLocalName) {
  auto doc = Read("<s:node xmlns:s=\"" + std::string(ZOLDftStdNamespaceURI) + "\"><plain/></s:node>");
  ZOLDftXMLNodeID id = ZOLDftXMLNodeID::BuildFromElement(Top(doc));
  EXPECT_TRUE(id == ZOLDftStdElementID(ZOLDftStdElement::Node));  // any prefix: the namespace decides
  ZOLDftXMLNodeIterator it(Top(doc));
  ZOLDftXMLNodeID plain = ZOLDftXMLNodeID::BuildFromElement(ZOLIDOMElement_var(it.CurrentItem()));
  EXPECT_EQ(plain.GetNamespaceURI().str(), "");
  EXPECT_EQ(plain.GetLocalName().str(), "plain");
  EXPECT_TRUE(ZOLDftXMLNodeID::BuildFromElement(ZOLIDOMElement_var()).IsNULL());
  EXPECT_EQ(ZOLDftStdElementOf("", "node"), ZOLDftStdElement::Unknown);
}

TEST_F(XMLNodeID, WithoutNamespacesTheNodeNameServesAsLocalName) {
  auto doc = Read("<std:node xmlns:std=\"" + std::string(ZOLDftStdNamespaceURI) + "\"/>", false);
  ZOLDftXMLNodeID id = ZOLDftXMLNodeID::BuildFromElement(Top(doc));
  EXPECT_EQ(id.GetNamespaceURI().str(), "");
  EXPECT_EQ(id.GetLocalName().str(), "std:node");
  EXPECT_TRUE(id != ZOLDftStdElementID(ZOLDftStdElement::Node));
}

TEST_F(XMLNodeIterator, WalksAllChildNodesForwardAndBackward) {
  auto doc = Read("<r>t<a/><!--c--><b/></r>");
  std::string forward;
  for (ZOLDftXMLNodeIterator it(Top(doc)); !it.IsDone(); it.Next()) {
    std::string name;
    it.CurrentItem().GetNodeName(name);
    forward += name + ",";
  }
  EXPECT_EQ(forward, "#text,a,#comment,b,");
  ZOLDftXMLNodeIterator back(Top(doc), ZOLDftXMLNodeIterator::Backward);
  std::string name;
  back.CurrentItem().GetNodeName(name);
  EXPECT_EQ(name, "b");
  back.Next();
  back.CurrentItem().GetNodeName(name);
  EXPECT_EQ(name, "#comment");
  EXPECT_FALSE(back.IsDone());
}

TEST_F(XMLNodeIterator, NodeWithoutChildrenIsDoneAtOnceAndMisuseIsReported) {
  auto doc = Read("<r/>");
  ZOLDftXMLNodeIterator it(Top(doc));
  EXPECT_TRUE(it.IsDone());
  EXPECT_TRUE(it.CurrentItem().IsNull());
  it.Next();
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 2);
  ZOLDftXMLNodeIterator none{ZOLIDOMNode_var()};
  EXPECT_TRUE(none.IsDone());
  EXPECT_TRUE(none.CurrentItem().IsNull());
  EXPECT_EQ(r.CountContaining("ON POINTER : NULL handler"), 1);
  reports = 4;
}
