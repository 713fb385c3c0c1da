#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <sys/mman.h>

#include "ZOLScratch.h"
#include "ZOLTestReports.h"
#include "ZOLXMLDOM.h"
#include "ZOLXMLSAX.h"

namespace {

struct Options {
  ZOLListValZOLUnicodeString names, values;
  Options& Add(const char* n, const char* v) { names.Append(n); values.Append(v); return *this; }
};

std::unique_ptr<ZOLIXMLDOMDocumentBuilder> Builder() {
  std::unique_ptr<ZOLIXMLDOMDocumentBuilder> b;
  EXPECT_EQ(CreateZOLIXMLDOMDocumentBuilder(b), S_OK);
  return b;
}

HRESULT Read(ZOLIXMLDOMDocumentBuilder& b, const std::string& text, ZOLIDOMDocument& doc, const Options& o = {}) {
  return b.BuildDocumentFromSource(ZOLIXMLInputSource(ZOLIXMLInputSource::Kind::Text, text, "text"), o.names, o.values, doc);
}

ZOLIDOMElement Top(const ZOLIDOMDocument& doc) {
  ZOLIDOMElement e;
  doc.GetDocumentElement(e);
  return e;
}

class DOMBuilder : public testing::Test {
protected:
  std::unique_ptr<ZOLIXMLDOMDocumentBuilder> b = Builder();
  ZOLIDOMDocument doc;
};

}  // namespace

TEST_F(DOMBuilder, UnknownOptionOrNonBooleanValueIsRefused) {
  EXPECT_EQ(Read(*b, "<r/>", doc, Options().Add("ZOLSomething", "true")), E_INVALIDARG);
  EXPECT_EQ(Read(*b, "<r/>", doc, Options().Add("ZOLDoValidation", "maybe")), E_INVALIDARG);
  EXPECT_EQ(Read(*b, "<r/>", doc, Options().Add("ZOLFormatPrettyPrint", "true")), E_INVALIDARG);  // a writer option
  EXPECT_TRUE(doc.IsNull());
  EXPECT_FALSE(b->GetLastError().empty());
}

TEST_F(DOMBuilder, ValidationChecksAgainstTheDocumentsOwnDtdOnly) {
  const std::string dtd = "<!DOCTYPE r [<!ELEMENT r (a)*><!ELEMENT a EMPTY>]>";
  Options on = Options().Add("ZOLDoValidation", "true");
  EXPECT_EQ(Read(*b, dtd + "<r><a/></r>", doc, on), S_OK);
  EXPECT_EQ(Read(*b, dtd + "<r><b/></r>", doc, on), E_FAIL);
  EXPECT_NE(b->GetLastError().find(":1:"), std::string::npos) << b->GetLastError();
  EXPECT_EQ(Read(*b, dtd + "<r><b/></r>", doc, Options().Add("ZOLDoValidation", "false")), S_OK);
  EXPECT_EQ(Read(*b, "<r/>", doc, on), E_FAIL);  // nothing to validate against
  // An external DTD is never loaded, not even to validate against it.
  qeltest::ScratchDir dir;
  qeltest::WriteText(dir / "ext.dtd", "<!ELEMENT r EMPTY>");
  EXPECT_EQ(Read(*b, "<!DOCTYPE r SYSTEM \"" + (dir / "ext.dtd") + "\"><r/>", doc, on), E_FAIL);
}

TEST_F(DOMBuilder, WithoutNamespacesElementsHaveOnlyTheirQualifiedName) {
  ASSERT_EQ(Read(*b, "<s:r xmlns:s=\"urn:s\" s:a=\"1\" b=\"2\"/>", doc, Options().Add("ZOLEnableNameSpaces", "false")), S_OK);
  ZOLIDOMElement top = Top(doc);
  std::string_view local = "x", uri = "x";
  std::string name, value;
  top.GetLocalName(local);
  top.GetNamespaceURI(uri);
  top.GetNodeName(name);
  EXPECT_EQ(local, "");
  EXPECT_EQ(uri, "");
  EXPECT_EQ(name, "s:r");
  EXPECT_EQ(top.GetAttributeNS("", "s:a", value), S_OK);
  EXPECT_EQ(value, "1");
  // An undeclared prefix is no fault without namespaces, and one with them.
  EXPECT_EQ(Read(*b, "<p:r/>", doc, Options().Add("ZOLEnableNameSpaces", "false")), S_OK);
  EXPECT_EQ(Read(*b, "<p:r/>", doc), E_FAIL);
}

