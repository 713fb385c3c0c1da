// The steps from release 9 to release 20: the inline stages of releases 10 to 14 and the
// migrations of releases 15 to 20. Each step is a table of edits in the order the release made
// them, with code only where a step reads the tree and decides.
#include <string>
#include <string_view>
#include <vector>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLRefCounted.h"
#include "ZOLSysLog.h"
#include "upgrade/migration/ZOLDrwStyleBuilders.h"

namespace {

using Op = ZOLDrwEditOp;
constexpr int AA = kZOLDrwAnsiAsme;
constexpr int ISO = 4;
constexpr int JIS = 8;

// The node at a path, without a new reference while the tree holds it; or null.
ZOLAnnStandardXMLNode* Find(ZOLAnnStandardXMLParser* parser, const std::string& path) {
  ZOLRef<ZOLAnnStandardXMLNode> node = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(parser->GetNodeWithPath(path));
  return node.get();
}

// The names of the styles of a family, taken before an edit moves them.
std::vector<std::string> StyleNames(ZOLAnnStandardXMLParser* parser, const std::string& family) {
  std::vector<std::string> names;
  if (ZOLAnnStandardXMLNode* node = Find(parser, family))
    for (const ZOLAnnStandardXMLNode* style : node->SubNodes()) names.push_back(style->Name().str());
  return names;
}

std::string Text(ZOLAnnStandardXMLParser* parser, const std::string& path) {
  return parser->GetValueWithPath(path).str();
}

// ---------------------------------------------------------------------------------------------
// Release 10.

constexpr Op kR10Annotation[] = {
    {Op::AddNode, "Root:Annotation:4"},
    {Op::AddNode, "Root.Annotation:Text:0"},
    {Op::AddValue, "Root.Annotation.Text:LeaderGap:float:2.0:0", 1, AA},
    {Op::AddValue, "Root.Annotation.Text:LeaderGap:float:0.0:0", 1, kZOLDrwAllButAnsiAsme},
    {Op::AddValue, "Root.Annotation.Text:LeaderVertSpace:float:0.0:0"},
    {Op::AddNode, "Root:View:7"},
    {Op::AddNode, "Root.View:Generation:0"},
    {Op::AddValue, "Root.View.Generation:ThicknessIndex:int:2:0"},
};

// ISO, and any parent the release did not know, keep their offset.
constexpr Op kR10Offsets[] = {
    {Op::ChangeValue, "Root.Dimension.CUMLTxtDecalY:0.5", 1, JIS},
    {Op::ChangeValue, "Root.Dimension.CUMLTxtDecalY:0", 1, AA},
};

// ---------------------------------------------------------------------------------------------
// Release 11.

constexpr Op kR11Thread[] = {
    {Op::AddNode, "Root.DressUp:Thread:1"},
    {Op::AddValue, "Root.DressUp.Thread:ThreadRepresentation:enum.ThreadRep:Arc circle:0", 1, ISO},
    {Op::AddValue, "Root.DressUp.Thread:ThreadRepresentation:enum.ThreadRep:Circle:0", 1, kZOLDrwAllButIso},
    {Op::ChangeValue, "Root.Dimension.CUMLTxtDecalY:5", 1, ISO},
    {Op::AddValue, "Root.View.Generation:MaterialCutPattern:enum.StandardMaterial:Material:0"},
};

// ---------------------------------------------------------------------------------------------
// Release 12.

constexpr Op kR12Enums[] = {
    {Op::AddValue, "Enum.Frame::string:Parallelogram:22"},
    {Op::AddValue, "Enum.Frame::string:Parallelogram (fixed):0"},
    {Op::AddValue, "Enum.AnchorLine::string:Symbol:0"},
    {Op::DeleteNode, "Enum.RoughnessContact"},
    {Op::AddNode, "Enum:AuthorizedMode:43"},
    {Op::AddValue, "Enum.AuthorizedMode::string:Authorized:0"},
    {Op::AddValue, "Enum.AuthorizedMode::string:Not Authorized:0"},
};

constexpr ZOLDrwBranchRow kR12Roughness[] = {
    {"", "Values", nullptr, nullptr},
    {"Values", "Type", "enum.RoughnessType", "Basic"},
    {"Values", "Mode", "enum.RoughnessMode", "None"},
    {"Values", "SpecificationLine", "enum.YesNo", "Yes"},
    {"Values", "AllAround", "enum.YesNo", "No"},
    {"Values", "FirstRequirement", "string", ""},
    {"Values", "SecondRequirement", "string", ""},
    {"Values", "OtherRequirement", "string", ""},
    {"Values", "ProductionMethod", "string", ""},
    {"Values", "MachiningAllowance", "string", ""},
    {"Values", "CutOff", "string", ""},
    {"Values", "Max", "string", ""},
    {"Values", "Min", "string", ""},
    {"", "Text", nullptr, nullptr},
    {"Text", "AnchorPoint", "enum.AnchorPoint", "Bottom center"},
    {"Text", "AnchorLine", "enum.AnchorLine", "Symbol"},
    {"Text", "Blanking", "enum.YesNo", "Yes"},
    {"", "Graphic", nullptr, nullptr},
    {"Graphic", "Color", "color", "0 0 0"},
    {"Graphic", "Linetype", "int", "1"},
    {"Graphic", "Thickness", "int", "1"},
    {"", "Font", nullptr, nullptr},
    {"Font", "Name", "string", ""},
    {"Font", "Bold", "enum.YesNo", "No"},
    {"Font", "Italic", "enum.YesNo", "No"},
    {"Font", "Size", "float", "3.5"},
    {"Font", "Ratio", "float", "100.0"},
    {"Font", "Spacing", "float", "0.0"},
    {"", "Leader", nullptr, nullptr},
    {"Leader", "Symbol", "enum.ArrowEndType", "Automatic"},
    {"Leader", "Delta", "float", "5.0"},
    {"Leader", "AnchorPoint", "int", "1"},
};

constexpr Op kR12Additions[] = {
    {Op::AddNode, "Root.Annotation:Roughness:0"},
    {Op::AddNode, "Root.Annotation.Roughness:Layout:0"},
    {Op::AddValue, "Root.Annotation.Roughness.Layout:CutOff:enum.AuthorizedMode:Authorized:0", 1, JIS},
    {Op::AddValue, "Root.Annotation.Roughness.Layout:CutOff:enum.AuthorizedMode:Not Authorized:0", 1, kZOLDrwAllButJis},
    {Op::AddValue, "Root.Annotation.Roughness.Layout:OtherRequirement:enum.AuthorizedMode:Authorized:0", 1, JIS},
    {Op::AddValue, "Root.Annotation.Roughness.Layout:OtherRequirement:enum.AuthorizedMode:Not Authorized:0", 1,
     kZOLDrwAllButJis},
    {Op::AddValue, "Root.Annotation.Roughness.Layout:Min:enum.AuthorizedMode:Authorized:0"},
    {Op::AddValue, "Root.Annotation.Roughness.Layout:Max:enum.AuthorizedMode:Authorized:0"},
    {Op::AddValue, "Root.Annotation.Roughness:LeaderGap:float:0.5:0"},
    {Op::AddValue, "Root.Annotation.Roughness:LeaderVertSpace:float:0:0"},

    {Op::AddNode, "Root.Dimension:CurvilinearLengthSymbol:0"},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimDisplayArcSymbol:int:1:0", 1, AA},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimDisplayArcSymbol:int:2:0", 1, kZOLDrwAllButAnsiAsme},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimHeightArcSymbol:float:1.270:0", 1, AA},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimHeightArcSymbol:float:1.0:0", 1, kZOLDrwAllButAnsiAsme},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimOffsetArcSymbol:float:1.270:0", 1, AA},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimOffsetArcSymbol:float:0.4:0", 1, JIS},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimOffsetArcSymbol:float:1.0:0", 1,
     ISO | kZOLDrwOtherParent},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimUnderlineModeArcSymbol:int:0:0"},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimLengthArcSymbol:float:3.048:0", 1, AA},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimLengthArcSymbol:float:5.0:0", 1, JIS},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimLengthArcSymbol:float:3.0:0", 1,
     ISO | kZOLDrwOtherParent},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimMinLengthArcSymbol:float:6.096:0", 1, AA},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimMinLengthArcSymbol:float:5.0:0", 1, JIS},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimMinLengthArcSymbol:float:3.0:0", 1,
     ISO | kZOLDrwOtherParent},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimMaxLengthArcSymbol:float:8.890:0", 1, AA},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimMaxLengthArcSymbol:float:15.0:0", 1, JIS},
    {Op::AddValue, "Root.Dimension.CurvilinearLengthSymbol:STDDimMaxLengthArcSymbol:float:10.0:0", 1,
     ISO | kZOLDrwOtherParent},

    {Op::AddNode, "Root.Dimension:IntersectionPoint:0"},
    {Op::AddValue, "Root.Dimension.IntersectionPoint:INTPTPrintPoint:enum.YesNo:No:0"},
    {Op::AddValue, "Root.Dimension.IntersectionPoint:INTPTPointStyle:string:Default:0"},
    {Op::AddValue, "Root.Dimension.IntersectionPoint:INTPTShowLine:enum.YesNo:No:0"},
    {Op::AddValue, "Root.Dimension.IntersectionPoint:INTPTPrintLine:enum.YesNo:No:0"},
    {Op::AddValue, "Root.Dimension.IntersectionPoint:INTPTLineStyle:string:Default:0"},

    // Offset stands before Height in this row, unlike the rows of release 10.
    {Op::AddTypeValNode, "Root.Frames:FrameDef:0"},
    {Op::AddValue, "Root.Frames.FrameDef:Name:string:Parallelogram:0", 0},
    {Op::AddValue, "Root.Frames.FrameDef:Type:int:21:0", 0},
    {Op::AddValue, "Root.Frames.FrameDef:Behavior:int:1:0", 0},
    {Op::AddValue, "Root.Frames.FrameDef:Length:float:15.0:0", 0},
    {Op::AddValue, "Root.Frames.FrameDef:Offset:float:5.0:0", 0},
    {Op::AddValue, "Root.Frames.FrameDef:Height:float:15.0:0", 0},

    {Op::AddValue, "Root.Dimension:DIMTolMultiAuto:int:1:20"},
    {Op::AddValueInAllStyles, "Root.Styles.Text.*.Text:Blanking:enum.YesNo:Yes:0"},
    {Op::AddValueInAllStyles, "Root.Styles.Balloon.*.Text:Blanking:enum.YesNo:Yes:0"},
    {Op::AddValueInAllStyles, "Root.Styles.Tolerance.*.Text:Blanking:enum.YesNo:Yes:0"},
    {Op::AddValueInAllStyles, "Root.Styles.Table.*:Blanking:enum.YesNo:Yes:5"},
    {Op::AddValue, "Root.General:StandardUpdateMigration:enum.YesNo:Yes:0"},
};

