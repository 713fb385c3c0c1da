// qelstd check, run as a user runs it.
#include <gtest/gtest.h>

#include "QelstdRun.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLScratch.h"

namespace {

class QelstdCheck : public testing::Test {
protected:
  void SetUp() override { QELSTD_REQUIRE_BINARY(); }
  // qelstd check on a standard of version 290 holding body, its standard error dropped.
  QelstdRun Check(const std::string& body, const std::string& options = "") {
    qeltest::WriteText(dir / "std.xml", "<std:node xmlns:std=\"" + std::string(ZOLDftStdNamespaceURI) + "\" name=\"drafting\">"
                                        "<std:enumdef name=\"YesNo\"><std:strval>Yes</std:strval></std:enumdef>"
                                        "<std:node name=\"Version\"><std:intval>290</std:intval></std:node>" + body + "</std:node>");
    return RunQelstd("check '" + (dir / "std.xml") + "' " + options + " 2>/dev/null");
  }
  qeltest::ScratchDir dir;
};

}  // namespace

TEST_F(QelstdCheck, CleanFileExitsZeroWithVersion) {
  QelstdRun run = Check("<std:node name=\"F\"><std:enumval name=\"YesNo\">Yes</std:enumval></std:node>");
  EXPECT_EQ(run.status, 0);
  for (const char* line : {"decode: 0", "version: 290", "enum faults: 0"}) EXPECT_NE(run.out.find(line), std::string::npos) << run.out;
}

TEST_F(QelstdCheck, UndefinedEnumeratedValueOrFailedDecodeExitsOne) {
  QelstdRun run = Check("<std:node name=\"F\"><std:enumval name=\"YesNo\">Maybe</std:enumval></std:node>", "--json");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.out.find("\"Enum undefined: Root.Root.F.Maybe with enum \\\"YesNo\\\"\""), std::string::npos) << run.out;
  run = Check("<std:node name=\"F\"><std:intval name=\"X\">1</std:intval></std:node>");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.out.find("decode: 1 (failed)"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("report: >> ASSERTION FAILED BOOL IS FALSE"), std::string::npos) << run.out;
  EXPECT_EQ(RunQelstd("check /nonexistent/std.xml 2>/dev/null").status, 1);
}
