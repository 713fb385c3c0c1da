// The steps from release 21 to release 28: view names and texts, bill of material styles, the
// symbol table, sheet colours, colourings and dottings, frame positions, welding and tolerance
// display. Each step is a table of edits in the order the release made them, with code only where
// a step reads the tree and decides.
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLRefCounted.h"
#include "ZOLSysLog.h"
#include "upgrade/migration/ZOLDrwMigrateR21ToR28.h"
#include "upgrade/migration/ZOLDrwStyleBuilders.h"

namespace {

using Op = ZOLDrwEditOp;
constexpr int AA = kZOLDrwAnsiAsme;
constexpr int IJ = kZOLDrwIsoJis;
constexpr int ISO = 4;

// The display name of the font file KVISO1.otf, as the text style names it.
constexpr std::string_view kKvIsoFontName = "KV ISO 1 (OpenType)";

// The node at a path, without a new reference while the tree holds it; or null.
ZOLAnnStandardXMLNode* Find(ZOLAnnStandardXMLParser* parser, const std::string& path) {
  ZOLRef<ZOLAnnStandardXMLNode> node = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(parser->GetNodeWithPath(path));
  return node.get();
}

std::string Text(ZOLAnnStandardXMLParser* parser, const std::string& path) {
  return parser->GetValueWithPath(path).str();
}

bool IsAnsiOrAsme(const ZOLDrwMigrationContext& context) {
  return context.Parent() == "ANSI" || context.Parent() == "ASME";
}
bool IsIsoOrJis(const ZOLDrwMigrationContext& context) {
  return context.Parent() == "ISO" || context.Parent() == "JIS";
}

// The text of a value that differs between ANSI-ASME and ISO-JIS; null, reported, for any other parent.
const char* ByParent(const ZOLDrwMigrationContext& context, const char* ansiAsme, const char* isoJis) {
  if (IsAnsiOrAsme(context)) return ansiAsme;
  if (IsIsoOrJis(context)) return isoJis;
  ZOLAssertMessage("Unknown parent standard!");
  return nullptr;
}

// Appends a direct value to a node of the tree.
void AddField(ZOLAnnStandardXMLNode* node, ZOLAnnStandardXMLValue::Type type, const char* name, const std::string& text) {
  ZOLRef<ZOLAnnStandardXMLValue> value =
      ZOLRef<ZOLAnnStandardXMLValue>::Adopt(new ZOLAnnStandardXMLValue(type, ZOLUnicodeString(text), name, 0));
  node->AddValue(value.get(), -1);
}

// Adds to every sub-node of that name below a branch a direct integer value, counted from 1.
void NumberRows(ZOLAnnStandardXMLParser* parser, const char* branch, std::string_view row, const char* field) {
  ZOLAnnStandardXMLNode* node = Find(parser, branch);
  if (!node) return;
  int count = 0;
  for (ZOLAnnStandardXMLNode* sub : node->SubNodes())
    if (sub->Name() == row) AddField(sub, ZOLAnnStandardXMLValue::IntValue, field, std::to_string(++count));
}

// Deletes a branch and adds it again, empty, where it stood.
void RecreateBranch(ZOLAnnStandardXMLParser* parser, const std::string& parent, const std::string& name) {
  ZOLAnnStandardXMLNode* node = Find(parser, parent);
  int place = 0;
  if (node)
    for (size_t i = 0; i < node->SubNodes().size(); ++i)
      if (node->SubNodes()[i]->Name().str() == name) place = static_cast<int>(i) + 1;
  parser->DeleteNodeWithPath(parent + "." + name);
  // A branch that stood last is appended: a position one past the end would be refused.
  if (node && place > node->GetNumOfNode()) place = 0;
  parser->AddNodeWithPath(parent + ":" + name + ":" + std::to_string(place), 0);
}

// ---------------------------------------------------------------------------------------------
// The symbol table.

constexpr const char* kSymbolRow = "Root.EngineeringSymbols.EngineeringSymbol";

// The look of the icons and the font of new rows: the heavy look and KVISO1.otf for ISO and JIS
// whose text font is KV ISO 1, the thin look and SYM2.font for other ISO and JIS standards, the
// slanted look and SYM1.font for ANSI and ASME.
enum class Look { Heavy, Thin, Slanted, None };

Look LookOf(const ZOLDrwMigrationContext& context) {
  if (IsIsoOrJis(context))
    return Text(context.Parser(), "Root.Styles.Text.Default.Font.Name") == kKvIsoFontName ? Look::Heavy : Look::Thin;
  if (IsAnsiOrAsme(context)) return Look::Slanted;
  return Look::None;
}

const char* FontOf(Look look) {
  return look == Look::Heavy ? "KVISO1.otf" : look == Look::Thin ? "SYM2.font" : "SYM1.font";
}
const char* Icon16(const ZOLDrwRelease21Symbol& s, Look look) {
  return look == Look::Heavy ? s.heavy16 : look == Look::Thin ? s.thin16 : s.slanted16;
}
const char* Icon22(const ZOLDrwRelease21Symbol& s, Look look) {
  return look == Look::Heavy ? s.heavy22 : look == Look::Thin ? s.thin22 : s.slanted22;
}

// The Position of the last row of the table, 0 for none.
int LastSymbolPosition(ZOLAnnStandardXMLParser* parser) {
  ZOLAnnStandardXMLNode* table = Find(parser, "Root.EngineeringSymbols");
  if (!table || table->SubNodes().empty()) return 0;
  ZOLAnnStandardXMLValue* position = table->SubNodes().back()->FindValueByName("Position");
  return position ? std::atoi(position->Value().str().c_str()) : 0;
}

// A row of a symbol table of a release: the symbol, and the parents whose table holds it (0 all).
struct SymbolLine {
  const char* name;
  int parentMask = 0;
};

// Appends the rows of the parent's table in the parent's look, numbered after the last row present.
void AddSymbolLines(ZOLDrwMigrationContext& context, std::span<const SymbolLine> lines) {
  const Look look = LookOf(context);
  if (look == Look::None) return;
  const int bit = ZOLDrwParentBit(context.Parent());
  int position = LastSymbolPosition(context.Parser());
  for (const SymbolLine& line : lines) {
    if (line.parentMask && !(line.parentMask & bit)) continue;
    const ZOLDrwRelease21Symbol* s = ZOLDrwFindRelease21Symbol(line.name);
    if (!s) {
      ZOLAssertPointer(line.name);
      continue;
    }
    const std::string row[] = {s->name, std::to_string(++position), FontOf(look), std::to_string(s->charcode),
                               Icon16(*s, look), Icon22(*s, look)};
    AddEngineeringSymbol(context.Parser(), row);
  }
}

// The row of that name, or null.
ZOLAnnStandardXMLNode* SymbolRow(ZOLAnnStandardXMLParser* parser, std::string_view name) {
  ZOLAnnStandardXMLNode* table = Find(parser, "Root.EngineeringSymbols");
  if (!table) return nullptr;
  for (ZOLAnnStandardXMLNode* row : table->SubNodes()) {
    ZOLAnnStandardXMLValue* value = row->FindValueByName("Name");
    if (value && value->Value() == name) return row;
  }
  return nullptr;
}

// ---------------------------------------------------------------------------------------------
// Release 21, level 120: view names and view texts.

constexpr Op kR21ViewEnums[] = {
    {Op::AddNode, "Enum:ScaleSeparatorSymbol:0"},
    {Op::AddValue, "Enum.ScaleSeparatorSymbol::string:Colon:0"},
    {Op::AddValue, "Enum.ScaleSeparatorSymbol::string:Slash:0"},
    {Op::AddNode, "Enum:ViewTextAlignment:0"},
    {Op::AddValue, "Enum.ViewTextAlignment::string:TopLeft:0"},
    {Op::AddValue, "Enum.ViewTextAlignment::string:TopCenter:0"},
    {Op::AddValue, "Enum.ViewTextAlignment::string:TopRight:0"},
    {Op::AddValue, "Enum.ViewTextAlignment::string:BottomLeft:0"},
    {Op::AddValue, "Enum.ViewTextAlignment::string:BottomCenter:0"},
    {Op::AddValue, "Enum.ViewTextAlignment::string:BottomRight:0"},
    {Op::AddNode, "Enum:DisplayScaleMode:0"},
    {Op::AddValue, "Enum.DisplayScaleMode::string:Always:0"},
    {Op::AddValue, "Enum.DisplayScaleMode::string:Never:0"},
    {Op::AddValue, "Enum.DisplayScaleMode::string:WhenDifferentFromSheetScale:0"},
};

// A value chosen by parent: its text for ANSI and ASME and for ISO and JIS.
struct ParentValue {
  const char* name;
  const char* type;
  const char* ansiAsme;
  const char* isoJis;
};

// Automatic of each view kind.
constexpr ParentValue kR21ViewNames[] = {
    {"Front", "enum.YesNo", "Yes", "Yes"},     {"Left", "enum.YesNo", "Yes", "Yes"},
    {"Right", "enum.YesNo", "Yes", "Yes"},     {"Top", "enum.YesNo", "Yes", "Yes"},
    {"Bottom", "enum.YesNo", "Yes", "Yes"},    {"Rear", "enum.YesNo", "Yes", "Yes"},
    {"Auxiliary", "enum.YesNo", "Yes", "No"},  {"Section", "enum.YesNo", "Yes", "No"},
    {"SectionCut", "enum.YesNo", "Yes", "No"}, {"Detail", "enum.YesNo", "Yes", "No"},
    {"Isometric", "enum.YesNo", "Yes", "Yes"}, {"Axonometric", "enum.YesNo", "Yes", "Yes"},
    {"Unfolded", "enum.YesNo", "Yes", "Yes"},
};

// AddViewName of each view class.
constexpr ParentValue kR21ViewClasses[] = {
    {"Primary", "enum.YesNo", "No", "No"},     {"Principal", "enum.YesNo", "No", "No"},
    {"Auxiliary", "enum.YesNo", "Yes", "Yes"}, {"Section", "enum.YesNo", "Yes", "Yes"},
    {"SectionCut", "enum.YesNo", "Yes", "Yes"}, {"Detail", "enum.YesNo", "Yes", "Yes"},
    {"Isometric", "enum.YesNo", "Yes", "No"},  {"Axonometric", "enum.YesNo", "Yes", "No"},
};

constexpr ParentValue kR21ViewScale[] = {
    {"ScaleString", "string", "#SCALE#: #SCALE_ATTR#", " (#SCALE_ATTR#)"},
    {"DisplayOnANewLine", "enum.YesNo", "Yes", "No"},
    {"FontSizeRatio", "int", "50", "100"},
    {"Display", "enum.DisplayScaleMode", "WhenDifferentFromSheetScale", "WhenDifferentFromSheetScale"},
};

// Adds the value below the node of the path; a value that the parent decides is left out, with a
// report, for a parent that is none of the four.
void AddParentValue(ZOLDrwMigrationContext& context, const std::string& path, const ParentValue& v) {
  const char* text = std::string_view(v.ansiAsme) == v.isoJis ? v.isoJis : ByParent(context, v.ansiAsme, v.isoJis);
  if (!text) return;
  // A colon would cut an edit line short; such a text goes onto its node directly.
  if (std::string_view(text).find(':') != std::string_view::npos) {
    if (ZOLAnnStandardXMLNode* node = Find(context.Parser(), path))
      node->AddNodeWithValue(v.name, ZOLAnnStandardXMLValue::StringValue, text, "", -1);
    return;
  }
  context.Parser()->AddValueWithPath(path + ":" + v.name + ":" + v.type + ":" + text + ":0", 1);
}

const ZOLDrwParseStandardBomProperty kR21BomProperties[] = {
    {"ItemNumber", "30", "1"}, {"PLM_ExternalID", "110", "2"}, {"V_description", "60", "3"}, {"Quantity", "30", "4"}};

// Default of Text cloned as ViewText, centred; false when there is no Default to clone.
bool AddViewTextStyle(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  ZOLAnnStandardXMLNode* family = Find(parser, "Root.Styles.Text");
  ZOLAnnStandardXMLNode* base = family ? family->FindNodeByName("Default") : nullptr;
  if (!base) {
    ZOLAssertPointer("");
    return false;
  }
  ZOLRef<ZOLAnnStandardXMLNode> clone = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(base->Clone());
  if (!clone) {
    ZOLAssertPointer("");
    return false;
  }
  clone->SetNodeName("ViewText");
  family->AddNode(clone.get(), -1);
  ZOLAnnStandardXMLNode* justification = clone->FindNodeWithPath("Text.Justification", 1);
  if (!justification || justification->Values().empty() ||
      justification->Values()[0]->Name() != "TextJustification") {
    ZOLAssertBool("");
    return true;
  }
  if (context.ParentFlag() == 0) {
    ZOLAssertMessage("Unknown parent standard!");
    return true;
  }
  justification->Values()[0]->SetValue("Center");
  return true;
}

// ---------------------------------------------------------------------------------------------
// Release 21, levels 130 and 140: symbols, datum targets, welding.

constexpr SymbolLine kR21Symbols130[] = {
    {"<SpotFace>"},     {"<CF>"}, {"<Independency>"}, {"<RIGHTTRIANGLE>"}, {"<LEFTTRIANGLE>"},
    {"<Reciprocity>", IJ}, {"<ModifierA>"},
};

constexpr Op kR21DatumTarget130[] = {
    {Op::AddNode, "Enum:DatumTargetSizeSpecifier:0"},
    {Op::AddValue, "Enum.DatumTargetSizeSpecifier::string:None:0"},
    {Op::AddValue, "Enum.DatumTargetSizeSpecifier::string:Diameter:0"},
    {Op::AddValue, "Enum.DatumTargetSizeSpecifier::string:Square:0"},
};

constexpr SymbolLine kR21Symbols140[] = {
    {"<LP>"}, {"<LS>"}, {"<GG>"}, {"<GX>"}, {"<GN>"}, {"<CC>"}, {"<CA>"},
    {"<CV>"}, {"<SX>"}, {"<SN>"}, {"<SA>"}, {"<SM>"}, {"<SD>"}, {"<SR>"},
};

// The constant length that standards were delivered with before release 21.
constexpr double kR21OldConstantLength = 10.0;

constexpr Op kR21Welding140[] = {
    {Op::AddValue, "Root.Styles.DatumTarget.Default:Movable:enum.YesNo:No:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:StudWelding:0", 1, AA},
    {Op::AddValue, "Enum.WeldingSymbol::string:ScarfWelding:0", 1, AA},
    {Op::AddValue, "Enum.WeldingSymbol::string:EdgeWelding:0", 1, AA},
    {Op::AddValue, "Enum.WeldingSymbol::string:MeltThruWelding:0", 1, AA},
    {Op::AddValue, "Enum.WeldingSymbol::string:EdgeWelding:0", 1, IJ},
    {Op::AddValue, "Enum.WeldingSymbol::string:SurfaceJointWelding:0", 1, IJ},
    {Op::AddValue, "Enum.WeldingSymbol::string:InclinedJointEdgeWelding:0", 1, IJ},
    {Op::UpdateVersion, "130:140"},
};

// ---------------------------------------------------------------------------------------------
// Release 23: bills of material, tolerance display factor, 3D depth of area fills.

const ZOLDrwParseStandardBomProperty kR23BomProperties150[] = {
    {"ItemNumber", "30", "1"}, {"Quantity", "30", "2"}, {"PLM_ExternalID", "110", "3"},
    {"V_description", "60", "4"}, {"Material", "60", "5"}, {"V_Weight", "30", "6"},
};

// The same columns with Weight for V_Weight.
const ZOLDrwParseStandardBomProperty kR23BomProperties160[] = {
    {"ItemNumber", "30", "1"}, {"Quantity", "30", "2"}, {"PLM_ExternalID", "110", "3"},
    {"V_description", "60", "4"}, {"Material", "60", "5"}, {"Weight", "30", "6"},
};

constexpr Op kR23Phantom[] = {
    {Op::AddValue, "Root.Styles.BillOfMaterial.Default:PhantomProducts:enum.YesNo:No:0"},
};

constexpr Op kR23BomFlags[] = {
    {Op::AddValue, "Root.Styles.BillOfMaterial.Default:BOMInversion:enum.YesNo:No:0"},
    {Op::AddValue, "Root.Styles.BillOfMaterial.Default:DeletedProducts:enum.BlankRemoveStrike:Blank:0"},
    {Op::AddValue, "Root.Styles.BillOfMaterial.Default:FakeParts:enum.YesNo:No:0"},
};

constexpr Op kR23Start160[] = {
    {Op::AddValue, "TypeDef.ToleranceDisplay:TolDispFact:float:1.0:0"},
    {Op::AddValueForAll, "Root.ToleranceFormats.ToleranceDisplay:TolDispFact:float:1.0:0"},
    {Op::AddNode, "Enum:BlankRemoveStrike:0"},
    {Op::AddValue, "Enum.BlankRemoveStrike::string:Blank:0"},
    {Op::AddValue, "Enum.BlankRemoveStrike::string:Remove:0"},
    {Op::AddValue, "Enum.BlankRemoveStrike::string:Strike:0"},
};

constexpr Op kR23Depth160[] = {
    {Op::AddNode, "Enum:Depth3DDisplay:0"},
    {Op::AddValue, "Enum.Depth3DDisplay::string:OnTop:0"},
    {Op::AddValue, "Enum.Depth3DDisplay::string:AtTrueDepth:0"},
    {Op::AddValue, "Root.Styles.AreaFill.Default:Display:enum.Depth3DDisplay:OnTop:0"},
};

// ---------------------------------------------------------------------------------------------
// Release 24, level 170: sheet colours, patterns and the symbol table of ISO and JIS.

constexpr Op kR24Start170[] = {
    {Op::AddNode, "Root.General.SheetColors:3DDesign:0"},
    {Op::AddValue, "TypeDef.colorings:Position:int:100:0"},
    {Op::AddValue, "TypeDef.hatchings:Position:int:100:0"},
    {Op::AddValue, "TypeDef.dottings:Position:int:100:0"},
    // The first path names the enumeration after the value: it finds nothing, and stays so.
    {Op::ChangeValue, "Root.Styles.DatumTarget.Default.Leader.Symbol.ArrowEndType:Cross", 1, AA},
    {Op::ChangeValue, "Root.Dimension.SYMBCrossSide:9.8995", 1, AA},
};

constexpr Op kR24Colors170[] = {
    {Op::AddValue, "Root.General.SheetColors.3DDesign:Color:color:208 212 214:0"},
    {Op::ChangeValue, "Root.General.SheetColors.View background.Color:130 130 130"},
    {Op::ChangeValue, "Root.General.SheetColors.Detail.Color:255 255 255"},
};

struct Coloring {
  const char* name;
  unsigned red, green, blue;
};

constexpr Coloring kR24Colorings[] = {
    {"Black", 0, 0, 0},          {"Grey", 127, 127, 127},     {"Light Grey", 173, 173, 173},
    {"Red", 204, 9, 47},         {"Orange", 255, 138, 46},    {"Yellow", 254, 224, 0},
    {"Light Green", 0, 170, 134}, {"Dark Green", 0, 122, 76}, {"Light Blue", 141, 222, 228},
    {"Cyan", 0, 157, 219},       {"Cobalt", 0, 37, 150},      {"Deep Blue", 0, 33, 68},
    {"Rose", 245, 100, 163},     {"Purple", 155, 44, 152},
};

constexpr Op kR24Dottings170[] = {
    {Op::AddTypeValNode, "Root.Patterns.dotting:dottings:0"},
    {Op::AddValue, "Root.Patterns.dotting.dottings:Name:string:Dot:0", -1},
    {Op::AddValue, "Root.Patterns.dotting.dottings:zig-zag:int:0:0", -1},
    {Op::AddValue, "Root.Patterns.dotting.dottings:pitch:float:5:0", -1},
    {Op::AddValue, "Root.Patterns.dotting.dottings:color:int:255:0", -1},
    {Op::AddValue, "Root.Patterns.dotting.dottings:Position:int:1:0", -1},
    {Op::AddTypeValNode, "Root.Patterns.dotting:dottings:0"},
    {Op::AddValue, "Root.Patterns.dotting.dottings:Name:string:Dot ZigZag:0", -1},
    {Op::AddValue, "Root.Patterns.dotting.dottings:zig-zag:int:1:0", -1},
    {Op::AddValue, "Root.Patterns.dotting.dottings:pitch:float:5:0", -1},
    {Op::AddValue, "Root.Patterns.dotting.dottings:color:int:255:0", -1},
    {Op::AddValue, "Root.Patterns.dotting.dottings:Position:int:2:0", -1},
};

// Rows of the table of release 24 (the first 64 of the frozen list).
constexpr size_t kR24TableRows = 64;

// ---------------------------------------------------------------------------------------------
// Release 24, level 180: where a symbol may be offered.

constexpr Op kR24FlagTypes180[] = {
    {Op::AddValue, "TypeDef.EngineeringSymbol:ToleranceValue:string:No:0"},
    {Op::AddValue, "TypeDef.EngineeringSymbol:DatumReference:string:No:0"},
    {Op::AddValue, "TypeDef.EngineeringSymbol:Notes:string:No:0"},
};

// Symbols whose three flags are Yes without the option, and for which parents.
constexpr SymbolLine kR24AllFlags[] = {
    {"<DIAMETER>"},     {"<ENVELOPE>"},        {"<FREESTATE>"},    {"<LEASTMATERIAL>"},
    {"<MAXMATERIAL>"},  {"<PROJTOLZONE>"},     {"<NOACTUALSIZE>"}, {"<TANGENTPLANE>"},
    {"<Unequally>"},    {"<ST>"},              {"<ARROW>"},        {"<Reciprocity>", IJ},
    {"<SQUARE>", AA},   {"<RIGHTTRIANGLE>", AA},
};

// With the option, one flag at a time. <ORIENTCONSTRAINTONLY> is not the name of the row that
// this release adds; it never matches, and stays so.
constexpr SymbolLine kR24ToleranceValue[] = {
    {"<DIAMETER>"},         {"<ModifierA>", IJ},     {"<PROJTOLZONE>"},    {"<MAXMATERIAL>"},
    {"<LEASTMATERIAL>"},    {"<FREESTATE>"},         {"<Reciprocity>", IJ}, {"<TANGENTPLANE>", AA},
    {"<Unequally>", AA},    {"<ST>", AA},
};
constexpr SymbolLine kR24DatumReference[] = {
    {"<DIAMETER>"},      {"<PROJTOLZONE>", IJ}, {"<MAXMATERIAL>"}, {"<LEASTMATERIAL>"},
    {"<ORIENTCONSTRAINTONLY>", IJ}, {"<RIGHTTRIANGLE>", AA},
};
constexpr SymbolLine kR24Notes[] = {{"<BETWEEN>", IJ}, {"<FROMTO>", IJ}, {"<ARROW>", AA}};

bool Listed(std::span<const SymbolLine> lines, std::string_view name, int bit) {
  for (const SymbolLine& line : lines)
    if (name == line.name && (!line.parentMask || (line.parentMask & bit))) return true;
  return false;
}

// Rows of release 24 and 25 for ISO and JIS in KVISO1.otf, at fixed positions, with their flags.
struct FlaggedRow {
  const char* name;
  int position;
  const char* toleranceValue;
  const char* datumReference;
  const char* notes;
};

constexpr FlaggedRow kR24Rows180[] = {
    {"<BETWEEN>", 65, "Yes", "No", "No"},
    {"<FROMTO>", 66, "Yes", "No", "No"},
    {"<ORIENTATIONCONSTRAINTONLY>", 67, "No", "Yes", "No"},
};

constexpr FlaggedRow kR25Rows190[] = {
    {"<FIRSTANGLE>", 68, "No", "No", "No"},
    {"<THIRDANGLE>", 69, "No", "No", "No"},
    {"<FIRSTANGLECENTERLINES>", 70, "No", "No", "No"},
    {"<THIRDANGLECENTERLINES>", 71, "No", "No", "No"},
};

void AddFlaggedRows(ZOLAnnStandardXMLParser* parser, std::span<const FlaggedRow> rows) {
  for (const FlaggedRow& r : rows) {
    const ZOLDrwRelease21Symbol* s = ZOLDrwFindRelease21Symbol(r.name);
    if (!s) {
      ZOLAssertPointer(r.name);
      continue;
    }
    const std::string row[] = {s->name,     std::to_string(r.position), "KVISO1.otf",     std::to_string(s->charcode),
                               s->heavy16,  s->heavy22,                  r.toleranceValue, r.datumReference,
                               r.notes};
    AddEngineeringSymbol(parser, row);
  }
}

// ---------------------------------------------------------------------------------------------
// Release 25: frame positions and frame names.

constexpr Op kR25Frames190[] = {
    {Op::AddValue, "TypeDef.FrameDef:Pos:int:0:0"},
};

constexpr Op kR25FrameNames190[] = {
    {Op::AddValue, "Root.Styles.Text.Default.Text.Frame:FrameName:string::0"},
    {Op::AddValue, "Root.Styles.Balloon.Default.Text.Frame:FrameName:string::0"},
    {Op::AddValue, "Root.Styles.WeldingSymbol.Default.Text.Frame:FrameName:string::0"},
    {Op::AddValue, "Root.Styles.ProjectionCallout.Default.Text.Frame:FrameName:string::0"},
    {Op::AddValue, "Root.Styles.SectionCallout.Default.Text.Frame:FrameName:string::0"},
    {Op::AddValue, "Root.Styles.DetailCallout.Default.Text.Frame:FrameName:string::0"},
    {Op::AddValue, "Root.Styles.Text.ViewText.Text.Frame:FrameName:string::0"},
};

// ---------------------------------------------------------------------------------------------
// Release 27: welding and tolerance display.

constexpr Op kR27[] = {
    {Op::AddNode, "Enum:WeldingStaggeredMode:0"},
    {Op::AddValue, "Enum.WeldingStaggeredMode::string:Usual:0"},
    {Op::AddValue, "Enum.WeldingStaggeredMode::string:Alternative:0"},
    {Op::AddNode, "Root.Annotation:Welding:0"},
    {Op::AddValue, "Root.Annotation.Welding:WeldingStaggeredDisplay:enum.WeldingStaggeredMode:Usual:0"},
    {Op::AddValue, "Root.Annotation.Welding:WeldingStaggeredDisplayOffset:float:5.0:0"},
    {Op::AddNode, "Enum:WeldingSystemDisplay:0", 1, ISO},
    {Op::AddValue, "Enum.WeldingSystemDisplay::string:System-A:0", 1, ISO},
    {Op::AddValue, "Enum.WeldingSystemDisplay::string:System-B:0", 1, ISO},
    {Op::AddValue, "Root.Annotation.Welding:WeldingDisplay:enum.WeldingSystemDisplay:System-A:0", 1, ISO},
    {Op::AddNode, "Root.Annotation:Tolerance:0"},
    {Op::AddNode, "Root.Annotation.Tolerance:AuxiliaryFeatureIndicators:0"},
    {Op::AddValue, "Root.Annotation.Tolerance.AuxiliaryFeatureIndicators:IntersectionPlane:enum.YesNo:Yes:0", 1, IJ},
    {Op::AddValue, "Root.Annotation.Tolerance.AuxiliaryFeatureIndicators:OrientationPlane:enum.YesNo:Yes:0", 1, IJ},
    {Op::AddValue, "Root.Annotation.Tolerance.AuxiliaryFeatureIndicators:CollectionPlane:enum.YesNo:Yes:0", 1, IJ},
    {Op::AddValue, "Root.Annotation.Tolerance.AuxiliaryFeatureIndicators:DirectionFeature:enum.YesNo:Yes:0", 1, IJ},
    {Op::AddValue, "Root.Annotation.Tolerance.AuxiliaryFeatureIndicators:IntersectionPlane:enum.YesNo:No:0", 1,
     kZOLDrwAllButIsoJis},
    {Op::AddValue, "Root.Annotation.Tolerance.AuxiliaryFeatureIndicators:OrientationPlane:enum.YesNo:No:0", 1,
     kZOLDrwAllButIsoJis},
    {Op::AddValue, "Root.Annotation.Tolerance.AuxiliaryFeatureIndicators:CollectionPlane:enum.YesNo:No:0", 1,
     kZOLDrwAllButIsoJis},
    {Op::AddValue, "Root.Annotation.Tolerance.AuxiliaryFeatureIndicators:DirectionFeature:enum.YesNo:No:0", 1,
     kZOLDrwAllButIsoJis},
    {Op::UpdateVersion, "190:200"},
};

// ---------------------------------------------------------------------------------------------
// Release 28: table mirroring, arrow scale, frame fill, welding literals.

constexpr Op kR28Start[] = {
    {Op::AddValue, "Root.Styles.Table.Default:Mirroring:enum.Mirroring:Auto flip:0"},
    {Op::AddValue, "Root.Styles.Arrow.Default:ApplyScaleOnExtremities:enum.YesNo:No:0"},
};

constexpr Op kR28TextMargins[] = {
    {Op::AddValue, "Root.Styles.Text.Default.Text.Frame:HorizontalMargin:float:2.0:0"},
    {Op::AddValue, "Root.Styles.Text.Default.Text.Frame:VerticalMargin:float:2.0:0"},
};

constexpr Op kR28End[] = {
    {Op::AddValue, "Enum.WeldingSymbol::string:Consumable:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:Transparency:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:Overlay:0"},
    {Op::AddValue, "Enum.WeldingSymbol::string:EdgeCommon:0"},
    {Op::UpdateVersion, "200:210"},
};

}  // namespace

