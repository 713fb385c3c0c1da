// Flat legacy files: what the reader makes of their lines and faults, how Decode tells them from
// trees, and a flat file of each parent taken through the chain in one pass.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QelstdRun.h"
#include "ZOLChainTestSupport.h"
#include "ZOLDftStandardServices.h"
#include "ZOLDrwParseParameter.h"
#include "ZOLIDrwStandard.h"
#include "ZOLReportCountTest.h"
#include "ZOLScratch.h"
#include "upgrade/ZOLDrwFlatReader.h"

namespace {

using Fault = ZOLDrwParseStandard::FlatFault;

std::string KindName(Fault::Kind kind) {
  static const char* const names[] = {"NotFlatText", "UnknownKeyword", "BadValue",     "Misplaced",
                                      "UnclosedBlock", "UnnamedBlock", "MissingParent"};
  return names[kind];
}

// "keyword=value" or "keyword=value@block/name", joined by "|"; the faults as "Kind@line", joined by ",".
std::pair<std::string, std::string> Read(const std::string& text) {
  ZOLDrwFlatText flat = ZOLDrwReadFlatText(text);
  std::string params, faults;
  for (ZOLDrwParseParameter* p : flat.parameters) {
    params += (params.empty() ? "" : "|") + p->Keyword().str() + "=" + p->Value().str();
    if (!p->GetBlockKeyword().IsEmpty()) params += "@" + p->GetBlockKeyword().str() + "/" + p->GetBlockName().str();
    delete p;
  }
  for (const Fault& f : flat.faults) faults += (faults.empty() ? "" : ",") + KindName(f.kind) + "@" + std::to_string(f.line);
  return {params, faults};
}

class FlatFile : public ZOLReportCountTest {};

TEST_F(FlatFile, ReaderKeepsWhatItCanAndNamesEveryFault) {
  const std::string P = "ParentStandard JIS\n";
  struct Row {
    std::string text, params, faults;
  };
  const Row rows[] = {
      {"\xEF\xBB\xBF  ParentStandard\tISO \r\nDIMLTail 2.0\r\n", "ParentStandard=ISO|DIMLTail=2.0", ""},
      {P + "CUMLOriginSymbol \"a \"\"b\"\" c\"\nNDSepar_1 \" \"\n", "ParentStandard=JIS|CUMLOriginSymbol=a \"b\" c", "Misplaced@3"},
      {P + "BEGIN_COMMENT_BLOCK\nDIMLFoo 1\nanything at all\nEND_COMMENT_BLOCK\nDIMLTail 1.0", "ParentStandard=JIS|DIMLTail=1.0", ""},
      {P + "DIMLFoo 1\nDIMLTail 2.0 mm\nDIMLTextGap\nTXTDatumMode \"1\" x\nCUMLTxtAngle \"open\nDIMLFrameGap a\x01\n"
               "DIMLTail \xC3(\nDIMLTextGap \xEF\xBF\xBE\nCUMLOriginSymbol \xC3\xB8",
       "ParentStandard=JIS|CUMLOriginSymbol=\xC3\xB8", "UnknownKeyword@2,BadValue@3,BadValue@4,BadValue@5,BadValue@6,BadValue@7,BadValue@8,BadValue@9"},
      {P + "BEGIN_TOLERANCE\nTolType 2\nTolName T1\nEND_TOLERANCE\nBEGIN_NUMERICAL_DISPLAY\nNDName N1\nNDUnit 2\nEND_NUMERICAL_DISPLAY",
       "ParentStandard=JIS|TolType=2@TOLERANCE/T1|TolName=T1@TOLERANCE/T1|NDName=N1@NUMERICAL_DISPLAY/N1|NDUnit=2@NUMERICAL_DISPLAY/N1", ""},
      {P + "TolType 2\nBEGIN_TOLERANCE\nTolName T\nDIMLTail 1.0\nNDUnit 2\nEND_NUMERICAL_DISPLAY\nEND_TOLERANCE x\nEND_TOLERANCE",
       "ParentStandard=JIS|TolName=T@TOLERANCE/T", "Misplaced@2,Misplaced@5,Misplaced@6,Misplaced@7,BadValue@8,Misplaced@9"},
      {P + "BEGIN_TOLERANCE\nTolType 1\nEND_TOLERANCE\nBEGIN_TOLERANCE\nTolName A\nBEGIN_NUMERICAL_DISPLAY\nNDName N\nNDType 2\n",
       "ParentStandard=JIS|TolName=A@TOLERANCE/A|NDName=N@NUMERICAL_DISPLAY/N|NDType=2@NUMERICAL_DISPLAY/N",
       "UnnamedBlock@2,UnclosedBlock@5,UnclosedBlock@7"},
      {"DIMLTail 1.0\nBEGIN_COMMENT_BLOCK\nDIMLTextGap 1.0\nEND_COMMENT_BLOCK trailing words\nEND_COMMENT_BLOCK\nBEGIN_COMMENT_BLOCK\nx",
       "DIMLTail=1.0", "Misplaced@5,UnclosedBlock@6,MissingParent@0"},
  };
  for (const Row& row : rows) EXPECT_EQ(Read(row.text), std::make_pair(row.params, row.faults)) << row.text;
}

TEST_F(FlatFile, DecodeTellsFlatTextFromTreesAndFromNeither) {
  qeltest::ScratchDir dir;
  struct Row {
    std::string text;
    bool flat, failed;
    int version;
    const char* parent;
    int reports;
  };
  const Row rows[] = {
      {"ParentStandard ANSI\nTXTDatumMode 1\nDIMLTail 1.0\n", true, false, 0, "ASME", 0},
      {"ParentStandard ANSI\nTXTDatumMode 2\n", true, false, 0, "ANSI", 0},
      {"\n\nDIMLTail 1.0\nDIMLBogus 2\n", true, true, 0, "", 2},
      {"<?xml version=\"1.0\"?><std:node name=\"drafting\" xmlns:std=\"http://www.qelstandardinfra.org/std\">"
       "<std:node name=\"Dimension\"><std:node name=\"ParentStandard\"><std:strval>JIS</std:strval></std:node></std:node>"
       "<std:node name=\"Version\"><std:intval>200</std:intval></std:node></std:node>",
       false, false, 200, "JIS", 0},
      {"just some words\n", false, true, 0, "", -1},
      {std::string("DIMLTail 1.0\n\0binary", 20), false, true, 0, "", -1},
  };
  for (const Row& row : rows) {
    const std::string path = dir / "standard.txt";
    qeltest::WriteText(path, row.text);
    EXPECT_EQ(ZOLDrwParseStandard::IsFlatFile(ZOLUnicodeString(path)), row.flat) << row.text;
    ZOLUnicodeString name(path);
    ZOLDrwParseStandard d(name);
    const int before = r.Count();
    d.Decode();
    EXPECT_EQ(d.DecodeFailed(), row.failed) << row.text;
    if (!row.failed || row.flat) {
      EXPECT_EQ(d.GetVersion(), row.version) << row.text;
    }
    EXPECT_EQ(d.GetParentStandard().str(), row.parent) << row.text;
    if (row.reports >= 0) {
      EXPECT_EQ(r.Count() - before, row.reports) << row.text;
    } else {
      EXPECT_EQ(d.GetFlatFaults().at(0).kind, Fault::NotFlatText) << row.text;
    }
  }
  // The files that are neither raise the reports of a failed XML decode, which are not counted here.
  reports = r.Count();
}

// One Encode takes a flat file of each parent from the flat text to level 290.
TEST_F(FlatFile, EachParentGoesThroughTheChainInOnePassAndLoads) {
  QELSTD_REQUIRE_BINARY();
  qeltest::ScratchDir dir;
  for (const qeltest::Parent& parent : qeltest::kParents) {
    const std::string stored = parent.bit == 2 ? "ANSI" : parent.name;
    const std::string mode = parent.bit == 2 ? "1" : parent.bit == 1 ? "2" : "0";
    const std::string flat = dir / (std::string("Legacy") + parent.name + ".std");
    qeltest::WriteText(flat, "BEGIN_COMMENT_BLOCK\nOld standard\nEND_COMMENT_BLOCK\nParentStandard " + stored +
                                 "\nTXTDatumMode " + mode +
                                 "\nDIMLTail 4.5\nDIMLTextGap 0.8\nSYMBArrowSide 3.5\nSYMBArrowAngle 15.0\nSYMBCircleDiameter 1.2\n"
                                 "BEGIN_NUMERICAL_DISPLAY\nNDName NUM.OLD\nNDUnit 2\nNDGlobFact 25.4\nNDSepar_1 \" \"\n"
                                 "END_NUMERICAL_DISPLAY\n");
    const QelstdRun checked = RunQelstd("check '" + flat + "'");
    EXPECT_EQ(checked.status, 1) << parent.name;
    EXPECT_NE(checked.out.find("missing mandatory parameters: 98\n  DIMLUnderline\n"), std::string::npos) << checked.out;

    ZOLUnicodeString name(flat);
    ZOLDrwParseStandard d(name);
    d.Decode();
    ASSERT_FALSE(d.DecodeFailed()) << parent.name;
    EXPECT_EQ(d.GetParentStandard().str(), parent.name);
    ZOLDrwParseStandardUpgradeOptions options;
    ZOLString output;
    d.Encode((dir / "out").c_str(), output, options);
    EXPECT_EQ(d.GetOutcome().stagesRun, 29) << parent.name;
    EXPECT_EQ(d.GetOutcome().levelReached, 290) << parent.name;
    ASSERT_TRUE(d.GetOutcome().saved) << parent.name;
    const std::string upgraded = output.str();

    const QelstdRun clean = RunQelstd("check '" + upgraded + "'");
    EXPECT_EQ(clean.status, 0) << clean.out;
    EXPECT_NE(clean.out.find("version: 290\nenum faults: 0\n"), std::string::npos) << clean.out;
    ZOLIDrwStandard_var standard = ZOLDftStandardServices::GetStandardFromFile(ZOLUnicodeString(upgraded), "Legacy");
    ASSERT_FALSE(standard.IsNull()) << parent.name;
    const std::pair<const char*, const char*> values[] = {
        {"Dimension.DIMLTail", "4.5"},           {"Dimension.SYMBCircleDiameter", "1.2"}, {"Dimension.ParentStandard", stored.c_str()},
        {"DressUp.Symbols.Circle.Diameter", "3.5"}, {"DressUp.Symbols.SimpleArrow.Angle", "15.0"},
    };
    for (const auto& [path, text] : values) {
      ZOLUnicodeString value;
      EXPECT_EQ(standard->GetValue(path, 1, value), S_OK) << parent.name << " " << path;
      EXPECT_EQ(value.str(), text) << parent.name << " " << path;
    }
    // The block is the ninth format, after the eight delivered with the first tree.
    ZOLUnicodeString format;
    double factor = 0;
    standard->GetValue("ValueFormats.FNMVAL", 9, format);
    standard->GetValue("ValueFormats.FAMUAS", 9, factor);
    EXPECT_EQ(format.str(), "NUM.OLD") << parent.name;
    EXPECT_EQ(factor, 25.4) << parent.name;
  }
  reports = r.Count();
}

}  // namespace
