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

// Runs qelstd with a prefix of variable settings (env -u / VAR=value), its standard error into errFile.
QelstdRun Qelstd(const std::string& env, const std::string& args, const std::string& errFile) {
  return RunQelstd(args + " 2>'" + errFile + "'",
                   "env -u ADL_ODT_OUT -u ZOLTemp -u ZOLCollectionStandard -u ZOLDefaultCollectionStandard " + env);
}

// These tests skip when the binary is not there.
#define REQUIRE_QELSTD()                                                        \
  if (std::string(QELSTD_QELSTD_EXE).empty() || !fs::exists(QELSTD_QELSTD_EXE)) \
  GTEST_SKIP() << "qelstd is not built"

std::string SheetStandard() {
  return Standard(Version(290) + Parent("ANSI", "1") +
                  Node("SheetFormat", Format("A ANSI", "279.4", "215.9", "LandscapeOnly")) +
                  Node("Styles", Node("Sheet", FullSheetStyle("Default", "A ANSI", "1.0"))));
}

}  // namespace

TEST(QelstdVerbs, NameWithoutWorkingDirectoryIsRefusedClearly) {
  REQUIRE_QELSTD();
  ScratchDir dir;
  for (const char* verb : {"info", "sheets"}) {
    QelstdRun run = Qelstd("", std::string(verb) + " ISO", dir / "err");
    EXPECT_EQ(run.status, 1) << verb;
    EXPECT_NE(ReadText(dir / "err").find("qelstd: ISO: a standard name needs a working directory"), std::string::npos)
        << ReadText(dir / "err");
  }
}

TEST(QelstdVerbs, InfoAndSheetsOfAFileAsJson) {
  REQUIRE_QELSTD();
  QELSTD_REQUIRE_CODEC();
  ScratchDir dir;
  WriteText(dir / "Asme.xml", SheetStandard());
  QelstdRun info = Qelstd("", "info --json '" + (dir / "Asme.xml") + "'", dir / "err");
  ASSERT_EQ(info.status, 0) << ReadText(dir / "err");
  nlohmann::json i = nlohmann::json::parse(info.out);
  EXPECT_EQ(i["parent"], "ASME");
  EXPECT_EQ(i["class"], 2);
  EXPECT_EQ(i["version"], 290);
  EXPECT_EQ(i["release"], 428);
  QelstdRun sheets = Qelstd("", "sheets --json '" + (dir / "Asme.xml") + "'", dir / "err");
  ASSERT_EQ(sheets.status, 0) << ReadText(dir / "err");
  nlohmann::json s = nlohmann::json::parse(sheets.out);
  ASSERT_EQ(s["formats"].size(), 1u);
  EXPECT_EQ(s["formats"][0]["width"], 279.4);
  EXPECT_EQ(s["formats"][0]["orientation"], "LandscapeOnly");
  ASSERT_EQ(s["styles"].size(), 1u);
  EXPECT_EQ(s["styles"][0]["format"]["name"], "A ANSI");
  EXPECT_EQ(s["oldStyles"], false);
  EXPECT_TRUE(s["reports"].empty());
}

TEST(QelstdVerbs, ListShowsRepositoryStandardsWithParentAndVersion) {
  REQUIRE_QELSTD();
  QELSTD_REQUIRE_CODEC();
  ScratchDir dir;
  WriteText(dir / "repo/drafting/Company.xml", SheetStandard());
  QelstdRun run = Qelstd("ZOLCollectionStandard='" + (dir / "repo") + "'", "list --json", dir / "err");
  ASSERT_EQ(run.status, 0);
  nlohmann::json list = nlohmann::json::parse(run.out);
  ASSERT_GE(list.size(), 1u);
  EXPECT_EQ(list[0]["name"], "Company");
  EXPECT_EQ(list[0]["source"], "repository");
  EXPECT_EQ(list[0]["parent"], "ASME");
  EXPECT_EQ(list[0]["version"], 290);
  EXPECT_NE(ReadText(dir / "err").find("built-in standards: not read"), std::string::npos);
}

TEST(QelstdVerbs, UpgradeAcrossAnUnbuiltStageSaysSoAndWritesNothing) {
  REQUIRE_QELSTD();
  QELSTD_REQUIRE_CODEC();
  ScratchDir dir;
  WriteText(dir / "Old.xml", Standard(Version(150) + Parent("ISO")));
  QelstdRun run = Qelstd("", "upgrade '" + (dir / "Old.xml") + "' -o '" + (dir / "out") + "'", dir / "err");
  std::string err = ReadText(dir / "err");
  // Until every step of the chain is built, some stage between 150 and 290 stops the upgrade.
  if (run.status == 0) GTEST_SKIP() << "every stage from 150 on is built";
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(err.find("cannot be upgraded from level 150 to 290 yet; no file written"), std::string::npos) << err;
  EXPECT_NE(err.find("not built yet"), std::string::npos) << err;
  EXPECT_FALSE(fs::exists(dir / "out/Old.xml"));
}

TEST(QelstdVerbs, UpgradeToTheLevelItHasWritesTheFileUnchanged) {
  REQUIRE_QELSTD();
  QELSTD_REQUIRE_CODEC();
  ScratchDir dir;
  WriteText(dir / "Old.xml", Standard(Version(150) + Parent("ISO")));
  QelstdRun run = Qelstd("", "upgrade '" + (dir / "Old.xml") + "' -o '" + (dir / "out") + "' --to 150", dir / "err");
  EXPECT_EQ(run.status, 0) << ReadText(dir / "err");
  EXPECT_NE(run.out.find("0 stages run, level 150"), std::string::npos) << run.out;
  EXPECT_TRUE(fs::exists(dir / "out/Old.xml"));
  QelstdRun again = Qelstd("", "upgrade '" + (dir / "Old.xml") + "' -o '" + dir.Path() + "'", dir / "err");
  EXPECT_EQ(again.status, 2) << "never over its own input";
}
