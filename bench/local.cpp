// Local standards: a drafting module asks the element's local standard first and, on 1, the
// standard. A local value read, and a miss that sends the caller on to the standard, against the
// standard's own read of the same kind.
#include <cstdio>
#include <cstdlib>

#include "QelBenchMain.h"
#include "ZOLDftBuiltinStandards.h"
#include "ZOLDftStandardServices.h"
#include "ZOLIQelLocalStandard.h"
#include "ZOLOsmDocument.h"

namespace {

constexpr const char* kLocal = "Annotation.Text.LeaderGap";
constexpr const char* kNotLocal = "Annotation.Roughness.LeaderGap";

ZOLIDrwStandard* Iso() {
  static ZOLIDrwStandard_var iso = ZOLDftStandardServices::GetStandardFromBuffer(ZOLDftBuiltinStandards::GetText("ISO"), "ISO");
  return iso;
}

// A local standard with a dozen values, as a view with a few overrides has.
ZOLIQelLocalStandard* Local() {
  static ZOLRef<ZOLOsmDocument> document = ZOLRef<ZOLOsmDocument>::Adopt(new ZOLOsmDocument);
  static ZOLIQelLocalStandard_var local = [] {
    ZOLIQelLocalStandard_var made(document->CreateObject("QelLocalStandard", "local"));
    if (made.IsNull() || FAILED(made->SetOverloadedValue(kLocal, 3.0))) {
      std::fprintf(stderr, "no local standard\n");
      std::exit(2);
    }
    for (int i = 1; i <= 10; ++i) made->SetOverloadedValue("Patterns.coloring.color", i, 0x10101 * i);
    made->SetOverloadedValue("General.UserPreferences.CurrentStandard", ZOLUnicodeString("ISO"));
    return made;
  }();
  return local;
}

void ReadLocal() {
  double value = 0;
  HRESULT hr = Local()->GetOverloadedValue(kLocal, value);
  benchmark::DoNotOptimize(hr);
  benchmark::DoNotOptimize(value);
}

void ReadMissThenStandard() {
  double value = 0;
  if (Local()->GetOverloadedValue(kNotLocal, value) == S_FALSE) Iso()->GetValue(kNotLocal, 1, value);
  benchmark::DoNotOptimize(value);
}

void ReadStandard() {
  double value = 0;
  Iso()->GetValue(kNotLocal, 1, value);
  benchmark::DoNotOptimize(value);
}

template <void (*Read)()>
void BM_Read(benchmark::State& state) {
  for (auto _ : state) Read();
}

}  // namespace

BENCHMARK(BM_Read<ReadLocal>)->Name("BM_LocalGetter/LocalValue");
BENCHMARK(BM_Read<ReadMissThenStandard>)->Name("BM_LocalGetter/MissThenStandard");
BENCHMARK(BM_Read<ReadStandard>)->Name("BM_LocalGetter/StandardOnly");

int main(int argc, char** argv) {
  ReadLocal();
  ReadMissThenStandard();
  qelbench::Plan plan;
  plan.ratios.push_back({"local value / standard value", qelbench::Loop("local", ReadLocal),
                         {qelbench::Loop("standard", ReadStandard)}});
  plan.ratios.push_back({"local miss then standard / standard value", qelbench::Loop("miss then standard", ReadMissThenStandard),
                         {qelbench::Loop("standard", ReadStandard)}});
  return qelbench::Main(argc, argv, plan);
}
