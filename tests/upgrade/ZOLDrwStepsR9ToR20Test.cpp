// The steps from release 9 to release 20, one test each: for every parent and both settings of
// the option, a release 9 standard is brought to the step's start level, the step runs, the tree
// is saved and decoded again, and what the step adds, changes, moves and deletes is read by path.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ZOLChainTestSupport.h"
#include "ZOLReportCountTest.h"

namespace {

using namespace qeltest::rows;

class Step : public qeltest::StepTest {
protected:
  // Also checks that up to release 16 no step looks at the option: it saves the same text either way.
  void Check(int from, int to, std::span<const Expect> rows, const std::vector<std::string>& setup = {}) {
    StepTest::Check(from, to, rows, setup);
    if (to > 80) return;
    for (const qeltest::Parent& parent : qeltest::kParents) {
      std::string saved[2];
      for (bool option : {false, true}) {
        qeltest::ChainDriver d(qeltest::Release9Lines(parent.name));
        ASSERT_EQ(d.GetVersion(), 1) << parent.name;
        d.Upgrade(1, from, option);
        qeltest::ApplyLines(d.Tree(), setup);
        d.Upgrade(from, to, option);
        saved[option] = d.Saved();
      }
      EXPECT_EQ(saved[0], saved[1]) << parent.name;
    }
  }
};

}  // namespace

TEST_F(Step, Release10AddsFramesAnnotationTextAndViewGeneration) {
  const Expect rows[] = {
      {"Root.Annotation^", kAbsent, "3"},
      {"Root.Annotation.Text.LeaderGap", nullptr, "2.0", AA},
      {"Root.Annotation.Text.LeaderGap", nullptr, "0.0", IJ},
      {"Root.Frames^", kAbsent, "7"},
      {"Root.LineThickness^", "5", "8"},
      {"Root.Frames/", nullptr, "20"},
      {"Root.Frames.FrameDef{19}@Radius", nullptr, "10.0"},
      {"Root.Frames.FrameDef{1}@Radius", nullptr, kAbsent},
      {"Root.Dimension.CUMLTxtDecalY", "1.5", "0.5", JIS},
      {"Root.Dimension.CUMLTxtDecalY", "1.5", "0", AA},
      {"Root.Dimension.CUMLTxtDecalY", "1.5", "1.5", ISO},
  };
  Check(1, 2, rows);
}

TEST_F(Step, Release11BuildsStylesEnumerationsPatternsAndLineTypes) {
  const Expect rows[] = {
      {"Root.Styles^", kAbsent, "0"},
      {"Root.Styles>", nullptr,
       "Sheet,ConstructionPoint,ConstructionCurve,Point,Curve,DistanceLengthDimension,AngleDimension,RadiusDimension,"
       "DiameterDimension,ChamferDimension,CoordinateDimension,Text,Table,DatumFeature,DatumTarget,Tolerance,Balloon,"
       "RoughnessSymbol,WeldingSymbol,AreaFill,AxisLine,CenterLine,Thread,Arrow,ProjectionCallout,SectionCallout,"
       "DetailCallout"},
      // Frame and WeldingSymbol stand where the later position of AuthorizedMode needs them.
      {"Enum.Frame^", kAbsent, "8"},
      {"Enum.WeldingSymbol^", nullptr, "17"},
      {"Enum.CalloutTypes[2]", nullptr, "Corners ans arrows"},
      {"Root.Styles.Sheet.Default.ProjectionMethod", nullptr, "First angle", ISO},
      {"Root.Styles.Sheet.Default.ProjectionMethod", nullptr, "Third angle", AA | JIS},
      {"Root.Styles.Sheet.Default.GlobalScale~", nullptr, "0.0"},
      {"Root.Styles.DistanceLengthDimension.Default.Value.OrientationReference", nullptr, "Screen", AA},
      {"Root.Styles.DistanceLengthDimension.Default.Value.OrientationReference", nullptr, "Dimension line", IJ},
      {"Root.Styles.AngleDimension.Default.ValueDisplayFormat.DualValue.Name", nullptr, "NUM,ADMS"},
      {"Root.Styles.Balloon.Default.Font.Color", nullptr, kAbsent},
      {"Root.Styles.ProjectionCallout.Default.Attachment", nullptr, "Head", ISO},
      {"Root.Patterns.hatching/", nullptr, "15"},
      {"Root.Patterns.hatching.hatchings{10}@linetype1", nullptr, kAbsent},
      {"Root.Patterns.coloring.colorings{1}@color", nullptr, kAbsent},
      {"Root.LineTypes/", nullptr, "64"},
      {"Root.LineTypes.LineType1.Segment#", nullptr, "1"},
      {"Root.DressUp.Thread^", kAbsent, "0"},
      {"Root.DressUp.Thread.ThreadRepresentation", nullptr, "Arc circle", ISO},
      {"Root.DressUp.Thread.ThreadRepresentation", nullptr, "Circle", AA | JIS},
      {"Root.Dimension.CUMLTxtDecalY", "1.5", "5", ISO},
      {"Root.Dimension.CUMLTxtDecalY", "0.5", "0.5", JIS},
      {"Root.View.Generation.MaterialCutPattern", kAbsent, "Material"},
  };
  Check(2, 30, rows);
}

