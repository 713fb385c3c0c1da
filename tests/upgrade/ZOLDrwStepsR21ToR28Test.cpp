// The steps from release 21 to release 28, one test or more each: for every parent and both
// settings of the option, a release 9 standard is brought to the step's start level, the step
// runs, the tree is saved and decoded again, and what the step adds, changes, moves and deletes is
// read by path.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ZOLChainTestSupport.h"
#include "ZOLReportCountTest.h"
#include "upgrade/migration/ZOLDrwMigrateR21ToR28.h"

namespace {

using qeltest::Expect;
using qeltest::kAbsent;

constexpr int ANSI = 1, ASME = 2, ISO = 4, JIS = 8, AA = 3, IJ = 12, ALL = 0;
constexpr int WITHOUT = qeltest::kWithout, WITH = qeltest::kWith;

// The text font that makes ISO and JIS take the heavy symbols in KVISO1.otf.
const std::vector<std::string> kKvIsoFont = {"C Root.Styles.Text.Default.Font.Name:KV ISO 1 (OpenType)"};

class LaterStep : public qeltest::StepTest {};

const char* Row(int n, const char* field) { return qeltest::SymbolRow(n, field); }

}  // namespace

TEST_F(LaterStep, Release21NamesViewsAndAddsViewTextsByParent) {
  const Expect rows[] = {
      {"Enum.ViewTextAlignment[4]", kAbsent, "BottomCenter"},
      {"Enum.DisplayScaleMode[2]", kAbsent, "WhenDifferentFromSheetScale"},
      {"Enum.ScaleSeparatorSymbol[1]", kAbsent, "Slash"},
      {"Root.View.ViewName^", kAbsent, "0"},
      {"Root.View.ViewText^", kAbsent, "1"},
      {"Root.View.ViewName>", kAbsent,
       "Front,Left,Right,Top,Bottom,Rear,Auxiliary,Section,SectionCut,Detail,Isometric,Axonometric,Unfolded"},
      {"Root.View.ViewName.Detail>", kAbsent, "Automatic,Name"},
      {"Root.View.ViewName.Detail.Automatic~", kAbsent, "YesNo"},
      {"Root.View.ViewName.Section.Automatic", kAbsent, "Yes", AA},
      {"Root.View.ViewName.Section.Automatic", kAbsent, "No", IJ},
      {"Root.View.ViewName.Unfolded.Automatic", kAbsent, "Yes"},
      {"Root.View.ViewText>", kAbsent, "TextStyleName,Alignment,Name,Scale"},
      {"Root.View.ViewText.TextStyleName", kAbsent, "ViewText", ALL, WITH},
      {"Root.View.ViewText.TextStyleName", kAbsent, "Default", ALL, WITHOUT},
      {"Root.View.ViewText.Alignment", kAbsent, "BottomCenter", AA},
      {"Root.View.ViewText.Alignment", kAbsent, "TopCenter", IJ},
      {"Root.View.ViewText.Name>", kAbsent, "Primary,Principal,Auxiliary,Section,SectionCut,Detail,Isometric,Axonometric"},
      {"Root.View.ViewText.Name.Principal.AddViewName", kAbsent, "No"},
      {"Root.View.ViewText.Name.SectionCut.AddViewName", kAbsent, "Yes"},
      {"Root.View.ViewText.Name.Isometric.AddViewName", kAbsent, "Yes", AA},
      {"Root.View.ViewText.Name.Isometric.AddViewName", kAbsent, "No", IJ},
      {"Root.View.ViewText.Scale>", kAbsent, "ScaleString,DisplayOnANewLine,FontSizeRatio,Display"},
      {"Root.View.ViewText.Scale.ScaleString", kAbsent, "#SCALE#: #SCALE_ATTR#", AA},
      {"Root.View.ViewText.Scale.ScaleString", kAbsent, " (#SCALE_ATTR#)", IJ},
      {"Root.View.ViewText.Scale.FontSizeRatio", kAbsent, "100", IJ},
      {"Root.View.ViewText.Scale.Display", kAbsent, "WhenDifferentFromSheetScale"},
      {"Root.View.ScaleSeparator", kAbsent, "Slash", AA},
      {"Root.View.ScaleSeparator", kAbsent, "Colon", IJ},
      {"Root.Styles.Text>", "Default", "Default,ViewText", ALL, WITH},
      {"Root.Styles.Text>", "Default", "Default", ALL, WITHOUT},
      {"Root.Styles.Text.ViewText.Text.Justification", kAbsent, "Center", ALL, WITH},
      {"Root.Styles.Text.Default.Text.Justification", "Left", "Left"},
      {"Root.Styles.BillOfMaterial.Default.Properties.BomProperties{2}@Name", kAbsent, "PLM_ExternalID", ALL, WITH},
      {"Root.Styles.BillOfMaterial.Default.Properties.BomProperties{2}@Width", kAbsent, "110", ALL, WITH},
      {"Root.Styles.BillOfMaterial", kAbsent, kAbsent, ALL, WITHOUT},
      {"Root.Version", "110", "120"},
  };
  Check(110, 120, rows);
}

