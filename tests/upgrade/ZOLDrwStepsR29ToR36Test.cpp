// The steps from release 29 to release 36, one test or more each: for every parent and both
// settings of the option, a release 9 standard is brought to the step's start level, the step
// runs, the tree is saved and decoded again, and what the step adds, changes, moves and deletes is
// read by path. With the option an ISO or JIS table holds 71 symbols at level 210, an ANSI or
// ASME one 61; without it both hold 41.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ZOLChainTestSupport.h"
#include "QelStandardServices.h"
#include "upgrade/migration/ZOLDrwMigrateR29ToR36.h"

namespace {

using namespace qeltest::rows;

class NewerStep : public qeltest::StepTest {};

const ZOLDrwRelease21Symbol& Symbol(const char* name) { return *ZOLDrwFindRelease29Symbol(name); }

}  // namespace

TEST_F(NewerStep, Release29AddsWeldingFlagsBrokenDistanceVectorPatternsAndSymbols) {
  const Expect rows[] = {
      {"Root.Annotation.Welding.Overrun", kAbsent, "1.0"},
      {"TypeDef.vector%", kAbsent, "Name,description,scale,angle,color,lineType,thickness,fixedAngle"},
      {"Root.Patterns.vector>", kAbsent, "vector,vector,vector"},
      {"Root.Patterns.vector.vector{3}%", kAbsent, "Name,description,scale,angle,color,linetype,thickness,fixedAngle"},
      {"Root.EngineeringSymbols/", "71", "88", IJ, WITH},
      {"Root.EngineeringSymbols/", "61", "78", AA, WITH},
      {"Root.EngineeringSymbols/", "41", "41", ALL, WITHOUT},
      {SymbolRow(72, "Name"), kAbsent, "<MinimaxFeat>", IJ, WITH},
      {SymbolRow(62, "Name"), kAbsent, "<MinimaxFeat>", AA, WITH},
      {SymbolRow(72, "Font"), kAbsent, "SYM2.font", IJ, WITH},
      {SymbolRow(62, "Font"), kAbsent, "SYM1.font", AA, WITH},
      {SymbolRow(72, "Icon16x16"), kAbsent, Symbol("<MinimaxFeat>").thin16, IJ, WITH},
      {SymbolRow(62, "Icon22x22"), kAbsent, Symbol("<MinimaxFeat>").slanted22, AA, WITH},
      {SymbolRow(67, "ToleranceValue"), "No", "Yes", IJ, WITH},
      {"Root.Version", "210", "220"},
  };
  Check(210, 220, rows);
  const Expect kv[] = {
      {SymbolRow(72, "Font"), kAbsent, "KVISO1.otf", IJ, WITH},
      {SymbolRow(72, "Icon22x22"), kAbsent, Symbol("<MinimaxFeat>").heavy22, IJ, WITH},
      {SymbolRow(62, "Font"), kAbsent, "SYM1.font", AA, WITH},
  };
  Check(210, 220, kv, {"C Root.Styles.Text.Default.Font.Name:KV ISO 1 (OpenType)"});
}

// Without the option only the family and the annotation node come; a welding value of a literal
// that ISO and JIS drop keeps its text.
TEST_F(NewerStep, Release30AddsIndicatorEdgesProfileSymbolsAndRewritesWeldingEnumerations) {
  const Expect rows[] = {
      {"Root.Styles.IndicatorEdge^", kAbsent, "17"},
      {"Root.Styles.IndicatorEdge.Default>", kAbsent, "Text,Graphic,Font,Leader"},
      {"Root.Styles.IndicatorEdge.Default.Graphic.Color", kAbsent, "10 20 30"},
      {"Root.EngineeringSymbols/", "88", "122", IJ, WITH},
      {"Root.EngineeringSymbols/", "78", "112", AA, WITH},
      {"Root.EngineeringSymbols/", "41", "41", ALL, WITHOUT},
      {SymbolRow(89, "Name"), kAbsent, "<DevelopedLength>", IJ, WITH},
      {SymbolRow(79, "Name"), kAbsent, "<DevelopedLength>", AA, WITH},
      {SymbolRow(5, "ToleranceValue"), "No", "Yes", ALL, WITH},
      {SymbolRow(5, "ToleranceValue"), "No", "No", ALL, WITHOUT},
      {"Enum.WeldingSymbol#", "29", "27", IJ, WITH},
      {"Enum.WeldingSymbol[11]", "VFlareWelding", "HVFlareWelding", IJ, WITH},
      {"Enum.WeldingSymbol^", nullptr, "17", IJ, WITH},
      {"Enum.WeldingSymbol#", "29", "29", IJ, WITHOUT},
      {"Enum.WeldingSymbol#", "30", "30", AA},
      {"Enum.SurfaceShape#", "6", "5", IJ, WITH},
      {"Enum.SurfaceShape^", nullptr, "18", IJ, WITH},
      {"Enum.FinishingMethod^", nullptr, "20", IJ, WITH},
      {"Root.Styles.WeldingSymbol.Default.WeldingType1", "VFlareWelding", "VFlareWelding"},
      {"Root.Version", "220", "230"},
  };
  Check(220, 230, rows,
        {"C Root.Styles.Text.Default.Graphic.Color:10 20 30", "C Root.Styles.WeldingSymbol.Default.WeldingType1:VFlareWelding"});
}

