// The style families of release 11 with their enumerations, and the operations of later releases
// that clone or extend a family. The tables are those of release 11: later steps amend the result,
// never these rows.
#include "upgrade/migration/ZOLDrwStyleBuilders.h"

#include <string>
#include <string_view>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLRefCounted.h"
#include "ZOLSysLog.h"

namespace {

using R = ZOLDrwBranchRow;
constexpr int AA = kZOLDrwAnsiAsme;
constexpr int ISO = 4;
constexpr int JIS = 8;

// ---------------------------------------------------------------------------------------------
// Enumerations, in the order release 11 wrote them. Frame and WeldingSymbol are built by rule.

struct EnumRow {
  const char* name;
  const char* literals;  // separated by "|"
};

constexpr const char* kFrameShapes[] = {"Rectangle", "Square",    "Circle",       "ScoredCircle", "Diamond",
                                        "Triangle",  "RightFlag", "LeftFlag",     "BothFlag",     "Oblong",
                                        "Ellipse",   "RightOblong", "LeftOblong", "Sticking",     "Set",
                                        "Fixed support", "Nota",  "SymPart",      "SymSet",       "ScoredRectangle"};

// "Symetric" and "Corners ans arrows" are misspelled on purpose: files of every later level hold them.
constexpr EnumRow kEnumsBeforeFrame[] = {
    {"YesNo", "No|Yes"},
    {"UpDown", "Up|Down"},
    {"ThreadRep", "Circle|Arc circle"},
    {"FormatOrientation", "Landscape|Portrait"},
    {"ProjectionMethod", "First angle|Third angle"},
    {"FontStyle", "Regular|Bold|Italic|Bold Italic"},
    {"FontPitch", "Fixed|Variable"},
    {"StandardMaterial", "Standard|Material"},
};

constexpr EnumRow kEnumsBeforeWelding[] = {
    {"AnchorPoint", "Top left|Middle left|Bottom left|Top center|Middle center|Bottom center|Top right|Middle right|"
                    "Bottom right"},
    {"AnchorLine", "Top or bottom|Cap or base|Global"},
    {"LineSpacingMode", "Bottom to top|Base to cap|Base to base"},
    {"TextJustification", "Left|Center|Right"},
    {"TextOrientation", "Sheet|View or 2D component"},
    {"Mirroring", "No flip|Auto flip|Flip X|Flip Y|Flip XY"},
    {"TextDisplay", "Show value|Show box|Hide value"},
    {"ArrowEndType", "Automatic|None|SimpleArrow|FilledArrow|ClosedArrow|SymetricArrow|Circle|FilledCircle|"
                     "SymetricCircle|CrossCircle|Slash|Triangle|FilledTriangle|WhiteFilledSquare|BlackFilledSquare|"
                     "Plus|Cross|DoubleArrow|WaveArrow"},
    {"WeldingSymbol", "None|SquareWelding|VGrooveWelding|HVGrooveWelding|YGrooveWelding|HYGrooveWelding|"
                      "UGrooveWelding|HUGrooveWelding|FilletWelding|CFlangeWelding|EFlangeWelding|VFlareWelding|"
                      "HVFlareWelding|SpotWelding|BackWelding|HVOGrooveWelding|VOGrooveWelding|PlugWelding|MRWelding|"
                      "MWelding|RechargeWelding|SpotJISWelding"},
    {"SurfaceShape", "None|Flat|Convex|Concave|Flush|Smooth"},
    {"FinishingMethod", "None|Unspecified|Chipping|Grinding|Hammering|Machining|Rolling"},
    {"AttachmentToCallout", "Head|Tail"},
    {"CalloutArrowHeadType", "Filled arrow|Blanked arrow|Closed arrow|Simple arrow"},
    {"CalloutTypes", "Lines and arrows|Lines, corners and arrows|Corners ans arrows|Only one arrow"},
    {"DetailCalloutTypes", "Leader text|Arrowed circle|Circle"},
    {"SymbolReversal", "Auto|InIn|OutOut|InOut|OutIn"},
    {"FunnelMode", "External|Internal"},
    {"FunnelSide", "Left or bottom|Right or top|Both sides"},
    {"ForeshortenedPosition", "On short segment|On long segment"},
    {"ForeshortenedOrientation", "Parallel|Convergent"},
    {"ValuePosition", "Auto|Inside|Outside"},
    {"DimOrientationRef", "Screen|View|Dimension line"},
    {"FakeDimMode", "None|Numerical|Alphanumerical"},
    {"DimLineMode", "Regular|Two parts|Leader one part|Leader two parts"},
    {"DualValueMode", "No dual value|Below|Fractional|Side-by-side"},
    {"DimPrecision", "Decimal|Fractional"},
    {"ChamferMode", "Length|Length * Length|Length * Angle|Angle * Length"},
    {"ChamferDisplayType", "1 extension line|2 extension lines"},
    {"FrameElement", "Value|Value and tolerance|Value and tolerance and texts"},
    {"FrameGroup", "Main value|Dual value|Both values separately|Both values as a whole"},
    {"DimScoring", "None|Value|All"},
    {"RoughnessMode", "None|M|C|R|P|X|=|Orthogonal"},
    {"RoughnessType", "Basic|Machining required|Machining prohibited"},
    {"RoughnessContact", "With specifications|Without specifications|With specifications (All surfaces)|"
                         "Without specifications (All surfaces)"},
    {"TextHAlignment", "Left|Center|Right"},
    {"TextVAlignment", "Top|Center|Bottom"},
    {"ToleranceType", "Straightness|Flatness|Circularity|Cylindricity|Line profile|Surface profile|Angularity|"
                      "Perpendicularity|Parallelism|Position|Concentricity|Symmetry|Circular runout|Total runout"},
    {"PointType", "Cross|Plus|Concentric|Coincident|Fullcircle|Fullsquare|Star|Dot"},
};

void AddEnum(ZOLAnnStandardXMLParser& parser, std::string_view name, std::string_view literals) {
  parser.AddNodeWithPath("Enum:" + std::string(name) + ":0", 0);
  const std::string prefix = "Enum." + std::string(name) + "::string:";
  for (size_t start = 0;;) {
    size_t bar = literals.find('|', start);
    std::string_view literal = literals.substr(start, bar == std::string_view::npos ? std::string_view::npos : bar - start);
    parser.AddValueWithPath(prefix + std::string(literal) + ":0", 1);
    if (bar == std::string_view::npos) break;
    start = bar + 1;
  }
}

// ---------------------------------------------------------------------------------------------
// Families.

constexpr R kSheet[] = {
    {"", "GlobalScale", "float.m.0.0", "1.0"},
    {"", "ProjectionMethod", "enum.ProjectionMethod", "First angle", ISO},
    {"", "ProjectionMethod", "enum.ProjectionMethod", "Third angle", kZOLDrwAllButIso},
};

constexpr R kConstructionPoint[] = {
    {"", "Color", "color", "140 140 140"},
    {"", "PointType", "enum.PointType", "Dot"},
};
constexpr R kConstructionCurve[] = {
    {"", "Color", "color", "140 140 140"},        {"", "LineType", "int", "3"},
    {"", "Thickness", "int", "1"},                {"", "ControlPoints", nullptr, nullptr},
    {"ControlPoints", "Color", "color", "140 140 140"}, {"ControlPoints", "PointType", "enum.PointType", "Fullsquare"},
};
constexpr R kPoint[] = {
    {"", "Color", "color", "0 0 0"},
    {"", "PointType", "enum.PointType", "Dot"},
};
constexpr R kCurve[] = {
    {"", "Color", "color", "0 0 0"},        {"", "LineType", "int", "1"},
    {"", "Thickness", "int", "2"},          {"", "ControlPoints", nullptr, nullptr},
    {"ControlPoints", "Color", "color", "0 0 0"}, {"ControlPoints", "PointType", "enum.PointType", "Fullsquare"},
};

// The dimension family as DistanceLengthDimension has it; the other families change it below.
constexpr R kDimension[] = {
    {"", "Value", nullptr, nullptr},
    {"Value", "OrientationReference", "enum.DimOrientationRef", "Screen", AA},
    {"Value", "OrientationReference", "enum.DimOrientationRef", "Dimension line", kZOLDrwAllButAnsiAsme},
    {"Value", "Angle", "float", "0.0"},
    {"Value", "Position", "enum.ValuePosition", "Auto"},
    {"Value", "OffsetX", "float", "0.0"},
    // A parent that is none of the four gets no OffsetY: every branch of the release's test failed.
    {"Value", "OffsetY", "float", "0.0", AA},
    {"Value", "OffsetY", "float", "0.5", JIS},
    {"Value", "OffsetY", "float", "2.0", ISO},
    {"Value", "Display", "enum.TextDisplay", "Show value"},
    {"", "Driving", "enum.YesNo", "No"},
    {"", "DualValueDisplay", "enum.DualValueMode", "No dual value"},
    {"", "ValueDisplayFormat", nullptr, nullptr},
    {"ValueDisplayFormat", "MainValue", nullptr, nullptr},
    {"ValueDisplayFormat.MainValue", "Name", "string", "NUM.DIMM"},
    {"ValueDisplayFormat.MainValue", "DisplayedFactorNumber", "int", "1"},
    {"ValueDisplayFormat.MainValue", "PrecisionMode", "enum.DimPrecision", "Decimal"},
    {"ValueDisplayFormat.MainValue", "Precision", "float", "0.01"},
    {"ValueDisplayFormat", "DualValue", nullptr, nullptr},
    {"ValueDisplayFormat.DualValue", "Name", "string", "NUM.DIMM"},
    {"ValueDisplayFormat.DualValue", "DisplayedFactorNumber", "int", "1"},
    {"ValueDisplayFormat.DualValue", "PrecisionMode", "enum.DimPrecision", "Decimal"},
    {"ValueDisplayFormat.DualValue", "Precision", "float", "0.01"},
    {"", "Fake", nullptr, nullptr},
    {"Fake", "Mode", "enum.FakeDimMode", "None"},
    {"Fake", "MainValue", "string", "*Fake*"},
    {"Fake", "DualValue", "string", "*Fake*"},
    {"", "Tolerance", nullptr, nullptr},
    {"Tolerance", "MainValue", nullptr, nullptr},
    {"Tolerance.MainValue", "Format", "string", ""},
    {"Tolerance.MainValue", "AlphanumericalValue1", "string", ""},
    {"Tolerance.MainValue", "AlphanumericalValue2", "string", ""},
    {"Tolerance.MainValue", "NumericalLower", "float", "0.0"},
    {"Tolerance.MainValue", "NumericalUpper", "float", "0.0"},
    {"Tolerance", "DualValue", nullptr, nullptr},
    {"Tolerance.DualValue", "Format", "string", ""},
    {"Tolerance.DualValue", "AlphanumericalValue1", "string", ""},
    {"Tolerance.DualValue", "AlphanumericalValue2", "string", ""},
    {"Tolerance.DualValue", "NumericalLower", "float", "0.0"},
    {"Tolerance.DualValue", "NumericalUpper", "float", "0.0"},
    {"", "DimensionLine", nullptr, nullptr},
    {"DimensionLine", "Representation", "enum.DimLineMode", "Regular"},
    {"DimensionLine", "Color", "color", "0 0 0"},
    {"DimensionLine", "Thickness", "int", "1"},
    {"DimensionLine", "SecondPartReference", "enum.DimOrientationRef", "Screen"},
    {"DimensionLine", "SecondPartAngle", "float", "0.0"},
    {"DimensionLine", "LeaderAngle", "float", "60.0"},
    {"", "Symbols", nullptr, nullptr},
    {"Symbols", "Symbol1", nullptr, nullptr},
    {"Symbols.Symbol1", "Type", "enum.ArrowEndType", "FilledArrow", AA},
    {"Symbols.Symbol1", "Type", "enum.ArrowEndType", "SimpleArrow", kZOLDrwAllButAnsiAsme},
    {"Symbols.Symbol1", "Color", "color", "0 0 0"},
    {"Symbols.Symbol1", "Thickness", "int", "1"},
    {"Symbols", "Symbol2", nullptr, nullptr},
    {"Symbols.Symbol2", "Type", "enum.ArrowEndType", "FilledArrow", AA},
    {"Symbols.Symbol2", "Type", "enum.ArrowEndType", "SimpleArrow", kZOLDrwAllButAnsiAsme},
    {"Symbols.Symbol2", "Color", "color", "0 0 0"},
    {"Symbols.Symbol2", "Thickness", "int", "1"},
    {"Symbols", "SymbolMode", "enum.SymbolReversal", "Auto"},
    {"", "ExtensionLine", nullptr, nullptr},
    {"ExtensionLine", "Color", "color", "0 0 0"},
    {"ExtensionLine", "Thickness", "int", "1"},
    {"ExtensionLine", "SlantAngle", "float", "0.0"},
    {"ExtensionLine", "Left", nullptr, nullptr},
    {"ExtensionLine.Left", "Hide", "enum.YesNo", "No"},
    {"ExtensionLine.Left", "Overrun", "float", "2.0"},
    {"ExtensionLine.Left", "Blanking", "float", "2.0"},
    {"ExtensionLine", "Right", nullptr, nullptr},
    {"ExtensionLine.Right", "Hide", "enum.YesNo", "No"},
    {"ExtensionLine.Right", "Overrun", "float", "2.0"},
    {"ExtensionLine.Right", "Blanking", "float", "2.0"},
    {"ExtensionLine", "Funnel", nullptr, nullptr},
    {"ExtensionLine.Funnel", "Display", "enum.YesNo", "No"},
    {"ExtensionLine.Funnel", "Height", "float", "10.0"},
    {"ExtensionLine.Funnel", "Width", "float", "5.0"},
    {"ExtensionLine.Funnel", "Angle", "float", "45.0"},
    {"ExtensionLine.Funnel", "Mode", "enum.FunnelMode", "External"},
    {"ExtensionLine.Funnel", "Side", "enum.FunnelSide", "Both sides"},
    {"", "AssociatedTexts", nullptr, nullptr},
    {"AssociatedTexts", "MainValue", nullptr, nullptr},
    {"AssociatedTexts.MainValue", "Prefix", "string", ""},
    {"AssociatedTexts.MainValue", "Suffix", "string", ""},
    {"AssociatedTexts.MainValue", "Before", "string", ""},
    {"AssociatedTexts.MainValue", "After", "string", ""},
    {"AssociatedTexts.MainValue", "Upper", "string", ""},
    {"AssociatedTexts.MainValue", "Lower", "string", ""},
    {"AssociatedTexts", "DualValue", nullptr, nullptr},
    {"AssociatedTexts.DualValue", "Before", "string", ""},
    {"AssociatedTexts.DualValue", "After", "string", ""},
    {"AssociatedTexts.DualValue", "Upper", "string", ""},
    {"AssociatedTexts.DualValue", "Lower", "string", ""},
    {"", "Framing", nullptr, nullptr},
    {"Framing", "FramedSubpart", "enum.FrameElement", "Value and tolerance and texts"},
    {"Framing", "FramedGroup", "enum.FrameGroup", "Main value"},
    {"Framing", "Frame", "enum.Frame", "None"},
    {"Framing", "MainValueScoring", "enum.DimScoring", "All"},
    {"Framing", "DualValueScoring", "enum.DimScoring", "All"},
    {"", "Font", nullptr, nullptr},
    {"Font", "Name", "string", ""},
    {"Font", "Bold", "enum.YesNo", "No"},
    {"Font", "Italic", "enum.YesNo", "No"},
    {"Font", "Size", "float", "3.5"},
    {"Font", "Color", "color", "0 0 0"},
    {"Font", "Underline", "enum.YesNo", "No"},
    {"Font", "Strikethrough", "enum.YesNo", "No"},
    {"Font", "Overline", "enum.YesNo", "No"},
};

// What a family changes in the rows of kDimension: a value, by branch and name.
struct DimensionChange {
  const char* branch;
  const char* name;
  const char* value;
};

constexpr DimensionChange kAngleChanges[] = {
    {"ValueDisplayFormat.MainValue", "Name", "NUM.ADMS"},
    // The comma is kept: the step that would have corrected it never joined the chain.
    {"ValueDisplayFormat.DualValue", "Name", "NUM,ADMS"},
};
constexpr DimensionChange kRadiusChanges[] = {{"AssociatedTexts.MainValue", "Prefix", "R"}};
constexpr DimensionChange kDiameterChanges[] = {{"AssociatedTexts.MainValue", "Prefix", "<DIAMETER>"}};

constexpr R kRadiusAdds[] = {
    {"DimensionLine", "TillCenter", "enum.YesNo", "No", AA},
    {"DimensionLine", "TillCenter", "enum.YesNo", "Yes", kZOLDrwAllButAnsiAsme},
    {"", "Foreshortened", nullptr, nullptr},
    {"Foreshortened", "IsForeshortened", "enum.YesNo", "No"},
    {"Foreshortened", "ValuePosition", "enum.ForeshortenedPosition", "On long segment"},
    {"Foreshortened", "Orientation", "enum.ForeshortenedOrientation", "Parallel"},
    {"Foreshortened", "Angle", "float", "60.0"},
    {"Foreshortened", "Ratio", "float", "0.5"},
    {"Foreshortened", "SymbolScale", "float", "1.0"},
    {"Foreshortened", "MoveEndPoint", "enum.YesNo", "Yes"},
};
constexpr R kDiameterAdds[] = {{"", "OneSymbolDiameter", "enum.YesNo", "No"}};
constexpr R kChamferAdds[] = {
    {"", "Chamfer", nullptr, nullptr},
    {"Chamfer", "DisplayType", "enum.ChamferDisplayType", "1 extension line"},
    {"Chamfer", "ValueFormat", "enum.ChamferMode", "Length * Length"},
    {"Chamfer", "SecondaryValueDisplayFormat", nullptr, nullptr},
    {"Chamfer.SecondaryValueDisplayFormat", "MainValue", nullptr, nullptr},
    {"Chamfer.SecondaryValueDisplayFormat.MainValue", "Name", "string", "NUM.DIMM"},
    {"Chamfer.SecondaryValueDisplayFormat.MainValue", "DisplayedFactorNumber", "int", "1"},
    {"Chamfer.SecondaryValueDisplayFormat", "DualValue", nullptr, nullptr},
    {"Chamfer.SecondaryValueDisplayFormat.DualValue", "Name", "string", "NUM.DIMM"},
    {"Chamfer.SecondaryValueDisplayFormat.DualValue", "DisplayedFactorNumber", "int", "1"},
};

constexpr R kCoordinateDimension[] = {
    {"", "OrientationReference", "enum.TextOrientation", "Sheet"},
    {"", "Angle", "float", "0.0"},
    {"", "AnchorPoint", "enum.AnchorPoint", "Top left"},
    {"", "Display", "enum.TextDisplay", "Show value"},
    {"", "Font", nullptr, nullptr},
    {"Font", "Name", "string", ""},
    {"Font", "Bold", "enum.YesNo", "No"},
    {"Font", "Italic", "enum.YesNo", "No"},
    {"Font", "Size", "float", "3.5"},
    {"", "Graphic", nullptr, nullptr},
    {"Graphic", "Color", "color", "0 0 0"},
};

// Blocks that several families share, added below a branch that the family names.
constexpr R kLongFont[] = {
    {"", "Name", "string", ""},        {"", "Bold", "enum.YesNo", "No"},      {"", "Italic", "enum.YesNo", "No"},
    {"", "Size", "float", "3.5"},      {"", "Underline", "enum.YesNo", "No"}, {"", "Color", "color", "0 0 0"},
    {"", "Ratio", "float", "100.0"},   {"", "Slant", "float", "0.0"},         {"", "Spacing", "float", "0.0"},
    {"", "Pitch", "enum.FontPitch", "Fixed"}, {"", "Strikethrough", "enum.YesNo", "No"},
    {"", "Overline", "enum.YesNo", "No"},
};
constexpr R kShortFont[] = {
    {"", "Name", "string", ""},
    {"", "Bold", "enum.YesNo", "No"},
    {"", "Italic", "enum.YesNo", "No"},
    {"", "Size", "float", "3.5"},
};
constexpr R kGraphic[] = {
    {"", "Thickness", "int", "1"},
    {"", "Linetype", "int", "1"},
    {"", "Color", "color", "0 0 0"},
};
constexpr R kScripts[] = {
    {"", "SuperscriptOffset", "float", "72.50"},
    {"", "SuperscriptSize", "float", "60.40"},
    {"", "SubscriptOffset", "float", "27.72"},
    {"", "SubscriptSize", "float", "60.40"},
};

constexpr R kTextText[] = {
    {"", "Frame", "enum.Frame", "None"},
    {"", "AnchorPoint", "enum.AnchorPoint", "Top left"},
    {"", "AnchorLine", "enum.AnchorLine", "Top or bottom"},
    {"", "LineSpacing", "float", "0.0"},
    {"", "LineSpacingMode", "enum.LineSpacingMode", "Bottom to top"},
    {"", "Justification", "enum.TextJustification", "Left"},
    {"", "WordWrap", "float", "0.0"},
    {"", "OrientationReference", "enum.TextOrientation", "Sheet"},
    {"", "Angle", "float", "0.0"},
    {"", "Mirroring", "enum.Mirroring", "Auto flip"},
    {"", "BackField", "enum.YesNo", "Yes"},
};
constexpr R kTextTextEnd[] = {
    {"", "DisplayUnit", "enum.YesNo", "Yes"},
    {"", "ApplyScale", "enum.YesNo", "No"},
};
constexpr R kTextLeader[] = {
    {"", "Symbol", "enum.ArrowEndType", "Automatic"},
    {"", "Delta", "float", "3.0"},
    {"", "AnchorPoint", "int", "0"},
    {"", "StandardBehavior", "enum.YesNo", "Yes"},
};

constexpr R kTableCells[] = {
    {"", "LineSpacing", "float", "0.0"},
    {"", "LineSpacingMode", "enum.LineSpacingMode", "Bottom to top"},
    {"", "BackField", "enum.YesNo", "Yes"},
};
constexpr R kTableCellsEnd[] = {
    {"", "DisplayUnit", "enum.YesNo", "Yes"},
    {"", "HorizontalAlignment", "enum.TextHAlignment", "Left"},
    {"", "VerticalAlignment", "enum.TextVAlignment", "Top"},
    {"", "HorizontalMargin", "float", "1.0"},
    {"", "VerticalMargin", "float", "0.5"},
};
constexpr R kTableRest[] = {
    {"", "AnchorPoint", "enum.AnchorPoint", "Top left"},
    {"", "OrientationReference", "enum.TextOrientation", "Sheet"},
    {"", "Angle", "float", "0.0"},
    {"", "Leader", nullptr, nullptr},
    {"Leader", "Symbol", "enum.ArrowEndType", "Automatic"},
    {"Leader", "Delta", "float", "0.0"},
    {"Leader", "AnchorPoint", "int", "0"},
    {"Leader", "StandardBehavior", "enum.YesNo", "Yes"},
};

constexpr R kDatumFeature[] = {
    {"", "OrientationReference", "enum.TextOrientation", "Sheet"},
    {"", "Angle", "float", "0.0"},
    {"", "AnchorPoint", "enum.AnchorPoint", "Top left"},
    {"", "Display", "enum.TextDisplay", "Show value"},
    {"", "Leader", nullptr, nullptr},
    {"Leader", "Symbol", "enum.ArrowEndType", "None", 1},
    {"Leader", "Symbol", "enum.ArrowEndType", "WhiteFilledSquare", kZOLDrwAllButAnsi},
};
constexpr R kDatumTarget[] = {
    {"", "Diameter", "enum.YesNo", "No"},
    {"", "OrientationReference", "enum.TextOrientation", "Sheet"},
    {"", "Angle", "float", "0.0"},
    {"", "AnchorPoint", "enum.AnchorPoint", "Top left"},
    {"", "Display", "enum.TextDisplay", "Show value"},
};
constexpr R kGraphicColorOnly[] = {
    {"", "Graphic", nullptr, nullptr},
    {"Graphic", "Color", "color", "0 0 0"},
};

constexpr R kTolerance[] = {
    {"", "Type", "enum.ToleranceType", "Circularity"},
    {"", "Value", "string", ""},
    {"", "UpperText", "string", ""},
    {"", "LowerText", "string", ""},
};
constexpr R kToleranceFontEnd[] = {
    {"", "Ratio", "float", "100.0"},
    {"", "Spacing", "float", "20.0"},
};
constexpr R kToleranceText[] = {
    {"", "AnchorPoint", "enum.AnchorPoint", "Top left"},
    {"", "OrientationReference", "enum.TextOrientation", "Sheet"},
    {"", "Angle", "float", "0.0"},
};
constexpr R kToleranceLeader[] = {
    {"", "Symbol", "enum.ArrowEndType", "Automatic"},
    {"", "Delta", "float", "0.0"},
    {"", "AnchorPoint", "int", "1"},
};

constexpr R kBalloonText[] = {
    {"", "Frame", "enum.Frame", "Circle"},
    {"", "AnchorPoint", "enum.AnchorPoint", "Top left"},
    {"", "AnchorLine", "enum.AnchorLine", "Global"},
    {"", "OrientationReference", "enum.TextOrientation", "Sheet"},
    {"", "Angle", "float", "0.0"},
    {"", "Mirroring", "enum.Mirroring", "Auto flip"},
    {"", "ApplyScale", "enum.YesNo", "No"},
    {"", "Display", "enum.TextDisplay", "Show value"},
};
constexpr R kSymbolAutomatic[] = {{"", "Symbol", "enum.ArrowEndType", "Automatic"}};

// Lives only until the rebuild of release 12.
constexpr R kRoughnessSymbol[] = {
    {"", "Type", "enum.RoughnessType", "Basic"},
    {"", "Mode", "enum.RoughnessMode", "None"},
    {"", "Contact", "enum.RoughnessContact", "With specifications"},
    {"", "AnchorPoint", "enum.AnchorPoint", "Bottom center"},
    {"", "Graphic", nullptr, nullptr},
    {"Graphic", "Color", "color", "0 0 0"},
    {"", "Font", nullptr, nullptr},
    {"Font", "Name", "string", ""},
    {"Font", "Bold", "enum.YesNo", "No"},
    {"Font", "Italic", "enum.YesNo", "No"},
    {"Font", "Size", "float", "3.5"},
};

constexpr R kWeldingSymbol[] = {
    {"", "Length1", "string", ""},
    {"", "Size1", "string", ""},
    {"", "WeldingType1", "enum.WeldingSymbol", "None"},
    {"", "SurfaceShape1", "enum.SurfaceShape", "None"},
    {"", "FinishingMethod1", "enum.FinishingMethod", "None"},
    {"", "Length2", "string", ""},
    {"", "Size2", "string", ""},
    {"", "WeldingType2", "enum.WeldingSymbol", "None"},
    {"", "SurfaceShape2", "enum.SurfaceShape", "None"},
    {"", "FinishingMethod2", "enum.FinishingMethod", "None"},
    {"", "Reference", "string", ""},
    {"", "FieldWeld", "enum.YesNo", "No"},
    {"", "AllAround", "enum.YesNo", "No"},
    {"", "ReferenceLine", "enum.UpDown", "Down"},
    {"", "Text", nullptr, nullptr},
    {"Text", "Frame", "enum.Frame", "None"},
    {"Text", "OrientationReference", "enum.TextOrientation", "Sheet"},
    {"Text", "Angle", "float", "0.0"},
};
constexpr R kWeldingFontEnd[] = {
    {"", "Ratio", "float", "100.0"},
    {"", "Spacing", "float", "0.0"},
};

constexpr R kAreaFill[] = {{"", "Pattern", "string", "STD 5"}};
constexpr R kAxisLine[] = {
    {"", "Graphic", nullptr, nullptr},
    {"Graphic", "Color", "color", "0 0 0"},
    {"Graphic", "Linetype", "int", "4"},
    {"Graphic", "Thickness", "int", "1"},
    {"", "OverRunAuto", "enum.YesNo", "Yes"},
    {"", "OverRunLength", "float", "0.0"},
};
constexpr R kArrow[] = {
    {"", "Graphic", nullptr, nullptr},
    {"Graphic", "Color", "color", "0 0 0"},
    {"Graphic", "Linetype", "int", "1"},
    {"Graphic", "Thickness", "int", "1"},
    {"", "HeadSymbol", "enum.ArrowEndType", "Automatic"},
    {"", "TailSymbol", "enum.ArrowEndType", "None"},
};

// Projection and section callouts differ only in the line type and thickness of profile and corners.
constexpr R kProjectionCallout[] = {
    {"", "ViewScaleDependant", "enum.YesNo", "Yes"},
    {"", "Type", "enum.CalloutTypes", "Lines, corners and arrows"},
    {"", "Profile", nullptr, nullptr},
    {"Profile", "LineType", "int", "1"},
    {"Profile", "Thickness", "int", "1"},
    {"", "Corners", nullptr, nullptr},
    {"Corners", "Thickness", "int", "1"},
    {"Corners", "Length", "float", "5.0"},
};
constexpr R kSectionCallout[] = {
    {"", "ViewScaleDependant", "enum.YesNo", "Yes"},
    {"", "Type", "enum.CalloutTypes", "Lines, corners and arrows"},
    {"", "Profile", nullptr, nullptr},
    {"Profile", "LineType", "int", "4"},
    {"Profile", "Thickness", "int", "1"},
    {"", "Corners", nullptr, nullptr},
    {"Corners", "Thickness", "int", "4"},
    {"Corners", "Length", "float", "5.0"},
};
constexpr R kCalloutRest[] = {
    {"", "Attachment", "enum.AttachmentToCallout", "Head", ISO},
    {"", "Attachment", "enum.AttachmentToCallout", "Tail", kZOLDrwAllButIso},
    {"", "Arrows", nullptr, nullptr},
    {"Arrows", "Length", "float", "20.0"},
    {"Arrows", "Head", nullptr, nullptr},
    {"Arrows.Head", "Angle", "float", "22.5"},
    {"Arrows.Head", "Type", "enum.CalloutArrowHeadType", "Simple arrow"},
    {"Arrows.Head", "Length", "float", "3.0"},
    {"", "Color", "color", "0 0 0"},
};
constexpr R kDetailCallout[] = {
    {"", "Type", "enum.DetailCalloutTypes", "Leader text"},
    {"", "LineType", "int", "1"},
    {"", "Thickness", "int", "1"},
    {"", "Arrows", nullptr, nullptr},
    {"Arrows", "Head", nullptr, nullptr},
    {"Arrows.Head", "Angle", "float", "22.5"},
    {"Arrows.Head", "Type", "enum.CalloutArrowHeadType", "Closed arrow"},
    {"Arrows.Head", "Length", "float", "3.0"},
};
constexpr R kFrameNone[] = {{"", "Frame", "enum.Frame", "None"}};

// Writes one family: the family node, its Default, and blocks of rows below Default or a branch of it.
class FamilyWriter {
public:
  FamilyWriter(ZOLAnnStandardXMLParser& parser, int parentBit, const char* family)
      : _parser(parser), _bit(parentBit), _base(std::string("Root.Styles.") + family + ".Default") {
    _parser.AddNodeWithPath(std::string("Root.Styles:") + family + ":0", 0);
    _parser.AddNodeWithPath(std::string("Root.Styles.") + family + ":Default:0", 0);
  }
  FamilyWriter& Rows(std::span<const R> rows) { return Rows("", rows); }
  // Rows below branch, which must exist.
  FamilyWriter& Rows(const char* branch, std::span<const R> rows) {
    std::string base = _base;
    if (*branch) base += std::string(".") + branch;
    ZOLDrwAddBranchRows(&_parser, _bit, base.c_str(), rows);
    return *this;
  }
  // A new branch below Default, or below a branch of it, and its rows.
  FamilyWriter& Branch(const char* name, std::span<const R> rows = {}, const char* under = "") {
    std::string at = _base;
    if (*under) at += std::string(".") + under;
    _parser.AddNodeWithPath(at + ":" + name + ":0", 0);
    return Rows(*under ? (std::string(under) + "." + name).c_str() : name, rows);
  }

private:
  ZOLAnnStandardXMLParser& _parser;
  int _bit;
  std::string _base;
};

void AppendDimensionFamily(ZOLAnnStandardXMLParser& parser, int bit, const char* family,
                           std::span<const DimensionChange> changes, std::span<const R> adds) {
  FamilyWriter writer(parser, bit, family);
  const bool funnel = std::string_view(family) == "DistanceLengthDimension";
  for (const R& row : kDimension) {
    const std::string_view branch(row.branch);
    if (!funnel && (branch.starts_with("ExtensionLine.Funnel") || (branch == "ExtensionLine" && std::string_view(row.name) == "Funnel")))
      continue;
    R changed = row;
    for (const DimensionChange& c : changes)
      if (branch == c.branch && std::string_view(row.name) == c.name) changed.value = c.value;
    writer.Rows({&changed, 1});
  }
  writer.Rows(adds);
}

void AppendStyleSheet(ZOLAnnStandardXMLParser& parser, int bit) { FamilyWriter(parser, bit, "Sheet").Rows(kSheet); }

void AppendStyleGeometry(ZOLAnnStandardXMLParser& parser, int bit) {
  FamilyWriter(parser, bit, "ConstructionPoint").Rows(kConstructionPoint);
  FamilyWriter(parser, bit, "ConstructionCurve").Rows(kConstructionCurve);
  FamilyWriter(parser, bit, "Point").Rows(kPoint);
  FamilyWriter(parser, bit, "Curve").Rows(kCurve);
}

void AppendStyleDimensions(ZOLAnnStandardXMLParser& parser, int bit) {
  AppendDimensionFamily(parser, bit, "DistanceLengthDimension", {}, {});
  AppendDimensionFamily(parser, bit, "AngleDimension", kAngleChanges, {});
  AppendDimensionFamily(parser, bit, "RadiusDimension", kRadiusChanges, kRadiusAdds);
  AppendDimensionFamily(parser, bit, "DiameterDimension", kDiameterChanges, kDiameterAdds);
  AppendDimensionFamily(parser, bit, "ChamferDimension", {}, kChamferAdds);
  FamilyWriter(parser, bit, "CoordinateDimension").Rows(kCoordinateDimension);
}

void AppendStyleAnnotation(ZOLAnnStandardXMLParser& parser, int bit) {
  FamilyWriter(parser, bit, "Text")
      .Branch("Font", kLongFont)
      .Branch("Text", kTextText)
      .Rows("Text", kScripts)
      .Rows("Text", kTextTextEnd)
      .Branch("Graphic", kGraphic)
      .Branch("Leader", kTextLeader);
  FamilyWriter(parser, bit, "Table")
      .Branch("Cells")
      .Branch("Font", kLongFont, "Cells")
      .Rows("Cells", kTableCells)
      .Rows("Cells", kScripts)
      .Rows("Cells", kTableCellsEnd)
      .Rows(kTableRest);
  FamilyWriter(parser, bit, "DatumFeature").Rows(kDatumFeature).Branch("Font", kShortFont).Rows(kGraphicColorOnly);
  FamilyWriter(parser, bit, "DatumTarget").Rows(kDatumTarget).Branch("Font", kShortFont).Rows(kGraphicColorOnly);
  FamilyWriter(parser, bit, "Tolerance")
      .Rows(kTolerance)
      .Branch("Font", kShortFont)
      .Rows("Font", kToleranceFontEnd)
      .Branch("Text", kToleranceText)
      .Branch("Graphic", kGraphic)
      .Branch("Leader", kToleranceLeader);
  std::span<const R> longFont(kLongFont);
  FamilyWriter(parser, bit, "Balloon")
      .Branch("Font", longFont.first(5))  // Balloon's font has no colour
      .Rows("Font", longFont.subspan(6))
      .Branch("Text", kBalloonText)
      .Branch("Graphic", kGraphic)
      .Branch("Leader", kSymbolAutomatic);
  FamilyWriter(parser, bit, "RoughnessSymbol").Rows(kRoughnessSymbol);
  FamilyWriter(parser, bit, "WeldingSymbol")
      .Rows(kWeldingSymbol)
      .Branch("Font", kShortFont)
      .Rows("Font", kWeldingFontEnd)
      .Branch("Graphic", kGraphic)
      .Branch("Leader", kSymbolAutomatic);
}

void AppendStyleDressup(ZOLAnnStandardXMLParser& parser, int bit) {
  FamilyWriter(parser, bit, "AreaFill").Rows(kAreaFill);
  for (const char* family : {"AxisLine", "CenterLine", "Thread"}) FamilyWriter(parser, bit, family).Rows(kAxisLine);
  FamilyWriter(parser, bit, "Arrow").Rows(kArrow);
}

void AppendStyleCallout(ZOLAnnStandardXMLParser& parser, int bit) {
  FamilyWriter(parser, bit, "ProjectionCallout").Rows(kProjectionCallout).Rows(kCalloutRest).Branch("Text").Branch("Font", kLongFont, "Text").Rows("Text", kFrameNone);
  FamilyWriter(parser, bit, "SectionCallout").Rows(kSectionCallout).Rows(kCalloutRest).Branch("Text").Branch("Font", kLongFont, "Text").Rows("Text", kFrameNone);
  FamilyWriter(parser, bit, "DetailCallout").Rows(kDetailCallout).Branch("Text").Branch("Font", kLongFont, "Text").Rows("Text", kFrameNone);
}

// The node at a path, without a new reference while the tree holds it; or null.
ZOLAnnStandardXMLNode* Find(ZOLAnnStandardXMLParser* parser, const std::string& path) {
  ZOLRef<ZOLAnnStandardXMLNode> node = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(parser->GetNodeWithPath(path));
  return node.get();
}

// Appends to the family a clone of its Default under a new name; the clone, or null when the
// family or its Default is missing.
ZOLAnnStandardXMLNode* CloneDefault(ZOLAnnStandardXMLParser* parser, const char* family, const char* name) {
  if (!parser || !family) return nullptr;
  ZOLAnnStandardXMLNode* styles = Find(parser, std::string("Root.Styles.") + family);
  ZOLAnnStandardXMLNode* source = styles ? styles->FindNodeByName("Default") : nullptr;
  if (!source) return nullptr;
  ZOLRef<ZOLAnnStandardXMLNode> clone = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(source->Clone());
  if (!clone) return nullptr;
  clone->SetNodeName(name);
  styles->AddNode(clone.get(), -1);
  return clone.get();
}

void SetIn(ZOLAnnStandardXMLNode* style, std::string_view path, const char* text) {
  ZOLAnnStandardXMLNode* node = style->FindNodeWithPath(path, 1);
  if (node) node->ChangeValue(text);
}

}  // namespace