// The new symbols go after the last row, in the parent's table: ISO and JIS with <Reciprocity>,
// thin in SYM2.font unless the text font is KV ISO 1; ANSI and ASME slanted in SYM1.font.
TEST_F(LaterStep, Release21AddsSymbolsFromTheParentsTableAndADatumTargetSizeSpecifier) {
  const Expect rows[] = {
      {"Root.EngineeringSymbols/", "41", "48", IJ, WITH},
      {"Root.EngineeringSymbols/", "41", "47", AA, WITH},
      {"Root.EngineeringSymbols/", "41", "41", ALL, WITHOUT},
      {Row(42, "Name"), kAbsent, "<SpotFace>", ALL, WITH},
      {Row(42, "Position"), kAbsent, "42", ALL, WITH},
      {Row(45, "Charcode"), kAbsent, "9655", ALL, WITH},
      {Row(47, "Name"), kAbsent, "<Reciprocity>", IJ, WITH},
      {Row(47, "Name"), kAbsent, "<ModifierA>", AA, WITH},
      {Row(48, "Position"), kAbsent, "48", IJ, WITH},
      {Row(42, "Font"), kAbsent, "SYM2.font", IJ, WITH},
      {Row(42, "Font"), kAbsent, "SYM1.font", AA, WITH},
      {Row(42, "Icon16x16"), kAbsent, ZOLDrwFindRelease21Symbol("<SpotFace>")->thin16, IJ, WITH},
      {Row(42, "Icon22x22"), kAbsent, ZOLDrwFindRelease21Symbol("<SpotFace>")->slanted22, AA, WITH},
      {"Enum.DatumTargetSizeSpecifier[2]", kAbsent, "Square"},
      {"Root.Styles.DatumTarget.Default.SizeSpecifier", kAbsent, "None"},
      {"Root.Styles.DatumTarget.Default.SizeSpecifier~", kAbsent, "DatumTargetSizeSpecifier"},
      {"Root.Version", "120", "130"},
  };
  Check(120, 130, rows);
  const Expect kv[] = {
      {Row(48, "Font"), kAbsent, "KVISO1.otf", IJ, WITH},
      {Row(43, "Icon16x16"), kAbsent, ZOLDrwFindRelease21Symbol("<CF>")->heavy16, IJ, WITH},
      {Row(43, "Font"), kAbsent, "SYM1.font", AA, WITH},
  };
  Check(120, 130, kv, kKvIsoFont);
  const Expect diameter[] = {{"Root.Styles.DatumTarget.Default.SizeSpecifier", kAbsent, "Diameter"}};
  Check(120, 130, diameter, {"C Root.Styles.DatumTarget.Default.Diameter:Yes"});
}

