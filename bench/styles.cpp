// Styles: the colour of the default Curve style read the way a drafting module reads it, with a
// style object made for the read and with one kept, against the same cached read of the standard.
#include <cstdio>
#include <cstdlib>

#include "QelBenchMain.h"
#include "ZOLDftBuiltinStandards.h"
#include "ZOLDftStandardServices.h"
#include "ZOLIDftStyle.h"
#include "ZOLIDftStyleManager.h"

namespace {

ZOLIDrwStandard* Iso() {
  static ZOLIDrwStandard_var iso = [] {
    const ZOLUnicodeString* text = ZOLDftBuiltinStandards::GetText("ISO");
    if (!text) {
      std::fprintf(stderr, "no built-in text ISO\n");
      std::exit(2);
    }
    return ZOLDftStandardServices::GetStandardFromBuffer(text, "ISO");
  }();
  return iso;
}

ZOLIDftStyleManager* Manager() {
  static ZOLIDftStyleManager_var manager(Iso());
  return manager;
}

// The default Curve style, asked for once.
ZOLIDftStyle* KeptStyle() {
  static ZOLIDftStyle_var kept = [] {
    wchar_t* name = nullptr;
    ZOLIDftStyle* style = nullptr;
    Manager()->GetDefaultStyle(L"Curve", &name, nullptr);
    if (FAILED(Manager()->GetStyle(name, L"Curve", &style))) {
      std::fprintf(stderr, "no default Curve style\n");
      std::exit(2);
    }
    delete[] name;
    return ZOLIDftStyle_var::Adopt(style);
  }();
  return kept;
}

void ReadThroughNewStyle() {
  ZOLIDftStyle* style = nullptr;
  Manager()->GetStyle(L"Default", L"Curve", &style);
  int rgb[3] = {};
  int count = 0;
  style->GetValue("Color", rgb, &count);
  benchmark::DoNotOptimize(rgb);
  style->Release();
}

void ReadThroughKeptStyle() {
  int rgb[3] = {};
  int count = 0;
  KeptStyle()->GetValue("Color", rgb, &count);
  benchmark::DoNotOptimize(rgb);
}

void ReadStandard() {
  int rgb[3] = {};
  int count = 0;
  Iso()->GetValue("Curve.Default.Color", rgb, &count);
  benchmark::DoNotOptimize(rgb);
}

template <void (*Read)()>
void BM_Read(benchmark::State& state) {
  for (auto _ : state) Read();
}

}  // namespace

BENCHMARK(BM_Read<ReadThroughNewStyle>)->Name("BM_StyleGetValue/NewStyle");
BENCHMARK(BM_Read<ReadThroughKeptStyle>)->Name("BM_StyleGetValue/KeptStyle");
BENCHMARK(BM_Read<ReadStandard>)->Name("BM_StyleGetValue/Standard");

int main(int argc, char** argv) {
  ReadThroughNewStyle();
  ReadThroughKeptStyle();
  qelbench::Plan plan;
  plan.ratios.push_back({"kept style colour / standard colour", qelbench::Loop("kept style", ReadThroughKeptStyle),
                         {qelbench::Loop("standard", ReadStandard)}, 2.0});
  plan.ratios.push_back({"new style colour / standard colour", qelbench::Loop("new style", ReadThroughNewStyle),
                         {qelbench::Loop("standard", ReadStandard)}});
  return qelbench::Main(argc, argv, plan);
}
