// Stage 1 of the chain: the flat parameters written as the first tree (release 9), and the check of
// the mandatory ones.
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStandardServices.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLDrwParseParameter.h"
#include "ZOLDrwParseStandard.h"
#include "ZOLTrace.h"
#include "upgrade/ZOLDrwKeywordTable.h"

namespace {

// A member of a record type: its name, its value element, and its text.
struct Member {
  const char* name;
  char type;  // 'i' intval, 'f' floatval, 's' strval
  const char* text;
};

constexpr Member kToleranceDisplay[] = {
    {"Name", 's', "TOLXXX"},     {"TolType", 'i', "2"},      {"TolSepar_1", 'i', "0"},    {"TolSepar_2", 'i', "0"},
    {"TolSymbolH", 'f', "1.0"},  {"TolSepTo_1", 'i', "0"},   {"TolSepTo_2", 'i', "0"},    {"TolSepTo_3", 'i', "0"},
    {"TolTrailing", 'i', "2"},   {"TolFractLine", 'i', "1"}, {"TolPtOnValue", 'i', "8"},  {"TolAnchorPt", 'i', "2"},
    {"TolIntX", 'f', "0.0"},     {"TolIntY", 'f', "0.6"},    {"TolExtX", 'f', "0.6"},     {"TolExtY", 'f', "0.0"},
    {"TolMergeSame", 'i', "1"},  {"TolShowNull", 'i', "2"},  {"TolScale", 'f', "0.7"},
};

constexpr Member kNumericalDisplay[] = {
    {"Name", 's', "NUMXXX"},     {"NDType", 'i', "1"},       {"NDUnit", 'i', "1"},        {"NDFact", 'i', "1"},
    {"NDExise", 'i', "1"},       {"NDNulFac_1", 'i', "1"},   {"NDNulFac_2", 'i', "2"},    {"NDNulFac_3", 'i', "1"},
    {"NDSepar_1", 's', " "},     {"NDSepar_2", 's', " "},    {"NDSepar_3", 's', " "},     {"NDNulOther", 'i', "1"},
    {"NDAlignFrac", 'i', "1"},   {"NDTypFrac", 'i', "2"},    {"NDFinZer", 'i', "1"},      {"NDSepNum", 'i', "11"},
    {"NDSep1000", 'i', "0"},     {"NDGlobFact", 'f', "1.0"}, {"NDFact_1", 'f', "1.0"},    {"NDFact_2", 'f', "0.0"},
    {"NDFact_3", 'f', "0.0"},    {"NDValPos_1", 'f', "0.0"}, {"NDValPos_2", 'f', "0.0"},  {"NDValPos_3", 'f', "0.0"},
    {"NDSepPos_1", 'f', "0.0"},  {"NDSepPos_2", 'f', "0.0"}, {"NDSepPos_3", 'f', "0.0"},  {"NDSepScl_1", 'f', "1.0"},
    {"NDSepScl_2", 'f', "0.0"},  {"NDSepScl_3", 'f', "0.0"}, {"NDResScl", 'f', "1.0"},    {"NDRestX", 'f', "0.5"},
    {"NDRestY", 'f', "0.0"},     {"NDOperY", 'f', "0.5"},    {"NDSepDen", 'i', "2"},
};

constexpr Member kThickness[] = {{"Availability", 'i', "0"}, {"Pixel", 'i', "1"}, {"mm", 'f', "0.13"}};

struct RecordType {
  const char* name;
  std::span<const Member> members;
  // Blanks between the element and name: intval and strval, then floatval.
  int intGap;
  int floatGap;
};

constexpr RecordType kRecordTypes[] = {
    {"ToleranceDisplay", kToleranceDisplay, 3, 1},
    {"NumericalDisplay", kNumericalDisplay, 3, 3},
    {"ZOLThickness", kThickness, 1, 1},
};

// The members of the predefined numerical rows in their order; their values are the record type's
// defaults but for the overrides.
constexpr const char* kNumericalRowOrder[] = {
    "Name",       "NDType",     "NDUnit",     "NDGlobFact", "NDNulFac_1", "NDNulFac_2", "NDNulFac_3", "NDExise",
    "NDSep1000",  "NDFact_1",   "NDFact_2",   "NDFact_3",   "NDValPos_1", "NDValPos_2", "NDValPos_3", "NDSepar_1",
    "NDSepar_2",  "NDSepar_3",  "NDSepScl_1", "NDSepScl_2", "NDSepScl_3", "NDSepPos_1", "NDSepPos_2", "NDSepPos_3",
    "NDRestY",    "NDFinZer",   "NDSepNum",   "NDTypFrac",  "NDSepDen",   "NDOperY",    "NDNulOther", "NDResScl",
    "NDFact",     "NDRestX",
};

// What a predefined row sets apart from the record type's defaults; Name is the row's own, and a
// null row stands for every row, before the row's own.
struct Override {
  const char* row;
  const char* member;
  const char* text;
};

// The delivered tolerance row differs from the record type's defaults in these.
constexpr Override kToleranceOverrides[] = {
    {"TOL_RES1", "TolType", "3"},      {"TOL_RES1", "TolSepTo_2", "16"}, {"TOL_RES1", "TolPtOnValue", "9"},
    {"TOL_RES1", "TolAnchorPt", "3"},  {"TOL_RES1", "TolIntY", "0.0"},   {"TOL_RES1", "TolExtX", "0.0"},
    {"TOL_RES1", "TolScale", "1.0"},
};

constexpr const char* kNumericalRows[] = {"micron", "mm", "cm", "m", "km", "in", "ftinch", "grade"};

constexpr Override kNumericalOverrides[] = {
    {nullptr, "NDSepar_1", ""},        {nullptr, "NDSepar_2", ""},       {nullptr, "NDSepar_3", ""},
    {"micron", "NDGlobFact", "0.001"}, {"cm", "NDGlobFact", "10.0"},     {"m", "NDGlobFact", "1000.0"},
    {"km", "NDGlobFact", "1000000.0"}, {"in", "NDUnit", "2"},            {"in", "NDGlobFact", "1"},
    {"ftinch", "NDUnit", "2"},         {"ftinch", "NDFact_2", "12.0"},   {"ftinch", "NDSepar_1", "\""},
    {"ftinch", "NDSepar_2", "'"},      {"ftinch", "NDSepScl_2", "1.0"},  {"ftinch", "NDNulOther", "2"},
    {"ftinch", "NDFact", "2"},         {"ftinch", "NDRestX", "0.0"},     {"grade", "NDUnit", "5"},
    {"grade", "NDType", "2"},
};

// Mm of the first eight thickness rows; the other rows of the table are 0.13 and not available.
constexpr const char* kThicknessMm[] = {"0.13", "0.35", "0.70", "1.00", "1.40", "2.00", "2.30", "2.60"};
constexpr int kThicknessRows = 55;

constexpr const char* kFontSizesJIS[] = {"2.24", "2.5", "3.15", "3.5", "4.5", "5.0", "6.3", "7.0", "9.0", "10.0", "14.0", "20.0"};
constexpr const char* kFontSizesANSI[] = {"0.25", "0.35", "0.5", "0.7", "1.0", "1.4", "2.0", "2.5", "3.5", "5.0", "7.0", "10.0", "14.0", "20.0"};
constexpr const char* kFontSizesOther[] = {"2.5", "3.5", "5.0", "7.0", "10.0", "14.0", "20.0"};

// The arrow symbols of release 9 and their size nodes: L length, A angle, D diameter.
struct Symbol {
  const char* name;
  const char* sizes;
};

constexpr Symbol kSymbols[] = {
    {"SimpleArrow", "LA"},   {"FilledArrow", "LA"},       {"ClosedArrow", "LA"},       {"SymetricArrow", "LA"},
    {"Circle", "D"},         {"FilledCircle", "D"},       {"SymetricCircle", "D"},     {"CrossCircle", "D"},
    {"Slash", "L"},          {"Triangle", "L"},           {"FilledTriangle", "L"},     {"WhiteFilledSquare", "L"},
    {"BlackFilledSquare", "L"}, {"Plus", "L"},            {"Cross", "L"},              {"DoubleArrow", "LA"},
    {"WaveArrow", "D"},
};

void Line(ZOLUnicodeString& out, std::initializer_list<std::string_view> parts) {
  for (std::string_view part : parts) out += part;
  out += std::string_view("\n");
}

std::string_view Indent(int blanks) {
  static constexpr std::string_view kBlanks = "                    ";
  return kBlanks.substr(0, static_cast<size_t>(blanks));
}

std::string_view Element(char type) { return type == 'i' ? "std:intval" : type == 'f' ? "std:floatval" : "std:strval"; }

// A named value line: <std:intval name="X">text</std:intval>, with gap blanks before name.
void NamedValue(ZOLUnicodeString& out, int indent, char type, int gap, std::string_view name, std::string_view text) {
  Line(out, {Indent(indent), "<", Element(type), Indent(gap), "name=\"", name, "\">", text, "</", Element(type), ">"});
}

void OpenNode(ZOLUnicodeString& out, int indent, std::string_view name) {
  Line(out, {Indent(indent), "<std:node name=\"", name, "\">"});
}

void CloseNode(ZOLUnicodeString& out, int indent) { Line(out, {Indent(indent), "</std:node>"}); }

// A plain node holding count unnamed values of one text.
void ValuesNode(ZOLUnicodeString& out, std::string_view name, char type, std::span<const char* const> texts,
                int emptyCount = 0, std::string_view emptyText = "") {
  OpenNode(out, 6, name);
  auto value = [&](std::string_view text) { Line(out, {Indent(9), "<", Element(type), ">", text, "</", Element(type), ">"}); };
  for (const char* text : texts) value(text);
  for (int i = 0; i < emptyCount; ++i) value(emptyText);
  CloseNode(out, 6);
}

void ValuesNode(ZOLUnicodeString& out, std::string_view name, char type, int count, std::string_view text = "") {
  ValuesNode(out, name, type, {}, count, text);
}

void OpenTypeVal(ZOLUnicodeString& out, int indent, std::string_view type) {
  Line(out, {Indent(indent), "<std:typeval name=\"", type, "\">"});
}

void CloseTypeVal(ZOLUnicodeString& out, int indent) { Line(out, {Indent(indent), "</std:typeval>"}); }

// A delivered record of a type, its members in order (the type's own order when empty).
void PredefinedRow(ZOLUnicodeString& out, std::string_view type, std::span<const Member> members,
                   std::span<const char* const> order, std::string_view row, std::span<const Override> overrides) {
  OpenTypeVal(out, 12, type);
  auto write = [&](const Member& m) {
    std::string_view text = m.name == std::string_view("Name") ? row : std::string_view(m.text);
    for (const Override& o : overrides)
      if ((!o.row || o.row == row) && o.member == std::string_view(m.name)) text = o.text;
    NamedValue(out, 15, m.type, 1, m.name, text);
  };
  if (order.empty())
    for (const Member& m : members) write(m);
  for (std::string_view name : order)
    for (const Member& m : members)
      if (m.name == name) write(m);
  CloseTypeVal(out, 12);
}

// The value element of a record member, by the record types of release 9; 0 for none.
char MemberType(std::string_view name) {
  for (const RecordType& type : kRecordTypes)
    for (const Member& member : type.members)
      if (member.name == name) return member.type;
  return 0;
}

// An integer, a real with a point or an exponent, or else a string.
char TypeOfText(std::string_view text) {
  size_t i = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
  int digits = 0;
  bool real = false;
  auto run = [&] {
    while (i < text.size() && text[i] >= '0' && text[i] <= '9') ++i, ++digits;
  };
  run();
  if (i < text.size() && text[i] == '.') ++i, real = true, run();
  if (digits == 0) return 's';
  if (i < text.size() && (text[i] == 'e' || text[i] == 'E')) {
    ++i;
    if (i < text.size() && (text[i] == '+' || text[i] == '-')) ++i;
    const int before = digits;
    run();
    if (digits == before) return 's';
    real = true;
  }
  return i != text.size() ? 's' : real ? 'f' : 'i';
}

void AppendEscaped(ZOLUnicodeString& out, std::string_view text) {
  size_t from = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    const char* entity = c == '&' ? "&amp;" : c == '<' ? "&lt;" : c == '>' ? "&gt;" : c == '"' ? "&quot;" : nullptr;
    if (!entity) continue;
    out += text.substr(from, i - from);
    out += std::string_view(entity);
    from = i + 1;
  }
  out += text.substr(from);
}

}  // namespace