TEST_F(LaterStep, Release21AddsSurfaceTextureSymbolsTheConstantLengthAndWeldingLiterals) {
  const std::vector<std::string> delivered = {"V Root.Dimension:DIMLConstantLength:float:10.0"};
  const Expect rows[] = {
      {"Root.EngineeringSymbols/", "48", "62", IJ, WITH},
      {"Root.EngineeringSymbols/", "47", "61", AA, WITH},
      {Row(49, "Name"), kAbsent, "<LP>", IJ, WITH},
      {Row(62, "Name"), kAbsent, "<SR>", IJ, WITH},
      {Row(61, "Position"), kAbsent, "61", AA, WITH},
      {Row(61, "Charcode"), kAbsent, "61711", AA, WITH},
      {"Root.Dimension.DIMLConstantLength", "10.0", "15", ISO, WITH},
      {"Root.Dimension.DIMLConstantLength", "10.0", "7.62", AA, WITH},
      {"Root.Dimension.DIMLConstantLength", "10.0", "10.0", JIS},
      {"Root.Dimension.DIMLConstantLength", "10.0", "10.0", ALL, WITHOUT},
      {"Root.Styles.DatumTarget.Default.Movable", kAbsent, "No"},
      {"Enum.WeldingSymbol#", "22", "26", AA},
      {"Enum.WeldingSymbol[25]", nullptr, "MeltThruWelding", AA},
      {"Enum.WeldingSymbol#", "22", "25", IJ},
      {"Enum.WeldingSymbol[22]", nullptr, "EdgeWelding", IJ},
      {"Enum.WeldingSymbol[24]", nullptr, "InclinedJointEdgeWelding", IJ},
      {"Root.Version", "130", "140"},
  };
  Check(130, 140, rows, delivered);
  // A length that a user set is not the delivered one and stays.
  const Expect edited[] = {{"Root.Dimension.DIMLConstantLength", "12.5", "12.5"}};
  Check(130, 140, edited, {"V Root.Dimension:DIMLConstantLength:float:12.5"});
}

TEST_F(LaterStep, Release23RebuildsTheBillOfMaterialWithTheOptionAndAddsPhantomProducts) {
  const Expect rows[] = {
      {"Root.Styles.BillOfMaterial.Default.Properties/", "4", "6", ALL, WITH},
      {"Root.Styles.BillOfMaterial.Default.Properties.BomProperties{2}@Name", "PLM_ExternalID", "Quantity", ALL, WITH},
      {"Root.Styles.BillOfMaterial.Default.Properties.BomProperties{6}@Name", kAbsent, "V_Weight", ALL, WITH},
      {"Root.Styles.BillOfMaterial.Default.PhantomProducts", kAbsent, "No", ALL, WITH},
      {"Root.Styles.BillOfMaterial>", "Default,Mine", "Default", ALL, WITH},
      {"Root.Styles.BillOfMaterial", kAbsent, kAbsent, ALL, WITHOUT},
      {"Root.Version", "140", "150"},
  };
  // A user's own style of the family is thrown away by the rebuild; without the option there is no family.
  for (const qeltest::Parent& parent : qeltest::kParents) {
    qeltest::RunStep(parent, true, 140, 150, rows, {"N Root.Styles.BillOfMaterial:Mine"});
    qeltest::RunStep(parent, false, 140, 150, rows);
  }
}

