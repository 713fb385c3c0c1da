// A release 9 standard through the whole chain to level 290, for each parent and both settings of
// the option: telling values of every step at once, a saved text that does not change from run to run, a parent that the releases
// did not know, the style builders that later releases call, and the upgrade as a user runs it.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QelstdRun.h"
#include "ZOLChainTestSupport.h"
#include "ZOLReportCountTest.h"
#include "ZOLScratch.h"
#include "ZOLDftStandardServices.h"
#include "ZOLIDrwStandard.h"
#include "upgrade/migration/ZOLDrwStyleBuilders.h"

namespace {

using namespace qeltest::rows;

class Chain : public ZOLReportCountTest {};

// A tree of a parent at level 110, without the new delivered defaults.
struct At110 {
  explicit At110(const char* parent) : driver(qeltest::Release9Lines(parent)) { driver.Upgrade(1, 110, false); }
  qeltest::ChainDriver driver;
};

// The line-type font text as release 11 delivered it, unchanged by every later step.
void CheckLineFont(ZOLAnnStandardXMLParser& decoded, const char* parent) {
  const std::string font = decoded.GetValueWithPath("Root.LineTypes.font").str();
  EXPECT_EQ(font.rfind("60  60\n", 0), 0u) << parent;
  size_t glyphs = 0;
  for (size_t at = font.find("\n$ "); at != std::string::npos; at = font.find("\n$ ", at + 1)) ++glyphs;
  EXPECT_EQ(glyphs, 82u) << parent;
  for (const char* line : {"\n$ 0020  ;\n", "\n$ 0040      60  0  ;\n",
                           "\n/ CONTINUOUS + DASH UNDERNEATH\n$ 0044  000 030  048 000  128 000  -32 -16  016 000  ;\n",
                           "\n/\n/                     DOT FAMILY\n/\n$ 00C4  000 030  016 000  128 000  016 000  000 000  ;\n",
                           "\n/                     CONTINUOUS FAMILY\n/\n/                     ***********************\n/\n"})
    EXPECT_NE(font.find(line), std::string::npos) << parent << ": " << line;
  EXPECT_TRUE(font.ends_with("***********************\n/\n")) << parent;
  EXPECT_EQ(font.find("$ 00D5"), std::string::npos) << parent << ": LineType17's glyph was never delivered";
}

}  // namespace

