// What the upgrade benchmarks share: the text of a release 9 standard, and a driver of the shipped
// chain that reads a text in memory.
#pragma once
#include <string>

#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDrwParseStandard.h"

namespace qelbench {

// The text of a release 9 standard as the flat encoding leaves it: general defaults, arrow
// symbols, dimension parameters, the format descriptions and the thickness table.
inline std::string Release9Text(const std::string& parent) {
  ZOLAnnStandardXMLParser p;
  auto node = [&](const std::string& edit) { p.AddNodeWithPath(edit, 0); };
  auto value = [&](const std::string& edit) { p.AddValueWithPath(edit, 1); };
  node("Root:General");
  for (const char* list : {"AllowedToleranceFormats", "AllowedNumericalFormats", "AllowedTextFonts"}) {
    node(std::string("Root.General:") + list);
    for (int i = 0; i < 50; ++i) p.AddValueWithPath(std::string("Root.General.") + list + "::string::0", -1);
  }
  value("Root.General:DefaultToleranceFormat:string:");
  value("Root.General:DefaultNumericalFormatLength:string:NUM.DIMM");
  value("Root.General:DefaultNumericalFormatAngle:string:NUM.ADMS");
  value("Root.General:DefaultTextFont:string:");
  value("Root.General:DefaultTextFontSize:float:3.5");
  node("Root:DressUp");
  node("Root.DressUp:Symbols");
  for (const char* symbol : {"SimpleArrow", "FilledArrow", "ClosedArrow", "SymetricArrow", "Circle", "Slash"}) {
    node(std::string("Root.DressUp.Symbols:") + symbol);
    value(std::string("Root.DressUp.Symbols.") + symbol + ":Length:float:2.0");
  }
  node("Root:Dimension");
  value("Root.Dimension:ParentStandard:string:" + std::string(parent == "ASME" ? "ANSI" : parent));
  value(std::string("Root.Dimension:TXTDatumMode:int:") + (parent == "ASME" ? "1" : parent == "ANSI" ? "2" : "0"));
  for (int i = 0; i < 100; ++i) value("Root.Dimension:DIMLParameter" + std::to_string(i) + ":float:1.0");
  value("Root.Dimension:CUMLTxtDecalY:float:1.5");
  value("Root.Dimension:CUMLDimLinTail:float:1.0");
  for (const char* branch : {"ToleranceFormats", "ValueFormats", "LineThickness"}) node(std::string("Root:") + branch);
  for (int i = 0; i < 55; ++i) {
    p.AddNodeWithPath("Root.LineThickness:ZOLThickness:0", 1);
    p.AddValueWithPath("Root.LineThickness.ZOLThickness:Pixel:int:1:0", -1);
    p.AddValueWithPath("Root.LineThickness.ZOLThickness:mm:float:0.13:0", -1);
  }
  ZOLUnicodeString text;
  p.SaveInString(text);
  return text.str();
}

// A driver whose file is a text in memory.
class MemoryDriver : public ZOLDrwParseStandard {
public:
  explicit MemoryDriver(const std::string& text) : ZOLDrwParseStandard(Name()), _text(text) { Decode(); }
  int DecodeTree(ZOLAnnStandardXMLParser& parser) override { return parser.DecodeXML(ZOLUnicodeString(_text), 0); }
  // Upgrades to level (by default the highest level that is built) and gives the saved text.
  std::string UpgradeAndSave(bool updateDefaults, int level = HighestBuiltLevel()) {
    ZOLDrwParseStandardUpgradeOptions options;
    options.UpdateDefaultValues = updateDefaults;
    UpgradeVersion(level, options);
    ZOLUnicodeString out;
    _Parser->SaveInString(out);
    return out.str();
  }
  static int HighestBuiltLevel() {
    int level = 1;
    for (const StageInfo& s : GetStages()) {
      if (s.fromFlatText || s.from < level) continue;
      if (!s.built) break;
      level = s.to;
    }
    return level;
  }

private:
  static ZOLUnicodeString& Name() {
    static ZOLUnicodeString name("Company.xml");
    return name;
  }
  std::string _text;
};

}  // namespace qelbench
