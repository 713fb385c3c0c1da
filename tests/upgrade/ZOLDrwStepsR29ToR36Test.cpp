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

using qeltest::Expect;
using qeltest::kAbsent;
using qeltest::SymbolRow;

constexpr int ANSI = 1, ISO = 4, JIS = 8, AA = 3, IJ = 12, ALL = 0;
constexpr int WITHOUT = qeltest::kWithout, WITH = qeltest::kWith;

class NewerStep : public qeltest::StepTest {};

const ZOLDrwRelease21Symbol& Symbol(const char* name) { return *ZOLDrwFindRelease29Symbol(name); }

}  // namespace

TEST_F(NewerStep, Release29AddsWeldingFlagsBrokenDistanceVectorPatternsAndSymbols) {
  const Expect rows[] = {
      {"Root.Annotation.Welding.Overrun", kAbsent, "1.0"},
      {"Root.Annotation.Welding.FlagParameter>", kAbsent, "Parameter1,Parameter2,Parameter3"},
      {"Root.Annotation.Welding.FlagParameter.Parameter2", kAbsent, "0.5"},
      {"Root.Styles.DistanceLengthDimension.Default.Value.BrokenDistance~", kAbsent, "YesNo"},
      {"TypeDef.vector%", kAbsent, "Name,description,scale,angle,color,lineType,thickness,fixedAngle"},
      {"TypeDef.vector@description", kAbsent, "0, 0, 0, 0, 10, 0;90, 0, 0, 0, 10, 0"},
      {"Root.Patterns.vector>", kAbsent, "vector,vector,vector"},
      {"Root.Patterns.vector.vector{3}%", kAbsent, "Name,description,scale,angle,color,linetype,thickness,fixedAngle"},
      {"Root.Patterns.vector.vector{1}@description", kAbsent,
       "*wall_1; 0, 0, 0, 8, 8, 15.625, -.375; 0, -8, .375, 8, 8, 15.625, -.375; 90, 0, 0, 8, 8, -8.375, 7.625; 90, "
       "-0.375, 0, 8, 8, -8.375, 7.625"},
      {"Root.Patterns.vector.vector{2}@scale", kAbsent, "10.0"},
      {"Root.EngineeringSymbols/", "71", "88", IJ, WITH},
      {"Root.EngineeringSymbols/", "61", "78", AA, WITH},
      {"Root.EngineeringSymbols/", "41", "41", ALL, WITHOUT},
      {SymbolRow(72, "Name"), kAbsent, "<MinimaxFeat>", IJ, WITH},
      {SymbolRow(62, "Name"), kAbsent, "<MinimaxFeat>", AA, WITH},
      {SymbolRow(78, "Position"), kAbsent, "78", AA, WITH},
      {SymbolRow(88, "Charcode"), kAbsent, "61727", IJ, WITH},
      {SymbolRow(83, "Charcode"), kAbsent, "9634", IJ, WITH},
      {SymbolRow(72, "Font"), kAbsent, "SYM2.font", IJ, WITH},
      {SymbolRow(62, "Font"), kAbsent, "SYM1.font", AA, WITH},
      {SymbolRow(72, "Icon16x16"), kAbsent, Symbol("<MinimaxFeat>").thin16, IJ, WITH},
      {SymbolRow(62, "Icon22x22"), kAbsent, Symbol("<MinimaxFeat>").slanted22, AA, WITH},
      {SymbolRow(88, "Notes"), kAbsent, "No", IJ, WITH},
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
      {"Root.Styles.IndicatorEdge>", kAbsent, "Default"},
      {"Root.Styles.IndicatorEdge.Default>", kAbsent, "Text,Graphic,Font,Leader"},
      {"Root.Styles.IndicatorEdge.Default.Text>", kAbsent,
       "AnchorPoint,AnchorLine,Blanking,OrientationReference,Angle,LineSpacing"},
      {"Root.Styles.IndicatorEdge.Default.Text.AnchorPoint", kAbsent, "Bottom center"},
      {"Root.Styles.IndicatorEdge.Default.Text.Blanking~", kAbsent, "BlankProp"},
      {"Root.Styles.IndicatorEdge.Default.Graphic.Color", kAbsent, "10 20 30"},
      {"Root.Styles.IndicatorEdge.Default.Font>", kAbsent, "Name,Bold,Italic,Size,Ratio,Spacing"},
      {"Root.Styles.IndicatorEdge.Default.Leader.Delta", kAbsent, "3.0"},
      {"Root.Annotation.IndicatorEdge>", kAbsent, "LeaderVertSpace,Offset1,Offset2,Offset3"},
      {"Root.Annotation.IndicatorEdge.Offset3", kAbsent, "0.3"},
      {"Root.EngineeringSymbols/", "88", "122", IJ, WITH},
      {"Root.EngineeringSymbols/", "78", "112", AA, WITH},
      {"Root.EngineeringSymbols/", "41", "41", ALL, WITHOUT},
      {SymbolRow(89, "Name"), kAbsent, "<DevelopedLength>", IJ, WITH},
      {SymbolRow(79, "Name"), kAbsent, "<DevelopedLength>", AA, WITH},
      {SymbolRow(112, "Charcode"), kAbsent, "61537", AA, WITH},
      {SymbolRow(121, "Name"), kAbsent, "<TOFROM>", IJ, WITH},
      {SymbolRow(5, "ToleranceValue"), "No", "Yes", ALL, WITH},
      {SymbolRow(38, "ToleranceValue"), nullptr, "Yes", ALL, WITH},
      {SymbolRow(5, "ToleranceValue"), "No", "No", ALL, WITHOUT},
      {"Enum.WeldingSymbol#", "29", "27", IJ, WITH},
      {"Enum.WeldingSymbol[11]", "VFlareWelding", "HVFlareWelding", IJ, WITH},
      {"Enum.WeldingSymbol[26]", nullptr, "MeltThruWelding", IJ, WITH},
      {"Enum.WeldingSymbol^", nullptr, "17", IJ, WITH},
      {"Enum.WeldingSymbol#", "29", "29", IJ, WITHOUT},
      {"Enum.WeldingSymbol#", "30", "30", AA},
      {"Enum.SurfaceShape#", "6", "5", IJ, WITH},
      {"Enum.SurfaceShape[4]", nullptr, "Smooth", IJ, WITH},
      {"Enum.SurfaceShape^", nullptr, "18", IJ, WITH},
      {"Enum.FinishingMethod#", nullptr, "8", IJ, WITH},
      {"Enum.FinishingMethod[7]", nullptr, "Perpendicular", IJ, WITH},
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
      {SymbolRow(43, "Notes"), "No", "Yes", AA, WITH},
      {SymbolRow(66, "Icon16x16"), nullptr, Symbol("<FROMTO>").heavy16, IJ, WITH},
      {SymbolRow(121, "Font"), "SYM2.font", "KVISO1.otf", IJ, WITH},
      {SymbolRow(111, "Font"), "SYM1.font", "KVISO1.otf", AA, WITH},
      {SymbolRow(111, "Icon22x22"), nullptr, Symbol("<TOFROM>").heavy22, AA, WITH},
      {"Root.EngineeringSymbols/", "112", "117", AA, WITH},
      {"Root.EngineeringSymbols/", "122", "124", IJ, WITH},
      {SymbolRow(113, "Name"), kAbsent, "<FROMTO>", AA, WITH},
      {SymbolRow(113, "Font"), kAbsent, "KVISO1.otf", AA, WITH},
      {SymbolRow(114, "Font"), kAbsent, "SYM1.font", AA, WITH},
      {SymbolRow(115, "Font"), kAbsent, "SYM2.font", AA, WITH},
      {SymbolRow(117, "Charcode"), kAbsent, "61776", AA, WITH},
      {SymbolRow(123, "Name"), kAbsent, "<ToFromNotFilled>", IJ, WITH},
      {SymbolRow(124, "Position"), kAbsent, "124", IJ, WITH},
      {SymbolRow(124, "Font"), kAbsent, "SYM2.font", IJ, WITH},
      {"Root.DressUp.Symbols.Jog>", kAbsent, "LeftWidth,RightWidth,Height"},
      {"Root.DressUp.Symbols.Slope.Contour", kAbsent, "Open"},
      {"Root.Version", "230", "240"},
  };
  Check(230, 240, rows,
        {"V Root.Styles.IndicatorEdge.Default.Text:LineSpacingMode:enum.LineSpacingMode:Bottom to top"});
}

