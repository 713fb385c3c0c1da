// What is written reads back. Texts that a standard file cannot hold and give back are refused by
// the edit strings with EditNotRepresentable, and by a save when they got into the tree another
// way; so are trees of a shape that the decoder refuses or reads as another tree. A refused save
// leaves the old file. What is accepted reads back exactly, through the DOM codec and through the
// standard object.
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStandardServices.h"
#include "ZOLEditLines.h"
#include "ZOLReportCountTest.h"
#include "ZOLScratch.h"
#include "ZOLXMLDOM.h"

namespace fs = std::filesystem;

namespace {

struct Text {
  const char* what;
  std::string text;
};

std::vector<Text> BadTexts() {
  return {
      {"NUL", std::string("a\0b", 3)},
      {"control character", "a\x01z"},
      {"truncated sequence", "a\xe2\x82"},
      {"lone continuation byte", "\x80"},
      {"overlong form", "\xc0\xaf"},
      {"surrogate", "\xed\xa0\x80"},
      {"beyond U+10FFFF", "\xf4\x90\x80\x80"},
      {"U+FFFE", "\xef\xbf\xbe"},
  };
}

std::string Save(ZOLAnnStandardXMLParser& p) {
  ZOLUnicodeString text;
  p.SaveInString(text);
  return text.str();
}

// A small standard: a parameter A of text "old", and below P a record R and two namesakes Q.
void Build(ZOLAnnStandardXMLParser& p) {
  ZOLEditLines(p, {"V Root:A:string:old", "N Root:P", "T Root.P:R", "V Root.P.R:F:int:1", "N Root.P:Q", "N Root.P:Q"});
}

class Unrepresentable : public ZOLReportCountTest {};

}  // namespace

TEST_F(Unrepresentable, EveryEditStringRefusesItAndLeavesTheTreeAsItWas) {
  using Edit = std::function<int(ZOLAnnStandardXMLParser&, const std::string&)>;
  const std::vector<std::pair<const char*, Edit>> edits = {
      {"node name", [](auto& p, const std::string& t) { return p.AddNodeWithPath("Root:" + t, 0); }},
      {"record name", [](auto& p, const std::string& t) { return p.AddNodeWithPath("Root.P:" + t + ":1", 1); }},
      {"parameter text", [](auto& p, const std::string& t) { return p.AddValueWithPath("Root:N:string:" + t, 1); }},
      {"parameter name", [](auto& p, const std::string& t) { return p.AddValueWithPath("Root:" + t + ":int:1", 1); }},
      {"enumeration name", [](auto& p, const std::string& t) { return p.AddValueWithPath("Root:N:enum." + t + ":Yes", 1); }},
      {"field text", [](auto& p, const std::string& t) { return p.AddValueWithPath("Root.P.R:G:string:" + t, 1); }},
      {"all namesakes", [](auto& p, const std::string& t) { return p.AddValueWithPathForAllOccurence("Root.P.Q:N:string:" + t, 1); }},
      {"changed text", [](auto& p, const std::string& t) { return p.ChangeValueWithPath("Root.A:" + t); }},
      {"field by name", [](auto& p, const std::string& t) { return p.ChangeValueWithPath("Root.P.R:F:" + t); }},
      {"value by old text", [](auto& p, const std::string& t) { return p.ChangeValueWithPath("Root.A.old:" + t); }},
  };
  ZOLAnnStandardXMLParser p;
  Build(p);
  const std::string before = Save(p);
  for (const Text& bad : BadTexts()) {
    for (const auto& [form, edit] : edits)
      EXPECT_EQ(edit(p, bad.text), ZOLAnnStandardXMLParser::EditNotRepresentable) << form << ", " << bad.what;
    // A place that is not found is still said first.
    EXPECT_EQ(p.AddValueWithPath("Root.Missing:N:string:" + bad.text, 1), 1) << bad.what;
    EXPECT_EQ(p.ChangeValueWithPath("Root.Missing:" + bad.text), 1) << bad.what;
  }
  EXPECT_EQ(Save(p), before);
}