void ZOLDrwAddBranchRows(ZOLAnnStandardXMLParser* parser, int parentBit, const char* base,
                         std::span<const ZOLDrwBranchRow> rows) {
  if (!parser || !base) return;
  std::string edit;
  for (const ZOLDrwBranchRow& row : rows) {
    if (row.parentMask != 0 && (row.parentMask & parentBit) == 0) continue;
    edit = base;
    if (row.branch && *row.branch) (edit += '.') += row.branch;
    ((edit += ':') += row.name);
    if (!row.type) {
      parser->AddNodeWithPath(edit + ":0", 0);
      continue;
    }
    (((edit += ':') += row.type) += ':') += row.value ? row.value : "";
    parser->AddValueWithPath(edit + ":0", 1);
  }
}

void AppendStyleEnums(ZOLAnnStandardXMLParser& parser) {
  for (const EnumRow& e : kEnumsBeforeFrame) AddEnum(parser, e.name, e.literals);
  std::string frame = "None";
  for (const char* suffix : {"", " (fixed)"})
    for (const char* shape : kFrameShapes) (frame += '|') += std::string(shape) + suffix;
  AddEnum(parser, "Frame", frame);
  for (const EnumRow& e : kEnumsBeforeWelding) AddEnum(parser, e.name, e.literals);
}

