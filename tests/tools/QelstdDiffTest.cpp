// qelstd diff on standards that differ by known edits, on the built-in standards, and on an old
// standard against its own upgrade.
#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "../upgrade/ZOLChainTestSupport.h"
#include "QelstdRun.h"
#include "ZOLScratch.h"

namespace {

std::vector<std::string> Lines(const std::string& text) {
  std::vector<std::string> lines;
  std::stringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

std::string Env(const qeltest::ScratchDir& dir) {
  return "env -u ZOLCollectionStandard -u ZOLDefaultCollectionStandard ADL_ODT_OUT='" + dir.Path() + "'";
}

std::string Quoted(const std::string& s) { return "'" + s + "'"; }

// The built-in ISO text as a file, and a copy of it with edits applied through the library.
std::string IsoWithEdits(const qeltest::ScratchDir& dir, const std::string& name, const std::vector<std::string>& edits) {
  const std::string iso = dir / "ISO-copy.xml";
  if (RunQelstd("builtin ISO -o " + Quoted(iso)).status != 0) return {};
  ZOLAnnStandardXMLParser p;
  if (p.DecodeXML(ZOLUnicodeString(iso), 1) != 0) return {};
  qeltest::ApplyLines(p, edits);
  const std::string file = dir / name;
  return p.SaveInFile(ZOLUnicodeString(file)) == S_OK ? file : std::string();
}

}  // namespace

TEST(QelstdDiff, PrintsExactlyTheEditedValueAndNodesWithASummaryAndTheirStatus) {
  QELSTD_REQUIRE_BINARY();
  qeltest::ScratchDir dir;
  const std::string edited = IsoWithEdits(dir, "Edited.xml",
                                          {"C Root.Dimension.DIMLTextGap:0.7", "V Root.Dimension:DIMLExtra:float:1.5",
                                           "D Root.Annotation.Welding.WeldingDisplay"});
  ASSERT_FALSE(edited.empty());
  const std::string iso = Quoted(dir / "ISO-copy.xml");
  struct Case {
    std::string args;
    int status;
    std::vector<std::string> lines;
  };
  const Case cases[] = {
      {iso + " " + iso, 0, {}},
      {"ISO " + iso, 0, {}},
      {iso + " " + Quoted(edited), 1,
       {"~ Root.Dimension.DIMLTextGap 0.5 (float) -> 0.7 (float)",
        "+ Root.Dimension.DIMLExtra (node: 0 sub-nodes, 1 value)",
        "- Root.Annotation.Welding.WeldingDisplay (node: 0 sub-nodes, 1 value)",
        "3 differences: 1 changed, 1 only in A, 1 only in B"}},
      {Quoted(edited) + " " + iso, 1,
       {"~ Root.Dimension.DIMLTextGap 0.7 (float) -> 0.5 (float)",
        "- Root.Dimension.DIMLExtra (node: 0 sub-nodes, 1 value)",
        "+ Root.Annotation.Welding.WeldingDisplay (node: 0 sub-nodes, 1 value)",
        "3 differences: 1 changed, 1 only in A, 1 only in B"}},
  };
  for (const Case& c : cases) {
    const QelstdRun run = RunQelstd("diff " + c.args, Env(dir));
    EXPECT_EQ(run.status, c.status) << c.args;
    EXPECT_EQ(Lines(run.out), c.lines) << c.args;
  }
}

TEST(QelstdDiff, BuiltInIsoAgainstJisListsTheSameDifferencesAsTextAndAsJson) {
  QELSTD_REQUIRE_BINARY();
  qeltest::ScratchDir dir;
  const QelstdRun text = RunQelstd("diff ISO JIS", Env(dir));
  const QelstdRun json = RunQelstd("diff --json ISO JIS", Env(dir));
  const QelstdRun back = RunQelstd("diff JIS ISO", Env(dir));
  ASSERT_EQ(text.status, 1);
  ASSERT_EQ(json.status, 1);
  const std::vector<std::string> lines = Lines(text.out), reversed = Lines(back.out);
  ASSERT_GT(lines.size(), 1u);
  const nlohmann::json out = nlohmann::json::parse(json.out);
  const auto& records = out["differences"];
  ASSERT_EQ(records.size() + 1, lines.size());
  EXPECT_EQ(lines.back(), std::to_string(records.size()) + " differences: " +
                              std::to_string(out["summary"]["changed"].get<int>()) + " changed, " +
                              std::to_string(out["summary"]["onlyInA"].get<int>()) + " only in A, " +
                              std::to_string(out["summary"]["onlyInB"].get<int>()) + " only in B");
  // Each record is its line; and B against A is A against B with the sides swapped.
  ASSERT_EQ(reversed.size(), lines.size());
  const char* const sign[] = {"- ", "+ ", "~ "};
  for (size_t i = 0; i < records.size(); ++i) {
    const std::string change = records[i]["change"];
    const int kind = change == "onlyInA" ? 0 : change == "onlyInB" ? 1 : 2;
    EXPECT_EQ(lines[i].rfind(sign[kind] + records[i]["path"].get<std::string>() + " ", 0), 0u) << lines[i];
  }
  auto count = [](const std::vector<std::string>& ls, char c) {
    return std::count_if(ls.begin(), ls.end(), [c](const std::string& l) { return l[0] == c; });
  };
  EXPECT_EQ(count(lines, '-'), count(reversed, '+'));
  EXPECT_EQ(count(lines, '+'), count(reversed, '-'));
  EXPECT_EQ(count(lines, '~'), count(reversed, '~'));
  EXPECT_NE(std::find(lines.begin(), lines.end(), "~ Root.Dimension.ParentStandard ISO (string) -> JIS (string)"),
            lines.end());
  EXPECT_NE(std::find(lines.begin(), lines.end(), "- Enum.RoughnessType[4] Line (string)"), lines.end());
}

TEST(QelstdDiff, AnOldStandardEqualsItsOwnUpgradeOnlyOnceBothAreUpgraded) {
  QELSTD_REQUIRE_BINARY();
  qeltest::ScratchDir dir;
  qeltest::ChainDriver driver(qeltest::Release9Lines("ISO"));
  driver.Upgrade(1, 60, false);
  const std::string old = dir / "Company.xml";
  qeltest::WriteText(old, driver.Saved());
  // The level the chain reaches, as diff tells it of a standard compared with itself.
  const QelstdRun self = RunQelstd("diff --upgrade --json " + Quoted(old) + " " + Quoted(old));
  ASSERT_EQ(self.status, 0) << self.out;
  const int end = nlohmann::json::parse(self.out)["a"]["upgradedTo"].get<int>();
  ASSERT_GT(end, 60);
  const QelstdRun upgrade =
      RunQelstd("upgrade " + Quoted(old) + " -o " + Quoted(dir / "new") + " --to " + std::to_string(end));
  ASSERT_EQ(upgrade.status, 0) << upgrade.out;
  const std::string upgraded = Quoted(dir / "new/Company.xml");
  const QelstdRun plain = RunQelstd("diff " + Quoted(old) + " " + upgraded);
  EXPECT_EQ(plain.status, 1);
  // What the stages add stands in B only.
  EXPECT_NE(plain.out.find("\n+ Root."), std::string::npos) << plain.out;
  const QelstdRun both = RunQelstd("diff --upgrade " + Quoted(old) + " " + upgraded);
  EXPECT_EQ(both.status, 0);
  EXPECT_EQ(both.out, "");
  const nlohmann::json out = nlohmann::json::parse(RunQelstd("diff --upgrade --json " + Quoted(old) + " " + upgraded).out);
  EXPECT_EQ(out["a"]["level"], 60);
  EXPECT_EQ(out["b"]["level"], end);
  EXPECT_TRUE(out["b"]["upgradedTo"].is_null());
}

TEST(QelstdDiff, UsageErrorsAndUnreadableStandardsEndWithStatusTwo) {
  QELSTD_REQUIRE_BINARY();
  qeltest::ScratchDir dir;
  qeltest::WriteText(dir / "broken.xml", "<std:node xmlns:std=\"x\" name=\"drafting\"><std:node");
  const std::pair<std::string, std::string> cases[] = {
      {"ISO", "B is required"},
      {Quoted(dir / "missing.xml") + " ISO", "No such file or directory"},
      {"ISO " + Quoted(dir / "broken.xml"), "does not decode as a standard"},
      {"--upgrade " + Quoted(dir / "broken.xml") + " ISO", "does not decode as a standard"},
  };
  for (const auto& [args, why] : cases) {
    const QelstdRun run = RunQelstd("diff " + args + " 2>&1", Env(dir));
    EXPECT_EQ(run.status, 2) << args;
    EXPECT_NE(run.out.find(why), std::string::npos) << args << ": " << run.out;
  }
}
