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

using namespace qeltest::rows;

// The text font that makes ISO and JIS take the heavy symbols in KVISO1.otf.
const std::vector<std::string> kKvIsoFont = {"C Root.Styles.Text.Default.Font.Name:KV ISO 1 (OpenType)"};

class LaterStep : public qeltest::StepTest {};

}  // namespace

TEST_F(LaterStep, Release21NamesViewsAndAddsViewTextsByParent) {
  const Expect rows[] = {
      {"Root.View.ViewName^", kAbsent, "0"},
      {"Root.View.ViewText^", kAbsent, "1"},
      {"Root.View.ViewName.Detail>", kAbsent, "Automatic,Name"},
      {"Root.View.ViewName.Section.Automatic", kAbsent, "Yes", AA},
      {"Root.View.ViewName.Section.Automatic", kAbsent, "No", IJ},
      {"Root.View.ViewText.TextStyleName", kAbsent, "ViewText", ALL, WITH},
      {"Root.View.ViewText.TextStyleName", kAbsent, "Default", ALL, WITHOUT},
      {"Root.View.ViewText.Scale.ScaleString", kAbsent, "#SCALE#: #SCALE_ATTR#", AA},
      {"Root.View.ViewText.Scale.ScaleString", kAbsent, " (#SCALE_ATTR#)", IJ},
      {"Root.Styles.Text>", "Default", "Default,ViewText", ALL, WITH},
      {"Root.Styles.Text>", "Default", "Default", ALL, WITHOUT},
      {"Root.Styles.Text.ViewText.Text.Justification", kAbsent, "Center", ALL, WITH},
      {"Root.Styles.Text.Default.Text.Justification", "Left", "Left"},
      {"Root.Styles.BillOfMaterial.Default.Properties.BomProperties{2}@Name", kAbsent, "PLM_ExternalID", ALL, WITH},
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
      {SymbolRow(42, "Name"), kAbsent, "<SpotFace>", ALL, WITH},
      {SymbolRow(47, "Name"), kAbsent, "<Reciprocity>", IJ, WITH},
      {SymbolRow(47, "Name"), kAbsent, "<ModifierA>", AA, WITH},
      {SymbolRow(42, "Font"), kAbsent, "SYM2.font", IJ, WITH},
      {SymbolRow(42, "Font"), kAbsent, "SYM1.font", AA, WITH},
      {SymbolRow(42, "Icon16x16"), kAbsent, ZOLDrwFindRelease21Symbol("<SpotFace>")->thin16, IJ, WITH},
      {SymbolRow(42, "Icon22x22"), kAbsent, ZOLDrwFindRelease21Symbol("<SpotFace>")->slanted22, AA, WITH},
      {"Root.Styles.DatumTarget.Default.SizeSpecifier", kAbsent, "None"},
      {"Root.Version", "120", "130"},
  };
  Check(120, 130, rows);
  const Expect kv[] = {
      {SymbolRow(48, "Font"), kAbsent, "KVISO1.otf", IJ, WITH},
      {SymbolRow(43, "Icon16x16"), kAbsent, ZOLDrwFindRelease21Symbol("<CF>")->heavy16, IJ, WITH},
      {SymbolRow(43, "Font"), kAbsent, "SYM1.font", AA, WITH},
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
      {SymbolRow(49, "Name"), kAbsent, "<LP>", IJ, WITH},
      {SymbolRow(61, "Charcode"), kAbsent, "61711", AA, WITH},
      {"Root.Dimension.DIMLConstantLength", "10.0", "15", ISO, WITH},
      {"Root.Dimension.DIMLConstantLength", "10.0", "7.62", AA, WITH},
      {"Root.Dimension.DIMLConstantLength", "10.0", "10.0", JIS},
      {"Root.Dimension.DIMLConstantLength", "10.0", "10.0", ALL, WITHOUT},
      {"Enum.WeldingSymbol#", "22", "26", AA},
      {"Enum.WeldingSymbol#", "22", "25", IJ},
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
      {"Root.Styles.AreaFill.Default.Display", kAbsent, "OnTop"},
      {"Root.Styles.BillOfMaterial.Default>", nullptr,
       "Type,NoValueSymbol,NoMaterialLabel,ItemNumberLabelType,TableStyle,Properties,PhantomProducts,BOMInversion,"
       "DeletedProducts,FakeParts",
       ALL, WITH},
      {"Root.Styles.BillOfMaterial.Default.Properties.BomProperties{6}@Name", "V_Weight", "Weight", ALL, WITH},
      {"Root.Styles.BillOfMaterial", kAbsent, kAbsent, ALL, WITHOUT},
      {SymbolRow(1, "Name"), "<SUBSTITUTION>", "<SUBSTITUTION>"},
      {SymbolRow(1, "Charcode"), "8727", "42", ALL, WITH},
      {SymbolRow(1, "Charcode"), "8727", "8727", ALL, WITHOUT},
      {SymbolRow(1, "Icon16x16"), nullptr, ZOLDrwFindRelease21Symbol("<SUBSTITUTION>")->thin16, IJ, WITH},
      {SymbolRow(1, "Icon16x16"), nullptr, ZOLDrwFindRelease21Symbol("<SUBSTITUTION>")->slanted16, AA, WITH},
      {SymbolRow(2, "Charcode"), "8960", "8960"},
      {"Root.Version", "150", "160"},
  };
  Check(150, 160, rows);
  const Expect kv[] = {
      {SymbolRow(1, "Font"), "SSS4.font", "KVISO1.otf", IJ, WITH},
      {SymbolRow(1, "Font"), "SSS4.font", "SSS4.font", AA},
      {SymbolRow(1, "Icon22x22"), nullptr, ZOLDrwFindRelease21Symbol("<SUBSTITUTION>")->heavy22, IJ, WITH},
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
      // Colourings and dottings are rebuilt where they stood.
      {"Root.Patterns>", "EditAvailability,AngleList,hatching,dotting,coloring,motif",
       "EditAvailability,AngleList,hatching,dotting,coloring,motif"},
      {"Root.Patterns.coloring/", nullptr, "14", ALL, WITH},
      {"Root.Patterns.coloring.colorings{14}@Position", kAbsent, "14", ALL, WITH},
      {"Root.Patterns.coloring.colorings{1}@Position", kAbsent, kAbsent, ALL, WITHOUT},
      {"Root.Patterns.dotting/", "8", "2", ALL, WITH},
      {"Root.Patterns.dotting/", "8", "8", ALL, WITHOUT},
      {"Root.Patterns.dotting.dottings{2}%", nullptr, "Name,zig-zag,pitch,color,Position", ALL, WITH},
      {"Root.Patterns.dotting.dottings{2}@Name", nullptr, "Dot ZigZag", ALL, WITH},
      {"Root.Patterns.hatching.hatchings{15}@Position", kAbsent, "15"},
      {"Root.EngineeringSymbols/", "62", "64", IJ, WITH},
      {"Root.EngineeringSymbols/", "61", "61", AA, WITH},
      {SymbolRow(42, "Name"), "<SpotFace>", "<CHECKMARK>", IJ, WITH},
      {SymbolRow(42, "Name"), "<SpotFace>", "<SpotFace>", AA, WITH},
      {SymbolRow(44, "Name"), nullptr, "<SpotFace>", IJ, WITH},
      {SymbolRow(64, "Name"), kAbsent, "<SR>", IJ, WITH},
      {SymbolRow(1, "Charcode"), "42", "42", IJ, WITH},
      {SymbolRow(30, "Font"), "SYM2.font", "KVISO1.otf", IJ, WITH},
      {SymbolRow(2, "Font"), "SYM1.font", "SYM1.font", AA},
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
      {SymbolRow(2, "Name"), "<DIAMETER>", "<DIAMETER>"},
      // Without the option the listed symbols take all three flags.
      {SymbolRow(2, "Notes"), kAbsent, "Yes", ALL, WITHOUT},
      {SymbolRow(38, "Notes"), kAbsent, "Yes", AA, WITHOUT},
      {SymbolRow(38, "Notes"), kAbsent, "No", IJ, WITHOUT},
      {SymbolRow(3, "ToleranceValue"), kAbsent, "No"},
      // With it, one flag at a time.
      {SymbolRow(2, "ToleranceValue"), kAbsent, "Yes", ALL, WITH},
      {SymbolRow(2, "DatumReference"), kAbsent, "Yes", ALL, WITH},
      {SymbolRow(2, "Notes"), kAbsent, "No", ALL, WITH},
      {SymbolRow(29, "DatumReference"), kAbsent, "Yes", IJ, WITH},
      {SymbolRow(29, "DatumReference"), kAbsent, "No", AA, WITH},
      {SymbolRow(49, "Name"), "<Reciprocity>", "<Reciprocity>", IJ, WITH},
      {SymbolRow(49, "ToleranceValue"), kAbsent, "Yes", IJ, WITH},
      {"Root.EngineeringSymbols/", "64", "67", IJ, WITH},
      {"Root.EngineeringSymbols/", "61", "61", AA, WITH},
      {SymbolRow(65, "Name"), kAbsent, "<BETWEEN>", IJ, WITH},
      {SymbolRow(67, "DatumReference"), kAbsent, "Yes", IJ, WITH},
      {"Root.Version", "170", "180"},
  };
  Check(170, 180, rows);
}

