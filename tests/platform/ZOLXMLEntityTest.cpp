// Entities in the two readers of the platform: a document that declares one is refused by the DOM
// builder and by the SAX reader alike, at the same place with the same message, while the
// predefined entities and character references still read.
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ZOLXMLDOM.h"
#include "ZOLXMLSAX.h"

namespace {

class Fatals : public ZOLISAXErrorHandler {
public:
  std::vector<ZOLSAXParseError> fatals, errors;
  int Warning(const ZOLSAXParseError&) override { return 0; }
  int Error(const ZOLSAXParseError& e) override { errors.push_back(e); return 0; }
  int FatalError(const ZOLSAXParseError& e) override { fatals.push_back(e); return 0; }
};

// The builder's result; error gets its last error.
HRESULT ReadDOM(const std::string& text, std::string& error, ZOLIDOMDocument& doc) {
  std::unique_ptr<ZOLIXMLDOMDocumentBuilder> b;
  EXPECT_EQ(CreateZOLIXMLDOMDocumentBuilder(b), S_OK);
  HRESULT hr = b->BuildDocumentFromSource(ZOLIXMLInputSource(ZOLIXMLInputSource::Kind::Text, text, "doc"), {}, {}, doc);
  error = b->GetLastError();
  return hr;
}

HRESULT ReadSAX(const std::string& text, Fatals& handler) {
  std::unique_ptr<ZOLIXMLSAX2Factory> factory;
  EXPECT_EQ(CreateZOLIXMLSAX2Factory(factory), S_OK);
  std::unique_ptr<ZOLISAXXMLReader> reader;
  EXPECT_EQ(factory->CreateReader(reader), S_OK);
  reader->SetErrorHandler(&handler);
  return reader->Parse(ZOLIXMLInputSource(ZOLIXMLInputSource::Kind::Text, text, "doc"));
}

// One internal entity of size bytes, referred to count times in an attribute: small on disk,
// size * count once expanded.
std::string Amplifier(size_t size, int count) {
  std::string refs;
  for (int i = 0; i < count; ++i) refs += "&e;";
  return "<?xml version=\"1.0\"?>\n<!DOCTYPE r [<!ENTITY e \"" + std::string(size, 'x') + "\">]>\n<r name=\"" + refs + "\"/>";
}

}  // namespace

TEST(XMLEntities, DeclaringDocumentIsRefusedByBothReadersAtTheSamePlaceWithTheSameMessage) {
  struct Case {
    const char* what;
    std::string text;
    const char* entity;
  };
  const std::vector<Case> cases = {
      {"amplifier in an attribute", Amplifier(1024, 1000), "e"},
      {"declared and never used", "<!DOCTYPE r [\n<!ENTITY quiet \"q\">]><r/>", "quiet"},
      {"external", "<!DOCTYPE r [<!ENTITY ext SYSTEM \"/etc/passwd\">]><r>&ext;</r>", "ext"},
      {"parameter entity", "<!DOCTYPE r [<!ENTITY % p \"<!ENTITY q 'x'>\"> %p;]><r>&q;</r>", "p"},
      {"unparsed", "<!DOCTYPE r [<!NOTATION n SYSTEM \"n\"><!ENTITY u SYSTEM \"u\" NDATA n>]><r/>", "u"},
      {"predefined one declared anew", "<!DOCTYPE r [<!ENTITY lt \"&#38;#60;\">]><r>&lt;</r>", "lt"},
      {"after element declarations", "<!DOCTYPE r [<!ELEMENT r (#PCDATA)>\n\n<!ENTITY late \"l\">]><r>&late;</r>", "late"},
  };
  for (const Case& c : cases) {
    ZOLIDOMDocument doc;
    std::string domError;
    EXPECT_EQ(ReadDOM(c.text, domError, doc), E_FAIL) << c.what;
    EXPECT_TRUE(doc.IsNull()) << c.what;
    Fatals sax;
    EXPECT_EQ(ReadSAX(c.text, sax), E_FAIL) << c.what;
    ASSERT_EQ(sax.fatals.size(), 1u) << c.what;
    const ZOLSAXParseError& e = sax.fatals[0];
    EXPECT_EQ(e.message, ZOLXMLEntityDeclaredMessage(c.entity)) << c.what;
    EXPECT_GT(e.line, 0) << c.what;
    EXPECT_EQ(domError, e.systemId + ":" + std::to_string(e.line) + ": " + e.message) << c.what;
  }
}

TEST(XMLEntities, UndeclaredReferenceIsRefusedEvenWhenAnUnreadExternalDtdCouldDeclareIt) {
  for (const std::string& text : {std::string("<r name=\"&u;\"/>"), std::string("<r>&u;</r>"),
                                  std::string("<!DOCTYPE r SYSTEM \"r.dtd\"><r name=\"a&u;b\"/>"),
                                  std::string("<!DOCTYPE r SYSTEM \"r.dtd\"><r>a&u;b</r>")}) {
    ZOLIDOMDocument doc;
    std::string domError;
    EXPECT_EQ(ReadDOM(text, domError, doc), E_FAIL) << text;
    EXPECT_NE(domError.find("'u'"), std::string::npos) << domError;
    Fatals sax;
    EXPECT_EQ(ReadSAX(text, sax), E_FAIL) << text;
    EXPECT_FALSE(sax.fatals.empty()) << text;
  }
}

TEST(XMLEntities, PredefinedEntitiesAndCharacterReferencesStillRead) {
  const std::string text = "<!DOCTYPE r [<!ELEMENT r EMPTY>]><r name=\"&lt;&gt;&amp;&apos;&quot;&#65;&#x42;&#233;\"/>";
  ZOLIDOMDocument doc;
  std::string error, name;
  ASSERT_EQ(ReadDOM(text, error, doc), S_OK) << error;
  ZOLIDOMElement top;
  doc.GetDocumentElement(top);
  EXPECT_EQ(top.GetAttributeNS("", "name", name), S_OK);
  EXPECT_EQ(name, "<>&'\"AB\xc3\xa9");
  Fatals sax;
  EXPECT_EQ(ReadSAX(text, sax), S_OK);
  EXPECT_TRUE(sax.fatals.empty());
}