void AppendStyles(ZOLAnnStandardXMLParser& parser, const ZOLUnicodeString& parent) {
  const int bit = ZOLDrwParentBit(parent);
  parser.AddNodeWithPath("Root:Styles:1", 0);
  AppendStyleSheet(parser, bit);
  AppendStyleGeometry(parser, bit);
  AppendStyleDimensions(parser, bit);
  AppendStyleAnnotation(parser, bit);
  AppendStyleDressup(parser, bit);
  AppendStyleCallout(parser, bit);
}

void AddTedStyle(ZOLAnnStandardXMLParser* parser, const ZOLUnicodeString& parent, const char* family) {
  ZOLAnnStandardXMLNode* ted = CloneDefault(parser, family, "TED");
  if (!ted) return;
  if (parent == "ISO") SetIn(ted, "Value.OffsetY", "4.0");
  else if (parent == "JIS") SetIn(ted, "Value.OffsetY", "2.5");
  SetIn(ted, "Framing.FramedSubpart", "Value");
  SetIn(ted, "Framing.FramedGroup", "Both values separately");
  SetIn(ted, "Framing.Frame", "Rectangle");
}

void AddBasicDimensionStyle(ZOLAnnStandardXMLParser* parser, const char* family) {
  ZOLAnnStandardXMLNode* basic = CloneDefault(parser, family, "BasicDimension");
  if (basic) SetIn(basic, "Framing.Frame", "Rectangle");
}

