// The upgrade chain: a release 9 standard of each parent decoded, brought to the highest level
// whose stages are built, and saved, beside a decode and save of the text it gives; once keeping
// the look of the standard, once taking the new delivered defaults (new symbol tables, colours).
#include <map>
#include <string>

#include "QelBenchDocument.h"
#include "QelBenchMain.h"
#include "QelBenchUpgrade.h"

namespace {

const char* const kParents[] = {"ISO", "ANSI", "ASME", "JIS"};

using qelbench::MemoryDriver;

std::string Upgrade(const std::string& release9, bool updateDefaults) {
  return MemoryDriver(release9).UpgradeAndSave(updateDefaults);
}

struct Texts {
  std::string release9, upgraded, upgradedWithDefaults;
};

// Made once per parent; the map keeps each where it is, for the benchmarks that hold it.
const Texts& TextsOf(const std::string& parent) {
  static std::map<std::string, Texts> cache;
  auto [at, added] = cache.try_emplace(parent);
  if (added) {
    at->second.release9 = qelbench::Release9Text(parent);
    at->second.upgraded = Upgrade(at->second.release9, false);
    at->second.upgradedWithDefaults = Upgrade(at->second.release9, true);
  }
  return at->second;
}

}  // namespace

int main(int argc, char** argv) {
  qelbench::Plan plan;
  for (const char* parent : kParents) {
    const Texts& texts = TextsOf(parent);
    for (bool defaults : {false, true}) {
      const std::string& result = defaults ? texts.upgradedWithDefaults : texts.upgraded;
      const std::string suffix = std::string(parent) + (defaults ? "/UpdateDefaultValues" : "");
      benchmark::RegisterBenchmark(("BM_UpgradeChain/" + suffix).c_str(),
                                   [&texts, &result, defaults](benchmark::State& state) {
                                     for (auto _ : state)
                                       benchmark::DoNotOptimize(Upgrade(texts.release9, defaults).size());
                                     state.SetLabel("level 1 to " + std::to_string(MemoryDriver::HighestBuiltLevel()) +
                                                    ", " + std::to_string(result.size()) + " bytes out");
                                   })
          ->Unit(benchmark::kMillisecond);
      benchmark::RegisterBenchmark(("BM_DecodeAndSave/" + suffix).c_str(),
                                   [&result](benchmark::State& state) {
                                     for (auto _ : state) qelbench::DecodeAndSave(result);
                                   })
          ->Unit(benchmark::kMillisecond);
      plan.ratios.push_back(
          {"upgrade chain / decode+save of its result, " + suffix,
           qelbench::Loop("chain", [&texts, defaults] { benchmark::DoNotOptimize(Upgrade(texts.release9, defaults).size()); }),
           {qelbench::Loop("decode+save", [&result] { qelbench::DecodeAndSave(result); })},
           2.0});
    }
  }
  return qelbench::Main(argc, argv, plan);
}
