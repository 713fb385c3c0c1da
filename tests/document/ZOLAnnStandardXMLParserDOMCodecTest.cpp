// The DOM codec: decoding by the rules of the dialect, encoding in root order, and bad input.
#include <gtest/gtest.h>

#include <cctype>
#include <fstream>
#include <map>
#include <memory>
#include <string>

#include "../catalogue/BuiltinTestSupport.h"
#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "document/ZOLAnnStandardXMLParserDOMCodec.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLEditLines.h"
#include "ZOLReportCountTest.h"
#include "ZOLScratch.h"

using builtintest::Dump;
using qeltest::ReadText;
using qeltest::ScratchDir;

namespace {

const std::string kNs(ZOLDftStdNamespaceURI);

// A document of the dialect around body.
std::string Std(const std::string& body, const std::string& rootAttributes = " name=\"drafting\"") {
  return "<?xml version=\"1.0\"?><std:node xmlns:std=\"" + kNs + "\"" + rootAttributes + ">" + body + "</std:node>";
}

std::string DumpAll(const ZOLAnnStandardXMLParser& p) { return Dump(p.EnumRoot()) + Dump(p.TypeDefRoot()) + Dump(p.Root()); }

// A standard of every kind of node and value, built by edit strings.
void BuildSample(ZOLAnnStandardXMLParser& p) {
  ZOLEditLines(p, {"N Enum:YesNo", "N Enum:FontStyle", "N TypeDef:SheetFormatDef", "N Root:General", "N Root:Styles",
                   "N Root.Styles:Sheet", "N Root.Styles.Sheet:Default", "V Enum.YesNo::string:Yes", "V Enum.YesNo::string:No",
                   "V Enum.FontStyle::string:Normal", "V Enum.FontStyle::string:Bold", "V TypeDef.SheetFormatDef:Name:string:A4 ISO",
                   "V TypeDef.SheetFormatDef:Width:float:210", "V TypeDef.SheetFormatDef:Kind:enum.YesNo:Yes",
                   "V TypeDef.SheetFormatDef:Count:int:1", "V Root:Version:int:290:1", "V Root.General:Blank:string: ",
                   "V Root.General:Empty:string:", "V Root.General:Markup:string:<a & \"b\"> 'c' \xc3\xa9",
                   "V Root.General:Color:color:140 140 140", "V Root.General:Bold:enum.YesNo:Yes",
                   "V Root.Styles.Sheet.Default:GlobalScale:float.m.0.0:1.0:0", "T Root.General:Formats",
                   "L Root.General.Formats:Name:string:A0 ISO", "L Root.General.Formats:Width:float:1189",
                   "L Root.General.Formats:Style:enum.YesNo:No", "T Root.General.Formats:Inner", "L Root.General.Formats.Inner:X:int:3"});
}

// Decodes text into a fresh parser; the parser's result (0 success).
int Decode(ZOLAnnStandardXMLParser& p, const std::string& text) { return p.DecodeXML(ZOLUnicodeString(text), 0); }

std::string Save(ZOLAnnStandardXMLParser& p) {
  ZOLUnicodeString text;
  p.SaveInString(text);
  return text.str();
}

ZOLRef<ZOLAnnStandardXMLNode> NewNode(ZOLAnnStandardXMLNode::Type type, const char* name) {
  return ZOLRef<ZOLAnnStandardXMLNode>::Adopt(new ZOLAnnStandardXMLNode(type, name));
}

class DOMCodec : public ZOLReportCountTest {
protected:
  ZOLAnnStandardXMLParser p;
};

}  // namespace

// ---------------------------------------------------------------- round trip