TEST_F(LaterStep, Release23AddsBomFlagsDepthDisplayAndCorrectsTheFirstSymbol) {
  const Expect rows[] = {
      {"Root.ToleranceFormats.ToleranceDisplay@TolDispFact", kAbsent, "1.0"},
      {"Enum.BlankRemoveStrike[2]", kAbsent, "Strike"},
      {"Enum.Depth3DDisplay[1]", kAbsent, "AtTrueDepth"},
      {"Root.Styles.AreaFill.Default.Display", kAbsent, "OnTop"},
      {"Root.Styles.AreaFill.Default.Display~", kAbsent, "Depth3DDisplay"},
      {"Root.Styles.BillOfMaterial.Default>", nullptr,
       "Type,NoValueSymbol,NoMaterialLabel,ItemNumberLabelType,TableStyle,Properties,PhantomProducts,BOMInversion,"
       "DeletedProducts,FakeParts",
       ALL, WITH},
      {"Root.Styles.BillOfMaterial.Default.Properties.BomProperties{6}@Name", "V_Weight", "Weight", ALL, WITH},
      {"Root.Styles.BillOfMaterial.Default.DeletedProducts~", kAbsent, "BlankRemoveStrike", ALL, WITH},
      {"Root.Styles.BillOfMaterial", kAbsent, kAbsent, ALL, WITHOUT},
      {Row(1, "Name"), "<SUBSTITUTION>", "<SUBSTITUTION>"},
      {Row(1, "Charcode"), "8727", "42", ALL, WITH},
      {Row(1, "Charcode"), "8727", "8727", ALL, WITHOUT},
      {Row(1, "Font"), "SSS4.font", "SSS4.font"},
      {Row(1, "Icon16x16"), nullptr, ZOLDrwFindRelease21Symbol("<SUBSTITUTION>")->thin16, IJ, WITH},
      {Row(1, "Icon16x16"), nullptr, ZOLDrwFindRelease21Symbol("<SUBSTITUTION>")->slanted16, AA, WITH},
      {Row(2, "Charcode"), "8960", "8960"},
      {"Root.Version", "150", "160"},
  };
  Check(150, 160, rows);
  const Expect kv[] = {
      {Row(1, "Font"), "SSS4.font", "KVISO1.otf", IJ, WITH},
      {Row(1, "Font"), "SSS4.font", "SSS4.font", AA},
      {Row(1, "Icon22x22"), nullptr, ZOLDrwFindRelease21Symbol("<SUBSTITUTION>")->heavy22, IJ, WITH},
  };
  Check(150, 160, kv, kKvIsoFont);
}

TEST_F(LaterStep, Release24ColoursTheSheetRenumbersPatternsAndMovesTheVersionLast) {
  const Expect rows[] = {
      {"Root.General.SheetColors>", nullptr, "View,View background,Detail,Detail background,3DDesign"},
      {"Root.General.SheetColors.3DDesign.Color", kAbsent, "10 20 30", ALL, WITHOUT},
      {"Root.General.SheetColors.3DDesign.Color", kAbsent, "208 212 214", ALL, WITH},
      {"Root.General.SheetColors.View background.Color", "207 207 230", "130 130 130", ALL, WITH},
      {"Root.General.SheetColors.View background.Color", "207 207 230", "207 207 230", ALL, WITHOUT},
      {"Root.General.SheetColors.View.Color", "10 20 30", "10 20 30"},
      {"TypeDef.colorings@Position", kAbsent, "100"},
      {"TypeDef.dottings@Position", kAbsent, "100"},
      // Colourings and dottings are rebuilt where they stood.
      {"Root.Patterns>", "EditAvailability,AngleList,hatching,dotting,coloring,motif",
       "EditAvailability,AngleList,hatching,dotting,coloring,motif"},
      {"Root.Patterns.coloring/", nullptr, "14", ALL, WITH},
      {"Root.Patterns.coloring.colorings{4}@Name", nullptr, "Red", ALL, WITH},
      {"Root.Patterns.coloring.colorings{4}@color", nullptr, "3423154175", ALL, WITH},
      {"Root.Patterns.coloring.colorings{14}@Position", kAbsent, "14", ALL, WITH},
      {"Root.Patterns.coloring.colorings{1}@Position", kAbsent, kAbsent, ALL, WITHOUT},
      {"Root.Patterns.dotting/", "8", "2", ALL, WITH},
      {"Root.Patterns.dotting/", "8", "8", ALL, WITHOUT},
      {"Root.Patterns.dotting.dottings{2}%", nullptr, "Name,zig-zag,pitch,color,Position", ALL, WITH},
      {"Root.Patterns.dotting.dottings{2}@Name", nullptr, "Dot ZigZag", ALL, WITH},
      {"Root.Patterns.dotting.dottings{2}@pitch", nullptr, "5", ALL, WITH},
      {"Root.Patterns.hatching.hatchings{15}@Position", kAbsent, "15"},
      {"Root.Patterns.hatching.hatchings{1}@Position", kAbsent, "1"},
      {"Root.EngineeringSymbols/", "62", "64", IJ, WITH},
      {"Root.EngineeringSymbols/", "61", "61", AA, WITH},
      {Row(42, "Name"), "<SpotFace>", "<CHECKMARK>", IJ, WITH},
      {Row(42, "Name"), "<SpotFace>", "<SpotFace>", AA, WITH},
      {Row(44, "Name"), nullptr, "<SpotFace>", IJ, WITH},
      {Row(64, "Name"), kAbsent, "<SR>", IJ, WITH},
      {Row(64, "Position"), kAbsent, "64", IJ, WITH},
      {Row(1, "Charcode"), "42", "42", IJ, WITH},
      {Row(15, "Charcode"), nullptr, "9188", IJ, WITH},
      {Row(16, "Charcode"), nullptr, "9189", IJ, WITH},
      {Row(30, "Font"), "SYM2.font", "KVISO1.otf", IJ, WITH},
      {Row(2, "Icon16x16"), nullptr, "AAAGAAYAA8AH4A8wGRgZmBmYGJgM8AfgA8AAYABgAAA=", IJ, WITH},
      {Row(2, "Font"), "SYM1.font", "SYM1.font", AA},
      {"Root.Dimension.SYMBCrossSide", "5.0", "9.8995", AA},
      {"Root.Dimension.SYMBCrossSide", "5.0", "5.0", IJ},
      // The first path names the enumeration: nothing changes.
      {"Root.Styles.DatumTarget.Default.Leader.Symbol", "WhiteFilledSquare", "WhiteFilledSquare", ASME},
      // The symbol table of ISO and JIS is added anew behind the version, which then moves last.
      {"Root.EngineeringSymbols^", "14", "14"},
      {"Root.Version^", "15", "15"},
      {"Root.Version", "160", "170"},
  };
  Check(160, 170, rows,
        {"C Root.General.SheetColors.View.Color:10 20 30", "V Root.Dimension:SYMBCrossSide:float:5.0"});
}

