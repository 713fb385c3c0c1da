// The steps from release 9 to release 20, one test each: for every parent and both settings of
// the option, a release 9 standard is brought to the step's start level, the step runs, the tree
// is saved and decoded again, and what the step adds, changes, moves and deletes is read by path.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "ZOLChainTestSupport.h"
#include "ZOLReportCountTest.h"

namespace {

using qeltest::Expect;
using qeltest::kAbsent;

constexpr int ANSI = 1, ASME = 2, ISO = 4, JIS = 8, AA = 3, IJ = 12, ALL = 0;
constexpr int WITHOUT = 1, WITH = 2;

class Step : public ZOLReportCountTest {
protected:
  // Runs the step from..to for each parent and option over a standard of release 9 brought to
  // level from, after the set-up lines, and checks the rows; each run raises `expectedReports`.
  void Check(int from, int to, std::span<const Expect> rows, const std::vector<std::string>& setup = {},
             int expectedReports = 0) {
    for (const qeltest::Parent& parent : qeltest::kParents) {
      std::string withoutOption;
      for (bool option : {false, true}) {
        const std::string run = std::string(parent.name) + (option ? " with" : " without") + " the option";
        r.Clear();
        qeltest::ChainDriver d(qeltest::Release9Lines(parent.name));
        ASSERT_EQ(d.GetVersion(), 1) << run;
        d.Upgrade(1, from, option);
        ASSERT_EQ(d.GetOutcome().levelReached, from) << run;
        qeltest::ApplyLines(d.Tree(), setup);
        ASSERT_EQ(r.Count(), 0) << run << ": " << (r.Count() ? r.Lines()[0] : "");
        std::map<const Expect*, std::string> before;
        for (const Expect& row : rows)
          if (row.before) before[&row] = qeltest::Probe(d.Tree(), row.probe);
        d.Upgrade(from, to, option);
        ASSERT_EQ(d.GetOutcome().stagesRun, 1) << run;
        EXPECT_EQ(r.Count(), expectedReports) << run << ": " << (r.Count() ? r.Lines()[0] : "");
        const std::string saved = d.Saved();
        // Up to release 16 no step looks at the option.
        if (!option) {
          withoutOption = saved;
        } else if (to <= 80) {
          EXPECT_EQ(saved, withoutOption) << run;
        }
        ZOLAnnStandardXMLParser decoded;
        ASSERT_EQ(decoded.DecodeXML(saved, 0), 0) << run;
        for (const Expect& row : rows) {
          if (row.parents && !(row.parents & parent.bit)) continue;
          if ((row.option == WITHOUT && option) || (row.option == WITH && !option)) continue;
          if (row.before) {
            EXPECT_EQ(before[&row], row.before) << run << ", before: " << row.probe;
          }
          EXPECT_EQ(qeltest::Probe(decoded, row.probe), row.after) << run << ": " << row.probe;
        }
      }
    }
    r.Clear();
  }
};

}  // namespace

