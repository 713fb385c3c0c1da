// The steps from release 29 to release 36: welding flags, vector patterns, the indicator edge and
// transition surface families, roughness layouts, the rewritten welding enumerations, witness
// lines, jog and slope, legacy formats, TED and basic dimension styles, and the symbol rows of
// every release. Each step is a table of edits in the order the release made them, with code only
// where a step reads the tree and decides.
#include <cstdlib>
#include <string>
#include <string_view>

#include "QelStandardServices.h"
#include "ZOLAnnStandardXMLNode.h"
#include "ZOLRefCounted.h"
#include "ZOLSysLog.h"
#include "upgrade/migration/ZOLDrwMigrateR29ToR36.h"
#include "upgrade/migration/ZOLDrwStyleBuilders.h"

namespace {

using Op = ZOLDrwEditOp;
using R = ZOLDrwBranchRow;
constexpr int AA = kZOLDrwAnsiAsme;
constexpr int IJ = kZOLDrwIsoJis;
constexpr int ISO = 4;

constexpr std::string_view kKvIsoFontName = "KV ISO 1 (OpenType)";
constexpr const char* kSymbolTable = "Root.EngineeringSymbols";

ZOLAnnStandardXMLNode* Find(ZOLAnnStandardXMLParser* parser, const std::string& path) {
  ZOLRef<ZOLAnnStandardXMLNode> node = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(parser->GetNodeWithPath(path));
  return node.get();
}

std::string Text(ZOLAnnStandardXMLParser* parser, const std::string& path) {
  return parser->GetValueWithPath(path).str();
}

// The direct value of that name, or null when the row has none.
ZOLAnnStandardXMLValue* Field(ZOLAnnStandardXMLNode* row, std::string_view name) { return row->FindValueByName(name); }

// ---------------------------------------------------------------------------------------------
// Symbol rows.

// The look of a row's icons, with its font: heavy in KVISO1.otf, thin in SYM2.font, slanted in SYM1.font.
enum class Look : uint8_t { ByTextFont, Heavy, Thin, Slanted };

const char* FontOf(Look look) {
  return look == Look::Heavy ? "KVISO1.otf" : look == Look::Thin ? "SYM2.font" : "SYM1.font";
}
const char* Icon16(const ZOLDrwRelease21Symbol& s, Look look) {
  return look == Look::Heavy ? s.heavy16 : look == Look::Thin ? s.thin16 : s.slanted16;
}
const char* Icon22(const ZOLDrwRelease21Symbol& s, Look look) {
  return look == Look::Heavy ? s.heavy22 : look == Look::Thin ? s.thin22 : s.slanted22;
}

// As levels 130 and 140 chose: heavy for ISO and JIS in KV ISO 1, else thin; slanted for ANSI and ASME.
Look LookByTextFont(ZOLDrwMigrationContext& context) {
  if (ZOLDrwParentBit(context.Parent()) & IJ)
    return Text(context.Parser(), "Root.Styles.Text.Default.Font.Name") == kKvIsoFontName ? Look::Heavy : Look::Thin;
  return Look::Slanted;
}

// A new row: the symbol, its look, and where it may be offered.
struct NewRow {
  const char* name;
  Look look = Look::ByTextFont;
  const char* toleranceValue = "No";
};

// Appends the rows, numbered from first, when the parent is one of the mask; none for a parent of no mask.
void AddRows(ZOLDrwMigrationContext& context, std::span<const NewRow> rows, int first, int parentMask) {
  if (!(ZOLDrwParentBit(context.Parent()) & parentMask & (AA | IJ))) return;
  const Look textLook = LookByTextFont(context);
  int position = first;
  for (const NewRow& r : rows) {
    const ZOLDrwRelease21Symbol* s = ZOLDrwFindRelease29Symbol(r.name);
    if (!s) {
      ZOLAssertPointer(r.name);
      continue;
    }
    const Look look = r.look == Look::ByTextFont ? textLook : r.look;
    const std::string row[] = {s->name,          std::to_string(position++), FontOf(look), std::to_string(s->charcode),
                               Icon16(*s, look), Icon22(*s, look),           r.toleranceValue, "No", "No"};
    AddEngineeringSymbol(context.Parser(), row);
  }
}

// Calls visit on every EngineeringSymbol row with its Name until visit returns false; a row
// without a Name is reported and ends the walk when stopOnFault is set.
template <typename Visit>
void ForEachSymbolRow(ZOLAnnStandardXMLParser* parser, bool stopOnFault, Visit visit) {
  ZOLAnnStandardXMLNode* table = Find(parser, kSymbolTable);
  if (!table) return;
  for (ZOLAnnStandardXMLNode* row : table->SubNodes()) {
    ZOLAnnStandardXMLValue* name = row->Name() == "EngineeringSymbol" ? Field(row, "Name") : nullptr;
    if (!name) {
      ZOLAssertMessage("Engineering symbol row without Name");
      if (stopOnFault) return;
      continue;
    }
    if (!visit(row, name->Value().str())) return;
  }
}

// Sets a field of a row; a row without it is reported, and false returned.
bool SetField(ZOLAnnStandardXMLNode* row, std::string_view field, const std::string& text) {
  ZOLAnnStandardXMLValue* value = Field(row, field);
  if (!value) {
    ZOLAssertMessage("Engineering symbol row without the field");
    return false;
  }
  value->SetValue(ZOLUnicodeString(text));
  return true;
}

// ---------------------------------------------------------------------------------------------
// Families of annotations that releases 30 and 34 add, with Default as the release delivered it.

// The family at a 1-based place of "Root.Styles"; its graphic colour is that of the Text family.
void AddAnnotationFamily(ZOLDrwMigrationContext& context, const char* family, int place, const char* delta) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  const std::string color = Text(parser, "Root.Styles.Text.Default.Graphic.Color");
  const R rows[] = {
      {"", "Text", nullptr, nullptr},
      {"Text", "AnchorPoint", "enum.AnchorPoint", "Bottom center"},
      {"Text", "AnchorLine", "enum.AnchorLine", "Symbol"},
      {"Text", "Blanking", "enum.BlankProp", "AreaFill"},
      {"Text", "OrientationReference", "enum.TextOrientation", "Sheet"},
      {"Text", "Angle", "float", "0.0"},
      {"Text", "LineSpacing", "float", "0.0"},
      {"", "Graphic", nullptr, nullptr},
      {"Graphic", "Color", "color", color.c_str()},
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
      {"Leader", "Delta", "float", delta},
  };
  parser->AddNodeWithPath(std::string("Root.Styles:") + family + ":" + std::to_string(place), 0);
  parser->AddNodeWithPath(std::string("Root.Styles.") + family + ":Default:0", 0);
  ZOLDrwAddBranchRows(parser, 0, (std::string("Root.Styles.") + family + ".Default").c_str(), rows);
}