TEST_F(DOMBuilder, AttributesByNamespaceAndLocalName) {
  ASSERT_EQ(Read(*b, "<r xmlns:s=\"urn:s\" name=\"n &amp; m\" s:name=\"q\" empty=\"\"/>", doc), S_OK);
  ZOLIDOMElement top = Top(doc);
  std::string v;
  EXPECT_EQ(top.GetAttributeNS("", "name", v), S_OK);
  EXPECT_EQ(v, "n & m");
  EXPECT_EQ(top.GetAttributeNS("urn:s", "name", v), S_OK);
  EXPECT_EQ(v, "q");
  EXPECT_EQ(top.GetAttributeNS("", "empty", v), S_OK);
  EXPECT_EQ(v, "");
  EXPECT_EQ(top.GetAttributeNS("", "missing", v), S_FALSE);
  EXPECT_TRUE(top.HasAttributeNS("", "empty"));
  EXPECT_FALSE(top.HasAttributeNS("urn:other", "name"));
  EXPECT_EQ(ZOLIDOMElement().GetAttributeNS("", "name", v), E_FAIL);
}

TEST_F(DOMBuilder, CreatedDocumentWritesNamespacesOnceAndTextsUnmerged) {
  ASSERT_EQ(b->CreateDocument(doc), S_OK);
  ZOLIDOMElement top, child, orphan;
  ASSERT_EQ(doc.CreateElementNS("urn:s", "s:top", top), S_OK);
  ASSERT_EQ(top.SetAttribute("xmlns:s", "urn:s"), S_OK);
  ASSERT_EQ(top.SetAttribute("name", "a<b"), S_OK);
  ASSERT_EQ(doc.AppendChild(top), S_OK);
  EXPECT_EQ(doc.AppendChild(top), E_INVALIDARG);
  ASSERT_EQ(doc.CreateElementNS("urn:s", "s:v", child), S_OK);
  ASSERT_EQ(top.AppendChild(child), S_OK);
  ZOLIDOMNode t1, t2;
  ASSERT_EQ(doc.CreateTextNode("x", t1), S_OK);
  ASSERT_EQ(doc.CreateTextNode("&y", t2), S_OK);
  ASSERT_EQ(child.AppendChild(t1), S_OK);
  ASSERT_EQ(child.AppendChild(t2), S_OK);
  std::string_view v;
  t2.GetNodeValue(v);  // still a node of its own
  EXPECT_EQ(v, "&y");
  EXPECT_EQ(child.AppendChild(t1), E_INVALIDARG);  // has a parent already
  EXPECT_EQ(doc.CreateElementNS("", "s:bad", orphan), E_INVALIDARG);
  ASSERT_EQ(doc.CreateElementNS("urn:s", "s:orphan", orphan), S_OK);  // never appended: goes with the document
  std::string out;
  ASSERT_EQ(b->WriteToString(doc, out, Options().Add("ZOLFormatPrettyPrint", "false").names,
                             Options().Add("ZOLFormatPrettyPrint", "false").values), S_OK);
  EXPECT_EQ(out, "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<s:top xmlns:s=\"urn:s\" name=\"a&lt;b\"><s:v>x&amp;y</s:v></s:top>\n");
}

TEST_F(DOMBuilder, WriteToFileReplacesWholeOrNotAtAll) {
  ASSERT_EQ(Read(*b, "<r><a>1</a></r>", doc), S_OK);
  qeltest::ScratchDir dir;
  std::string path = dir / "out.xml";
  ASSERT_EQ(b->WriteToFile(doc, path, {}, {}), S_OK);
  ZOLIDOMDocument back;
  ASSERT_EQ(b->BuildDocumentFromFile(path, {}, {}, back), S_OK);
  std::string name;
  Top(back).GetNodeName(name);
  EXPECT_EQ(name, "r");
  EXPECT_EQ(b->WriteToFile(doc, "/nonexistent/dir/out.xml", {}, {}), E_FAIL);
  EXPECT_NE(b->GetLastError().find("/nonexistent/dir/out.xml"), std::string::npos);
  EXPECT_EQ(b->BuildDocumentFromFile("/nonexistent/in.xml", {}, {}, back), E_FAIL);
  EXPECT_NE(b->GetLastError().find("cannot open"), std::string::npos);
}

TEST_F(DOMBuilder, NodeTypesAndNamesAsInDom) {
  ASSERT_EQ(Read(*b, "<r>t<![CDATA[c]]><!--m--><?p d?><x:a xmlns:x=\"urn:x\"/></r>", doc), S_OK);
  ZOLIDOMNodeList children;
  ASSERT_EQ(Top(doc).GetChildNodes(children), S_OK);
  ASSERT_EQ(children.GetLength(), 5);
  std::string got;
  for (int i = 0; i < children.GetLength(); ++i) {
    ZOLIDOMNode n;
    ASSERT_EQ(children.Item(i, n), S_OK);
    std::string name;
    n.GetNodeName(name);
    got += std::to_string(n.GetNodeType()) + ":" + name + ",";
  }
  EXPECT_EQ(got, "3:#text,4:#cdata-section,8:#comment,7:p,1:x:a,");
  ZOLIDOMNode n;
  EXPECT_EQ(children.Item(5, n), E_INVALIDARG);
  EXPECT_EQ(children.Item(-1, n), E_INVALIDARG);
  ASSERT_EQ(children.Item(4, n), S_OK);
  ZOLIDOMNode parent;
  ASSERT_EQ(n.GetParentNode(parent), S_OK);
  EXPECT_TRUE(parent == Top(doc));
}