// Reads what a user may have set in the roughness style, rebuilds the family with only its
// Default, and puts the values read back; the other styles of the family are lost.
void RebuildRoughnessStyle(ZOLAnnStandardXMLParser* parser, int bit) {
  const std::string old = "Root.Styles.RoughnessSymbol.Default.";
  const std::string type = Text(parser, old + "Type"), mode = Text(parser, old + "Mode"),
                    contact = Text(parser, old + "Contact"), anchor = Text(parser, old + "AnchorPoint"),
                    color = Text(parser, old + "Graphic.Color"), fontName = Text(parser, old + "Font.Name"),
                    bold = Text(parser, old + "Font.Bold"), italic = Text(parser, old + "Font.Italic"),
                    size = Text(parser, old + "Font.Size");
  const bool withSpecifications = contact == "With specifications" || contact == "With specifications (All surfaces)";
  const bool oneSurface = contact == "With specifications" || contact == "Without specifications";
  parser->DeleteNodeWithPath("Root.Styles.RoughnessSymbol");
  parser->AddNodeWithPath("Root.Styles:RoughnessSymbol:18", 0);
  parser->AddNodeWithPath("Root.Styles.RoughnessSymbol:Default:0", 0);
  ZOLDrwAddBranchRows(parser, bit, "Root.Styles.RoughnessSymbol.Default", kR12Roughness);
  const std::pair<const char*, std::string> changes[] = {
      {"Values.Type", type},
      {"Values.Mode", mode},
      {"Values.SpecificationLine", withSpecifications ? "Yes" : "No"},
      {"Values.AllAround", oneSurface ? "No" : "Yes"},
      {"Text.AnchorPoint", anchor},
      {"Graphic.Color", color},
      {"Font.Name", fontName},
      {"Font.Bold", bold},
      {"Font.Italic", italic},
      {"Font.Size", size},
  };
  for (const auto& [path, text] : changes) parser->ChangeValueWithPath(old + path + ":" + text);
}

// ---------------------------------------------------------------------------------------------
// Release 13.