// The roughness style of a user keeps what it had set, in the new form, and loses its other styles.
TEST_F(Step, Release12RebuildsRoughnessAndAddsArcSymbolAndParallelogram) {
  const std::vector<std::string> setup = {
      "C Root.Styles.RoughnessSymbol.Default.Contact:Without specifications (All surfaces)",
      "C Root.Styles.RoughnessSymbol.Default.Graphic.Color:255 0 0",
      "C Root.Styles.RoughnessSymbol.Default.Font.Size:5.0",
      "N Root.Styles.RoughnessSymbol:Custom",
  };
  const Expect rows[] = {
      {"Enum.Frame[21]", "Rectangle (fixed)", "Parallelogram"},
      {"Enum.RoughnessContact", "With specifications", kAbsent},
      {"Enum.AuthorizedMode^", kAbsent, "42"},
      {"Root.Styles.RoughnessSymbol>", "Default,Custom", "Default"},
      {"Root.Styles.RoughnessSymbol^", "17", "17"},
      {"Root.Styles.RoughnessSymbol.Default>", nullptr, "Values,Text,Graphic,Font,Leader"},
      {"Root.Styles.RoughnessSymbol.Default.Values.SpecificationLine", kAbsent, "No"},
      {"Root.Styles.RoughnessSymbol.Default.Values.AllAround", kAbsent, "Yes"},
      {"Root.Styles.RoughnessSymbol.Default.Graphic.Color", "255 0 0", "255 0 0"},
      {"Root.Styles.RoughnessSymbol.Default.Font.Size", "5.0", "5.0"},
      {"Root.Annotation.Roughness.Layout.CutOff", nullptr, "Authorized", JIS},
      {"Root.Annotation.Roughness.Layout.OtherRequirement", nullptr, "Not Authorized", AA | ISO},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimDisplayArcSymbol", kAbsent, "1", AA},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimDisplayArcSymbol", kAbsent, "2", IJ},
      {"Root.Frames/", "20", "21"},
      {"Root.Styles.Text.Default.Text.Blanking", kAbsent, "Yes"},
      {"Root.Styles.DatumFeature.Default.Leader.Symbol", "None", "Automatic", ANSI},
      {"Root.Styles.DatumFeature.Default.Leader.Symbol", "WhiteFilledSquare", "Automatic", ASME | IJ},
  };
  Check(30, 40, rows, setup);
}

TEST_F(Step, Release12KeepsADatumLeaderSymbolThatIsNotTheDeliveredOneAndFillsTheDefaultContact) {
  const std::vector<std::string> setup = {"C Root.Styles.DatumFeature.Default.Leader.Symbol:Circle"};
  const Expect rows[] = {
      {"Root.Styles.DatumFeature.Default.Leader.Symbol", "Circle", "Circle"},
      {"Root.Styles.RoughnessSymbol.Default.Values.SpecificationLine", nullptr, "Yes"},
      {"Root.Styles.RoughnessSymbol.Default.Values.AllAround", nullptr, "No"},
  };
  Check(30, 40, rows, setup);
}

TEST_F(Step, Release13AddsFontRatiosAndLeadersAndRemovesTheGeneralDefaults) {
  const Expect rows[] = {
      {"Root.Styles.Sheet.Default.GenViewsPosMode", kAbsent, "FixedCG"},
      {"Root.Styles.RadiusDimension.Default.Font>", nullptr,
       "Name,Bold,Italic,Size,Color,Underline,Strikethrough,Overline,Ratio,Spacing"},
      {"Root.Styles.DatumTarget.Default.Graphic>", "Color", "Color,Linetype,Thickness"},
      {"Root.Styles.DatumTarget.Default.Leader.Symbol", kAbsent, "None", ANSI},
      {"Root.Styles.DatumTarget.Default.Leader.Symbol", kAbsent, "WhiteFilledSquare", ASME | IJ},
      {"Root.General>", nullptr,
       "AllowedToleranceFormats,AllowedNumericalFormats,AllowedTextFonts,AllowedTextFontSizes,StandardUpdateMigration"},
  };
  Check(40, 50, rows);
}