TEST(XMLText, FaultsAreTheTextsTheReadersWouldRefuse) {
  struct Case {
    std::string text;
    bool fault;
  };
  const Case cases[] = {
      {"", false},
      {"plain \t\n\r text", false},
      {"\x7f\xc2\x80\xc2\x9f", false},                 // DEL and C1 controls are XML characters
      {"\xed\x9f\xbf\xee\x80\x80\xef\xbf\xbd", false},  // U+D7FF, U+E000, U+FFFD
      {"\xf0\x90\x80\x80\xf4\x8f\xbf\xbf", false},      // U+10000, U+10FFFF
      {std::string("\0", 1), true},
      {"\x08", true},
      {"\x1f", true},
      {"\xef\xbf\xbe", true},          // U+FFFE
      {"\xef\xbf\xbf", true},          // U+FFFF
      {"\xed\xa0\x80", true},          // a surrogate
      {"\xc1\xbf", true},              // overlong
      {"\xe0\x9f\xbf", true},          // overlong
      {"\xf4\x90\x80\x80", true},      // beyond U+10FFFF
      {"\xf8\x88\x80\x80\x80", true},  // five bytes
      {"\xc3", true},                  // cut short
      {"\xe2\x82x", true},             // continuation missing
  };
  for (const Case& c : cases) EXPECT_EQ(ZOLXMLTextFault(c.text) != nullptr, c.fault) << c.text;
  // The length bound, on untouched zero pages: at the bound the first NUL is the fault, beyond it the length.
  const size_t size = ZOLXMLMaxTextLength + 1;
  void* pages = ::mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(pages, MAP_FAILED);
  const char* atBound = ZOLXMLTextFault(std::string_view(static_cast<const char*>(pages), size - 1));
  const char* beyond = ZOLXMLTextFault(std::string_view(static_cast<const char*>(pages), size));
  ::munmap(pages, size);
  EXPECT_STREQ(atBound, ZOLXMLTextFault(std::string("\0", 1)));
  ASSERT_NE(beyond, nullptr);
  EXPECT_STRNE(beyond, atBound);
}

TEST(XMLText, DocumentRefusesNodesAndAttributesThatWouldNotReadBack) {
  // Each fault found by ZOLXMLTextFault is also one that libxml2's reader refuses.
  for (const std::string& bad : {std::string("a\0b", 3), std::string("\x01"), std::string("\xc3\x28"), std::string("\xef\xbf\xbe")}) {
    std::unique_ptr<ZOLIXMLDOMDocumentBuilder> b = Builder();
    ZOLIDOMDocument parsed;
    EXPECT_EQ(Read(*b, "<r a=\"" + bad + "\"/>", parsed), E_FAIL);
    EXPECT_EQ(Read(*b, "<r>" + bad + "</r>", parsed), E_FAIL);
    ZOLIDOMDocument doc;
    ASSERT_EQ(b->CreateDocument(doc), S_OK);
    ZOLIDOMElement top;
    ASSERT_EQ(doc.CreateElementNS("", "r", top), S_OK);
    ZOLIDOMNode text;
    EXPECT_EQ(doc.CreateTextNode(bad, text), E_INVALIDARG);
    EXPECT_EQ(top.SetAttribute("a", bad), E_INVALIDARG);
    EXPECT_EQ(top.SetAttribute("xmlns:p", bad), E_INVALIDARG);
    ZOLIDOMElement element;
    EXPECT_EQ(doc.CreateElementNS("urn:" + bad, "p:e", element), E_INVALIDARG);
  }
  // Names must be XML names.
  std::unique_ptr<ZOLIXMLDOMDocumentBuilder> b = Builder();
  ZOLIDOMDocument doc;
  ASSERT_EQ(b->CreateDocument(doc), S_OK);
  ZOLIDOMElement e;
  for (const char* name : {"1a", "a b", "a:", "a:b:c", "<x>"}) EXPECT_EQ(doc.CreateElementNS("urn:x", name, e), E_INVALIDARG) << name;
  ASSERT_EQ(doc.CreateElementNS("", "r", e), S_OK);
  for (const char* name : {"1a", "a b", "xmlns:1"}) EXPECT_EQ(e.SetAttribute(name, "v"), E_INVALIDARG) << name;
}