TEST_F(DOMCodec, RoundTrip_EditStringTreeDecodesToTheSameTreeInTheSameOrderFromTextOrFile) {
  BuildSample(p);
  std::string text = Save(p);
  ScratchDir dir;
  ASSERT_EQ(p.SaveInFile(dir / "ISO.xml"), S_OK);
  EXPECT_EQ(ReadText(dir / "ISO.xml"), text);
  for (int isFile : {0, 1}) {
    ZOLAnnStandardXMLParser read;
    ASSERT_EQ(read.DecodeXML(ZOLUnicodeString(isFile ? dir / "ISO.xml" : text), isFile), 0) << text;
    EXPECT_EQ(DumpAll(read), DumpAll(p));
    EXPECT_EQ(Save(read), text);  // a second round gives the same bytes
    EXPECT_EQ(read.GetVersion(), 290);
  }
}

TEST_F(DOMCodec, RoundTrip_WritesRootsInOrderWithMinvalAndName) {
  BuildSample(p);
  std::string text = Save(p);
  EXPECT_NE(text.find("<std:node xmlns:std=\"" + kNs + "\" name=\"drafting\">"), std::string::npos) << text;
  size_t enumdef = text.find("<std:enumdef name=\"YesNo\">");
  size_t typedef_ = text.find("<std:typedef name=\"SheetFormatDef\">");
  size_t version = text.find("<std:node name=\"Version\">");
  ASSERT_NE(enumdef, std::string::npos);
  EXPECT_LT(enumdef, typedef_);
  EXPECT_LT(typedef_, version);
  for (const char* piece : {"<std:floatval minval=\"0.0\">1.0</std:floatval>", "<std:enumval name=\"YesNo\">Yes</std:enumval>",
                            "<std:strval> </std:strval>", "<std:strval></std:strval>", "&lt;a &amp; \"b\"&gt; 'c' \xc3\xa9"})
    EXPECT_NE(text.find(piece), std::string::npos) << piece;
}

TEST_F(DOMCodec, RoundTrip_ValuesComeBeforeSubNodesOnceWritten) {
  ASSERT_EQ(Decode(p, Std("<std:node name=\"A\"><std:node name=\"B\"><std:intval>1</std:intval></std:node>"
                          "<std:intval>2</std:intval></std:node>")), 0);
  std::string text = Save(p);
  EXPECT_LT(text.find("<std:intval>2</std:intval>"), text.find("<std:node name=\"B\">")) << text;
}

TEST_F(DOMCodec, Decode_TypedefInsideANodeLandsUnderTheTypeDefRootAndIsWrittenAtTheTop) {
  ASSERT_EQ(Decode(p, Std("<std:node name=\"A\"><std:intval>1</std:intval>"
                          "<std:typedef name=\"T\"><std:intval name=\"f\">0</std:intval></std:typedef>"
                          "<std:node name=\"B\"><std:intval>2</std:intval></std:node></std:node>")), 0);
  ASSERT_EQ(p.TypeDefRoot()->GetNumOfNode(), 1);
  EXPECT_EQ(p.TypeDefRoot()->SubNodes()[0]->Name().str(), "T");
  EXPECT_EQ(p.Root()->SubNodes()[0]->GetNumOfNode(), 1);  // only B
  std::string text = Save(p);
  EXPECT_LT(text.find("<std:typedef name=\"T\">"), text.find("<std:node name=\"A\">"));
}

TEST_F(DOMCodec, Decode_ReadsNameAndTypeOfTheDocumentElementAndWritesThemBack) {
  ZOLAnnStandardXMLParserDOMCodec codec;
  EXPECT_EQ(codec.GetName().str(), "drafting");
  auto t = NewNode(ZOLAnnStandardXMLNode::RootNode, "TypeDef");
  auto e = NewNode(ZOLAnnStandardXMLNode::RootNode, "Enum");
  auto root = NewNode(ZOLAnnStandardXMLNode::RootNode, "Root");
  ASSERT_EQ(codec.Init(t.get(), e.get(), root.get()), S_OK);
  ASSERT_EQ(codec.DecodeXMLString(ZOLUnicodeString(Std("", " name=\"mine\" type=\"kind\""))), S_OK);
  EXPECT_EQ(codec.GetName().str(), "mine");
  EXPECT_EQ(codec.GetType().str(), "kind");
  ZOLUnicodeString out;
  ASSERT_EQ(codec.SaveInString(out), S_OK);
  EXPECT_NE(out.str().find("name=\"mine\" type=\"kind\""), std::string::npos);
  // A document element without them leaves both empty, and nothing is written.
  ASSERT_EQ(codec.DecodeXMLString(ZOLUnicodeString(Std("", ""))), S_OK);
  EXPECT_EQ(codec.GetName().str(), "");
  ASSERT_EQ(codec.SaveInString(out), S_OK);
  EXPECT_NE(out.str().find("<std:node xmlns:std=\"" + kNs + "\"/>"), std::string::npos) << out.str();
}

