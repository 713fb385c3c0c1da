// The qelstd apply verb, run as a user would.
#include <gtest/gtest.h>

#include "QelstdRun.h"
#include "ZOLScratch.h"

namespace {

class QelstdApply : public testing::Test {
protected:
  void SetUp() override { QELSTD_REQUIRE_BINARY(); }
  // qelstd apply on a file of edit lines, its standard error joined to its output.
  QelstdRun Apply(const std::string& lines) {
    qeltest::WriteText(path, lines);
    return RunQelstd("apply " + path + " 2>&1");
  }
  qeltest::ScratchDir dir;
  std::string path = dir / "std.edits";
};

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
  qeltest::WriteText(path, "node Root:A\nvalue Root.A:Bell:string:ring\x07ring\nvalue Root.A:Plain:string:ring\n");
  QelstdRun run = RunQelstd("apply -o " + out + " " + path + " 2>&1");
  EXPECT_EQ(run.status, 1) << run.out;
  EXPECT_NE(run.out.find("2: 3  value Root.A:Bell:string:ring\x07ring\n"), std::string::npos) << run.out;
  EXPECT_NE(run.out.find("saved: " + out), std::string::npos) << run.out;
  QelstdRun check = RunQelstd("check " + out + " 2>&1");
  EXPECT_EQ(check.status, 0) << check.out;

  // A record at the top would not read back: nothing is saved and the old file stays.
  qeltest::WriteText(out, "old");
  qeltest::WriteText(path, "typeval Root:R\nvalue Root.R:F:int:1\n");
  run = RunQelstd("apply -o " + out + " " + path + " 2>&1");
  EXPECT_EQ(run.status, 1) << run.out;
  EXPECT_NE(run.out.find("cannot be saved; nothing was written"), std::string::npos) << run.out;
  EXPECT_EQ(qeltest::ReadText(out), "old");
}
