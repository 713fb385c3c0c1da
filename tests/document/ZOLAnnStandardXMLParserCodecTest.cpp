// The parser's codec seam: the factory, construction failures, and how codec results are passed on.
#include <gtest/gtest.h>

#include <utility>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLAnnStandardXMLParserCodec.h"
#include "ZOLAnnStandardXMLParserCodecFactory.h"
#include "ZOLAnnStandardXMLParserDOMCodecFactory.h"
#include "ZOLQelInstCount.h"
#include "ZOLReportCountTest.h"

namespace {

// A codec that answers with fixed results and remembers what it was asked.
struct FakeCodec : ZOLAnnStandardXMLParserCodec {
  HRESULT initResult = S_OK, decodeResult = S_OK, saveResult = S_OK;
  ZOLAnnStandardXMLNode* roots[3] = {};
  ZOLUnicodeString lastSource;
  int fileCalls = 0, stringCalls = 0;
  HRESULT Init(ZOLAnnStandardXMLNode* t, ZOLAnnStandardXMLNode* e, ZOLAnnStandardXMLNode* r) override {
    roots[0] = t, roots[1] = e, roots[2] = r;
    return initResult;
  }
  HRESULT DecodeXMLString(ZOLUnicodeString text) override { ++stringCalls; lastSource = text; return decodeResult; }
  HRESULT DecodeXMLFile(ZOLUnicodeString path) override { ++fileCalls; lastSource = path; return decodeResult; }
  HRESULT SaveInFile(ZOLUnicodeString path) override { lastSource = path; return saveResult; }
  HRESULT SaveInString(ZOLUnicodeString& text) override { text = "saved"; return saveResult; }
};

// Hands out one prepared codec (or null), then nulls.
struct FakeFactory : ZOLAnnStandardXMLParserCodecFactory {
  explicit FakeFactory(FakeCodec* codec) : next(codec) {}
  ~FakeFactory() override { delete next; }
  ZOLAnnStandardXMLParserCodec* CreateCodec() override { return std::exchange(next, nullptr); }
  FakeCodec* next;
};

// Installs a factory for one test and puts the default one back afterwards.
struct FactoryScope {
  explicit FactoryScope(FakeCodec* codec) { ZOLAnnStandardXMLParser::SetCodecFactory(new FakeFactory(codec)); }
  ~FactoryScope() { ZOLAnnStandardXMLParser::SetCodecFactory(new ZOLAnnStandardXMLParserDOMCodecFactory()); }
};

// A fake codec installed for the test, which may still change its results.
class ParserCodec : public ZOLReportCountTest {
protected:
  FakeCodec* codec = new FakeCodec;
  FactoryScope scope{codec};
};

}  // namespace

TEST_F(ParserCodec, InitGetsTheRootsInTheOrderTypeDefEnumRoot) {
  ZOLAnnStandardXMLParser doc;
  EXPECT_EQ(codec->roots[0], doc.TypeDefRoot());
  EXPECT_EQ(codec->roots[1], doc.EnumRoot());
  EXPECT_EQ(codec->roots[2], doc.Root());
}

TEST_F(ParserCodec, ResultsOfTheCodecArePassedOn) {
  ZOLAnnStandardXMLParser doc;
  EXPECT_EQ(doc.DecodeXML("a.xml", 1), 0);
  EXPECT_EQ(codec->fileCalls, 1);
  EXPECT_EQ(codec->lastSource, "a.xml");
  codec->decodeResult = S_FALSE;  // a success with a remark is a success
  EXPECT_EQ(doc.DecodeXML("<x/>", 0), 0);
  EXPECT_EQ(codec->stringCalls, 1);
  codec->decodeResult = E_FAIL;
  EXPECT_EQ(doc.DecodeXML("<x/>", 0), 1);
  codec->saveResult = E_NOTIMPL;
  EXPECT_EQ(doc.SaveInFile("b.xml"), E_NOTIMPL);
  EXPECT_EQ(r.Count(), 0);
  ZOLUnicodeString text;
  doc.SaveInString(text);
  EXPECT_EQ(r.CountContaining(">> ASSERTION FAILED BOOL IS FALSE: Failed to save [File: ZOLAnnStandardXMLParser.cpp:"), 1);
  codec->saveResult = S_OK;
  doc.SaveInString(text);
  EXPECT_EQ(text, "saved");
  reports = 1;
}