ZOLTrace& ZOLDrwStandardOutputTrace() {
  static ZOLTrace trace("ZOLDftStandardOutput");
  return trace;
}

void ZOLDrwParseParameter::Encode(ZOLUnicodeString& out) {
  const int row = ZOLDrwKeywordIndex(_Keyword);
  std::string_view name = row < 0 ? std::string_view(_Keyword) : ZOLDrwKeywordTable()[row].Param();
  // ParentStandard and NDAlignFrac have no tree name of their own; they keep their keyword, which
  // is where the driver and the record type look for them.
  if (name.empty()) name = _Keyword;
  const bool inBlock = !_BlockKeyword.IsEmpty();
  // A block member takes the type of its record's member; TolName and NDName are the record's Name.
  const bool isName = _Keyword == "TolName" || _Keyword == "NDName";
  char type = inBlock ? MemberType(isName ? std::string_view("Name") : std::string_view(_Keyword)) : 0;
  if (!type) type = TypeOfText(_Value);
  out += Indent(inBlock ? 15 : 6);
  if (!inBlock) {
    out += std::string_view("<std:node name=\"");
    AppendEscaped(out, name);
    out += std::string_view("\">");
  }
  out += std::string_view("<");
  out += Element(type);
  if (inBlock) {
    out += std::string_view(" name=\"");
    AppendEscaped(out, name);
    out += std::string_view("\"");
  }
  out += std::string_view(">");
  AppendEscaped(out, _Value);
  out += std::string_view("</");
  out += Element(type);
  out += std::string_view(inBlock ? ">\n" : "></std:node>\n");
}