TEST_F(LaterStep, Release24FlagsWhereSymbolsMayBeOfferedAndAddsThreeRowsForIsoAndJis) {
  const Expect rows[] = {
      {"TypeDef.EngineeringSymbol%", nullptr,
       "Name,Position,Font,Charcode,Icon16x16,Icon22x22,ToleranceValue,DatumReference,Notes"},
      {Row(2, "Name"), "<DIAMETER>", "<DIAMETER>"},
      {"Root.EngineeringSymbols.EngineeringSymbol{2}%", nullptr,
       "Name,Position,Font,Charcode,Icon16x16,Icon22x22,ToleranceValue,DatumReference,Notes"},
      // Without the option the listed symbols take all three flags.
      {Row(2, "Notes"), kAbsent, "Yes", ALL, WITHOUT},
      {Row(40, "DatumReference"), kAbsent, "Yes", ALL, WITHOUT},
      {Row(38, "Notes"), kAbsent, "Yes", AA, WITHOUT},
      {Row(38, "Notes"), kAbsent, "No", IJ, WITHOUT},
      {Row(3, "ToleranceValue"), kAbsent, "No"},
      // With it, one flag at a time.
      {Row(2, "ToleranceValue"), kAbsent, "Yes", ALL, WITH},
      {Row(2, "DatumReference"), kAbsent, "Yes", ALL, WITH},
      {Row(2, "Notes"), kAbsent, "No", ALL, WITH},
      {Row(29, "DatumReference"), kAbsent, "Yes", IJ, WITH},
      {Row(29, "DatumReference"), kAbsent, "No", AA, WITH},
      {Row(31, "ToleranceValue"), kAbsent, "Yes", AA, WITH},
      {Row(40, "Notes"), kAbsent, "Yes", AA, WITH},
      {Row(45, "DatumReference"), kAbsent, "Yes", AA, WITH},
      {Row(45, "ToleranceValue"), kAbsent, "No", AA, WITH},
      {Row(50, "ToleranceValue"), kAbsent, "Yes", IJ, WITH},
      {Row(49, "Name"), "<Reciprocity>", "<Reciprocity>", IJ, WITH},
      {Row(49, "ToleranceValue"), kAbsent, "Yes", IJ, WITH},
      {"Root.EngineeringSymbols/", "64", "67", IJ, WITH},
      {"Root.EngineeringSymbols/", "61", "61", AA, WITH},
      {Row(65, "Name"), kAbsent, "<BETWEEN>", IJ, WITH},
      {Row(65, "Position"), kAbsent, "65", IJ, WITH},
      {Row(66, "Charcode"), kAbsent, "61717", IJ, WITH},
      {Row(66, "Notes"), kAbsent, "No", IJ, WITH},
      {Row(67, "Name"), kAbsent, "<ORIENTATIONCONSTRAINTONLY>", IJ, WITH},
      {Row(67, "DatumReference"), kAbsent, "Yes", IJ, WITH},
      {Row(67, "Font"), kAbsent, "KVISO1.otf", IJ, WITH},
      {Row(35, "Charcode"), "9011", "9011", IJ, WITH},
      {"Root.Version", "170", "180"},
  };
  Check(170, 180, rows);
}

