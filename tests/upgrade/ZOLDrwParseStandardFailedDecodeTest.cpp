// The upgrade driver on a file that does not decode whole: level and parent are still told, and
// the driver says so before anything is encoded; qelstd upgrade and info refuse it with the reason.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "QelstdRun.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLDrwParseStandard.h"
#include "ZOLReportCountTest.h"
#include "ZOLScratch.h"

namespace {

// Level 280, parent ISO, then an element the dialect refuses at that place, then more content
// that the decode never reaches.
class FailedDecode : public ZOLReportCountTest {
protected:
  qeltest::ScratchDir dir;
  std::string input = qeltest::WriteText(
      dir / "Company.xml",
      "<std:node xmlns:std=\"" + std::string(ZOLDftStdNamespaceURI) + "\" name=\"drafting\">"
      "<std:node name=\"Version\"><std:intval>280</std:intval></std:node>"
      "<std:node name=\"Dimension\"><std:node name=\"ParentStandard\"><std:strval>ISO</std:strval></std:node></std:node>"
      "<std:node name=\"Broken\"><std:intval name=\"X\">1</std:intval></std:node>"
      "<std:node name=\"After\"><std:intval>1</std:intval></std:node></std:node>");
};

}  // namespace

TEST_F(FailedDecode, LevelAndParentOfThePartReadAreToldAndTheFailureIsKnownBeforeEncoding) {
  ZOLUnicodeString name(input);
  ZOLDrwParseStandard d(name);
  d.Decode();
  EXPECT_TRUE(d.DecodeFailed());
  EXPECT_EQ(d.GetVersion(), 280);
  EXPECT_EQ(d.GetParentStandard().str(), "ISO");
  EXPECT_EQ(r.Count(), 1) << "the codec reports where it stopped";
  reports = 1;
}

TEST_F(FailedDecode, QelstdUpgradeAndInfoRefuseTheFileWithTheReason) {
  QELSTD_REQUIRE_BINARY();
  std::filesystem::create_directories(dir / "out");
  for (const std::string& args : {"upgrade --to 280 -o '" + (dir / "out") + "' '" + input + "'",
                                 "upgrade -o '" + (dir / "out") + "' '" + input + "'",
                                 "upgrade --dry-run '" + input + "'", "info '" + input + "'"}) {
    QelstdRun run = RunQelstd(args + " 2>&1");
    EXPECT_EQ(run.status, 1) << args;
    EXPECT_NE(run.out.find("qelstd: " + input + ": does not decode as a standard: not a standard of the std dialect"),
              std::string::npos)
        << args << ": " << run.out;
    EXPECT_EQ(run.out.find("level 280"), std::string::npos) << args << ": " << run.out;
    EXPECT_EQ(run.out.find("stages run"), std::string::npos) << args << ": " << run.out;
  }
  EXPECT_TRUE(std::filesystem::is_empty(dir / "out"));
}
