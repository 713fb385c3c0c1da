#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "ZOLReportCountTest.h"
#include "ZOLScratch.h"
#include "ZOLXMLSAX.h"
#include "detail/ZOLXMLSAXLean.h"

namespace {

// Writes the events it receives as lines, and can throw or stop at an element of a given name.
class Recorder : public ZOLISAXContentHandler, public ZOLISAXErrorHandler {
public:
  std::vector<std::string> events;
  std::string text;
  std::vector<ZOLSAXParseError> fatals, errors, warnings;
  std::string throwAt, stopAt;
  int depth = 0, maxDepth = 0;

  int StartDocument() override { events.push_back("start-doc"); return 0; }
  int EndDocument() override { events.push_back("end-doc"); return 0; }
  int StartElement(std::string_view uri, std::string_view local, std::string_view qname,
                   const ZOLISAXAttributes& attrs) override {
    if (qname == throwAt) throw std::runtime_error("handler failed at " + std::string(qname));
    if (qname == stopAt) return 1;
    maxDepth = std::max(maxDepth, ++depth);
    if (depth > 3) return 0;  // deep documents: keep the log small
    std::string line = "<" + std::string(qname) + "|" + std::string(local) + "|" + std::string(uri);
    std::string_view v;
    for (const char* name : {"name", "std:kind", "other:kind", "missing"})
      if (attrs.GetValue(name, v)) line += " " + std::string(name) + "=" + std::string(v);
    line += " #" + std::to_string(attrs.GetLength());
    events.push_back(line);
    return 0;
  }
  int EndElement(std::string_view, std::string_view, std::string_view qname) override {
    if (depth-- <= 3) events.push_back("</" + std::string(qname));
    return 0;
  }
  int Characters(std::string_view t) override { text += t; return 0; }
  int IgnorableWhitespace(std::string_view) override { events.push_back("ignorable"); return 0; }
  int ProcessingInstruction(std::string_view target, std::string_view) override {
    events.push_back("pi " + std::string(target));
    return 0;
  }
  int SetDocumentLocator(int, int) override { return 0; }
  int SkippedEntity(std::string_view) override { return 0; }
  int StartPrefixMapping(std::string_view prefix, std::string_view uri) override {
    events.push_back("map " + std::string(prefix) + "=" + std::string(uri));
    return 0;
  }
  int EndPrefixMapping(std::string_view prefix) override { events.push_back("unmap " + std::string(prefix)); return 0; }
  int Warning(const ZOLSAXParseError& e) override { warnings.push_back(e); return 0; }
  int Error(const ZOLSAXParseError& e) override { errors.push_back(e); return 0; }
  int FatalError(const ZOLSAXParseError& e) override { fatals.push_back(e); return 0; }
};

// Parses text, or the file at that path, with rec as both handlers and lean, if any, on the lean lane.
HRESULT Parse(const std::string& textOrPath, Recorder& rec, bool isFile, ZOLISAXLeanContentHandler* lean = nullptr) {
  std::unique_ptr<ZOLIXMLSAX2Factory> factory;
  EXPECT_EQ(CreateZOLIXMLSAX2Factory(factory), S_OK);
  std::unique_ptr<ZOLIXMLInputSource> source;
  EXPECT_EQ(isFile ? factory->CreateInputSourceFromFile(textOrPath, "fileID", source)
                   : factory->CreateInputSourceFromText(textOrPath, "fileID", source), S_OK);
  std::unique_ptr<ZOLISAXXMLReader> reader;
  EXPECT_EQ(factory->CreateReader(reader), S_OK);
  reader->SetContentHandler(&rec);
  reader->SetErrorHandler(&rec);
  if (lean) {
    EXPECT_EQ(ZOLSAXSetLeanContentHandler(*reader, lean), S_OK);
  }
  return reader->Parse(*source);
}

HRESULT ParseText(const std::string& text, Recorder& rec) { return Parse(text, rec, false); }
HRESULT ParseFile(const std::string& path, Recorder& rec) { return Parse(path, rec, true); }

class SAXReader : public ZOLReportCountTest {
protected:
  Recorder rec;
};

}  // namespace

TEST_F(SAXReader, ReportsNamespacesQualifiedNamesAndAttributesByQualifiedName) {
  const std::string doc =
      "<std:node xmlns:std=\"http://x.org/std\" xmlns:other=\"urn:o\" name=\"drafting\">"
      "<std:intval std:kind=\"k\" other:kind=\"o\">1</std:intval><plain name=\"p\"/></std:node>";
  EXPECT_EQ(ParseText(doc, rec), S_OK);
  std::vector<std::string> expected = {
      "start-doc",
      "map std=http://x.org/std",
      "map other=urn:o",
      "<std:node|node|http://x.org/std name=drafting #1",
      "<std:intval|intval|http://x.org/std std:kind=k other:kind=o #2",
      "</std:intval",
      "<plain|plain| name=p #1",
      "</plain",
      "</std:node",
      "unmap other",
      "unmap std",
      "end-doc"};
  EXPECT_EQ(rec.events, expected);
  EXPECT_TRUE(rec.fatals.empty());
}

