// The upgrade driver on a file that does not decode whole: level and parent are still told, but
// nothing is upgraded or written; qelstd upgrade and info refuse it with the reason.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "QelstdRun.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLDrwParseStandard.h"
#include "ZOLReportCountTest.h"

namespace fs = std::filesystem;

namespace {

// Level 280, parent ISO, then an element the dialect refuses at that place, then more content
// that the decode never reaches.
std::string HalfReadable() {
  return "<std:node xmlns:std=\"" + std::string(ZOLDftStdNamespaceURI) + "\" name=\"drafting\">"
         "<std:node name=\"Version\"><std:intval>280</std:intval></std:node>"
         "<std:node name=\"Dimension\"><std:node name=\"ParentStandard\"><std:strval>ISO</std:strval></std:node></std:node>"
         "<std:node name=\"Broken\"><std:intval name=\"X\">1</std:intval></std:node>"
         "<std:node name=\"After\"><std:intval>1</std:intval></std:node></std:node>";
}

class FailedDecode : public ZOLReportCountTest {
protected:
  void SetUp() override {
    dir = fs::temp_directory_path() / ("qelstd-failed-decode-" + std::to_string(::getpid()));
    fs::create_directories(dir / "out");
    input = (dir / "Company.xml").string();
    std::ofstream(input) << HalfReadable();
  }
  void TearDown() override {
    fs::remove_all(dir);
    ZOLReportCountTest::TearDown();
  }
  bool OutputIsEmpty() const { return fs::is_empty(dir / "out"); }
  fs::path dir;
  std::string input;
};

}  // namespace

TEST_F(FailedDecode, LevelAndParentOfThePartReadAreToldButEncodeWritesNothing) {
  ZOLUnicodeString name(input);
  ZOLDrwParseStandard d(name);
  d.Decode();
  EXPECT_TRUE(d.DecodeFailed());
  EXPECT_EQ(d.GetVersion(), 280);
  EXPECT_EQ(d.GetParentStandard().str(), "ISO");
  EXPECT_EQ(r.Count(), 1) << "the codec reports where it stopped";

  ZOLUnicodeString out("previous");
  ZOLDrwParseStandardUpgradeOptions options;
  d.Encode((dir / "out").c_str(), out, options);
  EXPECT_EQ(out.str(), "");
  EXPECT_TRUE(d.GetOutcome().decodeFailed);
  EXPECT_FALSE(d.GetOutcome().saved);
  EXPECT_EQ(d.GetOutcome().stagesRun, 0);
  EXPECT_EQ(d.GetOutcome().levelReached, 280);

  // A target equal to the start level would save the tree as it stands: not a tree read in part.
  d.EncodeToVersion(280, options, (dir / "out" / "Company.xml").c_str());
  EXPECT_FALSE(d.GetOutcome().saved);
  EXPECT_TRUE(OutputIsEmpty());
  EXPECT_EQ(r.CountContaining("File did not decode; nothing written"), 2);
  reports = 3;
}

TEST_F(FailedDecode, MissingFileStillDatesAsReleaseNineButIsNotEncoded) {
  ZOLUnicodeString name((dir / "none.xml").string());
  ZOLDrwParseStandard d(name);
  d.Decode();
  EXPECT_TRUE(d.DecodeFailed());
  EXPECT_EQ(d.GetVersion(), 1);
  ZOLDrwParseStandardUpgradeOptions options;
  d.EncodeToVersion(-1, options, (dir / "out" / "none.xml").c_str());
  EXPECT_TRUE(d.GetOutcome().decodeFailed);
  EXPECT_EQ(d.GetOutcome().stagesRun, 0);
  EXPECT_TRUE(OutputIsEmpty());
  EXPECT_EQ(r.CountContaining("File did not decode; nothing written"), 1);
  reports = 1;
}

TEST_F(FailedDecode, WholeFileIsNotTakenForAFailure) {
  std::ofstream(input) << "<std:node xmlns:std=\"" + std::string(ZOLDftStdNamespaceURI) + "\" name=\"drafting\">"
                          "<std:node name=\"Version\"><std:intval>290</std:intval></std:node></std:node>";
  ZOLUnicodeString name(input);
  ZOLDrwParseStandard d(name);
  EXPECT_FALSE(d.DecodeFailed()) << "nothing decoded yet";
  d.Decode();
  EXPECT_FALSE(d.DecodeFailed());
  ZOLDrwParseStandardUpgradeOptions options;
  d.EncodeToVersion(-1, options, (dir / "out" / "Company.xml").c_str());
  EXPECT_TRUE(d.GetOutcome().saved);
  EXPECT_FALSE(d.GetOutcome().decodeFailed);
}

TEST_F(FailedDecode, QelstdUpgradeAndInfoRefuseTheFileWithTheReason) {
  QELSTD_REQUIRE_BINARY();
  for (const std::string& args : {"upgrade --to 280 -o '" + (dir / "out").string() + "' '" + input + "'",
                                 "upgrade -o '" + (dir / "out").string() + "' '" + input + "'",
                                 "upgrade --dry-run '" + input + "'", "info '" + input + "'"}) {
    QelstdRun run = RunQelstd(args + " 2>&1");
    EXPECT_EQ(run.status, 1) << args;
    EXPECT_NE(run.out.find("qelstd: " + input + ": does not decode as a standard: not a standard of the std dialect"),
              std::string::npos)
        << args << ": " << run.out;
    EXPECT_EQ(run.out.find("level 280"), std::string::npos) << args << ": " << run.out;
    EXPECT_EQ(run.out.find("stages run"), std::string::npos) << args << ": " << run.out;
  }
  EXPECT_TRUE(OutputIsEmpty());
}