TEST_F(Step, Release10AddsFramesAnnotationTextAndViewGeneration) {
  const Expect rows[] = {
      {"TypeDef.FrameDef%", kAbsent,
       "Name,Type,Behavior,Length,Height,Radius,Offset,VerticalMargin,HorizontalMargin"},
      {"Root.Annotation^", kAbsent, "3"},
      {"Root.Annotation.Text.LeaderGap", nullptr, "2.0", AA},
      {"Root.Annotation.Text.LeaderGap", nullptr, "0.0", IJ},
      {"Root.View^", kAbsent, "6"},
      {"Root.View.Generation.ThicknessIndex", nullptr, "2"},
      {"Root.Frames^", kAbsent, "7"},
      {"Root.LineThickness^", "5", "8"},
      {"Root.Frames/", nullptr, "20"},
      {"Root.Frames.FrameDef{16}@Name", nullptr, "FixedSupport"},
      {"Root.Frames.FrameDef{7}%", nullptr, "Name,Type,Behavior,Length,Height,Offset"},
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
      {"Enum.RoughnessContact^", nullptr, "42"},
      {"Enum/", nullptr, "47"},
      {"Enum.Frame#", nullptr, "41"},
      {"Enum.Frame[16]", nullptr, "Fixed support"},
      {"Enum.Frame[21]", nullptr, "Rectangle (fixed)"},
      {"Enum.CalloutTypes[2]", nullptr, "Corners ans arrows"},
      {"Enum.RoughnessMode[6]", nullptr, "="},
      {"Enum.DualValueMode[3]", nullptr, "Side-by-side"},
      {"Root.Styles.Sheet.Default.ProjectionMethod", nullptr, "First angle", ISO},
      {"Root.Styles.Sheet.Default.ProjectionMethod", nullptr, "Third angle", AA | JIS},
      {"Root.Styles.Sheet.Default.GlobalScale~", nullptr, "0.0"},
      {"Root.Styles.DistanceLengthDimension.Default.Value.OrientationReference", nullptr, "Screen", AA},
      {"Root.Styles.DistanceLengthDimension.Default.Value.OrientationReference", nullptr, "Dimension line", IJ},
      {"Root.Styles.DistanceLengthDimension.Default.Value.OffsetY", nullptr, "0.0", AA},
      {"Root.Styles.DistanceLengthDimension.Default.Value.OffsetY", nullptr, "0.5", JIS},
      {"Root.Styles.DistanceLengthDimension.Default.Value.OffsetY", nullptr, "2.0", ISO},
      {"Root.Styles.AngleDimension.Default.Symbols.Symbol2.Type", nullptr, "FilledArrow", AA},
      {"Root.Styles.AngleDimension.Default.Symbols.Symbol2.Type", nullptr, "SimpleArrow", IJ},
      {"Root.Styles.DistanceLengthDimension.Default.ExtensionLine>", nullptr,
       "Color,Thickness,SlantAngle,Left,Right,Funnel"},
      {"Root.Styles.AngleDimension.Default.ExtensionLine>", nullptr, "Color,Thickness,SlantAngle,Left,Right"},
      {"Root.Styles.AngleDimension.Default.ValueDisplayFormat.DualValue.Name", nullptr, "NUM,ADMS"},
      {"Root.Styles.RadiusDimension.Default.DimensionLine.TillCenter", nullptr, "No", AA},
      {"Root.Styles.RadiusDimension.Default.DimensionLine.TillCenter", nullptr, "Yes", IJ},
      {"Root.Styles.RadiusDimension.Default.AssociatedTexts.MainValue.Prefix", nullptr, "R"},
      {"Root.Styles.DiameterDimension.Default.OneSymbolDiameter^", nullptr, "12"},
      {"Root.Styles.ChamferDimension.Default.Chamfer.ValueFormat", nullptr, "Length * Length"},
      {"Root.Styles.CoordinateDimension.Default>", nullptr,
       "OrientationReference,Angle,AnchorPoint,Display,Font,Graphic"},
      {"Root.Styles.Text.Default>", nullptr, "Font,Text,Graphic,Leader"},
      {"Root.Styles.Balloon.Default.Font.Color", nullptr, kAbsent},
      {"Root.Styles.Text.Default.Font.Color", nullptr, "0 0 0"},
      {"Root.Styles.Text.Default.Graphic.Linetype", nullptr, "1"},
      {"Root.Styles.Curve.Default.LineType", nullptr, "1"},
      {"Root.Styles.Table.Default>", nullptr, "Cells,AnchorPoint,OrientationReference,Angle,Leader"},
      {"Root.Styles.DatumFeature.Default.Leader.Symbol", nullptr, "None", ANSI},
      {"Root.Styles.DatumFeature.Default.Leader.Symbol", nullptr, "WhiteFilledSquare", ASME | IJ},
      {"Root.Styles.RoughnessSymbol.Default.Contact~", nullptr, "RoughnessContact"},
      {"Root.Styles.ProjectionCallout.Default.Attachment", nullptr, "Head", ISO},
      {"Root.Styles.SectionCallout.Default.Attachment", nullptr, "Tail", AA | JIS},
      {"Root.Styles.SectionCallout.Default.Corners.Thickness", nullptr, "4"},
      {"Root.Styles.DetailCallout.Default.Arrows.Head.Type", nullptr, "Closed arrow"},
      {"Root.Patterns.EditAvailability~", nullptr, "YesNo"},
      {"Root.Patterns>", nullptr, "EditAvailability,AngleList,hatching,dotting,coloring,motif"},
      {"Root.Patterns.AngleList.AngleValue{2}@Angle", nullptr, "-30"},
      {"Root.Patterns.hatching/", nullptr, "15"},
      {"Root.Patterns.hatching.hatchings{9}@pitch1", nullptr, "8"},
      {"Root.Patterns.hatching.hatchings{10}@linetype1", nullptr, kAbsent},
      {"Root.Patterns.hatching.hatchings{13}@linetype2", nullptr, "2"},
      {"Root.Patterns.dotting.dottings{7}%", nullptr, "Name,zig-zag,pitch,color"},
      {"Root.Patterns.coloring.colorings{1}@color", nullptr, kAbsent},
      {"Root.Patterns.coloring.colorings{8}@color", nullptr, "4278190335"},
      {"Root.Patterns.motif.motifs{7}@File name", nullptr, "DrwPatternMotifwood1.bmp"},
      {"TypeDef.motifs%", nullptr, "Name,Scale,Angle,OffsetH,OffsetV"},
      {"TypeDef.hatchings@thickness10", nullptr, "1"},
      {"Root.LineTypes/", nullptr, "64"},
      {"Root.LineTypes.LineType1.Segment#", nullptr, "1"},
      {"Root.LineTypes.LineType1.Segment", nullptr, "0.0"},
      {"Root.LineTypes.LineType5.Segment#", nullptr, "6"},
      {"Root.LineTypes.LineType5.Segment[4]", nullptr, "1.0"},
      {"Root.LineTypes.LineType13.Pattern", nullptr, "74"},
      {"Root.LineTypes.LineType15.Pattern", nullptr, "84"},
      {"Root.LineTypes.LineType16.Segment#", nullptr, "0"},
      {"Root.LineTypes.LineType17.Pattern", nullptr, "213"},
      {"Root.LineTypes.LineType63.Ratio", nullptr, "1"},
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
      {"Enum.Frame[42]", nullptr, "Parallelogram (fixed)"},
      {"Enum.AnchorLine[3]", kAbsent, "Symbol"},
      {"Enum.RoughnessContact", "With specifications", kAbsent},
      {"Enum.AuthorizedMode^", kAbsent, "42"},
      {"Enum.AuthorizedMode[1]", nullptr, "Not Authorized"},
      {"Root.Styles.RoughnessSymbol>", "Default,Custom", "Default"},
      {"Root.Styles.RoughnessSymbol^", "17", "17"},
      {"Root.Styles.RoughnessSymbol.Default>", nullptr, "Values,Text,Graphic,Font,Leader"},
      {"Root.Styles.RoughnessSymbol.Default.Values.SpecificationLine", kAbsent, "No"},
      {"Root.Styles.RoughnessSymbol.Default.Values.AllAround", kAbsent, "Yes"},
      {"Root.Styles.RoughnessSymbol.Default.Values.Max", nullptr, ""},
      {"Root.Styles.RoughnessSymbol.Default.Graphic.Color", "255 0 0", "255 0 0"},
      {"Root.Styles.RoughnessSymbol.Default.Graphic.Linetype", kAbsent, "1"},
      {"Root.Styles.RoughnessSymbol.Default.Font.Size", "5.0", "5.0"},
      {"Root.Styles.RoughnessSymbol.Default.Text.AnchorPoint", nullptr, "Bottom center"},
      {"Root.Styles.RoughnessSymbol.Default.Leader.Delta", nullptr, "5.0"},
      {"Root.Annotation.Roughness.Layout.CutOff", nullptr, "Authorized", JIS},
      {"Root.Annotation.Roughness.Layout.OtherRequirement", nullptr, "Not Authorized", AA | ISO},
      {"Root.Annotation.Roughness.Layout.Max", nullptr, "Authorized"},
      {"Root.Annotation.Roughness>", nullptr, "Layout,LeaderGap,LeaderVertSpace"},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimDisplayArcSymbol", kAbsent, "1", AA},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimDisplayArcSymbol", kAbsent, "2", IJ},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimOffsetArcSymbol", nullptr, "1.270", AA},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimOffsetArcSymbol", nullptr, "0.4", JIS},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimOffsetArcSymbol", nullptr, "1.0", ISO},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimMaxLengthArcSymbol", nullptr, "15.0", JIS},
      {"Root.Dimension.CurvilinearLengthSymbol.STDDimMaxLengthArcSymbol", nullptr, "10.0", ISO},
      {"Root.Dimension.IntersectionPoint.INTPTLineStyle", nullptr, "Default"},
      {"Root.Frames/", "20", "21"},
      {"Root.Frames.FrameDef{21}%", nullptr, "Name,Type,Behavior,Length,Offset,Height"},
      {"Root.Dimension.DIMTolMultiAuto^", kAbsent, "19"},
      {"Root.Styles.Text.Default.Text.Blanking", kAbsent, "Yes"},
      {"Root.Styles.Balloon.Default.Text.Blanking", kAbsent, "Yes"},
      {"Root.Styles.Table.Default.Blanking^", kAbsent, "4"},
      {"Root.General.StandardUpdateMigration", kAbsent, "Yes"},
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
      {"Enum.GenViewsPosMode[1]", kAbsent, "FixedAxis"},
      {"Root.Styles.Sheet.Default.GenViewsPosMode", kAbsent, "FixedCG"},
      {"Root.Styles.Sheet.Default.GenViewsPosMode~", nullptr, "GenViewsPosMode"},
      {"Root.Styles.ChamferDimension.Default.Font.Spacing", kAbsent, "20.0"},
      {"Root.Styles.RadiusDimension.Default.Font>", nullptr,
       "Name,Bold,Italic,Size,Color,Underline,Strikethrough,Overline,Ratio,Spacing"},
      {"Root.Styles.DatumTarget.Default.Graphic>", "Color", "Color,Linetype,Thickness"},
      {"Enum.FinishingMethod[7]", kAbsent, "UnspecifiedU"},
      {"Root.Styles.DatumTarget.Default.Leader.Symbol", kAbsent, "None", ANSI},
      {"Root.Styles.DatumTarget.Default.Leader.Symbol", kAbsent, "WhiteFilledSquare", ASME | IJ},
      {"Root.Styles.CoordinateDimension.Default.Leader.Symbol", kAbsent, "None", ANSI},
      {"Root.Styles.CoordinateDimension.Default.Leader.Symbol", kAbsent, "WhiteFilledSquare", ASME | IJ},
      {"Root.General.DefaultToleranceFormat", "", kAbsent},
      {"Root.General.DefaultNumericalFormatAngle", "NUM.ADMS", kAbsent},
      {"Root.General.DefaultTextFontSize", "3.5", kAbsent},
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
      {"Enum.SheetOrientation[1]", kAbsent, "Landscape"},
      {"TypeDef.Formats@FormatOrientationType", kAbsent, "LandscapeByDefault"},
      {"Root.SheetFormat/", kAbsent, "8", IJ},
      {"Root.SheetFormat/", kAbsent, "9", AA},
      {"Root.SheetFormat.Formats{7}@Name", nullptr, "B5 ISO", ISO},
      {"Root.SheetFormat.Formats{7}@Name", nullptr, "B5 JIS", JIS},
      {"Root.SheetFormat.Formats{7}@Name", nullptr, "J U.S.Standard", AA},
      {"Root.SheetFormat.Formats{7}@Width", nullptr, "1219.20", AA},
      {"Root.SheetFormat.Formats{1}%", nullptr, "Name,Width,Height,FormatOrientationType"},
      {"Root.Styles.Sheet/", "3", "9", IJ},
      {"Root.Styles.Sheet/", "3", "10", AA},
      {"Root.Styles.Sheet.Default", "", kAbsent},
      {"Root.Styles.Sheet.Broken", "", kAbsent},
      {"Root.Styles.Sheet.A4 ISO.ProjectionMethod", kAbsent, "First angle", ISO},
      {"Root.Styles.Sheet.A4 JIS.ProjectionMethod", kAbsent, "Third angle", JIS},
      {"Root.Styles.Sheet.J US Standard.Format", kAbsent, "J U.S.Standard", AA},
      {"Root.Styles.Sheet.Letter>", kAbsent,
       "GlobalScale,ProjectionMethod,GenViewsPosMode,Format,Orientation,DisplayFormat", AA},
      {"Root.Styles.Sheet.Company^", "1", "8", IJ},
      {"Root.Styles.Sheet.Company^", "1", "9", AA},
      {"Root.Styles.Sheet.Company.GlobalScale", "2.0", "2.0"},
      {"Root.Styles.Sheet.Company.GenViewsPosMode", "FixedAxis", "FixedAxis"},
      {"Root.Styles.Sheet.Company.Format", kAbsent, "A0 ISO", ISO},
      {"Root.Styles.Sheet.Company.Format", kAbsent, "A ANSI", AA},
      {"Root.General.SheetColors.View background.Color", kAbsent, "207 207 230"},
      {"Root.General.SheetColors.Detail.Graduated", kAbsent, "No"},
      {"Root.Styles.DimensionsSystem.Default.AlignCumulated~", kAbsent, "TextHAlignment"},
      {"Root.Styles.DimensionsSystem^", kAbsent, "27"},
      {"Root.General.ToleranceValue>", kAbsent,
       "NumericalToleranceValues,AlphanumericalToleranceValues,BiAlphanumericalToleranceValues,"
       "MultipleToleranceValues"},
      {"Root.General.ToleranceValue.NumericalToleranceValues#", nullptr, "31"},
      {"Root.General.ToleranceValue.NumericalToleranceValues[29]", nullptr, ""},
      {"Root.General.ToleranceValue.NumericalToleranceValues[30]", nullptr, "+-0.10"},
      {"Root.General.ToleranceValue.BiAlphanumericalToleranceValues#", nullptr, "31"},
      {"Root.General.ToleranceValue.MultipleToleranceValues[30]", nullptr, "H8()"},
      {"Root.Styles.CoordinateDimension.Default.DisplayUnit", kAbsent, "Yes"},
      {"Root.Styles.CoordinateDimension.Default.Font.Overline", kAbsent, "No"},
      {"Root.Styles.DatumTarget.Default.Font.ApplyScale", kAbsent, "No"},
      {"Root.Styles.Tolerance.Default.Text.Mirroring", kAbsent, "No flip"},
      {"Root.Dimension.CUMLDimLinTail", "1.0", kAbsent},
      {"Root.Styles.DiameterDimension.Default.DimensionLine.TillCenter", kAbsent, "No", AA},
      {"Root.Styles.DiameterDimension.Default.DimensionLine.TillCenter", kAbsent, "Yes", IJ},
      {"Root.Styles.RadiusDimension.Default.DimensionLine.ExtensionFromStandard", kAbsent, "No"},
      {"Root.Styles.DiameterDimension.Default.DimensionLine.ExtensionFromStandard", kAbsent, "Yes"},
      {"Root.Styles.WeldingSymbol.Default.Text.LineSpacingMode", kAbsent, "Bottom to top"},
  };
  Check(50, 60, rows, setup);
}