// A customised jog of the release before is not carried across to its new place.
TEST_F(NewerStep, Release32AddsWitnessLinesMovesJogAndSlopeAndAddsTheLegacyFormats) {
  const Expect rows[] = {
      {"Enum.BlankRemoveStrike[3]", kAbsent, "DoNotDisplay"},
      {"Root.Styles.WeldingSymbol.Default.WitnessLine>", kAbsent, "Color,Linetype,Thickness"},
      {"Root.Styles.IndicatorEdge.Default.WitnessLine.Linetype", kAbsent, "3"},
      {"Root.Styles.CoordinateDimension.Default.WitnessLine.Color", kAbsent, "0 0 0"},
      {"Root.Styles.AreaFill.Default.WitnessLine", kAbsent, kAbsent},
      {"Root.DressUp.Symbols.Jog", "", kAbsent},
      {"Root.DressUp.Symbols.Slope", "", kAbsent},
      {"Root.Dimension.Jog.Height", kAbsent, "10"},
      {"Root.Dimension.Slope>", kAbsent, "Width,Height,Contour"},
      {"Root.DressUp.Symbols.Cross.Length", "5.0", "3", ISO, WITH},
      {"Root.DressUp.Symbols.Cross.Length", "5.0", "9.8995", AA, WITH},
      {"Root.DressUp.Symbols.Cross.Length", "5.0", "5.0", JIS},
      {"Root.DressUp.Symbols.Cross.Length", "5.0", "5.0", ALL, WITHOUT},
      {"Root.ValueFormats/", "1", "15"},
      {"Root.ValueFormats.NumericalDisplay{2}%", kAbsent,
       "Name,NDType,NDUnit,NDFact,NDExise,NDNulFac_1,NDNulFac_2,NDSepar_1,NDSepar_2,NDSepar_3,NDNulOther,NDTypFrac,"
       "NDFinZer,NDSepNum,NDSep1000,NDGlobFact,NDFact_1,NDFact_2,NDFact_3,NDValPos_1,NDValPos_2,NDValPos_3,NDSepPos_1,"
       "NDSepPos_2,NDSepPos_3,NDSepScl_1,NDSepScl_2,NDSepScl_3,NDResScl,NDRestX,NDRestY,NDOperY,NDSepDen"},
      {"Root.ValueFormats.NumericalDisplay{2}@Name", kAbsent, "NUM.DIMM"},
      {"Root.ValueFormats.NumericalDisplay{3}@NDSepNum", kAbsent, "6"},
      {"Root.ValueFormats.NumericalDisplay{3}@NDSep1000", kAbsent, "-1"},
      {"Root.ValueFormats.NumericalDisplay{15}@Name", kAbsent, "FEET-INC"},
      {"Root.ToleranceFormats/", "1", "23"},
      {"Root.ToleranceFormats.ToleranceDisplay{2}@Name", kAbsent, "TOL_NUM2"},
      {"Root.ToleranceFormats.ToleranceDisplay{2}@TolIntY", kAbsent, "0.6"},
      {"Root.ToleranceFormats.ToleranceDisplay{23}%", kAbsent,
       "Name,TolType,TolSepar_1,TolSepar_2,TolSymbolH,TolSepTo_1,TolSepTo_2,TolSepTo_3,TolTrailing,TolFractLine,"
       "TolPtOnValue,TolAnchorPt,TolIntX,TolIntY,TolExtX,TolExtY,TolMergeSame,TolShowNull,TolScale,TolDispFact"},
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
      {"Root.Styles.ChamferDimension.Default.ExtensionLine.Left.Blanking", "2.0", "1.04", ISO, WITH},
      {"Root.Styles.AngleDimension.Default.ExtensionLine.Right.Blanking", "2.0", "2.0", JIS | AA},
      {"Root.Styles.AngleDimension.Default.ExtensionLine.Right.Blanking", "2.0", "2.0", ALL, WITHOUT},
      {"Root.EngineeringSymbols/", "124", "130", IJ, WITH},
      {"Root.EngineeringSymbols/", "117", "123", AA, WITH},
      {SymbolRow(125, "Name"), kAbsent, "<ArcArrow1>", IJ, WITH},
      {SymbolRow(123, "Name"), kAbsent, "<Z2>", AA, WITH},
      {SymbolRow(118, "Font"), kAbsent, "KVISO1.otf", AA, WITH},
      {"Enum.TextAttachmentMode[3]", kAbsent, "ArrowMiddle"},
      {"Root.Styles.SectionCallout.Default.Text.TextPosition", kAbsent, "ArrowSide"},
      {"Root.Styles.ProjectionCallout.Default.Text.TextPosition~", kAbsent, "TextAttachmentMode"},
      {"Root.Styles.DatumFeature.Default.Text.Frame", kAbsent, "Rectangle", IJ},
      {"Root.Styles.DatumFeature.Default.Text.Frame", kAbsent, "Square", AA},
      {"Root.Styles.DatumFeature.Default.Text.Frame>", kAbsent, "FrameName"},
      {"Root.Styles.BillOfMaterial.Default.Properties/", "6", "5", ALL, WITH},
      {"Root.Styles.BillOfMaterial.Default.Properties.BomProperties{3}@Name", "PLM_ExternalID", "V_Name", ALL, WITH},
      {"Root.Styles.BillOfMaterial.Default.Properties.BomProperties{5}@Name", "Material", "Material", ALL, WITH},
      {"Root.Styles.ChamferDimension>", "Default", "Default,TED", IJ},
      {"Root.Styles.DistanceLengthDimension>", "Default", "Default,TED", IJ},
      {"Root.Styles.ChamferDimension.TED.Framing.FramedSubpart", kAbsent, "Value and tolerance and texts", IJ},
      {"Root.Styles.AngleDimension.TED.Framing.FramedSubpart", kAbsent, "Value", IJ},
      {"Root.Styles.ChamferDimension>", "Default", "Default,BasicDimension", AA},
      {"Root.Styles.RadiusDimension.BasicDimension.Framing.Frame", kAbsent, "Rectangle", AA},
      {"Root.ToleranceFormats/", "23", "24"},
      {"Root.ToleranceFormats.ToleranceDisplay{24}@Name", kAbsent, "TOL_1.1"},
      {"Root.ToleranceFormats.ToleranceDisplay{24}@TolPtOnValue", kAbsent, "9"},
      {"Root.ToleranceFormats.ToleranceDisplay{24}@TolIntY", kAbsent, "0.5"},
      {"Root.ToleranceFormats.ToleranceDisplay{24}@TolMergeSame", kAbsent, "2"},
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
      {"Root.Styles.TransitionSurface.Default.Leader.Delta", kAbsent, "0.0"},
      {"Root.Styles.TransitionSurface.Default.Text.AnchorLine", kAbsent, "Symbol"},
      {"Root.EngineeringSymbols/", "130", "161", IJ, WITH},
      {"Root.EngineeringSymbols/", "123", "154", AA, WITH},
      {SymbolRow(131, "Name"), kAbsent, "<AsymptoticallyEqualTo>", IJ, WITH},
      {SymbolRow(154, "Name"), kAbsent, "<NotEqualTo>", AA, WITH},
      {SymbolRow(154, "Charcode"), kAbsent, "8800", AA, WITH},
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
      {SymbolRow(163, "ToleranceValue"), kAbsent, "Yes", IJ, WITH},
      {SymbolRow(157, "ToleranceValue"), kAbsent, "Yes", AA, WITH},
      {SymbolRow(165, "Name"), kAbsent, "<VerticalLeftTopAngleTriangleFilled>", AA, WITH},
      {"Root.Annotation.Roughness.SymbolType^", kAbsent, "1"},
      {"Root.Annotation.Roughness.SymbolType>", kAbsent,
       "Rough_Basic,Rough_RemovalRequired,Rough_RemovalProhibited,Rough_Line,Rough_LineRemovalRequired,"
       "Rough_LineRemovalProhibited,Rough_Surface,Rough_SurfaceRemovalRequired,Rough_SurfaceRemovalProhibited"},
      {"Root.Annotation.Roughness.SymbolType.Rough_Basic", kAbsent, "Not Authorized", IJ},
      {"Root.Annotation.Roughness.SymbolType.Rough_Basic", kAbsent, "Authorized", AA},
      {"Root.Annotation.Roughness.SymbolType.Rough_SurfaceRemovalProhibited", kAbsent, "Authorized", IJ},
      {"Root.Annotation.Roughness.SymbolType.Rough_Line~", kAbsent, "AuthorizedMode"},
      {"Root.Styles.TransitionSurface.Default.Leader.BlankingBoundingBox", kAbsent, "Yes"},
      {"Root.Styles.WeldingSymbol.Default.Leader.BlankingBoundingBox", kAbsent, "Yes"},
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
      {SymbolRow(85, "Charcode"), "9636", "61965", IJ, WITH},
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

// A parent text that none of the releases knew: no symbol rows, no TED or basic styles, no datum
// frame, no roughness symbol types, each decision by parent reported once.
TEST_F(NewerStep, UnknownParentGetsNeitherRowsNorStylesByParent) {
  qeltest::ChainDriver d(qeltest::Release9Lines("DIN"));
  d.Upgrade(1, 210, true);
  r.Clear();
  d.Upgrade(210, 290, true);
  EXPECT_EQ(d.GetOutcome().stagesRun, 8);
  // Levels 230, 240 and 280.
  EXPECT_EQ(r.CountContaining("Unknown parent standard!"), 3);
  reports = 3;
  const Expect rows[] = {
      {"Root.EngineeringSymbols/", nullptr, "41"},
      {"Root.Styles.ChamferDimension>", nullptr, "Default"},
      {"Root.Styles.CurvilinearLengthDimension>", nullptr, "Default"},
      {"Root.Styles.DatumFeature.Default.Text>", nullptr, ""},
      {"Root.Annotation.Roughness.SymbolType/", nullptr, "0"},
      {"Root.Annotation.Roughness.Layout.SecondRequirement", nullptr, kAbsent},
      {"Enum.WeldingSymbol#", nullptr, "26"},
      {"Root.Styles.IndicatorEdge.Default.WitnessLine.Thickness", nullptr, "1"},
      {"Root.Version", nullptr, "290"},
  };
  for (const Expect& row : rows) EXPECT_EQ(qeltest::Probe(d.Tree(), row.probe), row.after) << row.probe;
}
