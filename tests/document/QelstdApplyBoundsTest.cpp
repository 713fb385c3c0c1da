// qelstd apply keeps what it reads and what it prints bounded: the size of an edit file, the
// sub-nodes its value-all lines reach, and the indentation of the outline.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

#include "QelstdRun.h"
#include "ZOLDftStdNamespace.h"

namespace fs = std::filesystem;

namespace {

std::string TempFile(const std::string& name) {
  return (fs::temp_directory_path() / ("qelstd-bounds-" + std::to_string(::getpid()) + "-" + name)).string();
}

std::string Write(const std::string& name, const std::string& text) {
  std::string path = TempFile(name);
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

// A document of nested nodes "a", depth levels below Root, with a value at the bottom.
std::string Nested(int depth) {
  std::string text = "<std:node xmlns:std=\"" + std::string(ZOLDftStdNamespaceURI) + "\" name=\"drafting\">";
  for (int i = 0; i < depth; ++i) text += "<std:node name=\"a\">";
  text += "<std:intval>7</std:intval>";
  for (int i = 0; i < depth; ++i) text += "</std:node>";
  return text + "</std:node>";
}

std::string Lines(const std::string& text, size_t first, size_t count) {
  std::istringstream in(text);
  std::string line, out;
  for (size_t n = 0; std::getline(in, line) && n < first + count; ++n)
    if (n >= first) out += line + "\n";
  return out;
}

}  // namespace

TEST(QelstdApplyBounds, OutlineIndentStopsAtLevel64AndTellsDeeperLevelsByNumber) {
  QELSTD_REQUIRE_BINARY();
  const std::string in = Write("nested.xml", Nested(66));
  const std::string edits = Write("none.edits", "# nothing\n");
  QelstdRun run = RunQelstd("apply --in '" + in + "' '" + edits + "' 2>&1");
  ASSERT_EQ(run.status, 0) << run.out;
  // Lines 0 to 2 are the blank line and the two empty roots; Root is line 3, depth 0.
  const std::string deepest(128, ' ');
  EXPECT_EQ(Lines(run.out, 66, 5), std::string(126, ' ') + "node \"a\"\n" + deepest + "node \"a\"\n" + deepest +
                                        "[65] node \"a\"\n" + deepest + "[66] node \"a\"\n" + deepest + "[67] intval = \"7\"\n");
  std::remove(in.c_str());
  std::remove(edits.c_str());
}

TEST(QelstdApplyBounds, OutlineOfADeepTreeGrowsWithItsDepthNotItsSquare) {
  QELSTD_REQUIRE_BINARY();
  const int depth = 20000;
  const std::string in = Write("deep.xml", Nested(depth));
  const std::string edits = Write("none2.edits", "\n");
  QelstdRun run = RunQelstd("apply --in '" + in + "' '" + edits + "' 2>&1");
  ASSERT_EQ(run.status, 0) << run.out.substr(0, 300);
  // At most 128 blanks, a depth and the node per line; a full indent would be 400 MB.
  EXPECT_LT(run.out.size(), size_t{depth} * 160);
  EXPECT_NE(run.out.find(std::string(128, ' ') + "[20000] node \"a\"\n"), std::string::npos);
  std::remove(in.c_str());
  std::remove(edits.c_str());
}

TEST(QelstdApplyBounds, EditFileAbove64MiBIsRefusedUnread) {
  QELSTD_REQUIRE_BINARY();
  const std::string big = TempFile("big.edits");
  std::ofstream(big).close();
  fs::resize_file(big, (size_t{64} << 20) + 1);  // sparse: no disk is used
  QelstdRun run = RunQelstd("apply '" + big + "' 2>&1");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "qelstd: " + big + ": is larger than 64 MiB, the most it may be\n");
  std::remove(big.c_str());
}

TEST(QelstdApplyBounds, ValueAllLinesStopOnceTheyWouldReachAMillionSubNodes) {
  QELSTD_REQUIRE_BINARY();
  // 1000 nodes "a" under P; each value-all line reaches all of them, so that line 2002 would
  // bring the total past 1000000. Within the bound they are applied.
  std::string text = "node Root:P\n";
  for (int i = 0; i < 1000; ++i) text += "node Root.P:a\n";
  const std::string within = Write("reach-ok.edits", text + "value-all Root.P.a:v:int:1\n");
  QelstdRun run = RunQelstd("apply '" + within + "' 2>&1");
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.out.find("1002: 0  value-all Root.P.a:v:int:1\n"), std::string::npos);
  EXPECT_NE(run.out.find("    node \"a\"\n      node \"v\"\n        intval = \"1\"\n    node \"a\"\n"), std::string::npos);
  for (int i = 0; i < 1001; ++i) text += "value-all@-1 Root.P.a:v:int:1\n";
  const std::string beyond = Write("reach.edits", text);
  run = RunQelstd("apply '" + beyond + "' 2>&1 >/dev/null");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "qelstd: " + beyond +
                         ": line 2002: the value-all lines would reach more than 1000000 sub-nodes; stopped there, "
                         "nothing saved\n");
  std::remove(within.c_str());
  std::remove(beyond.c_str());
}