// ---------------------------------------------------------------------------------------------
// Release 29, level 220: welding flags, broken distance, vector patterns.

constexpr Op kR29Start[] = {
    {Op::AddValue, "Root.Annotation.Welding:Overrun:float:1.0:0"},
    {Op::AddNode, "Root.Annotation.Welding:FlagParameter:0"},
    {Op::AddValue, "Root.Annotation.Welding.FlagParameter:Parameter1:float:1.5:0"},
    {Op::AddValue, "Root.Annotation.Welding.FlagParameter:Parameter2:float:0.5:0"},
    {Op::AddValue, "Root.Annotation.Welding.FlagParameter:Parameter3:float:0.8:0"},
    {Op::AddValue, "Root.Styles.DistanceLengthDimension.Default.Value:BrokenDistance:enum.YesNo:No:0"},
    {Op::AddTypeValNode, "TypeDef:vector:0"},
    {Op::AddValue, "TypeDef.vector:Name:string:vector:0"},
    {Op::AddValue, "TypeDef.vector:description:string:0, 0, 0, 0, 10, 0;90, 0, 0, 0, 10, 0:0"},
    {Op::AddValue, "TypeDef.vector:scale:float:1.0:0"},
    {Op::AddValue, "TypeDef.vector:angle:float:0.0:0"},
    {Op::AddValue, "TypeDef.vector:color:int:255:0"},
    {Op::AddValue, "TypeDef.vector:lineType:int:1:0"},
    {Op::AddValue, "TypeDef.vector:thickness:int:1:0"},
    {Op::AddValue, "TypeDef.vector:fixedAngle:int:0:0"},
    {Op::AddNode, "Root.Patterns:vector:0"},
};

struct VectorPattern {
  const char* name;
  const char* description;
  const char* scale;
};

constexpr VectorPattern kR29Vectors[] = {
    {"wall_1",
     "*wall_1; 0, 0, 0, 8, 8, 15.625, -.375; 0, -8, .375, 8, 8, 15.625, -.375; 90, 0, 0, 8, 8, -8.375, 7.625; 90, "
     "-0.375, 0, 8, 8, -8.375, 7.625",
     "1.0"},
    {"Grass_1",
     "*Grass_1; 90 0 0 .707106781 .707106781 .1875 -1.226713563; 45 0 0 0 1 .1875 -.8125; 135 0 0 0 1 .1875 -.8125",
     "10.0"},
    {"Honeycomb_1",
     "*Honeycomb_1; 0 0 0 1.875 1.08253175 1.25 -2.5; 120 0 0 1.875 1.08253175 1.25 -2.5; 60 0 0 1.875 1.08253175 "
     "-2.5 1.25",
     "10.0"},
};

// The rows write linetype where the record type writes lineType; both stay, as files carry them.
constexpr Op kR29VectorTail[] = {
    {Op::AddValue, "Root.Patterns.vector.vector:angle:float:0.0:0", -1},
    {Op::AddValue, "Root.Patterns.vector.vector:color:int:255:0", -1},
    {Op::AddValue, "Root.Patterns.vector.vector:linetype:int:1:0", -1},
    {Op::AddValue, "Root.Patterns.vector.vector:thickness:int:1:0", -1},
    {Op::AddValue, "Root.Patterns.vector.vector:fixedAngle:int:0:0", -1},
};

constexpr NewRow kR29Rows[] = {
    {"<MinimaxFeat>"}, {"<LeastSquare>"},    {"<Circumscribed>"}, {"<Tangent>"},        {"<Inscribed>"},
    {"<AD>"},          {"<GC>"},             {"<LG>"},            {"<LC>"},             {"<SQ>"},
    {"<SUP>"},         {"<IdentInter>"},     {"<IdentFinalMach>"}, {"<IdentFinal>"},    {"<MobilityTrans>"},
    {"<MobilityRot>"}, {"<Gravity>"},
};