void ZOLDrwParseStandard::EncodeLegacyTree() {
  ZOLUnicodeString text;
  Line(text, {"<?xml version=\"1.0\" ?>"});
  Line(text, {"<std:node name=\"drafting\" xmlns:std=\"", ZOLDftStdNamespaceURI, "\">"});
  EncodeTypedefs(text);
  EncodeAdditionalParameters(text);
  EncodeMigratedParameters(text);
  EncodeDescriptions(text);
  EncodeThicknessTable(text);
  Line(text, {"</std:node>"});
  delete _Parser;
  _Parser = new ZOLAnnStandardXMLParser();
  // The result is not looked at: a text that fails leaves the tree read so far, and the chain goes on.
  _Parser->DecodeXML(text, 0);
}

void ZOLDrwParseStandard::EncodeTypedefs(ZOLUnicodeString& out) {
  Line(out, {});
  bool first = true;
  for (const RecordType& type : kRecordTypes) {
    if (!first) Line(out, {}), Line(out, {});
    first = false;
    Line(out, {"   <std:typedef name=\"", type.name, "\">"});
    for (const Member& m : type.members) NamedValue(out, 6, m.type, m.type == 'f' ? type.floatGap : type.intGap, m.name, m.text);
    Line(out, {"   </std:typedef>"});
  }
  Line(out, {});
}