// ---------------------------------------------------------------- the document element and foreign elements

TEST_F(DOMCodec, Decode_ForeignElementsAreSkippedWithAllBelowThem) {
  ASSERT_EQ(Decode(p, Std("<x:meta xmlns:x=\"urn:x\"><std:node name=\"Hidden\"/></x:meta>"
                          "<plain><std:intval>bad</std:intval></plain>"
                          "<std:enumdef name=\"E\"><x:note xmlns:x=\"urn:x\"/><std:strval>a</std:strval></std:enumdef>"
                          "<std:typedef name=\"T\"><x:y xmlns:x=\"urn:x\"/><std:intval name=\"f\">0</std:intval></std:typedef>"
                          "<std:node name=\"A\"><x:y xmlns:x=\"urn:x\"><std:enumdef/></x:y><std:intval>1</std:intval></std:node>"
                          "<!-- a comment --><?pi here?>")), 0);
  EXPECT_EQ(Dump(p.Root()), "0:Root{1:A{1//1/0;}}");
  EXPECT_EQ(p.EnumRoot()->SubNodes()[0]->GetNumOfValue(), 1);
  EXPECT_EQ(p.TypeDefRoot()->SubNodes()[0]->GetNumOfValue(), 1);
}

// ---------------------------------------------------------------- the attribute table

struct Fault {
  const char* what;
  std::string body;
  int reports;
  const char* message;  // a text the report holds
};

class DOMCodecFault : public testing::TestWithParam<Fault> {};

TEST_P(DOMCodecFault, RefusesTheDocumentWithItsReports) {
  const Fault& f = GetParam();
  ZOLTestReports r;
  ZOLAnnStandardXMLParser p;
  EXPECT_EQ(Decode(p, Std(f.body)), 1) << f.what;
  EXPECT_EQ(r.Count(), f.reports) << f.what;
  EXPECT_EQ(r.CountContaining(f.message), f.reports > 0 ? 1 : 0) << f.what;
}

const std::string kNode = "<std:node name=\"P\">";
const std::string kTypeVal = "<std:node name=\"P\"><std:typeval name=\"R\">";
const std::string kTypeValEnd = "</std:typeval></std:node>";

