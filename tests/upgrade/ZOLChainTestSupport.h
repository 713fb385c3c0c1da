// Standards of release 9 built from edit lines, upgraded through the shipped chain, saved and
// decoded again; and probes that read a decoded tree by path.
#pragma once
#include <gtest/gtest.h>

#include <deque>
#include <map>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDrwParseStandard.h"
#include "ZOLEditLines.h"
#include "ZOLReportCountTest.h"

namespace qeltest {

/// Edit lines of a release 9 standard as the flat encoding leaves it: general defaults, arrow
/// symbols, some thirty dimension parameters, the format descriptions and the thickness table.
/// ASME is stored as ANSI with datum mode 1.
inline std::vector<std::string> Release9Lines(const std::string& parent) {
  const std::string stored = parent == "ASME" ? "ANSI" : parent;
  const std::string mode = parent == "ASME" ? "1" : parent == "ANSI" ? "2" : "0";
  std::vector<std::string> lines = {
      "N Root:General",
      "N Root.General:AllowedToleranceFormats",
      "V Root.General:DefaultToleranceFormat:string:",
      "N Root.General:AllowedNumericalFormats",
      "V Root.General:DefaultNumericalFormatLength:string:NUM.DIMM",
      "V Root.General:DefaultNumericalFormatAngle:string:NUM.ADMS",
      "N Root.General:AllowedTextFonts",
      "V Root.General:DefaultTextFont:string:",
      "N Root.General:AllowedTextFontSizes",
      "V Root.General:DefaultTextFontSize:float:3.5",
      "N Root:DressUp",
      "N Root.DressUp:Symbols",
  };
  for (const char* symbol : {"SimpleArrow", "FilledArrow", "ClosedArrow"}) {
    lines.push_back(std::string("N Root.DressUp.Symbols:") + symbol);
    lines.push_back(std::string("V Root.DressUp.Symbols.") + symbol + ":Length:float:2.0");
    lines.push_back(std::string("V Root.DressUp.Symbols.") + symbol + ":Angle:float:30.0");
  }
  lines.push_back("N Root:Dimension");
  lines.push_back("V Root.Dimension:ParentStandard:string:" + stored);
  lines.push_back("V Root.Dimension:TXTDatumMode:int:" + mode);
  for (const char* p : {"DIMLUnderline", "DIMLFlippedOverrun", "DIMLNoFlippedOverrun", "DIMLShowReverse", "DIMTYPos",
                        "DIMTxtJustif", "DIMLTail", "DIMLTextGap", "DIMLFrameGap", "SYMBArrowSide", "SYMBReverseLimit",
                        "SCORLeftTail", "SCORRightTail", "CHFSepHeight", "HLFIntOverrun", "TXTLeaderGap",
                        "FAKVerticalOffset", "DUAAboveOffset", "CUMLDimLinMode", "CUMLTxtVJusti"})
    lines.push_back(std::string("V Root.Dimension:") + p + ":float:1.0");
  lines.push_back("V Root.Dimension:CUMLTxtDecalY:float:1.5");
  lines.push_back("V Root.Dimension:CUMLDimLinTail:float:1.0");
  lines.insert(lines.end(), {"N Root:ToleranceFormats", "T Root.ToleranceFormats:ToleranceDisplay",
                             "L Root.ToleranceFormats.ToleranceDisplay:Name:string:TOL_RES1", "N Root:ValueFormats",
                             "T Root.ValueFormats:NumericalDisplay", "L Root.ValueFormats.NumericalDisplay:Name:string:mm",
                             "N Root:LineThickness", "T Root.LineThickness:ZOLThickness",
                             "L Root.LineThickness.ZOLThickness:Pixel:int:1"});
  return lines;
}

/// Applies set-up lines: those of ZOLEditLines, and "C path:text" (change) and "D path" (delete),
/// which must succeed.
inline void ApplyLines(ZOLAnnStandardXMLParser& p, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    if (line[0] == 'C') {
      ASSERT_EQ(p.ChangeValueWithPath(line.substr(2)), 0) << line;
    } else if (line[0] == 'D') {
      ASSERT_EQ(p.DeleteNodeWithPath(line.substr(2)), 0) << line;
    } else {
      ZOLEditLines(p, {line});
    }
  }
}

