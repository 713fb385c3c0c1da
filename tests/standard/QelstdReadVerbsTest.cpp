// The read verbs of qelstd, get, show, styles and style, run as a user runs them.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "QelstdRun.h"
#include "ZOLScratch.h"
#include "ZOLStandardObjectTestSupport.h"

namespace {

using qeltest::Node;

std::string Counting(int n) {
  std::string text;
  for (int i = 1; i <= n; ++i) text += (i > 1 ? " " : "") + std::to_string(i);
  return text;
}

std::string Colour(const std::string& style, int components) {
  return Node(style, Node("Color", "<std:colorval>" + Counting(components) + "</std:colorval>"));
}

class QelstdReadVerbs : public ::testing::Test {
protected:
  // Curve has two styles, Text one without Default; Curve.Default holds every kind of value.
  void SetUp() override {
    QELSTD_REQUIRE_BINARY();
    qeltest::WriteText(file, qeltest::kStdOpen + "<std:node name=\"Version\"><std:intval>280</std:intval></std:node>"
                             "<std:node name=\"Dimension\"><std:node name=\"Gap\"><std:floatval>2.032</std:floatval></std:node>"
                             "<std:node name=\"Mode\"><std:enumval name=\"YesNo\">Yes</std:enumval></std:node></std:node>"
                             "<std:node name=\"Seg\"><std:intval>3</std:intval><std:intval>4</std:intval></std:node>"
                             "<std:node name=\"Styles\"><std:node name=\"Curve\"><std:node name=\"Default\">"
                             "<std:node name=\"Color\"><std:colorval>1 2 3</std:colorval></std:node>"
                             "<std:node name=\"Thickness\"><std:intval>2</std:intval></std:node>"
                             "<std:node name=\"Dash\"><std:intval>4</std:intval><std:intval>5</std:intval></std:node>"
                             "<std:node name=\"Font\"><std:node name=\"Size\"><std:floatval>3.5</std:floatval></std:node>"
                             "<std:node name=\"Bold\"><std:enumval name=\"YesNo\">No</std:enumval></std:node>"
                             "<std:node name=\"Name\"><std:strval>Mono Sans</std:strval></std:node></std:node>"
                             "</std:node><std:node name=\"Thin\"/></std:node>"
                             "<std:node name=\"Text\"><std:node name=\"View\"/></std:node></std:node>"
                             "<std:node name=\"L\"><std:typeval name=\"E\"><std:strval name=\"Name\">a</std:strval>"
                             "<std:intval name=\"N\">1</std:intval></std:typeval><std:typeval name=\"E\">"
                             "<std:strval name=\"Name\">b</std:strval><std:intval name=\"N\">2</std:intval></std:typeval></std:node>" +
                             qeltest::kStdClose);
  }
  // qelstd verb on the file, then args, its standard error joined to its output.
  QelstdRun Run(const std::string& verb, const std::string& args) { return RunQelstd(verb + " " + file + " " + args + " 2>&1"); }
  qeltest::ScratchDir dir;
  std::string file = dir / "std.xml";
};

}  // namespace

TEST_F(QelstdReadVerbs, GetPrintsValuesWithTheirTypeCodes) {
  for (auto [args, out] : {std::pair("Dimension.Gap", "2.032\ttype 4 real\n"), {"Dimension.Mode", "Yes\ttype 7 enum\n"},
                           {"Seg", "3 4\ttype 3 integers\n"}, {"Curve.Default.Color", "1 2 3\ttype 0 colour\n"},
                           {"L.Name --index 2", "b\ttype 6 string\n"}})
    EXPECT_EQ(Run("get", args).out, out) << args;
  EXPECT_EQ(Run("get", "L.N --index 2 --json").out,
            "{\"standard\":\"" + file + "\",\"path\":\"L.N\",\"index\":2,\"type\":3,\"kind\":\"integer\",\"value\":2}\n");
}

TEST_F(QelstdReadVerbs, GetOfAPathWithoutValueExitsWithOne) {
  QelstdRun r = Run("get", "Dimension.Nope");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "qelstd: Dimension.Nope: no value at this path in " + file + "\n");
  EXPECT_EQ(Run("get", "").status, 2);
}