// One Encode takes a release 9 file of each parent to the current level: the file decodes, holds
// no undefined enumerated value, loads as a standard object that answers from every release, and
// a second run writes the same bytes.
TEST_F(Chain, Release9FileReachesLevel290InOneEncodeWithEveryStepsMark) {
  const Expect rows[] = {
      {"version", nullptr, "290"},
      {"Root>", nullptr,
       "Styles,General,DressUp,Dimension,Annotation,ToleranceFormats,ValueFormats,View,Frames,LineThickness,Patterns,"
       "LineTypes,SheetFormat,ViewsSet,EngineeringSymbols,StandardMode,Version"},
      // stage 2
      {"Root.Frames.FrameDef{3}@Name", nullptr, "Circle"},
      {"Root.Annotation.Text.LeaderGap", nullptr, "2.0", AA},
      // stage 3
      {"Root.Styles.DistanceLengthDimension.Default.Value.OffsetY", nullptr, "0.5", JIS},
      {"Root.LineTypes.LineType9.Pattern", nullptr, "70"},
      // stage 4
      {"Root.Styles.RoughnessSymbol.Default.Values.SpecificationLine", nullptr, "Yes"},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimLengthArcSymbol", nullptr, "3.048", AA},
      // stage 5
      {"Root.General.DefaultTextFont", nullptr, kAbsent},
      // stage 6
      {"Root.Styles.Sheet{1}>", nullptr, "A0 ISO,A1 ISO,A2 ISO,A3 ISO,A4 ISO,B4 ISO,B5 ISO,C5 ISO", ISO},
      {"Root.Styles.Sheet.J US Standard.Format", nullptr, "J U.S.Standard", AA},
      // release 15
      {"Root.Styles.CoordinateDimension.Default.Leader.Symbol", nullptr, "WhiteFilledSquare", ASME},
      // release 16
      {"Root.Styles.DimensionsSystem.Default.AlignCumulated~", nullptr, "DimSysAlign"},
      // release 17
      {"Root.EngineeringSymbols.EngineeringSymbol{20}@Font", nullptr, "SYM2.font", IJ, WITHOUT},
      // the table of ISO and JIS is rewritten at level 170 with the option
      {"Root.EngineeringSymbols.EngineeringSymbol{20}@Font", nullptr, "KVISO1.otf", IJ, WITH},
      {"Root.EngineeringSymbols.EngineeringSymbol{20}@Font", nullptr, "SYM1.font", AA},
      {"Root.DressUp.Symbols.DoubleFilledArrow.Angle", nullptr, "30", IJ},
      // release 18
      {"Root.Styles.WeldingSymbol.Default.Text.Blanking", nullptr, "AreaFill"},
      {"Root.Styles.BomStyle.Default.Properties.BomProperties{5}@Index", nullptr, "5"},
      // release 20
      {"Root.Styles.SectionCallout.Default.Arrows.Position", nullptr, "0", AA},
      {"Root.Styles.ProjectionCallout.Default.Type", nullptr, "Lines, corners and arrows", ALL, WITHOUT},
      // level 120
      {"Root.View.ViewName.Detail.Automatic", nullptr, "No", IJ},
      // levels 130 and 140
      {"Root.Styles.DatumTarget.Default>", nullptr,
       "Diameter,OrientationReference,Angle,AnchorPoint,Display,Font,Graphic,Leader,SizeSpecifier,Movable,WitnessLine"},
      {"Enum.WeldingSymbol[24]", nullptr, "InclinedJointEdgeWelding", IJ, WITHOUT},
      // levels 150 and 160
      {"Root.Styles.BillOfMaterial.Default.Properties.BomProperties{5}@Name", nullptr, "Material", ALL, WITH},
      // level 170
      {"Root.General.SheetColors.3DDesign.Color", nullptr, "255 255 255", ALL, WITHOUT},
      {"Root.Patterns.hatching.hatchings{7}@Position", nullptr, "7"},
      // levels 180 and 190: the symbol tables of ISO and JIS with the option, and of the rest
      {"Root.EngineeringSymbols/", nullptr, "41", ALL, WITHOUT},
      {"Root.EngineeringSymbols.EngineeringSymbol{50}@ToleranceValue", nullptr, "Yes", IJ, WITH},
      {"Root.EngineeringSymbols.EngineeringSymbol{41}@Notes", nullptr, "Yes", ALL, WITHOUT},
      {"Root.Frames.FrameDef{12}@Pos", nullptr, "12"},
      // levels 200 and 210
      {"Root.Annotation.Tolerance.AuxiliaryFeatureIndicators.IntersectionPlane", nullptr, "No", AA},
      {"Root.Styles.Balloon.Default.Text.Frame.FillColor", nullptr, "255 255 255"},
      // levels 220 to 240
      {"Root.Annotation.Welding.FlagParameter.Parameter3", nullptr, "0.8"},
      {"Root.Patterns.vector.vector{3}@Name", nullptr, "Honeycomb_1"},
      {"Root.Styles.IndicatorEdge.Default.Text>", nullptr,
       "AnchorPoint,AnchorLine,Blanking,OrientationReference,Angle,LineSpacing"},
      {"Enum.WeldingSymbol[26]", nullptr, "MeltThruWelding", IJ, WITH},
      {"Root.EngineeringSymbols.EngineeringSymbol{117}@Name", nullptr, "<DynamicProfile>", AA, WITH},
      // levels 250 to 290
      {"Root.Dimension.Slope.Contour", nullptr, "Open"},
      {"Root.Styles.DistanceLengthDimension>", nullptr, "Default,TED", IJ},
      {"Root.Styles.DistanceLengthDimension>", nullptr, "Default,BasicDimension", AA},
      {"Root.Styles.TransitionSurface.Default.WitnessLine.Linetype", nullptr, "3"},
      {"Root.Annotation.Roughness.SymbolType.Rough_Line", nullptr, "Authorized", IJ},
      {"Root.EngineeringSymbols.EngineeringSymbol{85}@Charcode", nullptr, "61965", IJ, WITH},
  };
  // What a standard object answers, by its own paths.
  const Expect answers[] = {
      {"Dimension.Jog.Height", nullptr, "10"},
      {"StandardMode", nullptr, "Default"},
      {"Patterns.vector.Name", nullptr, "Grass_1"},
      {"Annotation.Roughness.SymbolType.Rough_Basic", nullptr, "Authorized", AA},
      {"EngineeringSymbols.Name", nullptr, "<MinimaxFeat>", IJ, WITH},
      {"View.ViewText.Scale.ScaleString", nullptr, " (#SCALE_ATTR#)", IJ},
  };
  const int answerIndex[] = {1, 1, 2, 1, 72, 1};
  qeltest::ScratchDir dir;
  for (const qeltest::Parent& parent : qeltest::kParents) {
    ZOLAnnStandardXMLParser source;
    ZOLEditLines(source, qeltest::Release9Lines(parent.name));
    const std::string input = dir / (std::string(parent.name) + ".xml");
    ASSERT_EQ(source.SaveInFile(ZOLUnicodeString(input)), S_OK);
    for (bool option : {false, true}) {
      const std::string run = std::string(parent.name) + (option ? " with" : " without") + " the option";
      std::string first, written;
      for (int pass = 0; pass < 2; ++pass) {
        ZOLUnicodeString name(input);
        ZOLDrwParseStandard driver(name);
        driver.Decode();
        ZOLDrwParseStandardUpgradeOptions options;
        options.UpdateDefaultValues = option;
        ZOLString out;
        driver.Encode((dir / "out").c_str(), out, options);
        ASSERT_EQ(driver.GetOutcome().stagesRun, 28) << run;
        written = out.str();
        const std::string text = qeltest::ReadText(written);
        if (pass == 0) first = text;
        EXPECT_EQ(text, first) << run << ": a second run saves other bytes";
      }
      EXPECT_EQ(r.Count(), 0) << run << ": " << (r.Count() ? r.Lines()[0] : "");
      ZOLAnnStandardXMLParser decoded;
      ASSERT_EQ(decoded.DecodeXML(first, 0), 0) << run;
      EXPECT_EQ(decoded.Check(), 1) << run << ": every enumerated value is defined";
      qeltest::CheckRows(decoded, rows, parent.bit, option, run);
      if (!option) CheckLineFont(decoded, parent.name);
      ZOLUnicodeString text(first);
      ZOLIDrwStandard_var fromText = ZOLDftStandardServices::GetStandardFromBuffer(&text, parent.name);
      ZOLIDrwStandard_var fromFile = ZOLDftStandardServices::GetStandardFromFile(ZOLUnicodeString(written), parent.name);
      for (ZOLIDrwStandard* standard : {static_cast<ZOLIDrwStandard*>(fromText), static_cast<ZOLIDrwStandard*>(fromFile)}) {
        ASSERT_TRUE(standard) << run;
        for (size_t i = 0; i < std::size(answers); ++i) {
          if (!qeltest::Applies(answers[i], parent.bit, option)) continue;
          ZOLUnicodeString value;
          EXPECT_EQ(standard->GetValue(answers[i].probe, answerIndex[i], value), S_OK) << run << ": " << answers[i].probe;
          EXPECT_EQ(value.str(), answers[i].after) << run << ": " << answers[i].probe;
        }
      }
      EXPECT_EQ(r.Count(), 0) << run << ": " << (r.Count() ? r.Lines()[0] : "");
    }
  }
}