constexpr Op kR13[] = {
    {Op::AddNode, "Enum:GenViewsPosMode:0"},
    {Op::AddValue, "Enum.GenViewsPosMode::string:FixedCG:0"},
    {Op::AddValue, "Enum.GenViewsPosMode::string:FixedAxis:0"},
    {Op::AddValueInAllStyles, "Root.Styles.Sheet.*:GenViewsPosMode:enum.GenViewsPosMode:FixedCG:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DistanceLengthDimension.*.Font:Ratio:float:100.0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DistanceLengthDimension.*.Font:Spacing:float:20.0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.RadiusDimension.*.Font:Ratio:float:100.0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.RadiusDimension.*.Font:Spacing:float:20.0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DiameterDimension.*.Font:Ratio:float:100.0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DiameterDimension.*.Font:Spacing:float:20.0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.AngleDimension.*.Font:Ratio:float:100.0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.AngleDimension.*.Font:Spacing:float:20.0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.ChamferDimension.*.Font:Ratio:float:100.0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.ChamferDimension.*.Font:Spacing:float:20.0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DatumFeature.*.Graphic:Linetype:int:1:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DatumFeature.*.Graphic:Thickness:int:1:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DatumTarget.*.Graphic:Linetype:int:1:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DatumTarget.*.Graphic:Thickness:int:1:0"},
    {Op::AddValue, "Enum.FinishingMethod::string:UnspecifiedU:0"},
    {Op::AddNodeInAllStyles, "Root.Styles.DatumTarget.*:Leader:0", 0},
    {Op::AddValueInAllStyles, "Root.Styles.DatumTarget.*.Leader:Symbol:enum.ArrowEndType:None:0", 1, 1},
    // A parent the release did not know was reported and took the symbol of ASME, ISO and JIS.
    {Op::AddValueInAllStyles, "Root.Styles.DatumTarget.*.Leader:Symbol:enum.ArrowEndType:WhiteFilledSquare:0", 1,
     kZOLDrwAllButAnsi},
    {Op::AddNodeInAllStyles, "Root.Styles.CoordinateDimension.*:Leader:0", 0},
    {Op::AddValueInAllStyles, "Root.Styles.CoordinateDimension.*.Leader:Symbol:enum.ArrowEndType:None:0", 1, 1},
    {Op::AddValueInAllStyles,
     "Root.Styles.CoordinateDimension.*.Leader:Symbol:enum.ArrowEndType:WhiteFilledSquare:0", 1, kZOLDrwAllButAnsi},
    {Op::DeleteNode, "Root.General.DefaultToleranceFormat"},
    {Op::DeleteNode, "Root.General.DefaultNumericalFormatLength"},
    {Op::DeleteNode, "Root.General.DefaultNumericalFormatAngle"},
    {Op::DeleteNode, "Root.General.DefaultTextFont"},
    {Op::DeleteNode, "Root.General.DefaultTextFontSize"},
};

// ---------------------------------------------------------------------------------------------
// Release 14.

constexpr Op kR14Enums[] = {
    {Op::AddNode, "Enum:FormatOrientationType:0"},
    {Op::AddValue, "Enum.FormatOrientationType::string:PortraitByDefault:0"},
    {Op::AddValue, "Enum.FormatOrientationType::string:LandscapeByDefault:0"},
    {Op::AddValue, "Enum.FormatOrientationType::string:PortraitOnly:0"},
    {Op::AddValue, "Enum.FormatOrientationType::string:LandscapeOnly:0"},
    {Op::AddNode, "Enum:SheetOrientation:0"},
    {Op::AddValue, "Enum.SheetOrientation::string:Portrait:0"},
    {Op::AddValue, "Enum.SheetOrientation::string:Landscape:0"},
};

constexpr Op kR14SheetColors[] = {
    {Op::AddNode, "Root.General:SheetColors:0"},
    {Op::AddNode, "Root.General.SheetColors:View:0"},
    {Op::AddValue, "Root.General.SheetColors.View:Color:color:255 255 255:0"},
    {Op::AddValue, "Root.General.SheetColors.View:Graduated:enum.YesNo:No:0"},
    {Op::AddNode, "Root.General.SheetColors:View background:0"},
    {Op::AddValue, "Root.General.SheetColors.View background:Color:color:207 207 230:0"},
    {Op::AddValue, "Root.General.SheetColors.View background:Graduated:enum.YesNo:No:0"},
    {Op::AddNode, "Root.General.SheetColors:Detail:0"},
    {Op::AddValue, "Root.General.SheetColors.Detail:Color:color:255 255 255:0"},
    {Op::AddValue, "Root.General.SheetColors.Detail:Graduated:enum.YesNo:No:0"},
    {Op::AddNode, "Root.General.SheetColors:Detail background:0"},
    {Op::AddValue, "Root.General.SheetColors.Detail background:Color:color:207 207 230:0"},
    {Op::AddValue, "Root.General.SheetColors.Detail background:Graduated:enum.YesNo:No:0"},
};

constexpr Op kR14DimensionsSystem[] = {
    {Op::AddNode, "Enum:OffsetMode:0"},
    {Op::AddValue, "Enum.OffsetMode::string:Constant:0"},
    {Op::AddValue, "Enum.OffsetMode::string:Semi:0"},
    {Op::AddValue, "Enum.OffsetMode::string:Free:0"},
    {Op::AddNode, "Root.Styles:DimensionsSystem:0"},
    {Op::AddNode, "Root.Styles.DimensionsSystem:Default:0"},
    {Op::AddValue, "Root.Styles.DimensionsSystem.Default:OffsetMode:enum.OffsetMode:Constant:0"},
    {Op::AddValue, "Root.Styles.DimensionsSystem.Default:OffsetLinear:float:10.0:0"},
    {Op::AddValue, "Root.Styles.DimensionsSystem.Default:OffsetRadial:float:15.0:0"},
    {Op::AddValue, "Root.Styles.DimensionsSystem.Default:AlignCumulated:enum.TextHAlignment:Center:0"},
    {Op::AddValue, "Root.Styles.DimensionsSystem.Default:AlignCumulatedOffset:float:0.0:0"},
    {Op::AddValue, "Root.Styles.DimensionsSystem.Default:AlignStacked:enum.TextHAlignment:Center:0"},
    {Op::AddValue, "Root.Styles.DimensionsSystem.Default:AlignStackedOffset:float:0.0:0"},
    {Op::AddValue, "Root.Styles.DimensionsSystem.Default:AlignAddFunnel:enum.YesNo:Yes:0"},
};

// A list of tolerance values: the values, empty entries up to its fixed size, and the entry that is
// preselected, last.
struct ToleranceList {
  const char* name;
  std::vector<const char*> values;
  int empty;
  const char* preselected;
};

const ToleranceList kR14ToleranceValues[] = {
    {"NumericalToleranceValues", {"+-0.05", "+-0.10", "+-0.15", "+-0.20", "+-0.25", "+-0.50"}, 24, "+-0.10"},
    {"AlphanumericalToleranceValues", {"H6", "H7", "H8", "H9", "JS", "f7", "g6", "h6", "h7", "js"}, 20, "H8"},
    {"BiAlphanumericalToleranceValues", {"H7/f7", "H8/f7", "H7/p6", "P7/h6"}, 26, "H8/f7"},
    {"MultipleToleranceValues", {"H6()", "H7()", "H8()", "H9()", "JS()", "f7()", "g6()", "h6()", "h7()", "js()"}, 20,
     "H8()"},
};

