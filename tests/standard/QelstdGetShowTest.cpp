// The read verbs of qelstd, get and show, run as a user runs them.
#include <gtest/gtest.h>

#include "QelstdRun.h"
#include "ZOLScratch.h"

namespace {

class QelstdReadVerbs : public ::testing::Test {
protected:
  void SetUp() override {
    QELSTD_REQUIRE_BINARY();
    qeltest::WriteText(file, "<std:node xmlns:std=\"http://www.qelstandardinfra.org/std\" name=\"drafting\">"
                             "<std:node name=\"Dimension\"><std:node name=\"Gap\"><std:floatval>2.032</std:floatval></std:node>"
                             "<std:node name=\"Mode\"><std:enumval name=\"YesNo\">Yes</std:enumval></std:node></std:node>"
                             "<std:node name=\"Seg\"><std:intval>3</std:intval><std:intval>4</std:intval></std:node>"
                             "<std:node name=\"Styles\"><std:node name=\"Curve\"><std:node name=\"Default\">"
                             "<std:node name=\"Color\"><std:colorval>1 2 3</std:colorval></std:node></std:node></std:node></std:node>"
                             "<std:node name=\"L\"><std:typeval name=\"E\"><std:strval name=\"Name\">a</std:strval>"
                             "<std:intval name=\"N\">1</std:intval></std:typeval><std:typeval name=\"E\">"
                             "<std:strval name=\"Name\">b</std:strval><std:intval name=\"N\">2</std:intval></std:typeval></std:node>"
                             "</std:node>");
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
  EXPECT_EQ(RunQelstd("get /no/such/file.xml A 2>&1").status, 1);
  EXPECT_EQ(Run("get", "").status, 2);
}

TEST_F(QelstdReadVerbs, ShowListsTheFiledValuesUnderAPrefix) {
  QelstdRun r = Run("show", "L");
  EXPECT_EQ(r.status, 0);
  EXPECT_EQ(r.out, "L.N.1\tinteger\t1\nL.N.2\tinteger\t2\nL.Name.1\tstring\ta\nL.Name.2\tstring\tb\n");
  EXPECT_EQ(Run("show", "Nothing").status, 1);
}