TEST_F(Unrepresentable, WhatIsAcceptedReadsBackExactlyThroughBothReaders) {
  const std::vector<Text> good = {
      {"line ends and tabs", "a\tb\nc\r\nd\re\n"},
      {"blanks around", "  x  "},
      {"markup", "<a> & \"b\" 'c' ]]> <!-- d --> &amp;"},
      {"DEL and C1 controls", "\x7f\xc2\x80\xc2\x85"},
      {"beyond the BMP", "\xf0\x9f\x98\x80 \xf4\x8f\xbf\xbf"},
      {"last character before the refused ones", "\xef\xbf\xbd"},
      // Over libxml2's usual bound of 10 MB, several in a row, names and values.
      {"11 MB", std::string(11'000'000, 'v')},
      {"a megabyte of escapes", std::string(500'000, '"') + std::string(500'000, '&')},
  };
  for (const Text& t : good) {
    SCOPED_TRACE(t.what);
    ZOLAnnStandardXMLParser p;
    ZOLEditLines(p, {"V Root:Value:string:x", "C Root.Value:" + t.text, "N Root:P", "T Root.P:R",
                     "V Root.P.R:" + t.text + ":string:" + t.text, "N Root:" + t.text});
    qeltest::ScratchDir dir;
    const std::string path = dir / "good.xml";
    ASSERT_EQ(p.SaveInFile(path), S_OK) << t.what;

    ZOLAnnStandardXMLParser again;
    ASSERT_EQ(again.DecodeXML(ZOLUnicodeString(path), 1), 0) << t.what;
    EXPECT_TRUE(again.GetValueWithPath("Root.Value").str() == t.text) << t.what;
    const ZOLAnnStandardXMLValue* field = again.Root()->SubNodes()[1]->SubNodes()[0]->Values()[0];
    EXPECT_TRUE(field->Name().str() == t.text && field->Value().str() == t.text) << t.what;
    EXPECT_TRUE(again.Root()->SubNodes()[2]->Name().str() == t.text) << t.what;
    EXPECT_EQ(Save(again), Save(p)) << t.what;

    ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromFile(ZOLUnicodeString(path), "Good");
    ZOLUnicodeString value;
    EXPECT_EQ(s->GetValue("Value", 1, value), S_OK) << t.what;
    EXPECT_TRUE(value.str() == t.text) << t.what;
  }
}

TEST_F(Unrepresentable, SaveRefusesATreeThatGotSuchTextAnotherWayAndLeavesTheOldFile) {
  using Spoil = std::function<void(ZOLAnnStandardXMLParser&, const std::string&)>;
  const std::vector<std::pair<const char*, Spoil>> spoils = {
      {"node name", [](auto& p, const std::string& t) { p.Root()->SubNodes()[0]->SetNodeName(ZOLUnicodeString(t)); }},
      {"value text", [](auto& p, const std::string& t) { p.Root()->SubNodes()[0]->Values()[0]->SetValue(ZOLUnicodeString(t)); }},
      {"value name",
       [](auto& p, const std::string& t) {
         auto v = ZOLRef<ZOLAnnStandardXMLValue>::Adopt(
             new ZOLAnnStandardXMLValue(ZOLAnnStandardXMLValue::IntValue, "1", ZOLUnicodeString(t), 0));
         p.Root()->SubNodes()[1]->SubNodes()[0]->AddValue(v.get(), -1);
       }},
  };
  qeltest::ScratchDir dir;
  const std::string path = dir / "old.xml";
  int expected = 0;
  for (const Text& bad : BadTexts()) {
    for (const auto& [what, spoil] : spoils) {
      ZOLAnnStandardXMLParser p;
      Build(p);
      spoil(p, bad.text);
      qeltest::WriteText(path, "old content");
      EXPECT_EQ(p.SaveInFile(path), E_FAIL) << what << ", " << bad.what;
      EXPECT_EQ(qeltest::ReadText(path), "old content") << what << ", " << bad.what;
      ++expected;
    }
  }
  reports = expected;
  EXPECT_EQ(r.CountContaining("Invalid node"), expected);
  EXPECT_EQ(std::distance(fs::directory_iterator(dir.Path()), fs::directory_iterator()), 1) << "a temporary was left";
}


TEST_F(Unrepresentable, SaveRefusesATreeOfAShapeTheDecoderWouldNotGiveBack) {
  const std::vector<std::pair<const char*, std::vector<std::string>>> trees = {
      {"a record at the top", {"T Root:R"}},
      {"a node without a name", {"N Root:"}},
      {"an empty enumeration", {"N Enum:E"}},
      {"an empty record type", {"N TypeDef:T"}},
      {"a node in an enumeration", {"N Enum:E", "V Enum.E::string:a", "N Enum.E:X"}},
      {"an integer in an enumeration", {"N Enum:E", "V Enum.E::int:1"}},
      {"a field without a name", {"N TypeDef:T", "V TypeDef.T::int:1"}},
      {"a colour in a record type", {"N TypeDef:T", "V TypeDef.T:C:color:1 2 3"}},
      {"a named parameter value", {"N Root:A", "L Root.A:N:int:1"}},
      {"an enumerated value without its enumeration", {"N Root:A", "L Root.A::enum.YesNo:Yes"}},
      {"a bound without its text", {"N Root:A", "L Root.A::float.m:1.0"}},
      {"an unnamed field of a record", {"N Root:A", "T Root.A:R", "L Root.A.R::int:1"}},
      {"a bound on a field of a record", {"N Root:A", "T Root.A:R", "L Root.A.R:F:float.m.0.0:1"}},
  };
  qeltest::ScratchDir dir;
  const std::string path = dir / "shape.xml";
  int refused = 0;
  for (const auto& [what, edits] : trees) {
    ZOLAnnStandardXMLParser p;
    ZOLEditLines(p, edits);
    qeltest::WriteText(path, "old content");
    EXPECT_EQ(p.SaveInFile(path), E_FAIL) << what;
    EXPECT_EQ(qeltest::ReadText(path), "old content") << what;
    ++refused;
  }
  // A record type placed inside a node would be read back under the TypeDef root.
  ZOLAnnStandardXMLParser p;
  ZOLEditLines(p, {"N Root:A"});
  auto def = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(new ZOLAnnStandardXMLNode(ZOLAnnStandardXMLNode::TypeDefNode, "T"));
  auto field = ZOLRef<ZOLAnnStandardXMLValue>::Adopt(new ZOLAnnStandardXMLValue(ZOLAnnStandardXMLValue::IntValue, "1", "F", 0));
  def->AddValue(field.get(), -1);
  p.Root()->SubNodes()[0]->AddNode(def.get(), -1);
  EXPECT_EQ(p.SaveInFile(path), E_FAIL);
  ++refused;
  // The same shapes where the dialect has them are written and read back.
  ZOLAnnStandardXMLParser good;
  ZOLEditLines(good, {"N Enum:E", "N TypeDef:T", "N Root:A", "T Root.A:R", "V Enum.E::string:a", "V TypeDef.T:F:int:1",
                      "V Root.A:B:float.m.0.0:1", "V Root.A:Y:enum.E:a", "V Root.A.R:F:int:1"});
  ASSERT_EQ(good.SaveInFile(path), S_OK);
  ZOLAnnStandardXMLParser again;
  ASSERT_EQ(again.DecodeXML(ZOLUnicodeString(path), 1), 0);
  EXPECT_EQ(Save(again), Save(good));
  reports = refused;
  EXPECT_EQ(r.CountContaining("Invalid node"), refused);
}