// ---------------------------------------------------------------------------------------------
// The steps.

void AddEngineeringSymbol(ZOLAnnStandardXMLParser* parser, std::span<const std::string> row) {
  if (!parser) return ZOLAssertPointer("");
  static constexpr const char* kFields[] = {"Name:string:",      "Position:int:",       "Font:string:",
                                            "Charcode:int:",     "Icon16x16:string:",   "Icon22x22:string:",
                                            "ToleranceValue:string:", "DatumReference:string:", "Notes:string:"};
  if (row.size() != 6 && row.size() != 9) return ZOLAssertBool("A symbol row holds six or nine texts");
  parser->AddNodeWithPath("Root.EngineeringSymbols:EngineeringSymbol:0", 1);
  const std::string at = std::string(kSymbolRow) + ":";
  for (size_t i = 0; i < row.size(); ++i) parser->AddValueWithPath(at + kFields[i] + row[i] + ":0", -1);
}

void Migrate20To21n209(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR21ViewEnums);
  if (context.UpdateDefaultValues() && !AddViewTextStyle(context)) return;
  parser->AddNodeWithPath("Root.View:ViewName:1", 0);
  for (const ParentValue& kind : kR21ViewNames) {
    const std::string at = std::string("Root.View.ViewName.") + kind.name;
    parser->AddNodeWithPath(std::string("Root.View.ViewName:") + kind.name + ":0", 0);
    AddParentValue(context, at, {"Automatic", kind.type, kind.ansiAsme, kind.isoJis});
    parser->AddValueWithPath(at + ":Name:string::0", 1);
  }
  parser->AddNodeWithPath("Root.View:ViewText:2", 0);
  // Without the option there is no ViewText style, and the view text keeps to Default.
  parser->AddValueWithPath(std::string("Root.View.ViewText:TextStyleName:string:") +
                               (context.UpdateDefaultValues() ? "ViewText" : "Default") + ":0",
                           1);
  AddParentValue(context, "Root.View.ViewText",
                 {"Alignment", "enum.ViewTextAlignment", "BottomCenter", "TopCenter"});
  parser->AddNodeWithPath("Root.View.ViewText:Name:0", 0);
  for (const ParentValue& viewClass : kR21ViewClasses) {
    const std::string at = std::string("Root.View.ViewText.Name.") + viewClass.name;
    parser->AddNodeWithPath(std::string("Root.View.ViewText.Name:") + viewClass.name + ":0", 0);
    AddParentValue(context, at, {"AddViewName", viewClass.type, viewClass.ansiAsme, viewClass.isoJis});
  }
  parser->AddNodeWithPath("Root.View.ViewText:Scale:0", 0);
  for (const ParentValue& v : kR21ViewScale) AddParentValue(context, "Root.View.ViewText.Scale", v);
  AddParentValue(context, "Root.View", {"ScaleSeparator", "enum.ScaleSeparatorSymbol", "Slash", "Colon"});
  if (context.UpdateDefaultValues())
    AddBomStyle(parser, "BillOfMaterial", kR21BomProperties, static_cast<int>(std::size(kR21BomProperties)));
  UpdateVersionNode(parser, "110", "120");
}