TEST_F(SAXReader, TextCdataReferencesAndAttributeValuesArriveDecodedAndUntrimmed) {
  EXPECT_EQ(ParseText("<a name=\"x &amp; &#66; &lt;\"> x &amp; <![CDATA[<y>]]>&#65;&lt;\n </a>", rec), S_OK);
  EXPECT_EQ(rec.text, " x & <y>A<\n ");
  EXPECT_EQ(rec.events, (std::vector<std::string>{"start-doc", "<a|a| name=x & B < #1", "</a", "end-doc"}));
}

TEST_F(SAXReader, HandlerExceptionStopsTheParseAndReachesTheCaller) {
  rec.throwAt = "b";
  EXPECT_THROW(ParseText("<r><a/><b/><c/></r>", rec), std::runtime_error);
  // Nothing after the throwing element was handed on.
  EXPECT_EQ(std::count(rec.events.begin(), rec.events.end(), std::string("<c|c| #0")), 0);
  EXPECT_EQ(std::count(rec.events.begin(), rec.events.end(), std::string("end-doc")), 0);
  // A result other than zero stops with failure; the reader is usable again afterwards.
  Recorder stop;
  stop.stopAt = "b";
  EXPECT_EQ(ParseText("<r><a/><b/><c/></r>", stop), E_FAIL);
  EXPECT_EQ(std::count(stop.events.begin(), stop.events.end(), std::string("end-doc")), 0);
  Recorder again;
  EXPECT_EQ(ParseText("<r/>", again), S_OK);
}

TEST_F(SAXReader, MalformedInputGivesFatalErrorWithPositionAndFails) {
  EXPECT_EQ(ParseText("<r>\n<a></b></r>", rec), E_FAIL);
  ASSERT_FALSE(rec.fatals.empty());
  EXPECT_EQ(rec.fatals[0].line, 2);
  EXPECT_EQ(rec.fatals[0].systemId, "fileID");
  EXPECT_FALSE(rec.fatals[0].message.empty());
  for (const char* bad : {"", "<r>", "<r><a>text", "not xml", "<r>\xff\xfe</r>", "<p:r/>", "<r/><r/>"}) {
    Recorder r2;
    EXPECT_EQ(ParseText(bad, r2), E_FAIL) << bad;
    EXPECT_FALSE(r2.fatals.empty()) << bad;
  }
}

TEST_F(SAXReader, HundredThousandLevelsDeepParseWithoutExhaustingTheStack) {
  const int depth = 100000;
  std::string doc;
  doc.reserve(depth * 8);
  for (int i = 0; i < depth; ++i) doc += "<a>";
  for (int i = 0; i < depth; ++i) doc += "</a>";
  EXPECT_EQ(ParseText(doc, rec), S_OK);
  EXPECT_EQ(rec.maxDepth, depth);
  EXPECT_EQ(rec.depth, 0);
}

TEST_F(SAXReader, FileIsReadInChunksWithTextAcrossChunkBoundaries) {
  std::string text = "<?xml version=\"1.0\" encoding=\"UTF-8\"?><r>", expected;
  for (int i = 0; i < 20000; ++i) {
    std::string t = "v" + std::to_string(i) + " \xc3\xa9 ";
    text += "<s>" + t + "</s>";
    expected += t;
  }
  qeltest::ScratchDir dir;
  qeltest::WriteText(dir / "big.xml", text + "</r>");
  EXPECT_EQ(ParseFile(dir / "big.xml", rec), S_OK);
  EXPECT_EQ(rec.text, expected);
}

TEST_F(SAXReader, MissingFileGivesFatalErrorAndFailure) {
  EXPECT_EQ(ParseFile("/nonexistent/dir/std.xml", rec), E_FAIL);
  ASSERT_EQ(rec.fatals.size(), 1u);
  EXPECT_NE(rec.fatals[0].message.find("/nonexistent/dir/std.xml"), std::string::npos);
  EXPECT_TRUE(rec.events.empty());
}