INSTANTIATE_TEST_SUITE_P(
    AttributeTable, DOMCodecFault,
    testing::Values(
        Fault{"named intval below node", kNode + "<std:intval name=\"X\">1</std:intval></std:node>", 1, "BOOL IS FALSE"},
        Fault{"named strval below node", kNode + "<std:strval name=\"\">a</std:strval></std:node>", 1, "BOOL IS FALSE"},
        Fault{"enumval without name below node", kNode + "<std:enumval>Yes</std:enumval></std:node>", 1, "BOOL IS FALSE"},
        Fault{"minval on an intval", kNode + "<std:intval minval=\"0\">1</std:intval></std:node>", 1, "BOOL IS FALSE"},
        Fault{"empty minval", kNode + "<std:floatval minval=\"\">1</std:floatval></std:node>", 1, "BOOL IS FALSE"},
        Fault{"minval below typeval", kTypeVal + "<std:floatval name=\"W\" minval=\"0.0\">1</std:floatval>" + kTypeValEnd, 1, "BOOL IS FALSE"},
        Fault{"unnamed intval below typeval", kTypeVal + "<std:intval>1</std:intval>" + kTypeValEnd, 1, "BOOL IS FALSE"},
        Fault{"node without name", "<std:node><std:intval>1</std:intval></std:node>", 1, "BOOL IS FALSE"},
        Fault{"typeval with empty name", kNode + "<std:typeval name=\"\"/></std:node>", 1, "BOOL IS FALSE"},
        Fault{"enumdef below a node", kNode + "<std:enumdef name=\"E\"><std:strval>a</std:strval></std:enumdef></std:node>", 1, "Invalid node"},
        Fault{"unknown element of the dialect", kNode + "<std:boolval>1</std:boolval></std:node>", 1, "Invalid node"},
        Fault{"value below the document element", "<std:intval>1</std:intval>", 1, "Invalid node"},
        Fault{"typeval below the document element", "<std:typeval name=\"R\"/>", 1, "Invalid node"},
        Fault{"enumdef without name", "<std:enumdef><std:strval>a</std:strval></std:enumdef>", 1, "BOOL IS FALSE"},
        Fault{"enumdef without strval", "<std:enumdef name=\"E\"/>", 1, "Enumdef node empty!"},
        Fault{"enumdef of broken strvals only", "<std:enumdef name=\"E\"><std:strval minval=\"1\">a</std:strval></std:enumdef>", 2, "Enumdef node empty!"},
        Fault{"intval in an enumdef", "<std:enumdef name=\"E\"><std:intval>1</std:intval></std:enumdef>", 1, "Invalid node"},
        Fault{"typedef without name", "<std:typedef><std:intval name=\"f\">1</std:intval></std:typedef>", 1, "BOOL IS FALSE"},
        Fault{"typedef without values", "<std:typedef name=\"T\"/>", 1, "Typedef node empty!"},
        Fault{"colorval in a typedef", "<std:typedef name=\"T\"><std:colorval name=\"c\">1 2 3</std:colorval></std:typedef>", 1, "Invalid node"},
        Fault{"unnamed value in a typedef", "<std:typedef name=\"T\"><std:intval>1</std:intval></std:typedef>", 2, "Invalid node"},
        Fault{"minval in a typedef", "<std:typedef name=\"T\"><std:floatval name=\"f\" minval=\"0\">1</std:floatval></std:typedef>", 2, "Invalid node"},
        Fault{"broken typedef inside a node", kNode + "<std:typedef name=\"T\"/></std:node>", 1, "Typedef node empty!"},
        Fault{"element inside a value", kNode + "<std:strval>a<b/>c</std:strval></std:node>", 1, "Invalid node where there should"},
        Fault{"processing instruction inside a value", kNode + "<std:strval>a<?x y?></std:strval></std:node>", 1, "Invalid node where there should"}),
    // Each case is named after what it breaks, in the characters a test name allows.
    [](const testing::TestParamInfo<Fault>& info) {
      std::string name;
      for (const char* c = info.param.what; *c; ++c)
        name += std::isalnum(static_cast<unsigned char>(*c)) ? *c : '_';
      return name;
    });

TEST_F(DOMCodec, AttributeTable_NamedValuesBelowTypevalAndBoundsBelowNodesAreRight) {
  ASSERT_EQ(Decode(p, Std(kTypeVal + "<std:intval name=\"X\">1</std:intval><std:floatval name=\"W\">2</std:floatval>"
                                     "<std:strval name=\"S\"/><std:colorval name=\"C\">0 39 64</std:colorval>"
                                     "<std:enumval name=\"E\">Yes</std:enumval>" + kTypeValEnd +
                          "<std:node name=\"G\"><std:floatval minval=\"0.0\">1.0</std:floatval></std:node>")), 0);
  EXPECT_EQ(Dump(p.Root()), "0:Root{1:P{4:R{1/X/1/0;2/W/2/0;3/S//0;5/C/0 39 64/0;4/E/Yes/0;}}1:G{2/0.0/1.0/1;}}");
}