void Migrate209To21n210(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  if (context.UpdateDefaultValues()) AddSymbolLines(context, kR21Symbols130);
  ZOLDrwRunEditTable(context, kR21DatumTarget130);
  const bool diameter = Text(parser, "Root.Styles.DatumTarget.Default.Diameter") == "Yes";
  parser->AddValueWithPath(std::string("Root.Styles.DatumTarget.Default:SizeSpecifier:enum.DatumTargetSizeSpecifier:") +
                               (diameter ? "Diameter" : "None") + ":0",
                           1);
  UpdateVersionNode(parser, "120", "130");
}

void Migrate210To21n211(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  if (context.UpdateDefaultValues()) {
    AddSymbolLines(context, kR21Symbols140);
    // A length that a user set stays.
    const std::string length = Text(parser, "Root.Dimension.DIMLConstantLength");
    const char* delivered = context.Parent() == "ISO" ? "15" : IsAnsiOrAsme(context) ? "7.62" : nullptr;
    if (delivered && !length.empty() && std::strtod(length.c_str(), nullptr) == kR21OldConstantLength)
      parser->ChangeValueWithPath(std::string("Root.Dimension.DIMLConstantLength:") + delivered);
  }
  if (!IsAnsiOrAsme(context) && !IsIsoOrJis(context)) ZOLAssertMessage("Unknown parent standard!");
  ZOLDrwRunEditTable(context, kR21Welding140);
}