constexpr Op kR14StyleValues[] = {
    {Op::AddValueInAllStyles, "Root.Styles.DistanceLengthDimension.*.Font:ApplyScale:enum.YesNo:No:0,"},
    {Op::AddValueInAllStyles, "Root.Styles.AngleDimension.*.Font:ApplyScale:enum.YesNo:No:0,"},
    {Op::AddValueInAllStyles, "Root.Styles.RadiusDimension.*.Font:ApplyScale:enum.YesNo:No:0,"},
    {Op::AddValueInAllStyles, "Root.Styles.DiameterDimension.*.Font:ApplyScale:enum.YesNo:No:0,"},
    {Op::AddValueInAllStyles, "Root.Styles.ChamferDimension.*.Font:ApplyScale:enum.YesNo:No:0,"},
    {Op::AddValueInAllStyles, "Root.Styles.CoordinateDimension.*.Font:ApplyScale:enum.YesNo:No:0,"},
    {Op::AddValueInAllStyles, "Root.Styles.DatumFeature.*.Font:ApplyScale:enum.YesNo:No:0,"},
    {Op::AddValueInAllStyles, "Root.Styles.DatumTarget.*.Font:ApplyScale:enum.YesNo:No:0,"},
    {Op::AddValueInAllStyles, "Root.Styles.CoordinateDimension.*:DisplayUnit:enum.YesNo:Yes:0,"},
    {Op::AddValueInAllStyles, "Root.Styles.Tolerance.*.Text:Mirroring:enum.Mirroring:No flip:0"},
    {Op::AddValueInAllStyles, "Root.Styles.CoordinateDimension.*.Font:Underline:enum.YesNo:No:0"},
    {Op::AddValueInAllStyles, "Root.Styles.CoordinateDimension.*.Font:Strikethrough:enum.YesNo:No:0"},
    {Op::AddValueInAllStyles, "Root.Styles.CoordinateDimension.*.Font:Overline:enum.YesNo:No:0"},
    {Op::DeleteNode, "Root.Dimension.CUMLDimLinTail"},
    {Op::AddValueInAllStyles, "Root.Styles.DiameterDimension.*.DimensionLine:TillCenter:enum.YesNo:No:0", 1, AA},
    {Op::AddValueInAllStyles, "Root.Styles.DiameterDimension.*.DimensionLine:TillCenter:enum.YesNo:Yes:0", 1,
     kZOLDrwAllButAnsiAsme},
    {Op::AddValueInAllStyles, "Root.Styles.RadiusDimension.*.DimensionLine:ExtensionFromStandard:enum.YesNo:No:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DiameterDimension.*.DimensionLine:ExtensionFromStandard:enum.YesNo:Yes:0"},
    {Op::AddValueInAllStyles, "Root.Styles.WeldingSymbol.*.Text:LineSpacing:float:0.0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.WeldingSymbol.*.Text:LineSpacingMode:enum.LineSpacingMode:Bottom to top:0"},
};

struct SheetFormat {
  const char* name;
  const char* width;
  const char* height;
  const char* style;  // the style's name where the format's name cannot be one
};

constexpr SheetFormat kIsoFormats[] = {
    {"A0 ISO", "1189", "841", nullptr}, {"A1 ISO", "841", "594", nullptr}, {"A2 ISO", "594", "420", nullptr},
    {"A3 ISO", "420", "297", nullptr},  {"A4 ISO", "297", "210", nullptr}, {"B4 ISO", "354", "250", nullptr},
    {"B5 ISO", "257", "182", nullptr},  {"C5 ISO", "229", "162", nullptr},
};
constexpr SheetFormat kJisFormats[] = {
    {"A0 JIS", "1189", "841", nullptr}, {"A1 JIS", "841", "594", nullptr}, {"A2 JIS", "594", "420", nullptr},
    {"A3 JIS", "420", "297", nullptr},  {"A4 JIS", "297", "210", nullptr}, {"B4 JIS", "354", "250", nullptr},
    {"B5 JIS", "257", "182", nullptr},  {"C5 JIS", "229", "162", nullptr},
};
// A dotted name is no path step: the style of "J U.S.Standard" drops the dots.
constexpr SheetFormat kAnsiFormats[] = {
    {"A ANSI", "279.40", "215.90", nullptr},
    {"B ANSI", "431.80", "279.40", nullptr},
    {"C ANSI", "558.80", "431.80", nullptr},
    {"D ANSI", "863.60", "558.80", nullptr},
    {"E ANSI", "1117.60", "863.60", nullptr},
    {"F ANSI", "1016.00", "711.20", nullptr},
    {"J U.S.Standard", "1219.20", "863.60", "J US Standard"},
    {"Letter", "279.40", "215.90", nullptr},
    {"Legal", "355.60", "215.90", nullptr},
};

std::span<const SheetFormat> FormatsOf(const ZOLUnicodeString& parent) {
  if (parent == "ISO") return kIsoFormats;
  if (parent == "JIS") return kJisFormats;
  if (parent == "ANSI" || parent == "ASME") return kAnsiFormats;
  return {};
}

constexpr Op kR14FormatsType[] = {
    {Op::AddNode, "TypeDef:Formats:0"},
    {Op::AddValue, "TypeDef.Formats:Name:string:XXX:0"},
    {Op::AddValue, "TypeDef.Formats:Width:float:0:0"},
    {Op::AddValue, "TypeDef.Formats:Height:float:0:0"},
    {Op::AddValue, "TypeDef.Formats:FormatOrientationType:enum.FormatOrientationType:LandscapeByDefault:0"},
    {Op::AddNode, "Root:SheetFormat:0"},
};

void AddSheetStyle(ZOLAnnStandardXMLParser& parser, const std::string& name, const std::string& scale,
                   const std::string& projection, const std::string& positions, const std::string& format) {
  const std::string at = "Root.Styles.Sheet." + name + ":";
  parser.AddNodeWithPath("Root.Styles.Sheet:" + name + ":0", 0);
  parser.AddValueWithPath(at + "GlobalScale:float.m.0.0:" + scale + ":0", 1);
  parser.AddValueWithPath(at + "ProjectionMethod:enum.ProjectionMethod:" + projection + ":0", 1);
  parser.AddValueWithPath(at + "GenViewsPosMode:enum.GenViewsPosMode:" + positions + ":0", 1);
  parser.AddValueWithPath(at + "Format:string:" + format + ":0", 1);
  parser.AddValueWithPath(at + "Orientation:enum.SheetOrientation:Landscape:0", 1);
  parser.AddValueWithPath(at + "DisplayFormat:enum.YesNo:Yes:0", 1);
}

