// The JSON face of a standard: the export of ISO against a load of the same standard, and the
// standard text generated back from that export.
#include <cstdio>
#include <cstdlib>
#include <string>

#include "QelBenchMain.h"
#include "ZOLDftBuiltinStandards.h"
#include "ZOLDftStandardServices.h"
#include "ZOLIQelStandardCommunication.h"

namespace {

const ZOLUnicodeString& IsoText() {
  static const ZOLUnicodeString* text = [] {
    const ZOLUnicodeString* t = ZOLDftBuiltinStandards::GetText("ISO");
    if (!t) {
      std::fprintf(stderr, "no built-in text ISO\n");
      std::exit(2);
    }
    return t;
  }();
  return *text;
}

ZOLIQelStandardCommunication* Iso() {
  static ZOLIDrwStandard_var iso = ZOLDftStandardServices::GetStandardFromBuffer(&IsoText(), "ISO");
  static ZOLIQelStandardCommunication_var communication(iso.Get());
  return communication;
}

// The export of ISO as the generator's input; its unescaped markup makes no difference to the work.
const ZOLOmxJsonObject& IsoDescription() {
  static const ZOLOmxJsonObject description = [] {
    ZOLOmxJsonObject json;
    Iso()->GetStandardAsJson(json);
    return json;
  }();
  return description;
}

void Load() {
  ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromBuffer(&IsoText(), "ISO");
  benchmark::DoNotOptimize(s.Get());
}

// A standard object builds its export on the first call and keeps it, so the export proper is
// timed on a fresh object, beside the load it needs.
void LoadAndExport() {
  ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromBuffer(&IsoText(), "ISO");
  ZOLOmxJsonObject json;
  ZOLIQelStandardCommunication_var(s.Get())->GetStandardAsJson(json);
  benchmark::DoNotOptimize(json.Length());
}

void KeptExport() {
  ZOLOmxJsonObject json;
  Iso()->GetStandardAsJson(json);
  benchmark::DoNotOptimize(json.Length());
}

void ExportText() {
  ZOLOmxJsonObject json;
  Iso()->GetStandardAsJson(json);
  benchmark::DoNotOptimize(json.ToString().size());
}

void Generate() {
  std::string text;
  ZOLDftStandardServices::GenerateStandardXML(IsoDescription(), text);
  benchmark::DoNotOptimize(text.size());
}

template <void (*Op)()>
void BM_Op(benchmark::State& state) {
  for (auto _ : state) Op();
}

}  // namespace

int main(int argc, char** argv) {
  qelbench::KeepHeap();
  benchmark::RegisterBenchmark("BM_LoadStandard/ISO", BM_Op<Load>)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("BM_ExportJSON/ISO", BM_Op<LoadAndExport>)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("BM_ExportJSON/ISO/Kept", BM_Op<KeptExport>);
  benchmark::RegisterBenchmark("BM_ExportJSONText/ISO", BM_Op<ExportText>)->Unit(benchmark::kMillisecond);
  benchmark::RegisterBenchmark("BM_GenerateStandardXML", BM_Op<Generate>)->Unit(benchmark::kMillisecond);
  qelbench::Plan plan;
  plan.ratios.push_back({"load and first JSON export / load, ISO", qelbench::Loop("load+export", LoadAndExport),
                         {qelbench::Loop("load", Load)}});
  plan.ratios.push_back(
      {"GenerateStandardXML from the export / load, ISO", qelbench::Loop("generate", Generate), {qelbench::Loop("load", Load)}});
  plan.report = [](FILE* out) {
    std::string text;
    ZOLDftStandardServices::GenerateStandardXML(IsoDescription(), text);
    std::fprintf(out, "ISO: %zu bytes of standard text, %zu bytes of JSON export, %zu bytes generated\n",
                 IsoText().str().size(), IsoDescription().ToString().size(), text.size());
  };
  return qelbench::Main(argc, argv, plan);
}
