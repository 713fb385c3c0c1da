// The qelstd apply and check verbs, run as a user would, and the bounds apply keeps on what it
// reads and prints: the size of an edit file, the sub-nodes its value-all lines reach, and the
// indentation of the outline.
#include <gtest/gtest.h>

#include <filesystem>
#include <sstream>

#include "QelstdRun.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLScratch.h"

namespace {

// A document of the dialect around body.
std::string Std(const std::string& body) {
  return "<std:node xmlns:std=\"" + std::string(ZOLDftStdNamespaceURI) + "\" name=\"drafting\">" + body + "</std:node>";
}

// A document of nested nodes "a", depth levels below Root, with a value at the bottom.
std::string Nested(int depth) {
  std::string body;
  for (int i = 0; i < depth; ++i) body += "<std:node name=\"a\">";
  body += "<std:intval>7</std:intval>";
  for (int i = 0; i < depth; ++i) body += "</std:node>";
  return Std(body);
}

std::string Lines(const std::string& text, size_t first, size_t count) {
  std::istringstream in(text);
  std::string line, out;
  for (size_t n = 0; std::getline(in, line) && n < first + count; ++n)
    if (n >= first) out += line + "\n";
  return out;
}

class QelstdApply : public testing::Test {
protected:
  void SetUp() override { QELSTD_REQUIRE_BINARY(); }
  // qelstd apply (options first) on a file of edit lines, its standard error joined to its output.
  QelstdRun Apply(const std::string& lines, const std::string& options = "") {
    qeltest::WriteText(path, lines);
    return RunQelstd("apply " + options + " '" + path + "' 2>&1");
  }
  // qelstd check on a standard of version 290 holding body, its standard error dropped.
  QelstdRun Check(const std::string& body, const std::string& options = "") {
    qeltest::WriteText(dir / "std.xml", Std("<std:enumdef name=\"YesNo\"><std:strval>Yes</std:strval></std:enumdef>"
                                            "<std:node name=\"Version\"><std:intval>290</std:intval></std:node>" + body));
    return RunQelstd("check '" + (dir / "std.xml") + "' " + options + " 2>/dev/null");
  }
  qeltest::ScratchDir dir;
  std::string path = dir / "std.edits";
};

using QelstdCheck = QelstdApply;
using QelstdApplyBounds = QelstdApply;

}  // namespace

TEST_F(QelstdApply, PrintsResultsOutlineAndVersion) {
  QelstdRun run = Apply("# sample\nnode Enum:YesNo\nvalue Enum.YesNo::string:Yes\n\nnode Root:Styles\ntypeval Root.Styles:Sheet\n"
                        "value@-1 Root.Styles.Sheet:Framed:enum.YesNo:Yes\nvalue Root.Styles:Scale:float.m.0.0:1.0\n"
                        "value Root:Version:int:290\n");
  EXPECT_EQ(run.status, 0) << run.out;
  EXPECT_EQ(run.out,
            "2: 0  node Enum:YesNo\n3: 0  value Enum.YesNo::string:Yes\n5: 0  node Root:Styles\n6: 0  typeval Root.Styles:Sheet\n"
            "7: 0  value@-1 Root.Styles.Sheet:Framed:enum.YesNo:Yes\n8: 0  value Root.Styles:Scale:float.m.0.0:1.0\n"
            "9: 0  value Root:Version:int:290\n\n"
            "TypeDef\nEnum\n  enumdef \"YesNo\"\n    strval = \"Yes\"\nRoot\n  node \"Styles\"\n    typeval \"Sheet\"\n"
            "      enumval \"Framed\" = \"Yes\"\n    node \"Scale\"\n      floatval min \"0.0\" = \"1.0\"\n"
            "  node \"Version\"\n    intval = \"290\"\n\nversion: 290\n");
}

TEST_F(QelstdApply, ShowsFailedLinesAndTheirReports) {
  QelstdRun run = Apply("node Root:a:x1\nnode Root:b:5\ndelete Root.zz\n");
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.out.find("1: 2  node Root:a:x1\n2: 0  node Root:b:5\n    report: >> ASSERTION FAILED BOOL IS FALSE:"),
            std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("3: 1  delete Root.zz\n"), std::string::npos);
  EXPECT_NE(run.out.find("\nversion: 1\n"), std::string::npos);
}

TEST_F(QelstdApply, UnknownOperationIsAUsageErrorNamingTheLine) {
  QelstdRun run = Apply("node Root:a\n\nrename Root.a:b\n");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "qelstd: " + path + ": line 3: unknown operation 'rename'\n");
  run = Apply("node@2 Root:a\n");
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "qelstd: " + path + ": line 1: bad occurrence '@2' for node\n");
}