TEST_F(DOMCodec, Enumdef_StrvalNamedOtherThanTheEnumIsKeptWithAReport) {
  ASSERT_EQ(Decode(p, Std("<std:enumdef name=\"E\"><std:strval name=\"E\">a</std:strval>"
                          "<std:strval name=\"F\">b</std:strval><std:strval minval=\"1\">dropped</std:strval>"
                          "<std:strval>c</std:strval></std:enumdef>")), 0);
  EXPECT_EQ(Dump(p.EnumRoot()), "0:Enum{3:E{3/E/a/0;3/F/b/0;3//c/0;}}");
  reports = 2;
  EXPECT_EQ(r.CountContaining("Strval in enum have a name but it's no"), 1);
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
}

TEST_F(DOMCodec, Decode_FailureKeepsWhatWasAttachedBefore) {
  EXPECT_EQ(Decode(p, Std("<std:node name=\"A\"><std:intval>1</std:intval></std:node>"
                          "<std:node name=\"B\"><std:node name=\"C\"><std:intval name=\"bad\">2</std:intval></std:node></std:node>"
                          "<std:node name=\"D\"/>")), 1);
  EXPECT_EQ(Dump(p.Root()), "0:Root{1:A{1//1/0;}}");
  reports = 1;
}

// ---------------------------------------------------------------- text content

TEST_F(DOMCodec, Text_JoinsTextAndCdataSkipsCommentsAndTrimsNothing) {
  ASSERT_EQ(Decode(p, Std("<std:node name=\"A\"><std:strval>  a<!-- skip -->b <![CDATA[<c&>]]>&amp;&#233; </std:strval></std:node>"
                          "<std:node name=\"B\"><std:strval/></std:node><std:node name=\"C\"><std:strval>\n\t</std:strval></std:node>")), 0);
  EXPECT_EQ(Dump(p.Root()), "0:Root{1:A{3//  ab <c&>&\xc3\xa9 /0;}1:B{3///0;}1:C{3//\n\t/0;}}");
}

// ---------------------------------------------------------------- bad input

// Whatever a decode left, the document saves, clones and goes without a crash.
void SurvivesAfterwards(ZOLAnnStandardXMLParser& p) {
  ZOLUnicodeString text;
  p.SaveInString(text);
  ZOLRef<ZOLAnnStandardXMLNode> copy = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(p.Root()->Clone());
  EXPECT_TRUE(copy);
}

TEST_F(DOMCodec, BadInput_EachGivesFailureWithoutACrash) {
  ScratchDir scratch;
  const std::string& dir = scratch.Path();
  std::string full = Std("<std:node name=\"A\"><std:intval>1</std:intval></std:node>");
  std::map<std::string, std::string> files = {
      {"empty", ""},
      {"truncated", full.substr(0, full.size() / 2)},
      {"utf8", Std("<std:node name=\"A\xff\xfe\"><std:strval>\xc3\x28</std:strval></std:node>")},
      {"foreign", "<x:node xmlns:x=\"urn:x\"/>"},
      {"binary", std::string("\0\1\2\3", 4)},
  };
  for (auto& [name, content] : files) {
    std::ofstream(dir + "/" + name, std::ios::binary) << content;
    for (int isFile : {1, 0}) {
      r.Clear();
      ZOLAnnStandardXMLParser p;
      EXPECT_EQ(p.DecodeXML(ZOLUnicodeString(isFile ? dir + "/" + name : content), isFile), 1) << name;
      EXPECT_EQ(r.Count(), name == "foreign" ? 1 : 0) << name;
      SurvivesAfterwards(p);
    }
  }
  r.Clear();
  EXPECT_EQ(p.DecodeXML(ZOLUnicodeString(dir + "/missing.xml"), 1), 1);
  EXPECT_EQ(p.DecodeXML(ZOLUnicodeString(dir), 1), 1);  // a directory
  SurvivesAfterwards(p);
}