// ---------------------------------------------------------------------------------------------
// Release 30, level 230: indicator edges, profile symbols, welding enumerations.

constexpr Op kR30IndicatorEdge[] = {
    {Op::AddNode, "Root.Annotation:IndicatorEdge:0"},
    {Op::AddValue, "Root.Annotation.IndicatorEdge:LeaderVertSpace:float:3.0:0"},
    {Op::AddValue, "Root.Annotation.IndicatorEdge:Offset1:float:0.2:0"},
    {Op::AddValue, "Root.Annotation.IndicatorEdge:Offset2:float:0.2:0"},
    {Op::AddValue, "Root.Annotation.IndicatorEdge:Offset3:float:0.3:0"},
};

constexpr NewRow kR30Rows[] = {
    {"<DevelopedLength>"},       {"<LSection>"},
    {"<IBeamSection>"},          {"<ChannelSection>"},
    {"<HBeamSection>"},          {"<TSection>"},
    {"<FlatBar>"},               {"<SingleRoundHeadedFlats>"},
    {"<DoubleRoundHeadedFlats>"}, {"<UnequalRoundHeadedFlats>"},
    {"<ChamferedFlats>"},        {"<DiamondSection>"},
    {"<TrapezoidalSection>"},    {"<AngleSquareSection>"},
    {"<OvalTube>"},              {"<SlotWithRoundEndTube>"},
    {"<RightAngledTrapezoidTube>"}, {"<LSectionWithInnerEdge>"},
    {"<ScaleneChannelSection>"}, {"<ChannelSectionWithInnerEdge>"},
    {"<HatSection>"},            {"<ZSection>"},
    {"<LipZSection>"},           {"<ObliqueLipZSection>"},
    {"<RectangularHollowSection>"}, {"<PSectionTube>"},
    {"<SurfaceJoints>"},         {"<InclinedJoints>"},
    {"<FoldJoints>"},            {"<PressedJoints>"},
    {"<StraightSidedSpline>"},   {"<InvoluteSplineAndSerrations>"},
    {"<TOFROM>"},                {"<EndToEnd>"},
};

// The enumerations of welding as ISO and JIS deliver them from this release: VFlareWelding, Flush
// drop out; a style value that holds one keeps its text.
constexpr Op kR30WeldingEnums[] = {
    {Op::DeleteNode, "Enum.WeldingSymbol"},
    {Op::AddNode, "Enum:WeldingSymbol:19"},
    {Op::AddValue, "Enum.WeldingSymbol::string:None:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:SquareWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:VGrooveWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:HVGrooveWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:YGrooveWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:HYGrooveWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:UGrooveWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:HUGrooveWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:FilletWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:CFlangeWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:EFlangeWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:HVFlareWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:SpotWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:BackWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:HVOGrooveWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:VOGrooveWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:PlugWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:MRWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:MWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:RechargeWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:SpotJISWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:EdgeWelding:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:Consumable:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:Transparency:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:Overlay:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:EdgeCommon:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:MeltThruWelding:0"},
    {Op::DeleteNode, "Enum.SurfaceShape"},
    {Op::AddNode, "Enum:SurfaceShape:20"},
    {Op::AddValue, "Enum.SurfaceShape::string:None:0"},
    {Op::AddValue, "Enum.SurfaceShape::string:Flat:0"},
    {Op::AddValue, "Enum.SurfaceShape::string:Convex:0"},
    {Op::AddValue, "Enum.SurfaceShape::string:Concave:0"},
    {Op::AddValue, "Enum.SurfaceShape::string:Smooth:0"},
    {Op::DeleteNode, "Enum.FinishingMethod"},
    {Op::AddNode, "Enum:FinishingMethod:21"},
    {Op::AddValue, "Enum.FinishingMethod::string:None:0"},
    {Op::AddValue, "Enum.FinishingMethod::string:Chipping:0"},
    {Op::AddValue, "Enum.FinishingMethod::string:Machining:0"},
    {Op::AddValue, "Enum.FinishingMethod::string:Rolling:0"},
    {Op::AddValue, "Enum.FinishingMethod::string:X:0"},
    {Op::AddValue, "Enum.FinishingMethod::string:P:0"},
    {Op::AddValue, "Enum.FinishingMethod::string:EqualTo:0"},
    {Op::AddValue, "Enum.FinishingMethod::string:Perpendicular:0"},
};

// ---------------------------------------------------------------------------------------------
// Release 31, level 240: roughness layout, profile symbol corrections, jog and slope.

constexpr Op kR31Roughness[] = {
    {Op::AddValue, "Root.Annotation.Roughness.Layout:SecondRequirement:enum.AuthorizedMode:Not Authorized:0", 1, AA},
    {Op::ChangeValue, "Root.Annotation.Roughness.Layout.CutOff:Not Authorized", 1, IJ},
    {Op::ChangeValue, "Root.Annotation.Roughness.Layout.Max:Not Authorized", 1, IJ},
    {Op::ChangeValue, "Root.Annotation.Roughness.Layout.Min:Not Authorized", 1, IJ},
};

