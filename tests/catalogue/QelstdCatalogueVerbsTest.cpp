// The catalogue verbs of qelstd: list, info, sheets and upgrade, as a script would run them.
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>

#include "QelstdRun.h"
#include "ZOLCatalogueTestSupport.h"

using namespace qeltest;
namespace fs = std::filesystem;

namespace {

std::string SheetStandard() {
  return Standard(Version(290) + Parent("ANSI", "1") +
                  Node("SheetFormat", Format("A ANSI", "279.4", "215.9", "LandscapeOnly")) +
                  Node("Styles", Node("Sheet", FullSheetStyle("Default", "A ANSI", "1.0"))));
}

class QelstdVerbs : public testing::Test {
protected:
  void SetUp() override { QELSTD_REQUIRE_BINARY(); }
  // Runs qelstd with variable settings (VAR=value) and no others of the catalogue, its standard error kept.
  QelstdRun Run(const std::string& args, const std::string& env = "") {
    QelstdRun run = RunQelstd(args + " 2>'" + (dir / "err") + "'",
                              "env -u ADL_ODT_OUT -u ZOLTemp -u ZOLCollectionStandard -u ZOLDefaultCollectionStandard " + env);
    err = ReadText(dir / "err");
    return run;
  }
  ScratchDir dir;
  std::string err;  // what the last run wrote on standard error
};

}  // namespace

TEST_F(QelstdVerbs, NameWithoutWorkingDirectoryIsRefusedClearly) {
  for (const char* verb : {"info", "sheets"}) {
    EXPECT_EQ(Run(std::string(verb) + " ISO").status, 1) << verb;
    EXPECT_NE(err.find("qelstd: ISO: a standard name needs a working directory"), std::string::npos) << err;
  }
}

TEST_F(QelstdVerbs, InfoAndSheetsOfAFileAsJson) {
  WriteText(dir / "Asme.xml", SheetStandard());
  QelstdRun info = Run("info --json '" + (dir / "Asme.xml") + "'");
  ASSERT_EQ(info.status, 0) << err;
  nlohmann::json i = nlohmann::json::parse(info.out);
  for (auto [key, value] : {std::pair("parent", nlohmann::json("ASME")), {"class", 2}, {"version", 290}, {"release", 428}})
    EXPECT_EQ(i[key], value) << key;
  QelstdRun sheets = Run("sheets --json '" + (dir / "Asme.xml") + "'");
  ASSERT_EQ(sheets.status, 0) << err;
  nlohmann::json s = nlohmann::json::parse(sheets.out);
  ASSERT_EQ(s["formats"].size(), 1u);
  EXPECT_EQ(s["formats"][0]["width"], 279.4);
  EXPECT_EQ(s["formats"][0]["orientation"], "LandscapeOnly");
  ASSERT_EQ(s["styles"].size(), 1u);
  EXPECT_EQ(s["styles"][0]["format"]["name"], "A ANSI");
  EXPECT_EQ(s["oldStyles"], false);
  EXPECT_TRUE(s["reports"].empty());
}

TEST_F(QelstdVerbs, ListShowsRepositoryStandardsWithParentAndVersion) {
  WriteText(dir / "repo/drafting/Company.xml", SheetStandard());
  QelstdRun run = Run("list --json", "ZOLCollectionStandard='" + (dir / "repo") + "'");
  ASSERT_EQ(run.status, 0);
  nlohmann::json list = nlohmann::json::parse(run.out);
  ASSERT_GE(list.size(), 1u);
  for (auto [key, value] : {std::pair("name", nlohmann::json("Company")), {"source", "repository"}, {"parent", "ASME"}, {"version", 290}})
    EXPECT_EQ(list[0][key], value) << key;
  EXPECT_NE(err.find("built-in standards: not read"), std::string::npos);
}

TEST_F(QelstdVerbs, UpgradeToTheLevelItHasWritesTheFileUnchanged) {
  WriteText(dir / "Old.xml", Standard(Version(150) + Parent("ISO")));
  QelstdRun run = Run("upgrade '" + (dir / "Old.xml") + "' -o '" + (dir / "out") + "' --to 150");
  EXPECT_EQ(run.status, 0) << err;
  EXPECT_NE(run.out.find("0 stages run, level 150"), std::string::npos) << run.out;
  EXPECT_TRUE(fs::exists(dir / "out/Old.xml"));
  EXPECT_EQ(Run("upgrade '" + (dir / "Old.xml") + "' -o '" + dir.Path() + "'").status, 2) << "never over its own input";
}