TEST_F(LaterStep, Release25NumbersFramesAddsFrameNamesAndProjectionSymbols) {
  const Expect rows[] = {
      {"TypeDef.FrameDef@Pos", kAbsent, "0"},
      {"Root.Frames.FrameDef{1}@Pos", kAbsent, "1"},
      {"Root.Frames.FrameDef{21}@Name", "Parallelogram", "Parallelogram"},
      {"Root.Frames.FrameDef{21}@Pos", kAbsent, "21"},
      {"Root.Styles.Text.Default.Text.Frame", "None", "None"},
      {"Root.Styles.Text.Default.Text.Frame>", "", "FrameName"},
      {"Root.Styles.Text.Default.Text.Frame.FrameName", kAbsent, ""},
      {"Root.Styles.Balloon.Default.Text.Frame.FrameName", kAbsent, ""},
      {"Root.Styles.WeldingSymbol.Default.Text.Frame.FrameName", kAbsent, ""},
      {"Root.Styles.ProjectionCallout.Default.Text.Frame.FrameName", kAbsent, ""},
      {"Root.Styles.DetailCallout.Default.Text.Frame.FrameName", kAbsent, ""},
      {"Root.Styles.Text.ViewText.Text.Frame.FrameName", kAbsent, "", ALL, WITH},
      {"Root.Styles.Text.ViewText", kAbsent, kAbsent, ALL, WITHOUT},
      {"Root.EngineeringSymbols/", "67", "71", IJ, WITH},
      {"Root.EngineeringSymbols/", "61", "61", AA, WITH},
      {Row(68, "Name"), kAbsent, "<FIRSTANGLE>", IJ, WITH},
      {Row(71, "Charcode"), kAbsent, "61715", IJ, WITH},
      {Row(71, "Notes"), kAbsent, "No", IJ, WITH},
      {"Root.Version", "180", "190"},
  };
  Check(180, 190, rows);
}

TEST_F(LaterStep, Release27AddsWeldingDisplayAndAuxiliaryFeatureIndicators) {
  const Expect rows[] = {
      {"Enum.WeldingStaggeredMode[1]", kAbsent, "Alternative"},
      {"Root.Annotation.Welding.WeldingStaggeredDisplay", kAbsent, "Usual"},
      {"Root.Annotation.Welding.WeldingStaggeredDisplay~", kAbsent, "WeldingStaggeredMode"},
      {"Root.Annotation.Welding.WeldingStaggeredDisplayOffset", kAbsent, "5.0"},
      {"Root.Annotation.Welding.WeldingDisplay", kAbsent, "System-A", ISO},
      {"Enum.WeldingSystemDisplay[1]", kAbsent, "System-B", ISO},
      {"Root.Annotation.Welding.WeldingDisplay", kAbsent, kAbsent, AA | JIS},
      {"Enum.WeldingSystemDisplay", kAbsent, kAbsent, AA | JIS},
      {"Root.Annotation.Tolerance.AuxiliaryFeatureIndicators>", kAbsent,
       "IntersectionPlane,OrientationPlane,CollectionPlane,DirectionFeature"},
      {"Root.Annotation.Tolerance.AuxiliaryFeatureIndicators.CollectionPlane", kAbsent, "Yes", IJ},
      {"Root.Annotation.Tolerance.AuxiliaryFeatureIndicators.DirectionFeature", kAbsent, "No", AA},
      {"Root.Version", "190", "200"},
  };
  Check(190, 200, rows);
}