TEST_F(NewerStep, Release31SetsRoughnessLayoutsCorrectsProfileSymbolsAndAddsJogAndSlope) {
  const Expect rows[] = {
      {"Root.Styles.IndicatorEdge.Default.Text.LineSpacingMode", "Bottom to top", kAbsent},
      {"Root.Annotation.Roughness.Layout.SecondRequirement", kAbsent, "Not Authorized", AA, WITH},
      {"Root.Annotation.Roughness.Layout.SecondRequirement", kAbsent, kAbsent, IJ},
      {"Root.Annotation.Roughness.Layout.Min", "Authorized", "Not Authorized", IJ, WITH},
      {"Root.Annotation.Roughness.Layout.Min", "Authorized", "Authorized", ALL, WITHOUT},
      {SymbolRow(26, "DatumReference"), "No", "Yes", AA, WITH},
      {SymbolRow(26, "DatumReference"), "No", "No", IJ, WITH},
      {SymbolRow(66, "Icon16x16"), nullptr, Symbol("<FROMTO>").heavy16, IJ, WITH},
      {SymbolRow(121, "Font"), "SYM2.font", "KVISO1.otf", IJ, WITH},
      {SymbolRow(111, "Font"), "SYM1.font", "KVISO1.otf", AA, WITH},
      {"Root.EngineeringSymbols/", "112", "117", AA, WITH},
      {"Root.EngineeringSymbols/", "122", "124", IJ, WITH},
      {SymbolRow(113, "Name"), kAbsent, "<FROMTO>", AA, WITH},
      {SymbolRow(113, "Font"), kAbsent, "KVISO1.otf", AA, WITH},
      {"Root.DressUp.Symbols.Jog>", kAbsent, "LeftWidth,RightWidth,Height"},
      {"Root.Version", "230", "240"},
  };
  Check(230, 240, rows,
        {"V Root.Styles.IndicatorEdge.Default.Text:LineSpacingMode:enum.LineSpacingMode:Bottom to top"});
}

// A customised jog of the release before is not carried across to its new place.
TEST_F(NewerStep, Release32AddsWitnessLinesMovesJogAndSlopeAndAddsTheLegacyFormats) {
  const Expect rows[] = {
      {"Root.Styles.WeldingSymbol.Default.WitnessLine>", kAbsent, "Color,Linetype,Thickness"},
      {"Root.Styles.AreaFill.Default.WitnessLine", kAbsent, kAbsent},
      {"Root.DressUp.Symbols.Jog", "", kAbsent},
      {"Root.DressUp.Symbols.Slope", "", kAbsent},
      {"Root.Dimension.Jog.Height", kAbsent, "10"},
      {"Root.DressUp.Symbols.Cross.Length", "5.0", "3", ISO, WITH},
      {"Root.DressUp.Symbols.Cross.Length", "5.0", "9.8995", AA, WITH},
      {"Root.DressUp.Symbols.Cross.Length", "5.0", "5.0", JIS},
      {"Root.DressUp.Symbols.Cross.Length", "5.0", "5.0", ALL, WITHOUT},
      {"Root.ValueFormats/", "1", "15"},
      {"Root.ValueFormats.NumericalDisplay{3}@NDSepNum", kAbsent, "6"},
      {"Root.ToleranceFormats/", "1", "23"},
      {"Root.Version", "240", "250"},
  };
  Check(240, 250, rows,
        {"C Root.DressUp.Symbols.Jog.Height:12", "N Root.DressUp.Symbols:Cross",
         "V Root.DressUp.Symbols.Cross:Length:float:5.0"});
}