// ---------------------------------------------------------------------------------------------
// Release 15.

constexpr Op kR15[] = {
    {Op::AddNode, "Root:ViewsSet:0"},
    {Op::AddNode, "Root.ViewsSet:ViewsBox:0"},
    {Op::AddValue, "Root.ViewsSet.ViewsBox:PrimaryView:int:0:0"},
    {Op::AddValue, "Root.ViewsSet.ViewsBox:H:int:2:0"},
    {Op::AddValue, "Root.ViewsSet.ViewsBox:V:int:4:0"},
    {Op::AddValue, "Root.ViewsSet.ViewsBox:N:int:0:0"},
    {Op::AddValue, "Root.ViewsSet.ViewsBox:Position:int:0:0"},
    {Op::AddValue, "Root.ViewsSet.ViewsBox:X:float:0:0"},
    {Op::AddValue, "Root.ViewsSet.ViewsBox:Y:float:0:0"},
    {Op::AddValue, "Root.ViewsSet.ViewsBox:Z:float:0:0"},
    {Op::AddValue, "Root.ViewsSet.ViewsBox:FrontRear:float:1000:0"},
    {Op::AddValue, "Root.ViewsSet.ViewsBox:RightLeft:float:1000:0"},
    {Op::AddValue, "Root.ViewsSet.ViewsBox:TopBottom:float:1000:0"},
    {Op::AddValue, "Root.ViewsSet:NamingStrategy:int:0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.Tolerance.*.Text:ApplyScale:enum.YesNo:No:0"},
    // The old text stands in the path: only a symbol that is still WhiteFilledSquare changes.
    {Op::ChangeValue, "Root.Styles.CoordinateDimension.Default.Leader.Symbol.WhiteFilledSquare:Automatic", 1,
     kZOLDrwIsoJis},
    {Op::ChangeValue, "Root.Styles.DatumTarget.Default.Leader.Symbol.WhiteFilledSquare:Automatic", 1, kZOLDrwIsoJis},
};

// ---------------------------------------------------------------------------------------------
// Release 16.

constexpr Op kR16Start[] = {
    {Op::AddValueInAllStyles, "Root.Styles.Tolerance.*.Leader:StandardBehavior:enum.YesNo:No:0"},
    {Op::AddValueInAllStyles, "Root.Styles.Text.*.Font:Kerning:enum.YesNo:No:0"},
    {Op::AddNode, "Enum:DimSysAlign:0"},
    {Op::AddValue, "Enum.DimSysAlign::string:ReferenceLine:0"},
    {Op::AddValue, "Enum.DimSysAlign::string:Center:0"},
    {Op::AddValue, "Enum.DimSysAlign::string:OppositeReferenceLine:0"},
    {Op::AddValue, "Enum.DimSysAlign::string:FromStandard:0"},
};

constexpr Op kR16Roughness[] = {
    {Op::AddNode, "Enum:FixedRough:0"},
    {Op::AddValue, "Enum.FixedRough::string:Fixed:0"},
    {Op::AddValue, "Enum.FixedRough::string:Variable with Symbol:0"},
    {Op::AddNode, "Root.Annotation.Roughness:ExtensionLine:0"},
    {Op::AddNode, "Root.Annotation.Roughness.ExtensionLine:Thickness:0"},
    {Op::AddValue, "Root.Annotation.Roughness.ExtensionLine.Thickness:Behavior:enum.FixedRough:Fixed:0"},
    {Op::AddValue, "Root.Annotation.Roughness.ExtensionLine.Thickness:LineThickness:int:1:0"},
    {Op::AddValue, "Root.Annotation.Roughness.ExtensionLine:GapToSurf:float:1:0"},
    {Op::AddValue, "Root.Annotation.Roughness.ExtensionLine:LengthSymbol:enum.YesNo:No:0"},
    {Op::AddValue, "Root.Annotation.Roughness.ExtensionLine:Overrun:float:1:0"},
};

// ---------------------------------------------------------------------------------------------
// Release 17.

constexpr Op kR17Start[] = {
    {Op::AddValue, "Root.General:StrokeFontPrintRatio:float:0:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DistanceLengthDimension.*.DimensionLine:LeaderLength:float:15:0"},
    {Op::AddValueInAllStyles, "Root.Styles.AngleDimension.*.DimensionLine:LeaderLength:float:15:0"},
    {Op::AddValueInAllStyles, "Root.Styles.RadiusDimension.*.DimensionLine:LeaderLength:float:15:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DiameterDimension.*.DimensionLine:LeaderLength:float:15:0"},
    {Op::AddValueInAllStyles, "Root.Styles.ChamferDimension.*.DimensionLine:LeaderLength:float:15:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DistanceLengthDimension.*.Font:Blanking:enum.YesNo:Yes:0"},
    {Op::AddValueInAllStyles, "Root.Styles.AngleDimension.*.Font:Blanking:enum.YesNo:Yes:0"},
    {Op::AddValueInAllStyles, "Root.Styles.RadiusDimension.*.Font:Blanking:enum.YesNo:Yes:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DiameterDimension.*.Font:Blanking:enum.YesNo:Yes:0"},
    {Op::AddValueInAllStyles, "Root.Styles.ChamferDimension.*.Font:Blanking:enum.YesNo:Yes:0"},
    {Op::AddValueInAllStyles, "Root.Styles.CoordinateDimension.*.Font:Blanking:enum.YesNo:Yes:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DatumFeature.*.Font:Blanking:enum.YesNo:Yes:0"},
    {Op::AddValueInAllStyles, "Root.Styles.DatumTarget.*.Font:Blanking:enum.YesNo:Yes:0"},
    {Op::AddValueInAllStyles, "Root.Styles.WeldingSymbol.*.Text:Blanking:enum.YesNo:Yes:0"},
    {Op::AddNode, "TypeDef:EngineeringSymbol:0"},
    {Op::AddValue, "TypeDef.EngineeringSymbol:Name:string:<XXX>:0"},
    {Op::AddValue, "TypeDef.EngineeringSymbol:Position:int:0:0"},
    {Op::AddValue, "TypeDef.EngineeringSymbol:Font:string:SYM2.font:0"},
    {Op::AddValue, "TypeDef.EngineeringSymbol:Charcode:int:61535:0"},
    {Op::AddValue, "TypeDef.EngineeringSymbol:Icon16x16:string::0"},
    {Op::AddValue, "TypeDef.EngineeringSymbol:Icon22x22:string::0"},
    {Op::AddNode, "Root:EngineeringSymbols:0"},
};