constexpr NewRow kR31RowsAnsiAsme[] = {
    {"<FROMTO>", Look::Heavy},          {"<ToFromNotFilled>", Look::Slanted}, {"<FromToNotFilled>", Look::Thin},
    {"<BETWEEN>", Look::Heavy},         {"<DynamicProfile>", Look::Slanted},
};
constexpr NewRow kR31RowsIsoJis[] = {{"<ToFromNotFilled>", Look::Thin}, {"<FromToNotFilled>", Look::Thin}};

// The next release moves both nodes under "Root.Dimension".
constexpr Op kR31JogSlope[] = {
    {Op::AddNode, "Root.DressUp.Symbols:Jog:0"},
    {Op::AddValue, "Root.DressUp.Symbols.Jog:LeftWidth:float:5:0"},
    {Op::AddValue, "Root.DressUp.Symbols.Jog:RightWidth:float:5:0"},
    {Op::AddValue, "Root.DressUp.Symbols.Jog:Height:float:10:0"},
    {Op::AddNode, "Root.DressUp.Symbols:Slope:0"},
    {Op::AddValue, "Root.DressUp.Symbols.Slope:Width:float:5:0"},
    {Op::AddValue, "Root.DressUp.Symbols.Slope:Height:float:5:0"},
    {Op::AddValue, "Root.DressUp.Symbols.Slope:Contour:string:Open:0"},
    {Op::UpdateVersion, "230:240"},
};

// ---------------------------------------------------------------------------------------------
// Release 32, level 250: witness lines, jog and slope moved, symbol sizes, legacy formats.

constexpr const char* kR32WitnessFamilies[] = {
    "DistanceLengthDimension", "AngleDimension", "RadiusDimension", "DiameterDimension", "ChamferDimension",
    "CoordinateDimension",     "Text",           "Table",           "DatumFeature",      "DatumTarget",
    "Tolerance",               "Balloon",        "IndicatorEdge",   "RoughnessSymbol",   "WeldingSymbol",
};

// A customised value of the release before is not carried across: the release added the delivered one.
constexpr Op kR32JogSlope[] = {
    {Op::AddValue, "Enum.BlankRemoveStrike::string:DoNotDisplay:0"},
    {Op::DeleteNode, "Root.DressUp.Symbols.Slope"},
    {Op::DeleteNode, "Root.DressUp.Symbols.Jog"},
    {Op::AddNode, "Root.Dimension:Jog:0"},
    {Op::AddValue, "Root.Dimension.Jog:LeftWidth:float:5:0"},
    {Op::AddValue, "Root.Dimension.Jog:RightWidth:float:5:0"},
    {Op::AddValue, "Root.Dimension.Jog:Height:float:10:0"},
    {Op::AddNode, "Root.Dimension:Slope:0"},
    {Op::AddValue, "Root.Dimension.Slope:Width:float:5:0"},
    {Op::AddValue, "Root.Dimension.Slope:Height:float:5:0"},
    {Op::AddValue, "Root.Dimension.Slope:Contour:string:Open:0"},
    {Op::ChangeValue, "Root.DressUp.Symbols.Circle.Diameter:3", 1, ISO, true},
    {Op::ChangeValue, "Root.DressUp.Symbols.FilledCircle.Diameter:3", 1, ISO, true},
    {Op::ChangeValue, "Root.DressUp.Symbols.SymetricCircle.Diameter:3", 1, ISO, true},
    {Op::ChangeValue, "Root.DressUp.Symbols.CrossCircle.Diameter:3", 1, ISO, true},
    {Op::ChangeValue, "Root.DressUp.Symbols.Slash.Length:3", 1, ISO, true},
    {Op::ChangeValue, "Root.DressUp.Symbols.Triangle.Length:3", 1, ISO, true},
    {Op::ChangeValue, "Root.DressUp.Symbols.FilledTriangle.Length:3", 1, ISO, true},
    {Op::ChangeValue, "Root.DressUp.Symbols.Plus.Length:3", 1, ISO, true},
    {Op::ChangeValue, "Root.DressUp.Symbols.Cross.Length:3", 1, ISO, true},
    {Op::ChangeValue, "Root.DressUp.Symbols.Cross.Length:9.8995", 1, AA, true},
};

// ---------------------------------------------------------------------------------------------
// Release 33, level 260: sheet edition colours, callout text position, datum frames, TED and
// basic dimension styles, TOL_1.1, the standard's mode.

constexpr const char* kR33DimensionFamilies[] = {"DistanceLengthDimension", "AngleDimension", "RadiusDimension",
                                                 "DiameterDimension", "ChamferDimension"};

constexpr Op kR33Colors[] = {
    {Op::AddValue, "Root.General.SheetColors.View background:InnerFrameColor:color:239 240 245:0"},
    {Op::AddValue, "Root.General.SheetColors.View background:EditionColor:color:169 169 169:0"},
};

constexpr NewRow kR33Rows[] = {
    {"<ArcArrow1>", Look::Heavy},   {"<ArcArrow2>", Look::Heavy}, {"<Transition1>", Look::Heavy},
    {"<Transition2>", Look::Heavy}, {"<Z1>", Look::Heavy},        {"<Z2>", Look::Heavy},
};