// Arrays and colours are printed whole, whatever their length: every element the standard object
// has for the path, and no more.
TEST_F(QelstdReadVerbs, GetPrintsColoursAndArraysOfAnyLengthWhole) {
  std::string text = qeltest::kStdOpen + Node("Version", "<std:intval>290</std:intval>") +
                     Node("Styles", Node("Curve", Colour("Big", 4000) + Colour("Two", 2) + Colour("One", 1)));
  // 500 namesakes of two integers each: the standard files them as one array of 1000.
  std::string pairs;
  for (int i = 0; i < 500; ++i) {
    text += Node("X", "<std:intval>1</std:intval><std:intval>2</std:intval>");
    pairs += i ? " 1 2" : "1 2";
  }
  text += "<std:node name=\"Reals\">";
  for (int i = 0; i < 40; ++i) text += "<std:floatval>0.5</std:floatval>";
  qeltest::WriteText(file, text + "</std:node>" + qeltest::kStdClose);
  for (auto [path, printed] : {std::pair<const char*, std::string>("Curve.Big.Color", Counting(4000) + "\ttype 0 colour"),
                               {"Curve.Two.Color", "1 2\ttype 0 colour"},
                               {"Curve.One.Color", "1\ttype 3 integer"},
                               {"X", pairs + "\ttype 3 integers"}}) {
    QelstdRun run = Run("get", path);
    EXPECT_EQ(run.status, 0) << path;
    // Compared whole, shown in part: a colour of 4000 components prints 19 KB.
    EXPECT_TRUE(run.out == printed + "\n") << path << ": " << run.out.size() << " bytes, ending with "
                                           << run.out.substr(run.out.size() > 60 ? run.out.size() - 60 : 0);
  }
  QelstdRun run = Run("get", "--json Curve.Big.Color");
  ASSERT_EQ(run.status, 0);
  nlohmann::json j = nlohmann::json::parse(run.out);
  ASSERT_EQ(j["value"].size(), 4000u);
  EXPECT_EQ(j["value"][3999], 4000);
  run = Run("get", "--json Reals");
  ASSERT_EQ(run.status, 0);
  EXPECT_EQ(nlohmann::json::parse(run.out)["value"].size(), 40u);
}

TEST_F(QelstdReadVerbs, ShowListsTheFiledValuesUnderAPrefix) {
  QelstdRun r = Run("show", "L");
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, "L.N.1\tinteger\t1\nL.N.2\tinteger\t2\nL.Name.1\tstring\ta\nL.Name.2\tstring\tb\n");
  EXPECT_EQ(Run("show", "Nothing").status, 1);
}

TEST_F(QelstdReadVerbs, StylesListsTypesNamesAndTheDefault) {
  QelstdRun r = Run("styles", "");
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, "Curve\tdefault Default\n  Default\n  Thin\nText\tdefault Default (absent)\n  View\n");
  EXPECT_EQ(Run("styles", "Text --json").out,
            "{\"standard\":\"" + file +
                "\",\"types\":[{\"type\":\"Text\",\"default\":\"Default\",\"defaultPresent\":false,\"styles\":[\"View\"]}]}\n");
  r = Run("styles", "Nope");
  EXPECT_EQ(r.status, 1);
  EXPECT_EQ(r.out, "qelstd: Nope: no style type of this name in " + file + "\n");
}

TEST_F(QelstdReadVerbs, StylePrintsEveryValueAsReadThroughTheStyle) {
  QelstdRun r = Run("style", "Curve");
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out,
            "Color\t1 2 3\ttype 0 colour\nDash\t4 5\ttype 3 integers\nFont.Bold\tNo\ttype 7 enum\n"
            "Font.Name\tMono Sans\ttype 6 string\nFont.Size\t3.5\ttype 4 real\nThickness\t2\ttype 3 integer\n");
  const std::string json = Run("style", "Curve Default --json").out;
  EXPECT_EQ(json.find("{\"standard\":\"" + file + "\",\"type\":\"Curve\",\"style\":\"Default\",\"values\":[{\"path\":\"Color\","
                      "\"index\":1,\"type\":0,\"kind\":\"colour\",\"value\":[1,2,3]},{\"path\":\"Dash\""), 0u) << json;
  for (const char* absent : {"Text", "Curve Nope", "Nope"}) {
    r = Run("style", absent);
    EXPECT_EQ(r.status, 1) << absent;
  }
  EXPECT_EQ(Run("style", "Text").out, "qelstd: Text.Default: no such style in " + file + "\n");
  EXPECT_EQ(Run("style", "").status, 2);
}