constexpr Op kR17End[] = {
    {Op::AddValue, "Enum.ArrowEndType::string:DoubleFilledArrow:0"},
    {Op::AddNode, "Root.DressUp.Symbols:DoubleFilledArrow:0"},
    {Op::AddValue, "Root.DressUp.Symbols.DoubleFilledArrow:Length:float:2:0", 1, kZOLDrwIsoJis},
    {Op::AddValue, "Root.DressUp.Symbols.DoubleFilledArrow:Length:float:3.2146:0", 1, kZOLDrwAllButIsoJis},
    {Op::AddValue, "Root.DressUp.Symbols.DoubleFilledArrow:Angle:float:30:0", 1, kZOLDrwIsoJis},
    {Op::AddValue, "Root.DressUp.Symbols.DoubleFilledArrow:Angle:float:18:0", 1, kZOLDrwAllButIsoJis},
};


// The font of row n (1-based) in the table of a parent.
const char* SymbolFont17(int row, bool isoOrJis) {
  if (row == 1) return "SSS4.font";
  if (!isoOrJis) return "SYM1.font";
  return row == 35 || row == 36 ? "SYM1.font" : "SYM2.font";
}

// ---------------------------------------------------------------------------------------------
// Release 18.

constexpr Op kR18Start[] = {
    {Op::AddNode, "Root.Annotation:BlankBackground:0"},
    {Op::AddNode, "Root.Annotation.BlankBackground:AroundValue:0"},
    {Op::AddValue, "Root.Annotation.BlankBackground.AroundValue:ExtendToFrame:enum.YesNo:Yes:0"},
    {Op::AddValue, "Root.Annotation.BlankBackground.AroundValue:Margin:float:1.0:0"},
    {Op::AddNode, "Root.Annotation.BlankBackground:AroundLeader:0"},
    {Op::AddValue, "Root.Annotation.BlankBackground.AroundLeader:Activated:enum.YesNo:Yes:0"},
    {Op::AddValue, "Root.Annotation.BlankBackground.AroundLeader:Margin:float:0.5:0"},
    {Op::AddValue, "Root.Annotation.BlankBackground.AroundLeader:MarginAroundRef:float:0.2:0"},
    {Op::AddNode, "Enum:BlankProp:0"},
    {Op::AddValue, "Enum.BlankProp::string:No:0"},
    {Op::AddValue, "Enum.BlankProp::string:AreaFill:0"},
    {Op::AddValue, "Enum.BlankProp::string:AreaFillandGeometry:0"},
};

// Where each family keeps its blanking.
constexpr std::pair<const char*, const char*> kR18Blanking[] = {
    {"DistanceLengthDimension", ".Font.Blanking"}, {"AngleDimension", ".Font.Blanking"},
    {"RadiusDimension", ".Font.Blanking"},         {"DiameterDimension", ".Font.Blanking"},
    {"ChamferDimension", ".Font.Blanking"},        {"CoordinateDimension", ".Font.Blanking"},
    {"Text", ".Text.Blanking"},                    {"Table", ".Blanking"},
    {"DatumFeature", ".Font.Blanking"},            {"DatumTarget", ".Font.Blanking"},
    {"Tolerance", ".Text.Blanking"},               {"Balloon", ".Text.Blanking"},
    {"RoughnessSymbol", ".Text.Blanking"},         {"WeldingSymbol", ".Text.Blanking"},
};

constexpr Op kR18Bom[] = {
    {Op::AddNode, "Enum:BomType:0"},
    {Op::AddValue, "Enum.BomType::string:TopLevel:0"},
    {Op::AddValue, "Enum.BomType::string:Summarized:0"},
    {Op::AddNode, "Enum:BomLabelType:0"},
    {Op::AddValue, "Enum.BomLabelType::string:Number:0"},
    {Op::AddValue, "Enum.BomLabelType::string:Letter:0"},
    {Op::AddNode, "TypeDef:BomProperties:0"},
    {Op::AddValue, "TypeDef.BomProperties:Name:string:XXX:0"},
    {Op::AddValue, "TypeDef.BomProperties:Title:string:<Automatic Naming>:0"},
    {Op::AddValue, "TypeDef.BomProperties:Width:float:0:0"},
    {Op::AddValue, "TypeDef.BomProperties:Index:int:0:0"},
};

const ZOLDrwParseStandardBomProperty kR18BomProperties[] = {
    {"Quantity", "26.3", "1"}, {"PartNumber", "62.7", "2"},  {"Type", "32.4", "3"},
    {"Nomenclature", "59.7", "4"}, {"Revision", "38.4", "5"},
};

// ---------------------------------------------------------------------------------------------
// Release 20.

struct StyleChange {
  const char* family;
  const char* path;
  int mask;
  ZOLAnnStandardXMLValue::Type type;
  const char* from;
  const char* to;
};

constexpr auto kEnum = ZOLAnnStandardXMLValue::EnumValue;
constexpr auto kInt = ZOLAnnStandardXMLValue::IntValue;
constexpr auto kFloat = ZOLAnnStandardXMLValue::FloatValue;

// Each change stands on the one before: the first that fails ends the list.
constexpr StyleChange kR20CalloutLook[] = {
    {"Root.Styles.ProjectionCallout", "Type", 3, kEnum, "Lines, corners and arrows", "Corners ans arrows"},
    {"Root.Styles.ProjectionCallout", "Type", 12, kEnum, "Lines, corners and arrows", "Only one arrow"},
    {"Root.Styles.ProjectionCallout", "Profile.Thickness", 3, kInt, "1", "4"},
    {"Root.Styles.SectionCallout", "Profile.Thickness", 3, kInt, "1", "4"},
    {"Root.Styles.ProjectionCallout", "Corners.Thickness", 3, kInt, "1", "4"},
    {"Root.Styles.ProjectionCallout", "Arrows.Head.Angle", 15, kFloat, "22.5", "15"},
    {"Root.Styles.SectionCallout", "Arrows.Head.Angle", 15, kFloat, "22.5", "15"},
    {"Root.Styles.ProjectionCallout", "Arrows.Head.Type", 7, kEnum, "Simple arrow", "Filled arrow"},
    {"Root.Styles.SectionCallout", "Arrows.Head.Type", 7, kEnum, "Simple arrow", "Filled arrow"},
    {"Root.Styles.ProjectionCallout", "Corners.Length", 12, kFloat, "5.0", "0.001"},
    {"Root.Styles.ProjectionCallout", "Attachment", 8, kEnum, "Tail", "Head"},
    {"Root.Styles.SectionCallout", "Attachment", 8, kEnum, "Tail", "Head"},
    {"Root.Styles.DetailCallout", "Arrows.Head.Angle", 15, kFloat, "22.5", "15"},
    {"Root.Styles.DetailCallout", "Arrows.Head.Type", 8, kEnum, "Closed arrow", "Simple arrow"},
    {"Root.Styles.DetailCallout", "Arrows.Head.Type", 7, kEnum, "Closed arrow", "Filled arrow"},
};

}  // namespace