TEST_F(Step, Release15AddsTheViewsSetAndMovesDeliveredLeadersToAutomatic) {
  const std::vector<std::string> setup = {"C Root.Styles.DatumTarget.Default.Leader.Symbol:Circle"};
  const Expect rows[] = {
      {"Root.ViewsSet.ViewsBox>", kAbsent, "PrimaryView,H,V,N,Position,X,Y,Z,FrontRear,RightLeft,TopBottom"},
      {"Root.ViewsSet.ViewsBox.TopBottom", nullptr, "1000"},
      {"Root.ViewsSet.NamingStrategy", nullptr, "0"},
      {"Root.Styles.Tolerance.Default.Text.ApplyScale", kAbsent, "No"},
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
      {"Root.Styles.Tolerance.Default.Leader.StandardBehavior", kAbsent, "No"},
      {"Root.Styles.Text.Default.Font.Kerning", kAbsent, "No"},
      {"Enum.DimSysAlign[2]", kAbsent, "OppositeReferenceLine"},
      {"Root.Styles.DimensionsSystem.Default.AlignStacked", "Left", "ReferenceLine"},
      {"Root.Styles.DimensionsSystem.Default.AlignStacked~", "TextHAlignment", "DimSysAlign"},
      {"Root.Styles.DimensionsSystem.Default.AlignCumulated", "Center", "Center"},
      {"Root.Styles.DimensionsSystem.Default>", nullptr,
       "OffsetMode,OffsetLinear,OffsetRadial,AlignCumulatedOffset,AlignStackedOffset,AlignAddFunnel,AlignCumulated,"
       "AlignStacked"},
      {"Root.Annotation.Roughness.ExtensionLine.Thickness.Behavior", kAbsent, "Fixed"},
      {"Root.Annotation.Roughness.ExtensionLine>", kAbsent, "Thickness,GapToSurf,LengthSymbol,Overrun"},
  };
  Check(70, 80, rows, setup);
}