constexpr Op kR33Callouts[] = {
    {Op::AddNode, "Enum:TextAttachmentMode:0"},
    {Op::AddValue, "Enum.TextAttachmentMode::string:ArrowSide:0"},
    {Op::AddValue, "Enum.TextAttachmentMode::string:Outside:0"},
    {Op::AddValue, "Enum.TextAttachmentMode::string:Arrow:0"},
    {Op::AddValue, "Enum.TextAttachmentMode::string:ArrowMiddle:0"},
    {Op::AddValue, "Root.Styles.SectionCallout.Default.Text:TextPosition:enum.TextAttachmentMode:ArrowSide:0"},
    {Op::AddValue, "Root.Styles.ProjectionCallout.Default.Text:TextPosition:enum.TextAttachmentMode:ArrowSide:0"},
    {Op::AddNode, "Root.Styles.DatumFeature.Default:Text:0"},
    {Op::AddValue, "Root.Styles.DatumFeature.Default.Text:Frame:enum.Frame:Rectangle:0", 1, IJ},
    {Op::AddValue, "Root.Styles.DatumFeature.Default.Text:Frame:enum.Frame:Square:0", 1, AA},
    {Op::AddValue, "Root.Styles.DatumFeature.Default.Text.Frame:FrameName:string::0"},
};

// ---------------------------------------------------------------------------------------------
// Release 34, level 270: roughness type Line, transition surfaces, text symbols.

constexpr Op kR34Roughness[] = {
    {Op::AddValue, "Enum.RoughnessType::string:Line:0", 1, ISO},
    {Op::ChangeValue, "Root.Styles.RoughnessSymbol.Default.Values.Type:Line", 1, ISO, true},
};

constexpr NewRow kR34Rows[] = {
    {"<AsymptoticallyEqualTo>", Look::Heavy},
    {"<PropertyLine>", Look::Heavy},
    {"<PartingSurfaceMoving>", Look::Heavy},
    {"<UpperHalfCircle>", Look::Heavy},
    {"<UpperHalfCircleBlackFilled>", Look::Heavy},
    {"<HorizontalLeftBottomAngleTriangle>", Look::Heavy},
    {"<HorizontalRightTopAngleTriangle>", Look::Heavy},
    {"<HorizontalLeftTopAngleTriangle>", Look::Heavy},
    {"<HorizontalRightBottomAngleTriangle>", Look::Heavy},
    {"<VerticalRightBottomAngleTriangle>", Look::Heavy},
    {"<VerticalRightTopAngleTriangle>", Look::Heavy},
    {"<VerticalLeftBottomAngleTriangle>", Look::Heavy},
    {"<VerticalLeftTopAngleTriangle>", Look::Heavy},
    {"<Sink>", Look::Heavy},
    {"<VerticalRightBottomTopAngleTriangles>", Look::Heavy},
    {"<VerticalLeftBottomTopAngleTriangles>", Look::Heavy},
    {"<HorizontalLeftRightBottomAngleTriangles>", Look::Heavy},
    {"<HorizontalLeftRightTopAngleTriangles>", Look::Heavy},
    {"<PartingSurfaceMovingFixed>", Look::Heavy},
    {"<Porosity>", Look::Heavy},
    {"<UndisturbedSurfs>", Look::Heavy},
    {"<EjectorMark>", Look::Heavy},
    {"<SurfaceEnlargement>", Look::Heavy},
    {"<PredominantDirectionPerpendicular>", Look::Heavy},
    {"<PredominantDirectionParallel>", Look::Heavy},
    {"<SurfaceCenterCircular>", Look::Heavy},
    {"<PredominantDirectionAngle>", Look::Heavy},
    {"<OhmLowerCase>", Look::Heavy},
    {"<TradeMark>", Look::Heavy},
    {"<AlmostEqualTo>", Look::Heavy},
    {"<NotEqualTo>", Look::Heavy},
};

// ---------------------------------------------------------------------------------------------
// Release 35, level 280: filled triangles, roughness symbol types, blanking of leaders, the
// curvilinear family, deformed components.

constexpr NewRow kR35Rows[] = {
    {"<Multiply>", Look::Heavy},
    {"<HorizontalRightBottomAngleTriangleInCircle>", Look::Heavy, "Yes"},
    {"<HorizontalRightBottomAngleTriangleInCircleFilled>", Look::Heavy, "Yes"},
    {"<HorizontalLeftBottomAngleTriangleFilled>", Look::Heavy},
    {"<HorizontalRightTopAngleTriangleFilled>", Look::Heavy},
    {"<HorizontalLeftTopAngleTriangleFilled>", Look::Heavy},
    {"<HorizontalRightBottomAngleTriangleFilled>", Look::Heavy},
    {"<VerticalRightBottomAngleTriangleFilled>", Look::Heavy},
    {"<VerticalRightTopAngleTriangleFilled>", Look::Heavy},
    {"<VerticalLeftBottomAngleTriangleFilled>", Look::Heavy},
    {"<VerticalLeftTopAngleTriangleFilled>", Look::Heavy},
};

// Which roughness symbols a parent allows: Authorized or Not Authorized by parent.
struct SymbolType {
  const char* name;
  const char* isoJis;
  const char* ansiAsme;
};