// ---------------------------------------------------------------------------------------------
// The steps.

HRESULT AppendSheetFormats(const ZOLUnicodeString& parent, ZOLAnnStandardXMLParser& parser) {
  ZOLDrwRunEditTable(&parser, 0, false, kR14FormatsType);
  std::span<const SheetFormat> formats = FormatsOf(parent);
  if (formats.empty()) return E_FAIL;
  const std::string row = "Root.SheetFormat.Formats:";
  for (const SheetFormat& f : formats) {
    parser.AddNodeWithPath("Root.SheetFormat:Formats:0", 1);
    parser.AddValueWithPath(row + "Name:string:" + f.name + ":0", -1);
    parser.AddValueWithPath(row + "Width:float:" + f.width + ":0", -1);
    parser.AddValueWithPath(row + "Height:float:" + f.height + ":0", -1);
    parser.AddValueWithPath(row + "FormatOrientationType:enum.FormatOrientationType:LandscapeByDefault:0", -1);
  }
  return S_OK;
}

HRESULT AppendSheetStyles(const ZOLUnicodeString& parent, ZOLAnnStandardXMLParser& parser) {
  const std::string family = "Root.Styles.Sheet";
  // Read and then forgotten: a customised Default does not survive.
  (void)Text(&parser, family + ".Default.GlobalScale");
  (void)Text(&parser, family + ".Default.ProjectionMethod");
  (void)Text(&parser, family + ".Default.GenViewsPosMode");
  parser.DeleteNodeWithPath(family + ".Default");
  struct Kept {
    std::string name, scale, projection, positions;
  };
  std::vector<Kept> kept;
  for (const std::string& name : StyleNames(&parser, family)) {
    const std::string at = family + "." + name + ".";
    Kept style{name, Text(&parser, at + "GlobalScale"), Text(&parser, at + "ProjectionMethod"),
               Text(&parser, at + "GenViewsPosMode")};
    if (!style.name.empty() && !style.scale.empty() && !style.projection.empty() && !style.positions.empty())
      kept.push_back(std::move(style));
    parser.DeleteNodeWithPath(family + "." + name);
  }
  std::span<const SheetFormat> formats = FormatsOf(parent);
  if (formats.empty()) return E_FAIL;
  const std::string projection = parent == "ISO" ? "First angle" : "Third angle";
  for (const SheetFormat& f : formats)
    AddSheetStyle(parser, f.style ? f.style : f.name, "1.0", projection, "FixedCG", f.name);
  for (const Kept& style : kept)
    AddSheetStyle(parser, style.name, style.scale, style.projection, style.positions, formats.front().name);
  return S_OK;
}

void Upgrade9To10(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  AppendFrameDef(*parser);
  ZOLDrwRunEditTable(context, kR10Annotation);
  AppendFrames(*parser);
  ZOLDrwRunEditTable(context, kR10Offsets);
}

void Upgrade10To11(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  AppendStyleEnums(*parser);
  AppendStyles(*parser, context.Parent());
  AppendPatterns(*parser);
  AppendLinetypes1(*parser);
  AppendLinetypes2(*parser);
  ZOLDrwRunEditTable(context, kR11Thread);
}

void Upgrade11To12(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR12Enums);
  RebuildRoughnessStyle(parser, ZOLDrwParentBit(context.Parent()));
  ZOLDrwRunEditTable(context, kR12Additions);
  // Only a datum leader that still has the delivered symbol of its parent moves to Automatic.
  const ZOLUnicodeString& parent = context.Parent();
  const char* delivered = parent == "ANSI" ? "None"
                          : parent == "ASME" || parent == "ISO" || parent == "JIS" ? "WhiteFilledSquare"
                                                                                   : nullptr;
  const char* symbol = "Root.Styles.DatumFeature.Default.Leader.Symbol";
  if (delivered && Text(parser, symbol) == delivered) parser->ChangeValueWithPath(std::string(symbol) + ":Automatic");
}

void Upgrade12To13(ZOLDrwMigrationContext& context) {
  if (!context.Parser()) return ZOLAssertPointer("");
  if (context.ParentFlag() == 0)
    ZOLSysLogError(">>> FATAL ERROR in ZOLDrwParseStandard::UpgradeVersion - Bad parent standard type.\n");
  ZOLDrwRunEditTable(context, kR13);
}

void Upgrade13To14(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR14Enums);
  AppendSheetFormats(context.Parent(), *parser);
  ZOLDrwRunEditTable(context, kR14SheetColors);
  AppendSheetStyles(context.Parent(), *parser);
  ZOLDrwRunEditTable(context, kR14DimensionsSystem);
  parser->AddNodeWithPath("Root.General:ToleranceValue:0", 0);
  for (const ToleranceList& list : kR14ToleranceValues) {
    parser->AddNodeWithPath(std::string("Root.General.ToleranceValue:") + list.name + ":0", 0);
    // Occurrence -1: the list just appended, whose values form an unnamed array.
    const std::string at = std::string("Root.General.ToleranceValue.") + list.name + "::string:";
    for (const char* value : list.values) parser->AddValueWithPath(at + value + ":0", -1);
    for (int i = 0; i < list.empty; ++i) parser->AddValueWithPath(at + ":0", -1);
    parser->AddValueWithPath(at + list.preselected + ":0", -1);
  }
  ZOLDrwRunEditTable(context, kR14StyleValues);
}

void Migrate14To15(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR15);
  // A user's own dashes stay.
  ZOLAnnStandardXMLNode* segment = Find(parser, "Root.LineTypes.LineType16.Segment");
  if (segment && segment->GetNumOfValue() == 0) {
    parser->AddValueWithPath("Root.LineTypes.LineType16.Segment::float:1.0:0,", -1);
    parser->AddValueWithPath("Root.LineTypes.LineType16.Segment::float:-1.0:0,", -1);
  }
}

void Migrate15To16n201(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR16Start);
  // Alignment becomes its own enumeration; the node is added anew at the end of the style.
  const std::string family = "Root.Styles.DimensionsSystem";
  for (const std::string& style : StyleNames(parser, family)) {
    for (const char* name : {"AlignCumulated", "AlignStacked"}) {
      const std::string path = family + "." + style + "." + name;
      std::string value = Text(parser, path);
      parser->DeleteNodeWithPath(path);
      if (value == "Left")
        value = "ReferenceLine";
      else if (value == "Right")
        value = "OppositeReferenceLine";
      else if (value != "Center")
        ZOLAssertBool("");
      parser->AddValueWithPath(family + "." + style + ":" + name + ":enum.DimSysAlign:" + value + ":0", 1);
    }
  }
  ZOLDrwRunEditTable(context, kR16Roughness);
}