// A user's complete sheet style comes back on the first format; an incomplete one is lost.
TEST_F(Step, Release14ReplacesTheDefaultSheetStyleByOneStylePerFormat) {
  const std::vector<std::string> setup = {
      "N Root.Styles.Sheet:Company",
      "V Root.Styles.Sheet.Company:GlobalScale:float:2.0",
      "V Root.Styles.Sheet.Company:ProjectionMethod:enum.ProjectionMethod:First angle",
      "V Root.Styles.Sheet.Company:GenViewsPosMode:enum.GenViewsPosMode:FixedAxis",
      "N Root.Styles.Sheet:Broken",
      "V Root.Styles.Sheet.Broken:GlobalScale:float:1.0",
  };
  const Expect rows[] = {
      {"Root.SheetFormat/", kAbsent, "8", IJ},
      {"Root.SheetFormat/", kAbsent, "9", AA},
      {"Root.SheetFormat.Formats{7}@Name", nullptr, "B5 ISO", ISO},
      {"Root.SheetFormat.Formats{7}@Name", nullptr, "J U.S.Standard", AA},
      {"Root.Styles.Sheet/", "3", "9", IJ},
      {"Root.Styles.Sheet/", "3", "10", AA},
      {"Root.Styles.Sheet.Default", "", kAbsent},
      {"Root.Styles.Sheet.Broken", "", kAbsent},
      {"Root.Styles.Sheet.A4 ISO.ProjectionMethod", kAbsent, "First angle", ISO},
      {"Root.Styles.Sheet.Company^", "1", "8", IJ},
      {"Root.Styles.Sheet.Company^", "1", "9", AA},
      {"Root.Styles.Sheet.Company.GlobalScale", "2.0", "2.0"},
      {"Root.Styles.Sheet.Company.Format", kAbsent, "A0 ISO", ISO},
      {"Root.Styles.Sheet.Company.Format", kAbsent, "A ANSI", AA},
      {"Root.Styles.DimensionsSystem^", kAbsent, "27"},
      {"Root.General.ToleranceValue.NumericalToleranceValues#", nullptr, "31"},
      {"Root.General.ToleranceValue.NumericalToleranceValues[29]", nullptr, ""},
      {"Root.Dimension.CUMLDimLinTail", "1.0", kAbsent},
      {"Root.Styles.DiameterDimension.Default.DimensionLine.TillCenter", kAbsent, "No", AA},
      {"Root.Styles.DiameterDimension.Default.DimensionLine.TillCenter", kAbsent, "Yes", IJ},
  };
  Check(50, 60, rows, setup);
}

TEST_F(Step, Release15AddsTheViewsSetAndMovesDeliveredLeadersToAutomatic) {
  const std::vector<std::string> setup = {"C Root.Styles.DatumTarget.Default.Leader.Symbol:Circle"};
  const Expect rows[] = {
      {"Root.ViewsSet.ViewsBox>", kAbsent, "PrimaryView,H,V,N,Position,X,Y,Z,FrontRear,RightLeft,TopBottom"},
      {"Root.Styles.CoordinateDimension.Default.Leader.Symbol", "WhiteFilledSquare", "Automatic", IJ},
      {"Root.Styles.CoordinateDimension.Default.Leader.Symbol", "WhiteFilledSquare", "WhiteFilledSquare", ASME},
      {"Root.Styles.CoordinateDimension.Default.Leader.Symbol", "None", "None", ANSI},
      {"Root.Styles.DatumTarget.Default.Leader.Symbol", "Circle", "Circle"},
      {"Root.LineTypes.LineType16.Segment#", "0", "2"},
      {"Root.LineTypes.LineType16.Segment[1]", nullptr, "-1.0"},
  };
  Check(60, 70, rows, setup);
}