TEST_F(ParserCodec, FailedInitIsReportedAndTheTreeStaysUsable) {
  codec->initResult = E_UNEXPECTED;
  ZOLAnnStandardXMLParser doc;
  EXPECT_EQ(r.CountContaining(">> ASSERTION FAILED BOOL IS FALSE: Codec initialized failed! [File:"), 1);
  EXPECT_EQ(doc.AddNodeWithPath("Root:Styles", 0), 0);
  EXPECT_EQ(doc.DecodeXML("<x/>", 0), 0);  // the codec is kept
  reports = 1;
}

TEST_F(ParserCodec, NullCodecIsReportedAtEachUse) {
  FactoryScope none(nullptr);
  ZOLAnnStandardXMLParser doc;
  EXPECT_EQ(r.CountContaining("ON POINTER "), 1);
  EXPECT_EQ(doc.AddNodeWithPath("Root:Styles", 0), 0);
  EXPECT_EQ(doc.DecodeXML("a.xml", 1), 1);
  EXPECT_EQ(doc.SaveInFile("a.xml"), E_UNEXPECTED);
  ZOLUnicodeString text("kept");
  doc.SaveInString(text);
  EXPECT_EQ(text, "kept");
  EXPECT_EQ(r.CountContaining("ON POINTER "), 4);
  reports = 4;
}

TEST_F(ParserCodec, NullFactoryIsRefusedAndTheInstalledOneStays) {
  ZOLAnnStandardXMLParser::SetCodecFactory(nullptr);
  EXPECT_EQ(r.CountContaining("ON POINTER "), 1);
  ZOLAnnStandardXMLParser doc;
  EXPECT_EQ(codec->roots[2], doc.Root());
  reports = 1;
}

TEST_F(ParserCodec, ExistingParsersKeepTheirCodec) {
  ZOLAnnStandardXMLParser doc;
  auto* second = new FakeCodec;
  FactoryScope later(second);
  EXPECT_EQ(doc.DecodeXML("a.xml", 1), 0);
  EXPECT_EQ(codec->fileCalls, 1);
  EXPECT_EQ(second->fileCalls, 0);
}

TEST_F(ParserCodec, CopiesShareRootsAndCodecAndMayBothBeDestroyed) {
  long before = ZOLQelInstCountGet("ZOLAnnStandardXMLParser");
  ZOLSetDevelopmentStage(1);
  {
    auto* doc = new ZOLAnnStandardXMLParser;
    ZOLAnnStandardXMLParser copy(*doc);
    EXPECT_EQ(ZOLQelInstCountGet("ZOLAnnStandardXMLParser"), before + 2);
    EXPECT_EQ(copy.Root(), doc->Root());
    EXPECT_EQ(copy.AddNodeWithPath("Root:Styles", 0), 0);
    EXPECT_EQ(doc->Root()->GetNumOfNode(), 1);
    delete doc;
    EXPECT_EQ(copy.DecodeXML("a.xml", 1), 0);
    EXPECT_EQ(codec->fileCalls, 1);
    ZOLAnnStandardXMLParser other;  // the fake factory has no codec left: one report
    other = copy;
    EXPECT_EQ(other.EnumRoot(), copy.EnumRoot());
  }
  ZOLSetDevelopmentStage(0);
  EXPECT_EQ(ZOLQelInstCountGet("ZOLAnnStandardXMLParser"), before);
  reports = 1;
}