void Migrate211To23n213(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  if (context.UpdateDefaultValues()) {
    parser->DeleteNodeWithPath("Root.Styles.BillOfMaterial");
    AddBomStyle(parser, "BillOfMaterial", kR23BomProperties150, static_cast<int>(std::size(kR23BomProperties150)));
  }
  ZOLDrwRunEditTable(context, kR23Phantom);
  UpdateVersionNode(parser, "140", "150");
}

void Migrate213To23n214(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR23Start160);
  ZOLDrwRunEditTable(context, kR23BomFlags);
  ZOLDrwRunEditTable(context, kR23Depth160);
  if (context.UpdateDefaultValues()) {
    // The path names no row: the first row, <SUBSTITUTION>, takes the change.
    const Look look = LookOf(context);
    const ZOLDrwRelease21Symbol* s = ZOLDrwFindRelease21Symbol("<SUBSTITUTION>");
    const std::string row = std::string(kSymbolRow) + ":";
    if (look == Look::Heavy) parser->ChangeValueWithPath(row + "Font:KVISO1.otf");
    if (look != Look::None && s) {
      parser->ChangeValueWithPath(row + "Charcode:42");
      parser->ChangeValueWithPath(row + "Icon16x16:" + Icon16(*s, look));
      parser->ChangeValueWithPath(row + "Icon22x22:" + Icon22(*s, look));
    }
    parser->DeleteNodeWithPath("Root.Styles.BillOfMaterial");
    AddBomStyle(parser, "BillOfMaterial", kR23BomProperties160, static_cast<int>(std::size(kR23BomProperties160)));
    ZOLDrwRunEditTable(context, kR23Phantom);
    ZOLDrwRunEditTable(context, kR23BomFlags);
  }
  UpdateVersionNode(parser, "150", "160");
}

