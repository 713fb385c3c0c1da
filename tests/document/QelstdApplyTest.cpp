// The qelstd apply verb, run as a user would.
#include <gtest/gtest.h>

#include <cstdio>
#include <fstream>
#include <iterator>
#include <string>

#include "QelstdRun.h"

namespace {

// qelstd with its standard error joined to its output.
QelstdRun Qelstd(const std::string& args) { return RunQelstd(args + " 2>&1"); }

std::string WriteEdits(const std::string& name, const std::string& text) {
  std::string path = testing::TempDir() + name;
  std::ofstream(path) << text;
  return path;
}

}  // namespace

TEST(QelstdApply, PrintsResultsOutlineAndVersion) {
  QELSTD_REQUIRE_BINARY();
  std::string path = WriteEdits("apply-ok.edits",
                                "# sample\n"
                                "node Enum:YesNo\n"
                                "value Enum.YesNo::string:Yes\n"
                                "\n"
                                "node Root:Styles\n"
                                "typeval Root.Styles:Sheet\n"
                                "value@-1 Root.Styles.Sheet:Framed:enum.YesNo:Yes\n"
                                "value Root.Styles:Scale:float.m.0.0:1.0\n"
                                "value Root:Version:int:290\n");
  QelstdRun run = Qelstd("apply " + path);
  EXPECT_EQ(run.status, 0) << run.out;
  EXPECT_EQ(run.out,
            "2: 0  node Enum:YesNo\n"
            "3: 0  value Enum.YesNo::string:Yes\n"
            "5: 0  node Root:Styles\n"
            "6: 0  typeval Root.Styles:Sheet\n"
            "7: 0  value@-1 Root.Styles.Sheet:Framed:enum.YesNo:Yes\n"
            "8: 0  value Root.Styles:Scale:float.m.0.0:1.0\n"
            "9: 0  value Root:Version:int:290\n"
            "\n"
            "TypeDef\n"
            "Enum\n"
            "  enumdef \"YesNo\"\n"
            "    strval = \"Yes\"\n"
            "Root\n"
            "  node \"Styles\"\n"
            "    typeval \"Sheet\"\n"
            "      enumval \"Framed\" = \"Yes\"\n"
            "    node \"Scale\"\n"
            "      floatval min \"0.0\" = \"1.0\"\n"
            "  node \"Version\"\n"
            "    intval = \"290\"\n"
            "\n"
            "version: 290\n");
}

TEST(QelstdApply, ShowsFailedLinesAndTheirReports) {
  QELSTD_REQUIRE_BINARY();
  std::string path = WriteEdits("apply-fail.edits", "node Root:a:x1\nnode Root:b:5\ndelete Root.zz\n");
  QelstdRun run = Qelstd("apply " + path);
  EXPECT_EQ(run.status, 1);
  EXPECT_NE(run.out.find("1: 2  node Root:a:x1\n2: 0  node Root:b:5\n    report: >> ASSERTION FAILED BOOL IS FALSE:"),
            std::string::npos)
      << run.out;
  EXPECT_NE(run.out.find("3: 1  delete Root.zz\n"), std::string::npos);
  EXPECT_NE(run.out.find("\nversion: 1\n"), std::string::npos);
}

TEST(QelstdApply, UnknownOperationIsAUsageErrorNamingTheLine) {
  QELSTD_REQUIRE_BINARY();
  std::string path = WriteEdits("apply-bad.edits", "node Root:a\n\nrename Root.a:b\n");
  QelstdRun run = Qelstd("apply " + path);
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "qelstd: " + path + ": line 3: unknown operation 'rename'\n");
  path = WriteEdits("apply-occ.edits", "node@2 Root:a\n");
  run = Qelstd("apply " + path);
  EXPECT_EQ(run.status, 2);
  EXPECT_EQ(run.out, "qelstd: " + path + ": line 1: bad occurrence '@2' for node\n");
}

TEST(QelstdApply, MissingFileIsNotFound) {
  QELSTD_REQUIRE_BINARY();
  QelstdRun run = Qelstd("apply /nonexistent/x.edits");
  EXPECT_EQ(run.status, 1);
  EXPECT_EQ(run.out, "qelstd: /nonexistent/x.edits: No such file or directory\n");
}

TEST(QelstdApply, WhatItSavesChecksClean) {
  QELSTD_REQUIRE_BINARY();
  // A control character in a value is refused by its line (3); a record at the top cannot be saved.
  std::string path = WriteEdits("apply-unwritable.edits",
                                "node Root:A\n"
                                "value Root.A:Bell:string:ring\x07ring\n"
                                "value Root.A:Plain:string:ring\n");
  std::string out = testing::TempDir() + "apply-unwritable.xml";
  std::remove(out.c_str());
  QelstdRun run = Qelstd("apply -o " + out + " " + path);
  EXPECT_EQ(run.status, 1) << run.out;
  EXPECT_NE(run.out.find("2: 3  value Root.A:Bell:string:ring\x07ring\n"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("saved: " + out), std::string::npos) << run.out;
  QelstdRun check = Qelstd("check " + out);
  EXPECT_EQ(check.status, 0) << check.out;

  std::string top = WriteEdits("apply-top-record.edits", "typeval Root:R\nvalue Root.R:F:int:1\n");
  std::ofstream(out) << "old";
  run = Qelstd("apply -o " + out + " " + top);
  EXPECT_EQ(run.status, 1) << run.out;
  EXPECT_NE(run.out.find("cannot be saved; nothing was written"), std::string::npos) << run.out;
  std::ifstream in(out);
  std::string kept((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
  EXPECT_EQ(kept, "old");
  std::remove(out.c_str());
}