void ZOLDrwParseStandard::EncodeAdditionalParameters(ZOLUnicodeString& out) {
  Line(out, {});
  OpenNode(out, 3, "General");
  ValuesNode(out, "AllowedToleranceFormats", 's', 50);
  ValuesNode(out, "DefaultToleranceFormat", 's', 1);
  ValuesNode(out, "AllowedNumericalFormats", 's', 50);
  ValuesNode(out, "DefaultNumericalFormatLength", 's', 1, "NUM.DIMM");
  ValuesNode(out, "DefaultNumericalFormatAngle", 's', 1, "NUM.ADMS");
  ValuesNode(out, "AllowedTextFonts", 's', 100);
  ValuesNode(out, "DefaultTextFont", 's', 1);
  std::span<const char* const> sizes = kFontSizesOther;
  if (_ParentStandard == "JIS")
    sizes = kFontSizesJIS;
  else if (_ParentStandard == "ANSI" || _ParentStandard == "ASME")
    sizes = kFontSizesANSI;
  ValuesNode(out, "AllowedTextFontSizes", 'f', sizes, 100, "0.0");
  ValuesNode(out, "DefaultTextFontSize", 'f', 1, "3.5");
  CloseNode(out, 3);
  Line(out, {});
  OpenNode(out, 3, "DressUp");
  OpenNode(out, 6, "Symbols");
  // Every symbol takes its size from the two arrow parameters; the other SYMB keywords only pass
  // into "Dimension".
  const ZOLDrwParseParameter* side = GetParameter("SYMBArrowSide");
  const ZOLDrwParseParameter* angle = GetParameter("SYMBArrowAngle");
  const std::string_view length = side ? std::string_view(side->Value()) : "2.0";
  const std::string_view degrees = angle ? std::string_view(angle->Value()) : "30.0";
  for (const Symbol& symbol : kSymbols) {
    OpenNode(out, 9, symbol.name);
    for (const char* size = symbol.sizes; *size; ++size) {
      OpenNode(out, 12, *size == 'L' ? "Length" : *size == 'A' ? "Angle" : "Diameter");
      out += Indent(15);
      out += std::string_view("<std:floatval>");
      AppendEscaped(out, *size == 'A' ? degrees : length);
      out += std::string_view("</std:floatval>\n");
      CloseNode(out, 12);
    }
    CloseNode(out, 9);
  }
  CloseNode(out, 6);
  CloseNode(out, 3);
}