/// A driver of the shipped chain whose file is a tree of edit lines.
class ChainDriver : public ZOLDrwParseStandard {
public:
  explicit ChainDriver(std::vector<std::string> lines) : ZOLDrwParseStandard(_name), _lines(std::move(lines)) {
    Decode();
  }
  int DecodeTree(ZOLAnnStandardXMLParser& parser) override {
    ZOLEditLines(parser, _lines);
    return 0;
  }
  /// Runs the stages from a start level to a target, with or without new delivered defaults.
  void Upgrade(int start, int target, bool updateDefaults) {
    _Version = start;
    ZOLDrwParseStandardUpgradeOptions options;
    options.UpdateDefaultValues = updateDefaults;
    UpgradeVersion(target, options);
  }
  ZOLAnnStandardXMLParser& Tree() { return *_Parser; }
  std::string Saved() {
    ZOLUnicodeString text;
    _Parser->SaveInString(text);
    return text.str();
  }

private:
  inline static ZOLUnicodeString _name{"Company.xml"};
  std::vector<std::string> _lines;
};

inline constexpr const char* kAbsent = "<absent>";

/// Reads a tree by a probe: a dotted path from "Root", "Enum" or "TypeDef" whose steps may end in
/// "{n}", the n-th sub-node of that name; then one of: nothing (the text of the first value, empty
/// for none), "@Name" (the value of that name), "[i]" (the value at 0-based i), "#" (number of
/// values), "/" (number of sub-nodes), ">" (names of the sub-nodes), "%" (names of the values),
/// "~" (the name of the first value: an enumeration or a bound), "^" (0-based place among its
/// parent's sub-nodes). kAbsent where the node or value is missing. "version" is GetVersion.
inline std::string Probe(ZOLAnnStandardXMLParser& p, std::string_view probe) {
  if (probe == "version") return std::to_string(p.GetVersion());
  std::string_view path = probe, tail;
  const size_t mark = probe.find_first_of("@[#/>%~^");
  if (mark != std::string_view::npos) {
    path = probe.substr(0, mark);
    tail = probe.substr(mark);
  }
  ZOLAnnStandardXMLNode* node = nullptr;
  ZOLAnnStandardXMLNode* parent = nullptr;
  for (size_t start = 0; start <= path.size();) {
    size_t dot = path.find('.', start);
    if (dot == std::string_view::npos) dot = path.size();
    std::string_view step = path.substr(start, dot - start);
    int nth = 1;
    if (size_t brace = step.find('{'); brace != std::string_view::npos) {
      nth = std::stoi(std::string(step.substr(brace + 1)));
      step = step.substr(0, brace);
    }
    if (!node) {
      node = step == "Root" ? p.Root() : step == "Enum" ? p.EnumRoot() : step == "TypeDef" ? p.TypeDefRoot() : nullptr;
    } else {
      parent = node;
      node = nullptr;
      for (ZOLAnnStandardXMLNode* sub : parent->SubNodes())
        if (sub->Name() == step && --nth == 0) {
          node = sub;
          break;
        }
    }
    if (!node) return kAbsent;
    start = dot + 1;
  }
  const auto& values = node->Values();
  auto joined = [](auto&& items, auto name) {
    std::string out;
    for (auto* item : items) out += (out.empty() ? "" : ",") + name(item);
    return out;
  };
  if (tail.empty()) return values.empty() ? "" : values[0]->GetValue().str();
  switch (tail[0]) {
    case '@':
      for (ZOLAnnStandardXMLValue* v : values)
        if (v->GetValueName() == tail.substr(1)) return v->GetValue().str();
      return kAbsent;
    case '[': {
      size_t i = std::stoul(std::string(tail.substr(1)));
      return i < values.size() ? values[i]->GetValue().str() : kAbsent;
    }
    case '#': return std::to_string(values.size());
    case '/': return std::to_string(node->SubNodes().size());
    case '>': return joined(node->SubNodes(), [](ZOLAnnStandardXMLNode* n) { return n->Name().str(); });
    case '%': return joined(values, [](ZOLAnnStandardXMLValue* v) { return v->GetValueName().str(); });
    case '~': return values.empty() ? kAbsent : values[0]->GetValueName().str();
    case '^':
      for (size_t i = 0; parent && i < parent->SubNodes().size(); ++i)
        if (parent->SubNodes()[i] == node) return std::to_string(i);
      return kAbsent;
  }
  return kAbsent;
}