TEST_F(QelstdApply, MissingFileIsNotFound) {
  QelstdRun run = RunQelstd("apply /nonexistent/x.edits 2>&1");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "qelstd: /nonexistent/x.edits: No such file or directory\n");
}

TEST_F(QelstdApply, WhatItSavesChecksClean) {
  // A control character in a value is refused by its line (3); the rest is saved and checks clean.
  const std::string out = dir / "saved.xml";
  QelstdRun run = Apply("node Root:A\nvalue Root.A:Bell:string:ring\x07ring\nvalue Root.A:Plain:string:ring\n", "-o " + out);
  EXPECT_EQ(run.status, 1) << run.out;
  EXPECT_NE(run.out.find("2: 3  value Root.A:Bell:string:ring\x07ring\n"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("saved: " + out), std::string::npos) << run.out;
  QelstdRun check = RunQelstd("check " + out + " 2>&1");
  EXPECT_EQ(check.status, 0) << check.out;

  // A record at the top would not read back: nothing is saved and the old file stays.
  qeltest::WriteText(out, "old");
  run = Apply("typeval Root:R\nvalue Root.R:F:int:1\n", "-o " + out);
  EXPECT_EQ(run.status, 1) << run.out;
  EXPECT_NE(run.out.find("cannot be saved; nothing was written"), std::string::npos) << run.out;
  EXPECT_EQ(qeltest::ReadText(out), "old");
}

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

TEST_F(QelstdApplyBounds, OutlineIndentStopsAtLevel64AndTellsDeeperLevelsByNumber) {
  const std::string in = qeltest::WriteText(dir / "nested.xml", Nested(66));
  QelstdRun run = Apply("# nothing\n", "--in '" + in + "'");
  ASSERT_EQ(run.status, 0) << run.out;
  // Lines 0 to 2 are the blank line and the two empty roots; Root is line 3, depth 0.
  const std::string deepest(128, ' ');
  EXPECT_EQ(Lines(run.out, 66, 5), std::string(126, ' ') + "node \"a\"\n" + deepest + "node \"a\"\n" + deepest +
                                        "[65] node \"a\"\n" + deepest + "[66] node \"a\"\n" + deepest + "[67] intval = \"7\"\n");
}

TEST_F(QelstdApplyBounds, OutlineOfADeepTreeGrowsWithItsDepthNotItsSquare) {
  const int depth = 20000;
  const std::string in = qeltest::WriteText(dir / "deep.xml", Nested(depth));
  QelstdRun run = Apply("\n", "--in '" + in + "'");
  ASSERT_EQ(run.status, 0) << run.out.substr(0, 300);
  // At most 128 blanks, a depth and the node per line; a full indent would be 400 MB.
  EXPECT_LT(run.out.size(), size_t{depth} * 160);
  EXPECT_NE(run.out.find(std::string(128, ' ') + "[20000] node \"a\"\n"), std::string::npos);
}

TEST_F(QelstdApplyBounds, EditFileAbove64MiBIsRefusedUnread) {
  qeltest::WriteText(path, "");
  std::filesystem::resize_file(path, (size_t{64} << 20) + 1);  // sparse: no disk is used
  QelstdRun run = RunQelstd("apply '" + path + "' 2>&1");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "qelstd: " + path + ": is larger than 64 MiB, the most it may be\n");
}

TEST_F(QelstdApplyBounds, ValueAllLinesStopOnceTheyWouldReachAMillionSubNodes) {
  // 1000 nodes "a" under P; each value-all line reaches all of them, so that line 2002 would
  // bring the total past 1000000. Within the bound they are applied.
  std::string text = "node Root:P\n";
  for (int i = 0; i < 1000; ++i) text += "node Root.P:a\n";
  QelstdRun run = Apply(text + "value-all Root.P.a:v:int:1\n");
  EXPECT_EQ(run.status, 0);
  EXPECT_NE(run.out.find("1002: 0  value-all Root.P.a:v:int:1\n"), std::string::npos);
  EXPECT_NE(run.out.find("    node \"a\"\n      node \"v\"\n        intval = \"1\"\n    node \"a\"\n"), std::string::npos);
  for (int i = 0; i < 1001; ++i) text += "value-all@-1 Root.P.a:v:int:1\n";
  qeltest::WriteText(path, text);
  run = RunQelstd("apply '" + path + "' 2>&1 >/dev/null");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "qelstd: " + path +
                         ": line 2002: the value-all lines would reach more than 1000000 sub-nodes; stopped there, "
                         "nothing saved\n");
}