// Every record a legacy format adds reads back as the description it came from, the degree sign
// of the angle formats as two bytes of UTF-8.
TEST_F(NewerStep, Release32LegacyFormatsReadBackAsTheirDescriptions) {
  qeltest::ChainDriver d(qeltest::Release9Lines("ISO"));
  d.Upgrade(1, 250, false);
  ZOLAnnStandardXMLParser decoded;
  ASSERT_EQ(decoded.DecodeXML(d.Saved(), 0), 0);
  const auto units = QelStandardServices::GetLegacyV4Units();
  for (size_t i = 0; i < units.size(); ++i) {
    const std::string row = "Root.ValueFormats.NumericalDisplay{" + std::to_string(i + 2) + "}@";
    const QelStdUnitDescription& u = *units[i];
    EXPECT_EQ(qeltest::Probe(decoded, row + "Name"), u.Name.str());
    EXPECT_EQ(qeltest::Probe(decoded, row + "NDSepar_3"), u.NDSepar_3.str()) << u.Name.str();
    EXPECT_EQ(qeltest::Probe(decoded, row + "NDSepNum"), std::to_string(QelStandardServices::GetSymbolFromTable(u.NDSepNum)));
    EXPECT_DOUBLE_EQ(std::stod(qeltest::Probe(decoded, row + "NDFact_1")), u.NDFact_1) << u.Name.str();
    EXPECT_EQ(qeltest::Probe(decoded, row + "NDFact"), std::to_string(u.NDFact)) << u.Name.str();
  }
  EXPECT_EQ(qeltest::Probe(decoded, "Root.ValueFormats.NumericalDisplay{7}@NDSepar_3"), "\xC2\xB0");
  const auto tolerances = QelStandardServices::GetLegacyV4Tolerances();
  for (size_t i = 0; i < tolerances.size(); ++i) {
    const std::string row = "Root.ToleranceFormats.ToleranceDisplay{" + std::to_string(i + 2) + "}@";
    const QelStdToleranceDescription& t = *tolerances[i];
    EXPECT_EQ(qeltest::Probe(decoded, row + "Name"), t.Name.str());
    EXPECT_EQ(qeltest::Probe(decoded, row + "TolShowNull"), std::to_string(t.TolShowNull)) << t.Name.str();
    EXPECT_DOUBLE_EQ(std::stod(qeltest::Probe(decoded, row + "TolScale")), t.TolScale) << t.Name.str();
  }
  AddNumericalDisplay(&decoded, nullptr);
  AddToleranceDisplay(&decoded, nullptr);
  EXPECT_EQ(r.CountContaining("ON POINTER"), 2);
  reports = 2;
}

TEST_F(NewerStep, Release33ColoursEditionsAddsCalloutPositionsDatumFramesTedAndBasicStyles) {
  const Expect rows[] = {
      {"Root.General.SheetColors.View background>", nullptr, "Color,Graduated,InnerFrameColor,EditionColor"},
      {"Root.General.SheetColors.View background.EditionColor", kAbsent, "169 169 169"},
      {"Root.Styles.AngleDimension.Default.ExtensionLine.Right.Blanking", "2.0", "1.04", ISO, WITH},
      {"Root.Styles.AngleDimension.Default.ExtensionLine.Right.Blanking", "2.0", "2.0", JIS | AA},
      {"Root.Styles.AngleDimension.Default.ExtensionLine.Right.Blanking", "2.0", "2.0", ALL, WITHOUT},
      {"Root.EngineeringSymbols/", "124", "130", IJ, WITH},
      {"Root.EngineeringSymbols/", "117", "123", AA, WITH},
      {SymbolRow(125, "Name"), kAbsent, "<ArcArrow1>", IJ, WITH},
      {SymbolRow(123, "Name"), kAbsent, "<Z2>", AA, WITH},
      {"Root.Styles.SectionCallout.Default.Text.TextPosition", kAbsent, "ArrowSide"},
      {"Root.Styles.DatumFeature.Default.Text.Frame", kAbsent, "Rectangle", IJ},
      {"Root.Styles.DatumFeature.Default.Text.Frame", kAbsent, "Square", AA},
      {"Root.Styles.DatumFeature.Default.Text.Frame>", kAbsent, "FrameName"},
      {"Root.Styles.BillOfMaterial.Default.Properties/", "6", "5", ALL, WITH},
      {"Root.Styles.BillOfMaterial.Default.Properties.BomProperties{3}@Name", "PLM_ExternalID", "V_Name", ALL, WITH},
      {"Root.Styles.ChamferDimension>", "Default", "Default,TED", IJ},
      {"Root.Styles.ChamferDimension.TED.Framing.FramedSubpart", kAbsent, "Value and tolerance and texts", IJ},
      {"Root.Styles.ChamferDimension>", "Default", "Default,BasicDimension", AA},
      {"Root.Styles.RadiusDimension.BasicDimension.Framing.Frame", kAbsent, "Rectangle", AA},
      {"Root.ToleranceFormats/", "23", "24"},
      {"Root.ToleranceFormats.ToleranceDisplay{24}@Name", kAbsent, "TOL_1.1"},
      {"Root.StandardMode", kAbsent, "Default"},
      {"Root.StandardMode^", kAbsent, "15"},
      {"Root.Version^", "15", "16"},
      {"Root.Version", "250", "260"},
  };
  Check(250, 260, rows);
}