/// The parents of the chain as bits: ANSI 1, ASME 2, ISO 4, JIS 8.
struct Parent {
  const char* name;
  int bit;
};
inline constexpr Parent kParents[] = {{"ISO", 4}, {"ANSI", 1}, {"ASME", 2}, {"JIS", 8}};

/// What a step does to one probe: its text before the step (null: not looked at) and after it,
/// for the parents of the mask (0 all) and the option (0 both settings, 1 without, 2 with).
struct Expect {
  const char* probe;
  const char* before;
  const char* after;
  int parents = 0;
  int option = 0;
};

inline constexpr int kWithout = 1, kWith = 2;

/// Whether a row is read for a parent and a setting of the option.
inline bool Applies(const Expect& row, int parentBit, bool option) {
  if (row.parents && !(row.parents & parentBit)) return false;
  return !((row.option == kWithout && option) || (row.option == kWith && !option));
}

/// Checks the rows that apply to a parent and a setting of the option on a tree; run names the case.
inline void CheckRows(ZOLAnnStandardXMLParser& tree, std::span<const Expect> rows, int parentBit, bool option,
                      const std::string& run) {
  for (const Expect& row : rows)
    if (Applies(row, parentBit, option)) {
      EXPECT_EQ(Probe(tree, row.probe), row.after) << run << ": " << row.probe;
    }
}

/// Runs one stage from..to over a release 9 standard of a parent brought to level from, after the
/// set-up lines, and checks the rows on the saved and decoded result. The report counts are the
/// caller's.
inline void RunStep(const Parent& parent, bool option, int from, int to, std::span<const Expect> rows,
                    const std::vector<std::string>& setup = {}) {
  const std::string run = std::string(parent.name) + (option ? " with" : " without") + " the option";
  ChainDriver d(Release9Lines(parent.name));
  d.Upgrade(1, from, option);
  ASSERT_EQ(d.GetOutcome().levelReached, from) << run;
  ApplyLines(d.Tree(), setup);
  std::map<const Expect*, std::string> before;
  for (const Expect& row : rows)
    if (row.before && Applies(row, parent.bit, option)) before[&row] = Probe(d.Tree(), row.probe);
  d.Upgrade(from, to, option);
  ASSERT_EQ(d.GetOutcome().stagesRun, 1) << run;
  ZOLAnnStandardXMLParser decoded;
  ASSERT_EQ(decoded.DecodeXML(d.Saved(), 0), 0) << run;
  for (const auto& [row, text] : before) EXPECT_EQ(text, row->before) << run << ", before: " << row->probe;
  CheckRows(decoded, rows, parent.bit, option, run);
}

/// The probe of a field of the n-th symbol row; kept for the life of the test program.
inline const char* SymbolRow(int n, const char* field) {
  static std::deque<std::string> probes;
  return probes.emplace_back("Root.EngineeringSymbols.EngineeringSymbol{" + std::to_string(n) + "}@" + field).c_str();
}

/// The names the rows of the step and chain tests are written with.
namespace rows {
using qeltest::Expect;
using qeltest::kAbsent;
using qeltest::SymbolRow;
inline constexpr int ANSI = 1, ASME = 2, ISO = 4, JIS = 8, AA = ANSI | ASME, IJ = ISO | JIS, ALL = 0;
inline constexpr int WITHOUT = kWithout, WITH = kWith;
}  // namespace rows

/// Runs one stage for each parent and both settings of the option; no run raises a report.
class StepTest : public ZOLReportCountTest {
protected:
  void Check(int from, int to, std::span<const Expect> rows, const std::vector<std::string>& setup = {}) {
    for (const Parent& parent : kParents)
      for (bool option : {false, true}) {
        r.Clear();
        RunStep(parent, option, from, to, rows, setup);
        EXPECT_EQ(r.Count(), 0) << parent.name << " " << option << ": " << (r.Count() ? r.Lines()[0] : "");
      }
    r.Clear();
  }
};

}  // namespace qeltest