void ZOLDrwParseStandard::EncodeMigratedParameters(ZOLUnicodeString& out) {
  if (_Parameters.empty()) return;
  Line(out, {});
  OpenNode(out, 3, "Dimension");
  for (ZOLDrwParseParameter* parameter : _Parameters)
    if (parameter && parameter->GetBlockKeyword().IsEmpty()) parameter->Encode(out);
  CloseNode(out, 3);
}

void ZOLDrwParseStandard::EncodeDescriptions(ZOLUnicodeString& out) {
  struct Pass {
    const char* blockKeyword;
    const char* node;
    const char* type;
  };
  static constexpr Pass kPasses[] = {{"TOLERANCE", "ToleranceFormats", "ToleranceDisplay"},
                                     {"NUMERICAL_DISPLAY", "ValueFormats", "NumericalDisplay"}};
  for (int pass = 0; pass < 2; ++pass) {
    const Pass& p = kPasses[pass];
    Line(out, {});
    OpenNode(out, 6, p.node);
    EncodePredefinedDescriptions(out, pass);
    // Blocks are told apart only by a change of name between neighbours: two blocks of one name in
    // a row merge, kept on purpose as the flat files of that time were read.
    ZOLUnicodeString current;
    for (ZOLDrwParseParameter* parameter : _Parameters) {
      if (!parameter || !(parameter->GetBlockKeyword() == p.blockKeyword)) continue;
      ZOLUnicodeString name = parameter->GetBlockName();
      if (!(name == current)) {
        if (!current.IsEmpty()) CloseTypeVal(out, 12);
        current = std::move(name);
        OpenTypeVal(out, 12, p.type);
      }
      parameter->Encode(out);
    }
    if (!current.IsEmpty()) CloseTypeVal(out, 12);
    CloseNode(out, 6);
  }
}

void ZOLDrwParseStandard::EncodePredefinedDescriptions(ZOLUnicodeString& out, int which) {
  if (which == 0) PredefinedRow(out, "ToleranceDisplay", kToleranceDisplay, {}, "TOL_RES1", kToleranceOverrides);
  if (which == 1)
    for (std::string_view row : kNumericalRows)
      PredefinedRow(out, "NumericalDisplay", kNumericalDisplay, kNumericalRowOrder, row, kNumericalOverrides);
}

void ZOLDrwParseStandard::EncodeThicknessTable(ZOLUnicodeString& out) {
  Line(out, {});
  OpenNode(out, 3, "LineThickness");
  const int available = static_cast<int>(std::size(kThicknessMm));
  for (int row = 0; row < kThicknessRows; ++row) {
    const std::string pixel = std::to_string(row < available ? row + 1 : 1);
    OpenTypeVal(out, 3, "ZOLThickness");
    NamedValue(out, 6, 'i', 1, "Availability", row < available ? "1" : "0");
    NamedValue(out, 6, 'i', 1, "Pixel", pixel);
    NamedValue(out, 6, 'f', 1, "mm", row < available ? kThicknessMm[row] : "0.13");
    CloseTypeVal(out, 3);
  }
  CloseNode(out, 3);
}

int ZOLDrwParseStandard::GetMissingParameters(ZOLListValZOLUnicodeString& missing) {
  if (!_Decoded) Decode();
  missing.RemoveAll();
  std::span<const ZOLDrwKeywordRow> rows = ZOLDrwKeywordTable();
  std::vector<char> valued(rows.size(), 0);
  for (ZOLDrwParseParameter* parameter : _Parameters) {
    if (!parameter) continue;
    const int index = ZOLDftStandardServices::GetIndexFromKeyword(parameter->Keyword());
    if (index >= 0) valued[index] = 1;
  }
  // Only the general parameters count: a flat file need not hold any block.
  for (int i = kZOLDrwFirstGeneralRow; i <= kZOLDrwLastGeneralRow; ++i)
    if (!valued[i] && rows[i].mandatory) missing.Append(ZOLUnicodeString(rows[i].Keyword()));
  return missing.Size();
}

void ZOLDrwParseStandard::Check() {
  ZOLTrace& output = ZOLDrwStandardOutputTrace();
  ZOLQelTraAutoInOutAndIndent scope(output, "ZOLDrwParseStandard::Check");
  ZOLListValZOLUnicodeString missing;
  const int count = GetMissingParameters(missing);
  for (int i = 1; i <= missing.Size(); ++i)
    output.TraPrint("%sError: Parameter %s not valuated in Standard file\n", scope.Indent(), missing[i].ConvertToChar());
  output.TraPrint("%sResult: %d missing parameters in standard file\n", scope.Indent(), count);
}