TEST_F(DOMCodec, Deep_HundredThousandLevelsDecodeSaveAndGo) {
  const int depth = 100000;
  std::string body;
  body.reserve(depth * 40);
  for (int i = 0; i < depth; ++i) body += "<std:node name=\"n\">";
  body += "<std:intval>7</std:intval>";
  for (int i = 0; i < depth; ++i) body += "</std:node>";
  std::string text = Std(body);
  {
    ZOLAnnStandardXMLParser p;
    ASSERT_EQ(Decode(p, text), 0);
    const ZOLAnnStandardXMLNode* n = p.Root();
    int levels = 0;
    while (n->GetNumOfNode() == 1) { n = n->SubNodes()[0]; ++levels; }
    EXPECT_EQ(levels, depth);
    EXPECT_EQ(n->Values()[0]->Value().str(), "7");
    std::string saved = Save(p);
    ZOLAnnStandardXMLParser again;
    ASSERT_EQ(Decode(again, saved), 0);
    EXPECT_EQ(Save(again), saved);
  }
}

// ---------------------------------------------------------------- saving

// How a failed write leaves the old file is the platform writer's to test; here only that it is told.
TEST_F(DOMCodec, SaveInFile_IntoAPlaceThatCannotBeWrittenFails) {
  BuildSample(p);
  ScratchDir dir;
  EXPECT_EQ(p.SaveInFile(dir / "no/such/dir/ISO.xml"), E_FAIL);
  EXPECT_EQ(p.SaveInFile(dir.Path()), E_FAIL);  // a directory
}

TEST_F(DOMCodec, Save_RootWithAValueOfItsOwnIsRefusedAndNothingIsWritten) {
  BuildSample(p);
  ZOLRef<ZOLAnnStandardXMLValue> v = ZOLRef<ZOLAnnStandardXMLValue>::Adopt(new ZOLAnnStandardXMLValue(ZOLAnnStandardXMLValue::IntValue, "1", "", 0));
  p.Root()->AddValue(v.get(), -1);
  ScratchDir dir;
  qeltest::WriteText(dir / "ISO.xml", "old content");
  EXPECT_EQ(p.SaveInFile(dir / "ISO.xml"), E_UNEXPECTED);
  EXPECT_EQ(ReadText(dir / "ISO.xml"), "old content");
  reports = 1;
}

TEST_F(DOMCodec, Save_NodeOrValueOfNoKindOfTheDialectFails) {
  auto n = NewNode(ZOLAnnStandardXMLNode::RootNode, "R");
  p.Root()->AddNode(n.get(), -1);
  ZOLUnicodeString text;
  ZOLAnnStandardXMLParserDOMCodec codec;
  ASSERT_EQ(codec.Init(p.TypeDefRoot(), p.EnumRoot(), p.Root()), S_OK);
  EXPECT_EQ(codec.SaveInString(text), E_FAIL);
  EXPECT_EQ(r.CountContaining("Invalid type of node!"), 1);
  p.Root()->DeleteSubNode(0);
  auto m = NewNode(ZOLAnnStandardXMLNode::PlainNode, "M");
  ZOLRef<ZOLAnnStandardXMLValue> v = ZOLRef<ZOLAnnStandardXMLValue>::Adopt(new ZOLAnnStandardXMLValue(ZOLAnnStandardXMLValue::NoValue, "1", "", 0));
  m->AddValue(v.get(), -1);
  p.Root()->AddNode(m.get(), -1);
  EXPECT_EQ(codec.SaveInString(text), E_FAIL);
  EXPECT_EQ(r.CountContaining("unknown type of value!"), 1);
  reports = 2;
}

// ---------------------------------------------------------------- init, queue, traces

