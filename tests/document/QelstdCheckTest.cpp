// qelstd check, run as a user runs it.
#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "QelstdRun.h"
#include "ZOLDftStdNamespace.h"

namespace {

// Runs qelstd with arguments, its standard error dropped; its exit status, its output in out.
int Qelstd(const std::string& args, std::string& out) {
  QelstdRun run = RunQelstd(args + " 2>/dev/null");
  out = run.out;
  return run.status;
}

std::string Write(const char* name, const std::string& body) {
  std::string path = (std::filesystem::temp_directory_path() / (std::string("qelstdcheck_") + std::to_string(::getpid()) + name)).string();
  std::ofstream(path) << "<std:node xmlns:std=\"" << ZOLDftStdNamespaceURI << "\" name=\"drafting\">"
                      << "<std:enumdef name=\"YesNo\"><std:strval>Yes</std:strval></std:enumdef>"
                      << "<std:node name=\"Version\"><std:intval>290</std:intval></std:node>" << body << "</std:node>";
  return path;
}

}  // namespace

TEST(QelstdCheck, CleanFileExitsZeroWithVersion) {
  QELSTD_REQUIRE_BINARY();
  std::string path = Write("clean.xml", "<std:node name=\"F\"><std:enumval name=\"YesNo\">Yes</std:enumval></std:node>");
  std::string out;
  EXPECT_EQ(Qelstd("check " + path, out), 0);
  EXPECT_NE(out.find("decode: 0"), std::string::npos) << out;
  EXPECT_NE(out.find("version: 290"), std::string::npos) << out;
  EXPECT_NE(out.find("enum faults: 0"), std::string::npos) << out;
  std::remove(path.c_str());
}

TEST(QelstdCheck, UndefinedEnumeratedValueOrFailedDecodeExitsOne) {
  QELSTD_REQUIRE_BINARY();
  std::string path = Write("fault.xml", "<std:node name=\"F\"><std:enumval name=\"YesNo\">Maybe</std:enumval></std:node>");
  std::string out;
  EXPECT_EQ(Qelstd("check " + path + " --json", out), 1);
  EXPECT_NE(out.find("\"Enum undefined: Root.Root.F.Maybe with enum \\\"YesNo\\\"\""), std::string::npos) << out;
  std::remove(path.c_str());
  path = Write("broken.xml", "<std:node name=\"F\"><std:intval name=\"X\">1</std:intval></std:node>");
  EXPECT_EQ(Qelstd("check " + path, out), 1);
  EXPECT_NE(out.find("decode: 1 (failed)"), std::string::npos) << out;
  EXPECT_NE(out.find("report: >> ASSERTION FAILED BOOL IS FALSE"), std::string::npos) << out;
  std::remove(path.c_str());
  EXPECT_EQ(Qelstd("check /nonexistent/std.xml", out), 1);
}