void Migrate16To17n1X(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR17Start);
  const bool isoOrJis = context.Parent() == "ISO" || context.Parent() == "JIS";
  const std::string row = "Root.EngineeringSymbols.EngineeringSymbol:";
  int position = 0;
  for (const ZOLDrwRelease17Symbol& s : ZOLDrwRelease17Symbols()) {
    ++position;
    parser->AddNodeWithPath("Root.EngineeringSymbols:EngineeringSymbol:0", 1);
    parser->AddValueWithPath(row + "Name:string:" + s.name + ":0", -1);
    parser->AddValueWithPath(row + "Position:int:" + std::to_string(position) + ":0", -1);
    parser->AddValueWithPath(row + "Font:string:" + SymbolFont17(position, isoOrJis) + ":0", -1);
    parser->AddValueWithPath(row + "Charcode:int:" + std::to_string(s.charcode) + ":0", -1);
    parser->AddValueWithPath(row + "Icon16x16:string:" + (isoOrJis ? s.isoIcon16 : s.otherIcon16) + ":0", -1);
    parser->AddValueWithPath(row + "Icon22x22:string:" + (isoOrJis ? s.isoIcon22 : s.otherIcon22) + ":0", -1);
  }
  ZOLDrwRunEditTable(context, kR17End);
  // The detail callout takes the colour of its text, or black.
  const std::string family = "Root.Styles.DetailCallout";
  for (const std::string& style : StyleNames(parser, family)) {
    std::string color = Text(parser, family + "." + style + ".Text.Font.Color");
    if (color.empty()) color = "0 0 0";
    parser->AddValueWithPath(family + "." + style + ":Color:color:" + color + ":0", 1);
  }
}

void Migrate17To18n1X1(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR18Start);
  // Blanking turns from YesNo into BlankProp; it is added anew at the end of its branch.
  for (const auto& [name, where] : kR18Blanking) {
    const std::string family = std::string("Root.Styles.") + name;
    const std::string_view suffix(where);
    const size_t dot = suffix.rfind('.');
    const std::string branch(suffix.substr(0, dot));
    for (const std::string& style : StyleNames(parser, family)) {
      const std::string path = family + "." + style + where;
      const std::string value = Text(parser, path);
      parser->DeleteNodeWithPath(path);
      std::string blanking = "AreaFill";
      if (value == "No")
        blanking = "No";
      else if (value != "Yes")
        ZOLAssertBool("");
      parser->AddValueWithPath(family + "." + style + branch + ":Blanking:enum.BlankProp:" + blanking + ":0", 1);
    }
  }
  const bool isoOrJis = context.Parent() == "ISO" || context.Parent() == "JIS";
  const std::string coordinate = "Root.Styles.CoordinateDimension";
  for (const std::string& style : StyleNames(parser, coordinate)) {
    const std::string at = coordinate + "." + style;
    parser->DeleteNodeWithPath(at + ".DisplayUnit");
    parser->AddNodeWithPath(at + ":ValueDisplayFormat:0", 0);
    parser->AddValueWithPath(at + ".ValueDisplayFormat:Name:string:" + (isoOrJis ? "NUM.DIMM" : "FEET-INC") + ":0", 1);
    parser->AddValueWithPath(at + ".ValueDisplayFormat:DisplayedFactorNumber:int:1:0", 1);
    parser->AddValueWithPath(at + ".ValueDisplayFormat:PrecisionMode:enum.DimPrecision:Decimal:0", 1);
    parser->AddValueWithPath(at + ".ValueDisplayFormat:Precision:float:0.01:0", 1);
  }
  parser->AddValueWithPath(std::string("Root.Annotation.Roughness:LeaderAnchorAccordingToStandard:enum.YesNo:") +
                               (context.UpdateDefaultValues() ? "Yes" : "No") + ":0",
                           1);
  ZOLDrwRunEditTable(context, kR18Bom);
  AddBomStyle(parser, "BomStyle", kR18BomProperties, static_cast<int>(std::size(kR18BomProperties)));
  // Cells become the first cell style; the margins stay with the table.
  const std::string table = "Root.Styles.Table";
  for (const std::string& name : StyleNames(parser, table)) {
    ZOLAnnStandardXMLNode* style = Find(parser, table + "." + name);
    ZOLAnnStandardXMLNode* cells = style ? style->FindNodeByName("Cells") : nullptr;
    if (!cells) continue;
    ZOLRef<ZOLAnnStandardXMLNode> whole = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(cells->Clone());
    if (!whole) continue;
    whole->SetNodeName("WholeTable");
    parser->AddNodeWithPath(table + "." + name + ":CellStyles:1", 0);
    if (ZOLAnnStandardXMLNode* cellStyles = style->FindNodeByName("CellStyles")) cellStyles->AddNode(whole.get(), -1);
    parser->DeleteNodeWithPath(table + "." + name + ".Cells");
    for (const char* margin : {"HorizontalMargin", "VerticalMargin"}) {
      ZOLAnnStandardXMLNode* node = whole->FindNodeByName(margin);
      if (!node) continue;
      ZOLRef<ZOLAnnStandardXMLNode> copy = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(node->Clone());
      if (copy) style->AddNode(copy.get(), -1);
      whole->DeleteWithPath(margin);
    }
  }
  if (context.UpdateDefaultValues() && Text(parser, "Root.General.SheetColors.View.Color") == "51 51 102") {
    parser->ChangeValueWithPath("Root.General.SheetColors.View.Color:0 39 64");
    parser->ChangeValueWithPath("Root.General.SheetColors.Detail.Color:0 39 64");
  }
}

void Migrate18To20n208(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  // Release 20 is the first to write its level into the file.
  parser->Root()->AddNodeWithValue("Version", ZOLAnnStandardXMLValue::IntValue, "110", "", -1);
  const bool isoOrJis = context.Parent() == "ISO" || context.Parent() == "JIS";
  for (const char* name : {"Root.Styles.ProjectionCallout", "Root.Styles.SectionCallout"}) {
    ZOLAnnStandardXMLNode* family = Find(parser, name);
    if (!family) return ZOLAssertPointer("");
    for (ZOLAnnStandardXMLNode* style : family->SubNodes()) {
      ZOLAnnStandardXMLNode* arrows = style->FindNodeByName("Arrows");
      if (!arrows) continue;
      arrows->AddNodeWithValue("Thickness", ZOLAnnStandardXMLValue::IntValue, isoOrJis ? "1" : "4", "", -1);
      arrows->AddNodeWithValue("Position", ZOLAnnStandardXMLValue::IntValue, isoOrJis ? "50" : "0", "", -1);
    }
  }
  if (!context.UpdateDefaultValues()) return;
  for (const StyleChange& c : kR20CalloutLook)
    if (!context.ChangeStyleValue(c.family, c.path, c.mask, c.type, c.from, c.to)) return;
}
