// The upgrade chain: a release 9 standard of each parent decoded, brought to the highest level
// whose stages are built, and saved, beside a decode and save of the text it gives.
#include <map>
#include <string>

#include "QelBenchMain.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDrwParseStandard.h"

namespace {

const char* const kParents[] = {"ISO", "ANSI", "ASME", "JIS"};

// The text of a release 9 standard as the flat encoding leaves it: general defaults, arrow
// symbols, dimension parameters, the format descriptions and the thickness table.
std::string Release9Text(const std::string& parent) {
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
  // Upgrades to the highest level that is built and gives the saved text.
  std::string UpgradeAndSave() {
    ZOLDrwParseStandardUpgradeOptions options;
    options.UpdateDefaultValues = 0;
    UpgradeVersion(HighestBuiltLevel(), options);
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

std::string Upgrade(const std::string& release9) { return MemoryDriver(release9).UpgradeAndSave(); }

void DecodeAndSave(const std::string& text) {
  ZOLAnnStandardXMLParser doc;
  doc.DecodeXML(ZOLUnicodeString(text), 0);
  ZOLUnicodeString out;
  doc.SaveInString(out);
  benchmark::DoNotOptimize(out.str().data());
}

struct Texts {
  std::string release9, upgraded;
};

// Made once per parent; the map keeps each where it is, for the benchmarks that hold it.
const Texts& TextsOf(const std::string& parent) {
  static std::map<std::string, Texts> cache;
  auto [at, added] = cache.try_emplace(parent);
  if (added) {
    at->second.release9 = Release9Text(parent);
    at->second.upgraded = Upgrade(at->second.release9);
  }
  return at->second;
}

}  // namespace

int main(int argc, char** argv) {
  qelbench::Plan plan;
  for (const char* parent : kParents) {
    const Texts& texts = TextsOf(parent);
    benchmark::RegisterBenchmark((std::string("BM_UpgradeChain/") + parent).c_str(),
                                 [&texts](benchmark::State& state) {
                                   for (auto _ : state) benchmark::DoNotOptimize(Upgrade(texts.release9).size());
                                   state.SetLabel("level 1 to " + std::to_string(MemoryDriver::HighestBuiltLevel()) +
                                                  ", " + std::to_string(texts.upgraded.size()) + " bytes out");
                                 })
        ->Unit(benchmark::kMillisecond);
    benchmark::RegisterBenchmark((std::string("BM_DecodeAndSave/") + parent).c_str(),
                                 [&texts](benchmark::State& state) {
                                   for (auto _ : state) DecodeAndSave(texts.upgraded);
                                 })
        ->Unit(benchmark::kMillisecond);
    plan.ratios.push_back({std::string("upgrade chain / decode+save of its result, ") + parent,
                           qelbench::Loop("chain", [&texts] { benchmark::DoNotOptimize(Upgrade(texts.release9).size()); }),
                           {qelbench::Loop("decode+save", [&texts] { DecodeAndSave(texts.upgraded); })},
                           2.0});
  }
  return qelbench::Main(argc, argv, plan);
}