TEST_F(LaterStep, Release25NumbersFramesAddsFrameNamesAndProjectionSymbols) {
  const Expect rows[] = {
      {"TypeDef.FrameDef@Pos", kAbsent, "0"},
      {"Root.Frames.FrameDef{1}@Pos", kAbsent, "1"},
      {"Root.Frames.FrameDef{21}@Pos", kAbsent, "21"},
      {"Root.Styles.Text.Default.Text.Frame", "None", "None"},
      {"Root.Styles.Text.Default.Text.Frame>", "", "FrameName"},
      {"Root.Styles.Text.Default.Text.Frame.FrameName", kAbsent, ""},
      {"Root.Styles.Text.ViewText.Text.Frame.FrameName", kAbsent, "", ALL, WITH},
      {"Root.Styles.Text.ViewText", kAbsent, kAbsent, ALL, WITHOUT},
      {"Root.EngineeringSymbols/", "67", "71", IJ, WITH},
      {"Root.EngineeringSymbols/", "61", "61", AA, WITH},
      {SymbolRow(68, "Name"), kAbsent, "<FIRSTANGLE>", IJ, WITH},
      {SymbolRow(71, "Notes"), kAbsent, "No", IJ, WITH},
      {"Root.Version", "180", "190"},
  };
  Check(180, 190, rows);
}

TEST_F(LaterStep, Release27AddsWeldingDisplayAndAuxiliaryFeatureIndicators) {
  const Expect rows[] = {
      {"Root.Annotation.Welding.WeldingStaggeredDisplay", kAbsent, "Usual"},
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
      {"Root.Styles.Text.Default.Text.Frame>", "FrameName", "FrameName,Fill,FillColor,HorizontalMargin,VerticalMargin"},
      {"Root.Styles.Text.Default.Text.Frame.FillColor", kAbsent, "10 20 30"},
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