TEST_F(NewerStep, Release34AddsRoughnessTypeLineForIsoTransitionSurfacesAndTextSymbols) {
  const Expect rows[] = {
      {"Enum.RoughnessType#", "3", "4", ISO},
      {"Enum.RoughnessType[3]", kAbsent, "Line", ISO},
      {"Enum.RoughnessType#", "3", "3", JIS | AA},
      {"Root.Styles.RoughnessSymbol.Default.Values.Type", "Basic", "Line", ISO, WITH},
      {"Root.Styles.RoughnessSymbol.Default.Values.Type", "Basic", "Basic", ISO, WITHOUT},
      {"Root.Styles.TransitionSurface^", kAbsent, "20"},
      {"Root.Styles.TransitionSurface.Default>", kAbsent, "Text,Graphic,Font,Leader,WitnessLine"},
      {"Root.EngineeringSymbols/", "130", "161", IJ, WITH},
      {"Root.EngineeringSymbols/", "123", "154", AA, WITH},
      {SymbolRow(131, "Name"), kAbsent, "<AsymptoticallyEqualTo>", IJ, WITH},
      {SymbolRow(154, "Name"), kAbsent, "<NotEqualTo>", AA, WITH},
      {SymbolRow(158, "Font"), kAbsent, "KVISO1.otf", IJ, WITH},
      {"Root.Version", "260", "270"},
  };
  Check(260, 270, rows);
}

TEST_F(NewerStep, Release35AddsRoughnessSymbolTypesLeaderBlankingAndTheCurvilinearFamily) {
  const Expect rows[] = {
      {"Root.EngineeringSymbols/", "161", "172", IJ, WITH},
      {"Root.EngineeringSymbols/", "154", "165", AA, WITH},
      {SymbolRow(162, "Name"), kAbsent, "<Multiply>", IJ, WITH},
      {SymbolRow(162, "ToleranceValue"), kAbsent, "No", IJ, WITH},
      {"Root.Annotation.Roughness.SymbolType^", kAbsent, "1"},
      {"Root.Annotation.Roughness.SymbolType.Rough_Basic", kAbsent, "Not Authorized", IJ},
      {"Root.Annotation.Roughness.SymbolType.Rough_Basic", kAbsent, "Authorized", AA},
      {"Root.Annotation.Roughness.SymbolType.Rough_SurfaceRemovalProhibited", kAbsent, "Authorized", IJ},
      {"Root.Styles.TransitionSurface.Default.Leader.BlankingBoundingBox", kAbsent, "Yes"},
      {"Root.Styles.DistanceLengthDimension.Default.Leader.BlankingBoundingBox", kAbsent, kAbsent},
      {"Root.Styles.CurvilinearLengthDimension^", kAbsent, "6"},
      {"Root.Styles.CurvilinearLengthDimension>", kAbsent, "Default,TED", IJ},
      {"Root.Styles.CurvilinearLengthDimension>", kAbsent, "Default,BasicDimension", AA},
      {"Root.Styles.BillOfMaterial.Default.DeformedComponentsVisibility", kAbsent, "Yes", ALL, WITH},
      {"Root.Styles.BillOfMaterial", kAbsent, kAbsent, ALL, WITHOUT},
      {"Root.Version", "270", "280"},
  };
  Check(270, 280, rows);
}