// A parent text that none of the releases knew takes every "else" branch and no line of a named
// parent: no offset, no sheet format or style, and one fatal line at release 13.
TEST_F(Chain, UnknownParentTakesTheElseBranchesAndGetsNoSheetFormats) {
  qeltest::ChainDriver d(qeltest::Release9Lines("DIN"));
  d.Upgrade(1, 110, true);
  EXPECT_EQ(d.GetOutcome().stagesRun, 10);
  EXPECT_EQ(r.CountContaining(">>> FATAL ERROR in ZOLDrwParseStandard::UpgradeVersion - Bad parent standard type."), 1);
  const Expect rows[] = {
      {"Root.Styles.DistanceLengthDimension.Default.Value.OffsetY", nullptr, kAbsent},
      {"Root.Styles.DistanceLengthDimension.Default.Value.OrientationReference", nullptr, "Dimension line"},
      {"Root.Styles.Sheet/", nullptr, "0"},
      {"Root.SheetFormat/", nullptr, "0"},
      {"Root.Annotation.Text.LeaderGap", nullptr, "0.0"},
      {"Root.Dimension.CUMLTxtDecalY", nullptr, "1.5"},
      {"Root.DressUp.Thread.ThreadRepresentation", nullptr, "Circle"},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimOffsetArcSymbol", nullptr, "1.0"},
      {"Root.Styles.DatumTarget.Default.Leader.Symbol", nullptr, "WhiteFilledSquare"},
      {"Root.Styles.DatumFeature.Default.Leader.Symbol", nullptr, "WhiteFilledSquare"},
      {"Root.EngineeringSymbols.EngineeringSymbol{2}@Font", nullptr, "SYM1.font"},
      {"Root.Styles.ProjectionCallout.Default.Arrows.Thickness", nullptr, "4"},
      {"Root.Styles.ProjectionCallout.Default.Type", nullptr, "Lines, corners and arrows"},
  };
  qeltest::CheckRows(d.Tree(), rows, 0, true, "DIN");
  // The option's first change asks for the parent's flag: reported once, and nothing changes.
  EXPECT_EQ(r.CountContaining("Unknown parent standard!!"), 1);
  reports = 2;
}