TEST_F(Step, Release17AddsEngineeringSymbolsByParentAndTheDetailCalloutColour) {
  const std::vector<std::string> setup = {"C Root.Styles.DetailCallout.Default.Text.Font.Color:10 20 30"};
  const Expect rows[] = {
      {"Root.General.StrokeFontPrintRatio", kAbsent, "0"},
      {"Root.Styles.ChamferDimension.Default.DimensionLine.LeaderLength", kAbsent, "15"},
      {"Root.Styles.DatumFeature.Default.Font.Blanking", kAbsent, "Yes"},
      {"Root.Styles.WeldingSymbol.Default.Text.Blanking", kAbsent, "Yes"},
      {"Root.Styles.Text.Default.Font.Blanking", kAbsent, kAbsent},
      {"TypeDef.EngineeringSymbol@Charcode", kAbsent, "61535"},
      {"Root.EngineeringSymbols/", kAbsent, "41"},
      {"Root.EngineeringSymbols.EngineeringSymbol{1}@Font", nullptr, "SSS4.font"},
      {"Root.EngineeringSymbols.EngineeringSymbol{2}@Font", nullptr, "SYM2.font", IJ},
      {"Root.EngineeringSymbols.EngineeringSymbol{2}@Font", nullptr, "SYM1.font", AA},
      {"Root.EngineeringSymbols.EngineeringSymbol{35}@Font", nullptr, "SYM1.font"},
      {"Root.EngineeringSymbols.EngineeringSymbol{35}@Name", nullptr, "<SLOPE>"},
      {"Root.EngineeringSymbols.EngineeringSymbol{37}@Font", nullptr, "SYM2.font", IJ},
      {"Root.EngineeringSymbols.EngineeringSymbol{41}@Position", nullptr, "41"},
      {"Root.EngineeringSymbols.EngineeringSymbol{41}@Charcode", nullptr, "9418"},
      {"Root.EngineeringSymbols.EngineeringSymbol{2}@Icon16x16", nullptr,
       "AAAGAAYAA8AH4A8wGRgZmBmYGJgM8AfgA8AAYABgAAA=", IJ},
      {"Root.EngineeringSymbols.EngineeringSymbol{2}@Icon16x16", nullptr,
       "AAAIAAQAB8AGIAoQEQgRCBCIEIgIUARgA+AAIAAQAAA=", AA},
      {"Enum.ArrowEndType[19]", kAbsent, "DoubleFilledArrow"},
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
      {"Root.Annotation.BlankBackground.AroundLeader.MarginAroundRef", kAbsent, "0.2"},
      {"Enum.BlankProp[2]", kAbsent, "AreaFillandGeometry"},
      {"Root.Styles.Text.Default.Text.Blanking", "Yes", "AreaFill"},
      {"Root.Styles.Text.Default.Text.Blanking~", "YesNo", "BlankProp"},
      {"Root.Styles.Balloon.Default.Text.Blanking", "No", "No"},
      {"Root.Styles.RoughnessSymbol.Default.Text.Blanking", "Yes", "AreaFill"},
      {"Root.Styles.CoordinateDimension.Default.Font.Blanking", "Yes", "AreaFill"},
      {"Root.Styles.Table.Default>", "Cells,AnchorPoint,OrientationReference,Angle,Blanking,Leader",
       "CellStyles,AnchorPoint,OrientationReference,Angle,Leader,Blanking,HorizontalMargin,VerticalMargin"},
      {"Root.Styles.Table.Default.Blanking", "Yes", "AreaFill"},
      {"Root.Styles.Table.Default.HorizontalMargin", kAbsent, "1.0"},
      {"Root.Styles.Table.Default.CellStyles.WholeTable.HorizontalMargin", kAbsent, kAbsent},
      {"Root.Styles.Table.Default.CellStyles.WholeTable.Font.Size", kAbsent, "3.5"},
      {"Root.Styles.CoordinateDimension.Default.DisplayUnit", "Yes", kAbsent},
      {"Root.Styles.CoordinateDimension.Default.ValueDisplayFormat.Name", kAbsent, "NUM.DIMM", IJ},
      {"Root.Styles.CoordinateDimension.Default.ValueDisplayFormat.Name", kAbsent, "FEET-INC", AA},
      {"Root.Annotation.Roughness.LeaderAnchorAccordingToStandard", kAbsent, "Yes", ALL, WITH},
      {"Root.Annotation.Roughness.LeaderAnchorAccordingToStandard", kAbsent, "No", ALL, WITHOUT},
      {"TypeDef.BomProperties@Title", kAbsent, "<Automatic Naming>"},
      {"Root.Styles.BomStyle.Default>", kAbsent,
       "Type,NoValueSymbol,NoMaterialLabel,ItemNumberLabelType,TableStyle,Properties"},
      {"Root.Styles.BomStyle.Default.Properties/", kAbsent, "5"},
      {"Root.Styles.BomStyle.Default.Properties.BomProperties{4}%", kAbsent, "Name,Title,Width,Index"},
      {"Root.Styles.BomStyle.Default.Properties.BomProperties{4}@Name", kAbsent, "Nomenclature"},
      {"Root.Styles.BomStyle.Default.Properties.BomProperties{4}@Width", kAbsent, "59.7"},
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
      {"Root.Styles.SectionCallout.Default.Arrows.Thickness", kAbsent, "1", IJ},
      {"Root.Styles.SectionCallout.Default.Arrows.Thickness", kAbsent, "4", AA},
      {"Root.Styles.ProjectionCallout.Default.Arrows.Position", kAbsent, "50", IJ},
      {"Root.Styles.ProjectionCallout.Default.Arrows.Position", kAbsent, "0", AA},
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
  for (const qeltest::Parent& parent : qeltest::kParents) {
    for (bool option : {false, true}) {
      r.Clear();
      qeltest::ChainDriver d(qeltest::Release9Lines(parent.name));
      d.Upgrade(1, 100, option);
      qeltest::ApplyLines(d.Tree(), setup);
      d.Upgrade(100, 110, option);
      const bool stops = option && (parent.bit & AA);
      EXPECT_EQ(r.Count(), stops ? 1 : 0) << parent.name << option;
      for (const Expect& row : rows) {
        if (row.parents && !(row.parents & parent.bit)) continue;
        if ((row.option == WITHOUT && option) || (row.option == WITH && !option)) continue;
        EXPECT_EQ(qeltest::Probe(d.Tree(), row.probe), row.after) << parent.name << option << ": " << row.probe;
      }
    }
  }
  r.Clear();
}