TEST_F(Step, Release15LeavesTheDashesOfAUsersLineType16) {
  const std::vector<std::string> setup = {"L Root.LineTypes.LineType16.Segment::float:3.0"};
  const Expect rows[] = {{"Root.LineTypes.LineType16.Segment#", "1", "1"},
                         {"Root.LineTypes.LineType16.Segment[0]", "3.0", "3.0"}};
  Check(60, 70, rows, setup);
}

TEST_F(Step, Release16TurnsDimensionSystemAlignmentIntoItsOwnEnumeration) {
  const std::vector<std::string> setup = {"C Root.Styles.DimensionsSystem.Default.AlignStacked:Left"};
  const Expect rows[] = {
      {"Root.Styles.DimensionsSystem.Default.AlignStacked", "Left", "ReferenceLine"},
      {"Root.Styles.DimensionsSystem.Default.AlignStacked~", "TextHAlignment", "DimSysAlign"},
      {"Root.Styles.DimensionsSystem.Default.AlignCumulated", "Center", "Center"},
      {"Root.Styles.DimensionsSystem.Default>", nullptr,
       "OffsetMode,OffsetLinear,OffsetRadial,AlignCumulatedOffset,AlignStackedOffset,AlignAddFunnel,AlignCumulated,"
       "AlignStacked"},
      {"Root.Annotation.Roughness.ExtensionLine>", kAbsent, "Thickness,GapToSurf,LengthSymbol,Overrun"},
  };
  Check(70, 80, rows, setup);
}

TEST_F(Step, Release17AddsEngineeringSymbolsByParentAndTheDetailCalloutColour) {
  const std::vector<std::string> setup = {"C Root.Styles.DetailCallout.Default.Text.Font.Color:10 20 30"};
  const Expect rows[] = {
      {"Root.Styles.DatumFeature.Default.Font.Blanking", kAbsent, "Yes"},
      {"Root.Styles.Text.Default.Font.Blanking", kAbsent, kAbsent},
      {"Root.EngineeringSymbols/", kAbsent, "41"},
      {"Root.EngineeringSymbols.EngineeringSymbol{2}@Font", nullptr, "SYM2.font", IJ},
      {"Root.EngineeringSymbols.EngineeringSymbol{2}@Font", nullptr, "SYM1.font", AA},
      {"Root.EngineeringSymbols.EngineeringSymbol{41}@Charcode", nullptr, "9418"},
      {"Root.DressUp.Symbols.DoubleFilledArrow.Length", kAbsent, "2", IJ},
      {"Root.DressUp.Symbols.DoubleFilledArrow.Angle", kAbsent, "18", AA},
      {"Root.Styles.DetailCallout.Default.Color", kAbsent, "10 20 30"},
  };
  Check(80, 90, rows, setup);
}

TEST_F(Step, Release18TurnsBlankingIntoAnEnumerationAndAddsTableCellStylesAndBomStyle) {
  const std::vector<std::string> setup = {
      "C Root.Styles.Balloon.Default.Text.Blanking:No",
      "C Root.General.SheetColors.View.Color:51 51 102",
  };
  const Expect rows[] = {
      {"Root.Styles.Text.Default.Text.Blanking", "Yes", "AreaFill"},
      {"Root.Styles.Text.Default.Text.Blanking~", "YesNo", "BlankProp"},
      {"Root.Styles.Balloon.Default.Text.Blanking", "No", "No"},
      {"Root.Styles.Table.Default>", "Cells,AnchorPoint,OrientationReference,Angle,Blanking,Leader",
       "CellStyles,AnchorPoint,OrientationReference,Angle,Leader,Blanking,HorizontalMargin,VerticalMargin"},
      {"Root.Styles.Table.Default.Blanking", "Yes", "AreaFill"},
      {"Root.Styles.Table.Default.CellStyles.WholeTable.HorizontalMargin", kAbsent, kAbsent},
      {"Root.Styles.CoordinateDimension.Default.DisplayUnit", "Yes", kAbsent},
      {"Root.Styles.CoordinateDimension.Default.ValueDisplayFormat.Name", kAbsent, "NUM.DIMM", IJ},
      {"Root.Styles.CoordinateDimension.Default.ValueDisplayFormat.Name", kAbsent, "FEET-INC", AA},
      {"Root.Annotation.Roughness.LeaderAnchorAccordingToStandard", kAbsent, "Yes", ALL, WITH},
      {"Root.Annotation.Roughness.LeaderAnchorAccordingToStandard", kAbsent, "No", ALL, WITHOUT},
      {"Root.Styles.BomStyle.Default>", kAbsent,
       "Type,NoValueSymbol,NoMaterialLabel,ItemNumberLabelType,TableStyle,Properties"},
      {"Root.Styles.BomStyle.Default.Properties/", kAbsent, "5"},
      {"Root.General.SheetColors.View.Color", "51 51 102", "0 39 64", ALL, WITH},
      {"Root.General.SheetColors.Detail.Color", "255 255 255", "0 39 64", ALL, WITH},
      {"Root.General.SheetColors.View.Color", "51 51 102", "51 51 102", ALL, WITHOUT},
  };
  Check(90, 100, rows, setup);
}