// The clones of later releases: TED and BasicDimension behind Default, and the curvilinear family
// behind the distance family, each on a standard of level 110.
TEST_F(Chain, StyleBuildersCloneDefaultAndTheDistanceFamilyByParent) {
  const Expect rows[] = {
      {"Root.Styles.DistanceLengthDimension>", nullptr, "Default,TED,BasicDimension"},
      {"Root.Styles.DistanceLengthDimension.TED.Value.OffsetY", nullptr, "4.0", ISO},
      {"Root.Styles.DistanceLengthDimension.TED.Value.OffsetY", nullptr, "2.5", JIS},
      {"Root.Styles.DistanceLengthDimension.TED.Value.OffsetY", nullptr, "0.0", AA},
      {"Root.Styles.DistanceLengthDimension.TED.Framing.FramedGroup", nullptr, "Both values separately"},
      {"Root.Styles.DistanceLengthDimension.Default.Framing.Frame", nullptr, "None"},
      {"Root.Styles.DistanceLengthDimension.BasicDimension.Framing.Frame", nullptr, "Rectangle"},
      {"Root.Styles.DistanceLengthDimension.BasicDimension.Framing.FramedGroup", nullptr, "Main value"},
      {"Root.Styles.CurvilinearLengthDimension^", nullptr, "6"},
      {"Root.Styles.DistanceLengthDimension^", nullptr, "5"},
      {"Root.Styles.CurvilinearLengthDimension.TED.AssociatedTexts.MainValue.Prefix", nullptr, "<LINEPROFILE>", IJ},
      {"Root.Styles.CurvilinearLengthDimension.BasicDimension.AssociatedTexts.MainValue.Prefix", nullptr, "", IJ},
      {"Root.Styles.CurvilinearLengthDimension.Default.AssociatedTexts.MainValue.Prefix", nullptr, "", AA},
      {"Root.Styles.DistanceLengthDimension.TED.AssociatedTexts.MainValue.Prefix", nullptr, ""},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimDisplayArcSymbol", nullptr, "1", IJ},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimDisplayArcSymbol", nullptr, "2", AA},
      {"Root.Styles.Text.Default.WitnessLine>", nullptr, "Color,Linetype,Thickness"},
      {"Root.Styles.Text.Default.WitnessLine.Linetype", nullptr, "3"},
  };
  for (const qeltest::Parent& parent : qeltest::kParents) {
    At110 std(parent.name);
    ZOLAnnStandardXMLParser* p = &std.driver.Tree();
    AddTedStyle(p, parent.name, "DistanceLengthDimension");
    AddBasicDimensionStyle(p, "DistanceLengthDimension");
    AddCurvilinearLengthDimension(p, parent.name);
    AddWitnessLine(p, "Text");
    AddTedStyle(p, parent.name, "NoSuchFamily");
    AddWitnessLine(p, "NoSuchFamily");
    qeltest::CheckRows(*p, rows, parent.bit, false, parent.name);
  }
  EXPECT_EQ(r.Count(), 0);
  ZOLAnnStandardXMLParser empty;
  AddCurvilinearLengthDimension(&empty, "ISO");
  EXPECT_EQ(r.CountContaining("ON POINTER"), 1) << "no Styles to clone into";
  reports = 1;
}