constexpr SymbolType kR35SymbolTypes[] = {
    {"Rough_Basic", "Not Authorized", "Authorized"},
    {"Rough_RemovalRequired", "Not Authorized", "Authorized"},
    {"Rough_RemovalProhibited", "Not Authorized", "Authorized"},
    {"Rough_Line", "Authorized", "Not Authorized"},
    {"Rough_LineRemovalRequired", "Authorized", "Not Authorized"},
    {"Rough_LineRemovalProhibited", "Authorized", "Not Authorized"},
    {"Rough_Surface", "Authorized", "Not Authorized"},
    {"Rough_SurfaceRemovalRequired", "Authorized", "Not Authorized"},
    {"Rough_SurfaceRemovalProhibited", "Authorized", "Not Authorized"},
};

constexpr const char* kR35BlankingFamilies[] = {
    "CoordinateDimension", "Text",        "Table",          "DatumFeature",      "DatumTarget",  "Tolerance",
    "Balloon",             "RoughnessSymbol", "IndicatorEdge", "TransitionSurface", "WeldingSymbol",
};

// ---------------------------------------------------------------------------------------------
// Release 36, level 290: the three codes of level 220 that belong to the font's private area.

struct CodeMove {
  int from;
  int to;
};
constexpr CodeMove kR36Codes[] = {{9634, 61963}, {9635, 61964}, {9636, 61965}};

// Appends a field to the record just added.
void AddRecordValue(ZOLAnnStandardXMLParser* parser, const std::string& at, const char* name, const char* type,
                    const std::string& text) {
  parser->AddValueWithPath(at + name + ":" + type + ":" + text + ":0", -1);
}

std::string Number(int value) { return std::to_string(value); }
std::string Number(double value) {
  ZOLUnicodeString text;
  text.BuildFromNum(value, "%g");
  return text.str();
}

}  // namespace

// ---------------------------------------------------------------------------------------------
// The legacy formats.

void AddToleranceDisplay(ZOLAnnStandardXMLParser* parser, const std::shared_ptr<QelStdToleranceDescription>& description) {
  if (!parser || !description) return ZOLAssertPointer("");
  const QelStdToleranceDescription& d = *description;
  parser->AddNodeWithPath("Root.ToleranceFormats:ToleranceDisplay:0", 1);
  const std::string at = "Root.ToleranceFormats.ToleranceDisplay:";
  AddRecordValue(parser, at, "Name", "string", d.Name.str());
  const std::pair<const char*, int> ints1[] = {{"TolType", d.TolType}, {"TolSepar_1", d.TolSepar_1}, {"TolSepar_2", d.TolSepar_2}};
  for (const auto& [name, value] : ints1) AddRecordValue(parser, at, name, "int", Number(value));
  AddRecordValue(parser, at, "TolSymbolH", "float", Number(d.TolSymbolH));
  const std::pair<const char*, int> ints2[] = {
      {"TolSepTo_1", d.TolSepTo_1},     {"TolSepTo_2", d.TolSepTo_2},     {"TolSepTo_3", d.TolSepTo_3},
      {"TolTrailing", d.TolTrailing},   {"TolFractLine", d.TolFractLine}, {"TolPtOnValue", d.TolPtOnValue},
      {"TolAnchorPt", d.TolAnchorPt}};
  for (const auto& [name, value] : ints2) AddRecordValue(parser, at, name, "int", Number(value));
  const std::pair<const char*, double> floats1[] = {
      {"TolIntX", d.TolIntX}, {"TolIntY", d.TolIntY}, {"TolExtX", d.TolExtX}, {"TolExtY", d.TolExtY}};
  for (const auto& [name, value] : floats1) AddRecordValue(parser, at, name, "float", Number(value));
  AddRecordValue(parser, at, "TolMergeSame", "int", Number(d.TolMergeSame));
  AddRecordValue(parser, at, "TolShowNull", "int", Number(d.TolShowNull));
  AddRecordValue(parser, at, "TolScale", "float", Number(d.TolScale));
  AddRecordValue(parser, at, "TolDispFact", "float", Number(d.TolDispFact));
}