// Without the option only the version moves; a code that a user set to one of the three moves too.
TEST_F(NewerStep, Release36MovesThreeCodesIntoThePrivateAreaOfTheFont) {
  const Expect rows[] = {
      {SymbolRow(83, "Charcode"), "9634", "61963", IJ, WITH},
      {SymbolRow(73, "Charcode"), "9634", "61963", AA, WITH},
      {SymbolRow(74, "Charcode"), "9635", "61964", AA, WITH},
      {SymbolRow(1, "Charcode"), "9635", "61964", ALL, WITH},
      {SymbolRow(1, "Charcode"), "9635", "9635", ALL, WITHOUT},
      {SymbolRow(2, "Charcode"), "8960", "8960"},
      {"Root.Version", "280", "290"},
  };
  Check(280, 290, rows, {"C Root.EngineeringSymbols.EngineeringSymbol:Charcode:9635"});
}

// A child of the table that is no symbol row, or a row without a code, is reported and passed.
TEST_F(NewerStep, Release36ReportsRowsWithoutACodeAndGoesOn) {
  const Expect rows[] = {
      {SymbolRow(1, "Charcode"), kAbsent, kAbsent},
      {SymbolRow(83, "Charcode"), "9634", "61963"},
      {"Root.EngineeringSymbols.Stray", "", ""},
  };
  qeltest::RunStep(qeltest::kParents[0], true, 280, 290, rows,
                   {"N Root.EngineeringSymbols:Stray", "D Root.EngineeringSymbols.EngineeringSymbol.Charcode"});
  EXPECT_EQ(r.CountContaining("without Charcode"), 2);
  reports = 2;
}

// A parent text that none of the releases knew: every value chosen by parent is left out with a
// report, no symbol row is added or corrected, no TED or basic styles, datum frame or roughness
// symbol types come, and the "else" lines of the welding steps apply.
TEST_F(NewerStep, UnknownParentLeavesOutWhatTheParentDecides) {
  qeltest::ChainDriver d(qeltest::Release9Lines("DIN"));
  d.Upgrade(1, 110, true);
  r.Clear();
  d.Upgrade(110, 290, true);
  EXPECT_EQ(d.GetOutcome().stagesRun, 18);
  // Level 120: the centring of the clone, the four view kinds and two view classes whose value
  // differs by parent, the alignment, three scale values and the separator; level 140: the welding
  // literals; levels 230, 240 and 280. A value that is the same for every parent is added all the same.
  EXPECT_EQ(r.CountContaining("Unknown parent standard!"), 16);
  reports = 16;
  const Expect rows[] = {
      {"Root.View.ViewName.Front>", nullptr, "Automatic,Name"},
      {"Root.View.ViewName.Detail>", nullptr, "Name"},
      {"Root.View.ViewText>", nullptr, "TextStyleName,Name,Scale"},
      {"Root.View.ViewText.Name.Detail/", nullptr, "1"},
      {"Root.View.ViewText.Name.Isometric/", nullptr, "0"},
      {"Root.View.ViewText.Scale>", nullptr, "Display"},
      {"Root.View.ScaleSeparator", nullptr, kAbsent},
      {"Root.Styles.Text.ViewText.Text.Justification", nullptr, "Left"},
      {"Root.EngineeringSymbols/", nullptr, "41"},
      {SymbolRow(1, "Charcode"), nullptr, "8727"},
      {"Root.Annotation.Tolerance.AuxiliaryFeatureIndicators.IntersectionPlane", nullptr, "No"},
      {"Root.Annotation.Welding.WeldingDisplay", nullptr, kAbsent},
      {"Root.Styles.ChamferDimension>", nullptr, "Default"},
      {"Root.Styles.CurvilinearLengthDimension>", nullptr, "Default"},
      {"Root.Styles.DatumFeature.Default.Text>", nullptr, ""},
      {"Root.Annotation.Roughness.SymbolType/", nullptr, "0"},
      {"Root.Annotation.Roughness.Layout.SecondRequirement", nullptr, kAbsent},
      {"Enum.WeldingSymbol#", nullptr, "26"},
      {"Root.Styles.IndicatorEdge.Default.WitnessLine.Thickness", nullptr, "1"},
      {"Root.Version", nullptr, "290"},
  };
  qeltest::CheckRows(d.Tree(), rows, 0, true, "DIN");
}