TEST_F(DOMCodec, Init_RefusesASecondBindingAndNullRoots) {
  ZOLAnnStandardXMLParserDOMCodec codec;
  ZOLUnicodeString text;
  EXPECT_EQ(codec.DecodeXMLString(ZOLUnicodeString(Std(""))), E_UNEXPECTED);
  EXPECT_EQ(codec.SaveInString(text), E_UNEXPECTED);
  EXPECT_EQ(r.CountContaining("ON POINTER"), 2);
  EXPECT_EQ(codec.Init(p.TypeDefRoot(), nullptr, p.Root()), E_UNEXPECTED);
  EXPECT_EQ(codec.Init(p.TypeDefRoot(), p.EnumRoot(), p.Root()), S_OK);
  EXPECT_EQ(codec.Init(p.TypeDefRoot(), p.EnumRoot(), p.Root()), E_UNEXPECTED);
  reports = 4;
}

TEST_F(DOMCodec, Queue_IsAStackThatHoldsReferencesAndReportsMisuse) {
  auto a = NewNode(ZOLAnnStandardXMLNode::PlainNode, "a");
  auto b = NewNode(ZOLAnnStandardXMLNode::PlainNode, "b");
  {
    ZOLAnnStandardXMLParserDOMCodecQueue queue;
    EXPECT_EQ(queue.Pop(), nullptr);
    EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
    queue.Push(nullptr);
    EXPECT_EQ(r.CountContaining("ON POINTER"), 1);
    queue.Push(new ZOLAnnStandardXMLParserDOMCodecQueueElem(a.get(), ZOLIDOMElement_var()));
    queue.Push(new ZOLAnnStandardXMLParserDOMCodecQueueElem(b.get(), ZOLIDOMElement_var()));
    EXPECT_EQ(a->RefCount(), 2u);
    std::unique_ptr<ZOLAnnStandardXMLParserDOMCodecQueueElem> top(queue.Pop());
    EXPECT_EQ(top->GetNode(), b.get());
    EXPECT_EQ(queue.Size(), 1);
  }
  EXPECT_EQ(a->RefCount(), 1u);  // the destructor let go of the element left
  EXPECT_EQ(b->RefCount(), 1u);
  ZOLAnnStandardXMLParserDOMCodecQueueElem empty(nullptr, ZOLIDOMElement_var());
  EXPECT_EQ(r.CountContaining("iNode is NULL!"), 1);
  reports = 3;
}

TEST_F(DOMCodec, Trace_TellsOptionsRootAndWhatWasBuilt) {
  ZOLTrace& trace = ZOLAnnStandardXMLParserDOMCodec::Trace();
  bool was = trace.IsActive();
  trace.Activate(true);
  testing::internal::CaptureStderr();
  ZOLAnnStandardXMLParser p;
  Decode(p, Std("<std:enumdef name=\"YesNo\"><std:strval>Yes</std:strval><std:strval>No</std:strval></std:enumdef>"
                "<std:node name=\"General\"><std:typeval name=\"R\"><std:intval name=\"X\">1</std:intval></std:typeval>"
                "<x:y xmlns:x=\"urn:x\"/></std:node>"));
  std::string err = testing::internal::GetCapturedStderr();
  trace.Activate(was);
  for (const std::string& line :
       {std::string(">> ZOLAnnStandardXMLParserDOMCodec::DecodeXMLString"), std::string("ZOLIXMLDOMDocumentBuilder supported options:\n"),
        std::string("  ZOLDoValidation\n"), std::string("ZOLDoValidation option found\n"), std::string("ZOLEnableNameSpaces option found\n"),
        "Root node is OK, it's <" + kNs + ">node\n", std::string("Building enumdef YesNo (2 values)\n"),
        std::string("Building node /node drafting/node General (0 value, 1 subnodes)\n"),
        std::string("Building node /node drafting/node General/typeval R (1 value, 0 subnodes)\n"),
        std::string("Warning! The element x:y is not in standard namespace. It will be ignored. (file ")})
    EXPECT_NE(err.find(line), std::string::npos) << line << "\n--- in ---\n" << err;
}