void AddNumericalDisplay(ZOLAnnStandardXMLParser* parser, const std::shared_ptr<QelStdUnitDescription>& description) {
  if (!parser || !description) return ZOLAssertPointer("");
  const QelStdUnitDescription& d = *description;
  parser->AddNodeWithPath("Root.ValueFormats:NumericalDisplay:0", 1);
  const std::string at = "Root.ValueFormats.NumericalDisplay:";
  AddRecordValue(parser, at, "Name", "string", d.Name.str());
  const std::pair<const char*, int> ints1[] = {{"NDType", d.NDType},         {"NDUnit", d.NDUnit},
                                               {"NDFact", d.NDFact},         {"NDExise", d.NDExise},
                                               {"NDNulFac_1", d.NDNulFac_1}, {"NDNulFac_2", d.NDNulFac_2}};
  for (const auto& [name, value] : ints1) AddRecordValue(parser, at, name, "int", Number(value));
  // Separators are UTF-8 text as the description holds them (the degree sign is two bytes).
  const std::pair<const char*, const ZOLUnicodeString*> separators[] = {
      {"NDSepar_1", &d.NDSepar_1}, {"NDSepar_2", &d.NDSepar_2}, {"NDSepar_3", &d.NDSepar_3}};
  for (const auto& [name, value] : separators) AddRecordValue(parser, at, name, "string", value->str());
  const std::pair<const char*, int> ints2[] = {
      {"NDNulOther", d.NDNulOther},
      {"NDTypFrac", d.NDTypFrac},
      {"NDFinZer", d.NDFinZer},
      {"NDSepNum", QelStandardServices::GetSymbolFromTable(d.NDSepNum)},
      {"NDSep1000", QelStandardServices::GetSymbolFromTable(d.NDSep1000)}};
  for (const auto& [name, value] : ints2) AddRecordValue(parser, at, name, "int", Number(value));
  const std::pair<const char*, double> floats[] = {
      {"NDGlobFact", d.NDGlobalFact}, {"NDFact_1", d.NDFact_1},     {"NDFact_2", d.NDFact_2},
      {"NDFact_3", d.NDFact_3},       {"NDValPos_1", d.NDValPos_1}, {"NDValPos_2", d.NDValPos_2},
      {"NDValPos_3", d.NDValPos_3},   {"NDSepPos_1", d.NDSepPos_1}, {"NDSepPos_2", d.NDSepPos_2},
      {"NDSepPos_3", d.NDSepPos_3},   {"NDSepScl_1", d.NDSepScl_1}, {"NDSepScl_2", d.NDSepScl_2},
      {"NDSepScl_3", d.NDSepScl_3},   {"NDResScl", d.NDResScl},     {"NDRestX", d.NDRestX},
      {"NDRestY", d.NDRestY},         {"NDOperY", d.NDOperY}};
  for (const auto& [name, value] : floats) AddRecordValue(parser, at, name, "float", Number(value));
  AddRecordValue(parser, at, "NDSepDen", "int", Number(d.NDSepDen));
}

// ---------------------------------------------------------------------------------------------
// The steps.

void Migrate420To29n421(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR29Start);
  for (const VectorPattern& v : kR29Vectors) {
    parser->AddNodeWithPath("Root.Patterns.vector:vector:0", 1);
    const std::string at = "Root.Patterns.vector.vector:";
    parser->AddValueWithPath(at + "Name:string:" + v.name + ":0", -1);
    parser->AddValueWithPath(at + "description:string:" + v.description + ":0", -1);
    parser->AddValueWithPath(at + "scale:float:" + v.scale + ":0", -1);
    ZOLDrwRunEditTable(context, kR29VectorTail);
  }
  if (context.UpdateDefaultValues()) {
    AddRows(context, kR29Rows, 72, IJ);
    AddRows(context, kR29Rows, 62, AA);
    ForEachSymbolRow(parser, false, [](ZOLAnnStandardXMLNode* row, const std::string& name) {
      if (name == "<ORIENTATIONCONSTRAINTONLY>") SetField(row, "ToleranceValue", "Yes");
      return true;
    });
  }
  UpdateVersionNode(parser, "210", "220");
}

void Migrate421To30n422(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  AddAnnotationFamily(context, "IndicatorEdge", 18, "3.0");
  ZOLDrwRunEditTable(context, kR30IndicatorEdge);
  if (context.UpdateDefaultValues()) {
    const int bit = ZOLDrwParentBit(context.Parent());
    if (!(bit & (AA | IJ))) ZOLAssertMessage("Unknown parent standard!");
    AddRows(context, kR30Rows, 89, IJ);
    AddRows(context, kR30Rows, 79, AA);
    ForEachSymbolRow(parser, true, [](ZOLAnnStandardXMLNode* row, const std::string& name) {
      return (name != "<DEGREE>" && name != "<SQUARE>") || SetField(row, "ToleranceValue", "Yes");
    });
    if (bit & IJ) ZOLDrwRunEditTable(context, kR30WeldingEnums);
  }
  UpdateVersionNode(parser, "220", "230");
}

void Migrate422To31n423(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  parser->DeleteNodeWithPath("Root.Styles.IndicatorEdge.Default.Text.LineSpacingMode");
  if (context.UpdateDefaultValues()) {
    const int bit = ZOLDrwParentBit(context.Parent());
    if (!(bit & (AA | IJ))) ZOLAssertMessage("Unknown parent standard!");
    ZOLDrwRunEditTable(context, kR31Roughness);
    ForEachSymbolRow(parser, false, [bit](ZOLAnnStandardXMLNode* row, const std::string& name) {
      if (bit & AA) {
        if (name == "<FREESTATE>") SetField(row, "DatumReference", "Yes");
        if (name == "<CF>") SetField(row, "Notes", "Yes");
      }
      if (name == "<FROMTO>" || name == "<TOFROM>" || name == "<BETWEEN>") {
        const ZOLDrwRelease21Symbol* s = ZOLDrwFindRelease29Symbol(name);
        SetField(row, "Font", "KVISO1.otf");
        SetField(row, "Charcode", std::to_string(s->charcode));
        SetField(row, "Icon16x16", s->heavy16);
        SetField(row, "Icon22x22", s->heavy22);
      }
      return true;
    });
    AddRows(context, kR31RowsAnsiAsme, 113, AA);
    AddRows(context, kR31RowsIsoJis, 123, IJ);
  }
  ZOLDrwRunEditTable(context, kR31JogSlope);
}