void AddCurvilinearLengthDimension(ZOLAnnStandardXMLParser* parser, const ZOLUnicodeString& parent) {
  if (!parser) return;
  ZOLAnnStandardXMLNode* styles = Find(parser, "Root.Styles");
  if (!styles) {
    ZOLAssertPointer("");
    return;
  }
  ZOLAnnStandardXMLNode* source = styles->FindNodeByName("DistanceLengthDimension");
  if (!source) return;
  ZOLRef<ZOLAnnStandardXMLNode> family = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(source->Clone());
  if (!family) return;
  family->SetNodeName("CurvilinearLengthDimension");
  // A 0-based place: right behind DistanceLengthDimension in a tree of release 11 families.
  styles->AddNode(family.get(), 6);
  const bool isoOrJis = parent == "ISO" || parent == "JIS";
  if (isoOrJis)
    for (const char* style : {"Default", "TED"})
      if (ZOLAnnStandardXMLNode* s = family->FindNodeByName(style)) SetIn(s, "AssociatedTexts.MainValue.Prefix", "<LINEPROFILE>");
  if (isoOrJis)
    parser->ChangeValueWithPath("Root.Dimension.CurvilinearLengthSymbol.STDDimDisplayArcSymbol:1");
  else if (parent == "ANSI" || parent == "ASME")
    parser->ChangeValueWithPath("Root.Dimension.CurvilinearLengthSymbol.STDDimDisplayArcSymbol:2");
}