TEST_F(Step, Release20WritesTheVersionAndChangesTheCalloutLookByParentWithTheOption) {
  const Expect rows[] = {
      {"Root.Version", kAbsent, "110"},
      {"version", "100", "110"},
      {"Root.ProjectionCallout", nullptr, kAbsent},
      {"Root.Styles.ProjectionCallout.Default.Arrows>", "Length,Head", "Length,Head,Thickness,Position"},
      {"Root.Styles.ProjectionCallout.Default.Type", nullptr, "Lines, corners and arrows", ALL, WITHOUT},
      {"Root.Styles.ProjectionCallout.Default.Type", nullptr, "Corners ans arrows", AA, WITH},
      {"Root.Styles.ProjectionCallout.Default.Type", nullptr, "Only one arrow", IJ, WITH},
      {"Root.Styles.ProjectionCallout.Default.Profile.Thickness", nullptr, "4", AA, WITH},
      {"Root.Styles.ProjectionCallout.Default.Profile.Thickness", nullptr, "1", IJ},
      {"Root.Styles.SectionCallout.Default.Arrows.Head.Angle", nullptr, "15", ALL, WITH},
      {"Root.Styles.SectionCallout.Default.Arrows.Head.Angle", nullptr, "22.5", ALL, WITHOUT},
      {"Root.Styles.ProjectionCallout.Default.Arrows.Head.Type", nullptr, "Filled arrow", AA | ISO, WITH},
      {"Root.Styles.ProjectionCallout.Default.Arrows.Head.Type", nullptr, "Simple arrow", JIS},
      {"Root.Styles.ProjectionCallout.Default.Corners.Length", nullptr, "0.001", IJ, WITH},
      {"Root.Styles.ProjectionCallout.Default.Corners.Length", nullptr, "5.0", AA},
      {"Root.Styles.SectionCallout.Default.Attachment", "Tail", "Head", JIS, WITH},
      {"Root.Styles.SectionCallout.Default.Attachment", "Tail", "Tail", AA},
      {"Root.Styles.DetailCallout.Default.Arrows.Head.Type", nullptr, "Simple arrow", JIS, WITH},
      {"Root.Styles.DetailCallout.Default.Arrows.Head.Type", nullptr, "Filled arrow", AA | ISO, WITH},
      {"Root.Styles.DetailCallout.Default.Arrows.Head.Type", nullptr, "Closed arrow", ALL, WITHOUT},
  };
  Check(100, 110, rows);
}

// An edited section callout stops the changes of the option at the first value that differs, for
// ANSI and ASME, whose changes look at it; those made before it stay. ISO and JIS never look at it.
TEST_F(Step, Release20StopsTheCalloutChangesAtTheFirstEditedValue) {
  const std::vector<std::string> setup = {"C Root.Styles.SectionCallout.Default.Profile.Thickness:2"};
  const Expect rows[] = {
      {"Root.Styles.ProjectionCallout.Default.Profile.Thickness", "1", "4", AA, WITH},
      {"Root.Styles.SectionCallout.Default.Profile.Thickness", "2", "2"},
      {"Root.Styles.ProjectionCallout.Default.Corners.Thickness", "1", "1", AA},
      {"Root.Styles.DetailCallout.Default.Arrows.Head.Angle", "22.5", "22.5", AA},
      {"Root.Styles.DetailCallout.Default.Arrows.Head.Angle", "22.5", "15", IJ, WITH},
      {"Root.Version", kAbsent, "110"},
  };
  for (const qeltest::Parent& parent : qeltest::kParents)
    for (bool option : {false, true}) {
      r.Clear();
      qeltest::RunStep(parent, option, 100, 110, rows, setup);
      EXPECT_EQ(r.Count(), option && (parent.bit & AA) ? 1 : 0) << parent.name << option;
    }
  r.Clear();
}