TEST_F(SAXReader, SchemaValidationCanOnlyBeSwitchedOffAndParsesNeedNoHandlers) {
  std::unique_ptr<ZOLIXMLSAX2Factory> factory;
  ASSERT_EQ(CreateZOLIXMLSAX2Factory(factory), S_OK);
  std::unique_ptr<ZOLISAXXMLReader> reader;
  ASSERT_EQ(factory->CreateReader(reader), S_OK);
  EXPECT_EQ(reader->SetFeature(ZOLSAXFeatureSchemaValidation, false), S_OK);
  EXPECT_EQ(reader->SetFeature(ZOLSAXFeatureSchemaValidation, true), E_NOTIMPL);
  EXPECT_EQ(reader->SetFeature("http://xml.org/sax/features/validation", true), E_NOTIMPL);
  std::unique_ptr<ZOLIXMLInputSource> source;
  factory->CreateInputSourceFromText("<r><a/></r>", "t", source);
  EXPECT_EQ(reader->Parse(*source), S_OK);
  factory->CreateInputSourceFromText("<r><a></r>", "t", source);
  EXPECT_EQ(reader->Parse(*source), E_FAIL);
}

namespace {

// Elements and text of the lean lane, logged into the same list as the content handler's events.
class LeanRecorder : public ZOLISAXLeanContentHandler {
public:
  explicit LeanRecorder(Recorder& rec) : _rec(rec) {}
  int StartParse(const ZOLISAXDictionary& dictionary) override {
    _std = dictionary.Intern("std");
    return 0;
  }
  int StartElement(const ZOLSAXName& name, const ZOLSAXAttributeList& attributes) override {
    std::string local = name.local;
    if (local == _rec.throwAt) throw std::runtime_error("handler failed at " + local);
    if (local == _rec.stopAt) return 1;
    std::string line = "<" + local + (name.prefix == _std && _std ? " (std)" : "") + " #" + std::to_string(attributes.Count());
    for (int i = 0; i < attributes.Count(); ++i) line += " " + std::string(attributes.Name(i).local) + "=" + std::string(attributes.Value(i));
    _rec.events.push_back(line);
    return 0;
  }
  int EndElement(const ZOLSAXName& name) override {
    _rec.events.push_back("</" + std::string(name.local));
    return 0;
  }
  int Characters(std::string_view text) override {
    _rec.text += text;
    return 0;
  }

private:
  Recorder& _rec;
  const char* _std = nullptr;
};

// The same handler, called by the parser without the reader in between.
class DirectLeanRecorder final : public LeanRecorder {
public:
  using LeanRecorder::LeanRecorder;
  const ZOLSAXLeanCallbacks* DirectCallbacks() const override { return &ZOLSAXDirectLane<DirectLeanRecorder>::kCallbacks; }
};

class LeanLane : public ZOLReportCountTest, public testing::WithParamInterface<bool> {
protected:
  HRESULT ParseLean(const std::string& text) {
    LeanRecorder viaReader(rec);
    DirectLeanRecorder direct(rec);
    return Parse(text, rec, false, GetParam() ? &direct : &viaReader);
  }
  Recorder rec;
};

}  // namespace

TEST_P(LeanLane, TakesElementsAndTextWhileTheContentHandlerKeepsTheRest) {
  const std::string doc =
      "<?pi x?><std:r xmlns:std=\"u1\" name=\"top\">a<x xmlns:b=\"u2\" b:k=\"v\"><y/>b&amp;</x>"
      "<![CDATA[c]]><std:z/></std:r>";
  EXPECT_EQ(ParseLean(doc), S_OK);
  // A prefix is unmapped at the end of the element that declared it, not of its children.
  std::vector<std::string> expected = {"start-doc", "pi pi",  "map std=u1", "<r (std) #1 name=top", "map b=u2",
                                       "<x #1 k=v", "<y #0",  "</y",        "</x",                  "unmap b",
                                       "<z (std) #0", "</z", "</r",         "unmap std",            "end-doc"};
  EXPECT_EQ(rec.events, expected);
  EXPECT_EQ(rec.text, "ab&c");
}

TEST_P(LeanLane, HandlerExceptionAndResultStopTheParse) {
  rec.throwAt = "b";
  EXPECT_THROW(ParseLean("<r><a/><b/><c/></r>"), std::runtime_error);
  EXPECT_EQ(std::count(rec.events.begin(), rec.events.end(), std::string("<c #0")), 0);
  EXPECT_EQ(std::count(rec.events.begin(), rec.events.end(), std::string("end-doc")), 0);

  rec = Recorder();
  rec.stopAt = "b";
  EXPECT_EQ(ParseLean("<r><a/><b/><c/></r>"), E_FAIL);
  EXPECT_EQ(std::count(rec.events.begin(), rec.events.end(), std::string("<c #0")), 0);

  // Malformed input still fails with its position, after what came before it was handed on.
  rec = Recorder();
  EXPECT_EQ(ParseLean("<r><a></r>"), E_FAIL);
  ASSERT_EQ(rec.fatals.size(), 1u);
  EXPECT_EQ(rec.events[1], "<r #0");
}

INSTANTIATE_TEST_SUITE_P(ThroughReaderOrDirect, LeanLane, testing::Bool(),
                         [](const testing::TestParamInfo<bool>& info) { return info.param ? "Direct" : "ThroughReader"; });