void AddWitnessLine(ZOLAnnStandardXMLParser* parser, const char* family) {
  if (!parser || !family) return;
  static constexpr R kWitnessLine[] = {
      {"", "WitnessLine", nullptr, nullptr},
      {"WitnessLine", "Color", "color", "0 0 0"},
      {"WitnessLine", "Linetype", "int", "3"},
      {"WitnessLine", "Thickness", "int", "1"},
  };
  std::string base = std::string("Root.Styles.") + family + ".Default";
  if (!Find(parser, base)) return;
  ZOLDrwAddBranchRows(parser, 0, base.c_str(), kWitnessLine);
}

void AddBomStyle(ZOLAnnStandardXMLParser* parser, const char* name, const ZOLDrwParseStandardBomProperty* properties,
                 int count) {
  if (!parser || !name) {
    ZOLAssertPointer("");
    return;
  }
  const std::string family = std::string("Root.Styles.") + name;
  parser->AddNodeWithPath(std::string("Root.Styles:") + name + ":0", 0);
  parser->AddNodeWithPath(family + ":Default:0", 0);
  static constexpr R kBomDefault[] = {
      {"", "Type", "enum.BomType", "Summarized"},
      {"", "NoValueSymbol", "string", "-"},
      {"", "NoMaterialLabel", "string", "-"},
      {"", "ItemNumberLabelType", "enum.BomLabelType", "Number"},
      {"", "TableStyle", "string", "Default"},
      {"", "Properties", nullptr, nullptr},
  };
  const std::string base = family + ".Default";
  ZOLDrwAddBranchRows(parser, 0, base.c_str(), kBomDefault);
  if (!properties || count <= 0) {
    ZOLAssertBool("");
    return;
  }
  const std::string row = base + ".Properties.BomProperties:";
  for (int i = 0; i < count; ++i) {
    parser->AddNodeWithPath(base + ".Properties:BomProperties:0", 1);
    parser->AddValueWithPath(row + "Name:string:" + properties[i].name.str() + ":0", -1);
    parser->AddValueWithPath(row + "Title:string:<Automatic Naming>:0", -1);
    parser->AddValueWithPath(row + "Width:float:" + properties[i].width.str() + ":0", -1);
    parser->AddValueWithPath(row + "Index:int:" + properties[i].index.str() + ":0", -1);
  }
}