void Migrate214To24n215(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR24Start170);
  if (!context.UpdateDefaultValues()) {
    // A customer's sheet keeps its look: the 3D background is that of the views.
    parser->AddValueWithPath("Root.General.SheetColors.3DDesign:Color:color:" +
                                 Text(parser, "Root.General.SheetColors.View.Color") + ":0",
                             1);
  } else {
    ZOLDrwRunEditTable(context, kR24Colors170);
    RecreateBranch(parser, "Root.Patterns", "coloring");
    int position = 0;
    for (const Coloring& c : kR24Colorings) AddColoring(parser, ++position, c.name, c.red, c.green, c.blue);
    RecreateBranch(parser, "Root.Patterns", "dotting");
    ZOLDrwRunEditTable(context, kR24Dottings170);
    if (IsIsoOrJis(context)) {
      parser->DeleteNodeWithPath("Root.EngineeringSymbols");
      parser->AddNodeWithPath("Root:EngineeringSymbols:0", 0);
      int row = 0;
      for (const ZOLDrwRelease21Symbol& s : ZOLDrwRelease21Symbols().first(kR24TableRows)) {
        const std::string texts[] = {s.name,    std::to_string(++row), "KVISO1.otf", std::to_string(s.charcode),
                                     s.heavy16, s.heavy22};
        AddEngineeringSymbol(parser, texts);
      }
    }
  }
  NumberRows(parser, "Root.Patterns.hatching", "hatchings", "Position");
  UpdateVersionNode(parser, "160", "170");
  // The version moves behind the nodes that this release added.
  parser->DeleteNodeWithPath("Root.Version");
  parser->Root()->AddNodeWithValue("Version", ZOLAnnStandardXMLValue::IntValue, "170", "", -1);
}

