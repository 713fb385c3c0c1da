// The style verbs of qelstd, styles and style, run as a user runs them.
#include <gtest/gtest.h>

#include "QelstdRun.h"
#include "ZOLScratch.h"

namespace {

class QelstdStyleVerbs : public ::testing::Test {
protected:
  void SetUp() override {
    QELSTD_REQUIRE_BINARY();
    // Curve has two styles, Text one without Default; Curve.Default holds every kind of value.
    qeltest::WriteText(file, "<std:node xmlns:std=\"http://www.qelstandardinfra.org/std\" name=\"drafting\">"
                             "<std:node name=\"Version\"><std:intval>280</std:intval></std:node>"
                             "<std:node name=\"Styles\"><std:node name=\"Curve\"><std:node name=\"Default\">"
                             "<std:node name=\"Color\"><std:colorval>1 2 3</std:colorval></std:node>"
                             "<std:node name=\"Thickness\"><std:intval>2</std:intval></std:node>"
                             "<std:node name=\"Dash\"><std:intval>4</std:intval><std:intval>5</std:intval></std:node>"
                             "<std:node name=\"Font\"><std:node name=\"Size\"><std:floatval>3.5</std:floatval></std:node>"
                             "<std:node name=\"Bold\"><std:enumval name=\"YesNo\">No</std:enumval></std:node>"
                             "<std:node name=\"Name\"><std:strval>Mono Sans</std:strval></std:node></std:node>"
                             "</std:node><std:node name=\"Thin\"/></std:node>"
                             "<std:node name=\"Text\"><std:node name=\"View\"/></std:node></std:node></std:node>");
  }
  QelstdRun Run(const std::string& verb, const std::string& args) { return RunQelstd(verb + " " + file + " " + args + " 2>&1"); }
  qeltest::ScratchDir dir;
  std::string file = dir / "std.xml";
};

}  // namespace

TEST_F(QelstdStyleVerbs, StylesListsTypesNamesAndTheDefault) {
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

TEST_F(QelstdStyleVerbs, StylePrintsEveryValueAsReadThroughTheStyle) {
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