// Colours pack red, green, blue and an opaque alpha; a green or blue beyond a byte is reported and
// stored as the code of an invalid argument. Red is not looked at.
TEST_F(Chain, ColoringPacksTheColourOrStoresTheInvalidArgumentCode) {
  At110 std("ISO");
  ZOLAnnStandardXMLParser* p = &std.driver.Tree();
  AddColoring(p, 12, "orange", 255, 128, 0);
  AddColoring(p, 13, "bad", 0, 256, 0);
  AddColoring(p, 14, "wide red", 256, 0, 0);
  EXPECT_EQ(qeltest::Probe(*p, "Root.Patterns.coloring.colorings{12}%"), "Name,Position,color");
  EXPECT_EQ(qeltest::Probe(*p, "Root.Patterns.coloring.colorings{12}@color"), "4286578943");
  EXPECT_EQ(qeltest::Probe(*p, "Root.Patterns.coloring.colorings{12}@Position"), "12");
  EXPECT_EQ(qeltest::Probe(*p, "Root.Patterns.coloring.colorings{13}@color"), "2147942487");
  EXPECT_EQ(qeltest::Probe(*p, "Root.Patterns.coloring.colorings{14}@color"), "255");
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
  reports = 1;
}

TEST_F(Chain, BomStyleWithoutPropertiesIsReportedAndKeepsItsDefault) {
  At110 std("JIS");
  AddBomStyle(&std.driver.Tree(), "EmptyBom", nullptr, 0);
  AddBomStyle(&std.driver.Tree(), nullptr, nullptr, 0);
  EXPECT_EQ(qeltest::Probe(std.driver.Tree(), "Root.Styles.EmptyBom.Default.Properties/"), "0");
  EXPECT_EQ(qeltest::Probe(std.driver.Tree(), "Root.Styles.EmptyBom.Default.Type"), "Summarized");
  EXPECT_EQ(r.Count(), 2);
  reports = 2;
}

// The command line lists the stages, writes the upgraded file, and checks it at the current level.
TEST(ChainCommandLine, UpgradesARelease9FileAndChecksTheResult) {
  QELSTD_REQUIRE_BINARY();
  qeltest::ScratchDir dir;
  {
    ZOLAnnStandardXMLParser source;
    ZOLEditLines(source, qeltest::Release9Lines("ASME"));
    ASSERT_EQ(source.SaveInFile(ZOLUnicodeString(dir / "Company.xml")), S_OK);
  }
  QelstdRun plan = RunQelstd("upgrade '" + (dir / "Company.xml") + "' -o '" + (dir / "out") + "' --to 110 --dry-run");
  EXPECT_EQ(plan.status, 0) << plan.out;
  EXPECT_NE(plan.out.find("parent ASME, level 1"), std::string::npos) << plan.out;
  EXPECT_NE(plan.out.find("Migrate18To20n208"), std::string::npos) << plan.out;
  QelstdRun run = RunQelstd("upgrade '" + (dir / "Company.xml") + "' -o '" + (dir / "out") + "' --to 110 2>&1");
  EXPECT_EQ(run.status, 0) << run.out;
  ZOLAnnStandardXMLParser upgraded;
  ASSERT_EQ(upgraded.DecodeXML(ZOLUnicodeString(dir / "out/Company.xml"), 1), 0) << run.out;
  EXPECT_EQ(upgraded.GetVersion(), 110);
  EXPECT_EQ(qeltest::Probe(upgraded, "Root.Styles.CoordinateDimension.Default.Leader.Symbol"), "WhiteFilledSquare");
  QelstdRun whole = RunQelstd("upgrade '" + (dir / "Company.xml") + "' -o '" + (dir / "whole") + "' --update-defaults 2>&1");
  EXPECT_EQ(whole.status, 0) << whole.out;
  QelstdRun check = RunQelstd("check '" + (dir / "whole/Company.xml") + "' 2>&1");
  EXPECT_EQ(check.status, 0) << check.out;
  for (const char* line : {"decode: 0", "version: 290", "enum faults: 0"})
    EXPECT_NE(check.out.find(line), std::string::npos) << check.out;
}