void Migrate215To24n216(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR24FlagTypes180);
  const bool update = context.UpdateDefaultValues();
  const int bit = ZOLDrwParentBit(context.Parent());
  if (ZOLAnnStandardXMLNode* table = Find(parser, "Root.EngineeringSymbols")) {
    for (ZOLAnnStandardXMLNode* row : table->SubNodes()) {
      if (row->Name() != "EngineeringSymbol") continue;
      ZOLAnnStandardXMLValue* nameValue = row->FindValueByName("Name");
      const std::string name = nameValue ? nameValue->Value().str() : std::string();
      bool tolerance = false, datum = false, notes = false;
      if (!update) {
        tolerance = datum = notes = Listed(kR24AllFlags, name, bit);
      } else {
        tolerance = Listed(kR24ToleranceValue, name, bit);
        datum = Listed(kR24DatumReference, name, bit);
        notes = Listed(kR24Notes, name, bit);
      }
      AddField(row, ZOLAnnStandardXMLValue::StringValue, "ToleranceValue", tolerance ? "Yes" : "No");
      AddField(row, ZOLAnnStandardXMLValue::StringValue, "DatumReference", datum ? "Yes" : "No");
      AddField(row, ZOLAnnStandardXMLValue::StringValue, "Notes", notes ? "Yes" : "No");
    }
  }
  if (update && IsIsoOrJis(context)) {
    for (const char* name : {"<SLOPE>", "<CONICALTAPER>"}) {
      ZOLAnnStandardXMLNode* row = SymbolRow(parser, name);
      const ZOLDrwRelease21Symbol* s = ZOLDrwFindRelease21Symbol(name);
      if (!row || !s) continue;
      const std::pair<const char*, std::string> fields[] = {
          {"Charcode", std::to_string(s->charcode)}, {"Icon16x16", s->heavy16}, {"Icon22x22", s->heavy22}};
      for (const auto& [field, text] : fields)
        if (ZOLAnnStandardXMLValue* value = row->FindValueByName(field)) value->SetValue(ZOLUnicodeString(text));
    }
    AddFlaggedRows(parser, kR24Rows180);
  }
  UpdateVersionNode(parser, "170", "180");
}