TEST_F(LaterStep, Release28AddsMirroringArrowScaleFrameFillAndWeldingLiterals) {
  const Expect rows[] = {
      {"Root.Styles.Table.Default.Mirroring", kAbsent, "Auto flip"},
      {"Root.Styles.Arrow.Default.ApplyScaleOnExtremities", kAbsent, "No"},
      {"Root.Styles.Text.Default.Text.Frame>", "FrameName", "FrameName,Fill,FillColor,HorizontalMargin,VerticalMargin"},
      {"Root.Styles.Text.Default.Text.Frame.FillColor", kAbsent, "10 20 30"},
      {"Root.Styles.Text.Default.Text.Frame.VerticalMargin", kAbsent, "2.0"},
      {"Root.Styles.Balloon.Default.Text.Frame>", "FrameName", "FrameName,Fill,FillColor"},
      {"Root.Styles.Balloon.Default.Text.Frame.FillColor", kAbsent, "10 20 30"},
      {"Enum.WeldingSymbol#", "26", "30", AA},
      {"Enum.WeldingSymbol[29]", nullptr, "EdgeCommon", AA},
      {"Enum.WeldingSymbol[25]", nullptr, "Consumable", IJ},
      {"Root.Version", "200", "210"},
  };
  Check(200, 210, rows, {"C Root.General.SheetColors.View.Color:10 20 30"});
  // A sheet without a view colour fills with white, the blank behind it kept.
  const Expect white[] = {{"Root.Styles.Balloon.Default.Text.Frame.FillColor", kAbsent, "255 255 255 "}};
  Check(200, 210, white, {"D Root.General.SheetColors.View.Color"});
}

// A parent text that none of the releases knew: every value chosen by parent is left out with a
// report, no symbol row is added or corrected, and the "else" lines of the welding steps apply.
TEST_F(LaterStep, UnknownParentLeavesOutWhatTheParentDecides) {
  qeltest::ChainDriver d(qeltest::Release9Lines("DIN"));
  d.Upgrade(1, 110, true);
  r.Clear();
  d.Upgrade(110, 210, true);
  EXPECT_EQ(d.GetOutcome().stagesRun, 10);
  // Level 120: the centring of the clone, the four view kinds and two view classes whose value
  // differs by parent, the alignment, three scale values and the separator; level 140: the welding
  // literals. A value that is the same for every parent is added all the same.
  EXPECT_EQ(r.CountContaining("Unknown parent standard!"), 13);
  reports = 13;
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
      {Row(1, "Charcode"), nullptr, "8727"},
      {"Root.Annotation.Tolerance.AuxiliaryFeatureIndicators.IntersectionPlane", nullptr, "No"},
      {"Root.Annotation.Welding.WeldingDisplay", nullptr, kAbsent},
      {"Root.Version", nullptr, "210"},
  };
  for (const Expect& row : rows) EXPECT_EQ(qeltest::Probe(d.Tree(), row.probe), row.after) << row.probe;
}

// A symbol row is six texts, or nine from level 170; any other length adds nothing.
TEST_F(LaterStep, SymbolRowOfAnotherLengthIsReportedAndNotAdded) {
  ZOLAnnStandardXMLParser p;
  p.AddNodeWithPath("Root:EngineeringSymbols:0", 0);
  const std::string shortRow[] = {"<X>", "1", "KVISO1.otf", "42", ""};
  const std::string fullRow[] = {"<X>", "1", "KVISO1.otf", "42", "", "", "Yes", "No", "No"};
  AddEngineeringSymbol(&p, shortRow);
  AddEngineeringSymbol(&p, fullRow);
  EXPECT_EQ(qeltest::Probe(p, "Root.EngineeringSymbols/"), "1");
  EXPECT_EQ(qeltest::Probe(p, "Root.EngineeringSymbols.EngineeringSymbol@ToleranceValue"), "Yes");
  EXPECT_EQ(r.CountContaining("six or nine"), 1);
  reports = 1;
}