void Migrate423To32n424(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  for (const char* family : kR32WitnessFamilies) AddWitnessLine(parser, family);
  ZOLDrwRunEditTable(context, kR32JogSlope);
  for (const auto& unit : QelStandardServices::GetLegacyV4Units()) AddNumericalDisplay(parser, unit);
  for (const auto& tolerance : QelStandardServices::GetLegacyV4Tolerances()) AddToleranceDisplay(parser, tolerance);
  UpdateVersionNode(parser, "240", "250");
}

void Migrate424To33n425(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  const int bit = ZOLDrwParentBit(context.Parent());
  ZOLDrwRunEditTable(context, kR33Colors);
  if (context.UpdateDefaultValues()) {
    if (bit == ISO)
      for (const char* family : kR33DimensionFamilies)
        for (const char* side : {"Left", "Right"})
          parser->ChangeValueWithPath(std::string("Root.Styles.") + family + ".Default.ExtensionLine." + side +
                                      ".Blanking:1.04");
    AddRows(context, kR33Rows, 125, IJ);
    AddRows(context, kR33Rows, 118, AA);
  }
  ZOLDrwRunEditTable(context, kR33Callouts);
  if (context.UpdateDefaultValues()) {
    if (ZOLAnnStandardXMLNode* properties = Find(parser, "Root.Styles.BillOfMaterial.Default.Properties")) {
      // Deleting a row moves the vector: walk by index.
      for (size_t i = 0; i < properties->SubNodes().size();) {
        ZOLAnnStandardXMLNode* row = properties->SubNodes()[i];
        ZOLAnnStandardXMLValue* name = Field(row, "Name");
        if (name && name->Value() == "Weight") {
          properties->DeleteSubNode(static_cast<int>(i));
          continue;
        }
        if (name && name->Value() == "PLM_ExternalID") name->SetValue("V_Name");
        ++i;
      }
    }
  }
  if (bit & IJ) {
    for (const char* family : kR33DimensionFamilies) AddTedStyle(parser, context.Parent(), family);
    parser->ChangeValueWithPath("Root.Styles.ChamferDimension.TED.Framing.FramedSubpart:Value and tolerance and texts");
  } else if (bit & AA) {
    for (const char* family : kR33DimensionFamilies) AddBasicDimensionStyle(parser, family);
  }
  AddToleranceDisplay(parser, std::make_shared<QelStdToleranceDescription>(
                                  "TOL_1.1", 2, 0, 0, 1.0, 0, 0, 0, 2, 1, 9, 3, 0.0, 0.5, 0.5, 0.0, 2, 2, 1.0, 1.0));
  parser->AddValueWithPath("Root:StandardMode:string:Default:16", 1);
  UpdateVersionNode(parser, "250", "260");
}

void Migrate425To34n426(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  ZOLDrwRunEditTable(context, kR34Roughness);
  AddAnnotationFamily(context, "TransitionSurface", 21, "0.0");
  AddWitnessLine(parser, "TransitionSurface");
  if (context.UpdateDefaultValues()) {
    AddRows(context, kR34Rows, 131, IJ);
    AddRows(context, kR34Rows, 124, AA);
  }
  UpdateVersionNode(parser, "260", "270");
}

void Migrate426To35n427(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  const int bit = ZOLDrwParentBit(context.Parent());
  if (context.UpdateDefaultValues()) {
    AddRows(context, kR35Rows, 162, IJ);
    AddRows(context, kR35Rows, 155, AA);
  }
  parser->AddNodeWithPath("Root.Annotation.Roughness:SymbolType:2", 0);
  if (!(bit & (AA | IJ))) ZOLAssertMessage("Unknown parent standard!");
  for (const SymbolType& type : kR35SymbolTypes) {
    if (!(bit & (AA | IJ))) break;
    parser->AddValueWithPath(std::string("Root.Annotation.Roughness.SymbolType:") + type.name +
                                 ":enum.AuthorizedMode:" + ((bit & IJ) ? type.isoJis : type.ansiAsme) + ":0",
                             1);
  }
  for (const char* family : kR35BlankingFamilies)
    parser->AddValueWithPath(std::string("Root.Styles.") + family + ".Default.Leader:BlankingBoundingBox:enum.YesNo:Yes:0", 1);
  AddCurvilinearLengthDimension(parser, context.Parent());
  parser->AddValueWithPath("Root.Styles.BillOfMaterial.Default:DeformedComponentsVisibility:enum.YesNo:Yes:0", 1);
  UpdateVersionNode(parser, "270", "280");
}

void Migrate427To36n428(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (context.UpdateDefaultValues()) {
    if (ZOLAnnStandardXMLNode* table = Find(parser, kSymbolTable)) {
      for (ZOLAnnStandardXMLNode* row : table->SubNodes()) {
        ZOLAnnStandardXMLValue* code = row->Name() == "EngineeringSymbol" ? Field(row, "Charcode") : nullptr;
        if (!code) {
          ZOLAssertMessage("Engineering symbol row without Charcode");
          continue;
        }
        const int value = std::atoi(code->Value().str().c_str());
        for (const CodeMove& move : kR36Codes)
          if (value == move.from) code->SetValue(ZOLUnicodeString(std::to_string(move.to)));
      }
    }
  }
  UpdateVersionNode(parser, "280", "290");
}