void Migrate216To25n417(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR25Frames190);
  NumberRows(parser, "Root.Frames", "FrameDef", "Pos");
  ZOLDrwRunEditTable(context, kR25FrameNames190);
  if (context.UpdateDefaultValues() && IsIsoOrJis(context)) AddFlaggedRows(parser, kR25Rows190);
  UpdateVersionNode(parser, "180", "190");
}

void Migrate417To27n419(ZOLDrwMigrationContext& context) {
  if (!context.Parser()) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR27);
}

void Migrate419To28n420(ZOLDrwMigrationContext& context) {
  ZOLAnnStandardXMLParser* parser = context.Parser();
  if (!parser) return ZOLAssertPointer("");
  ZOLDrwRunEditTable(context, kR28Start);
  std::string color = Text(parser, "Root.General.SheetColors.View.Color");
  // The trailing blank of the fallback is kept: files of this release carry it.
  if (color.empty()) color = "255 255 255 ";
  const std::string text = "Root.Styles.Text.Default.Text.Frame:";
  const std::string balloon = "Root.Styles.Balloon.Default.Text.Frame:";
  parser->AddValueWithPath(text + "Fill:enum.YesNo:No:0", 1);
  parser->AddValueWithPath(text + "FillColor:color:" + color + ":0", 1);
  ZOLDrwRunEditTable(context, kR28TextMargins);
  parser->AddValueWithPath(balloon + "Fill:enum.YesNo:No:0", 1);
  parser->AddValueWithPath(balloon + "FillColor:color:" + color + ":0", 1);
  ZOLDrwRunEditTable(context, kR28End);
}
