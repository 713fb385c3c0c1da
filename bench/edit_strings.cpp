// Edit strings applied to a document of 20,000 nodes: the upgrade chain's hot path.
#include <string>
#include <vector>

#include "QelBenchMain.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLSysLog.h"

namespace {

constexpr int kKinds = 200;
constexpr int kRecords = 99;  // 200 kinds + 200 * 99 records = 20,000 nodes
constexpr int kEdits = 100000;

void BuildTree(ZOLAnnStandardXMLParser& doc) {
  doc.AddNodeWithPath("Root:Styles", 0);
  for (int k = 0; k < kKinds; ++k) {
    std::string kind = "Root.Styles.K" + std::to_string(k);
    doc.AddNodeWithPath("Root.Styles:K" + std::to_string(k), 0);
    for (int j = 0; j < kRecords; ++j) {
      doc.AddNodeWithPath(kind + ":S" + std::to_string(j), 1);
      std::string record = kind + ".S" + std::to_string(j);
      doc.AddValueWithPath(record + ":Width:float:210", -1);
      doc.AddValueWithPath(record + ":Height:float:297", -1);
    }
  }
}

struct Edit {
  int op;
  ZOLUnicodeString text;
};

// A fixed mix: changes of a named field, values added, nodes appended, values removed.
std::vector<Edit> MakeEdits() {
  std::vector<Edit> edits;
  edits.reserve(kEdits);
  unsigned seed = 12345;
  for (int i = 0; i < kEdits; ++i) {
    seed = seed * 1103515245u + 12345u;
    int k = static_cast<int>((seed >> 8) % kKinds), j = static_cast<int>((seed >> 16) % kRecords);
    std::string record = "Root.Styles.K" + std::to_string(k) + ".S" + std::to_string(j);
    switch (i % 10) {
      case 0: case 1: case 2: edits.push_back({0, record + ":Width:" + std::to_string(i % 500)}); break;
      case 3: case 4: case 5: edits.push_back({1, record + ":Extra:int:" + std::to_string(i)}); break;
      case 6: case 7: edits.push_back({2, "Root.Styles.K" + std::to_string(k) + ":New" + std::to_string(i % 7)}); break;
      default: edits.push_back({3, record + ".Extra"}); break;
    }
  }
  return edits;
}

void BM_EditStrings(benchmark::State& state) {
  ZOLSysLogSetHook([](bool, const char*) {});
  const std::vector<Edit> edits = MakeEdits();
  for (auto _ : state) {
    state.PauseTiming();
    auto doc = std::make_unique<ZOLAnnStandardXMLParser>();
    BuildTree(*doc);
    state.ResumeTiming();
    int failed = 0;
    for (const Edit& e : edits) {
      switch (e.op) {
        case 0: failed += doc->ChangeValueWithPath(e.text); break;
        case 1: failed += doc->AddValueWithPath(e.text, 1); break;
        case 2: failed += doc->AddNodeWithPath(e.text, 0); break;
        default: doc->DeleteNodeWithPath(e.text); break;
      }
    }
    benchmark::DoNotOptimize(failed);
    state.PauseTiming();
    doc.reset();
    state.ResumeTiming();
  }
  state.counters["edits"] = benchmark::Counter(static_cast<double>(kEdits) * state.iterations(), benchmark::Counter::kIsRate);
  ZOLSysLogSetHook(nullptr);
}
BENCHMARK(BM_EditStrings)->Unit(benchmark::kMillisecond);

void BM_BuildTree20k(benchmark::State& state) {
  for (auto _ : state) {
    ZOLAnnStandardXMLParser doc;
    BuildTree(doc);
    benchmark::DoNotOptimize(doc.Root());
  }
  state.counters["edits"] = benchmark::Counter(static_cast<double>(1 + kKinds * (1 + 3 * kRecords)) * state.iterations(),
                                               benchmark::Counter::kIsRate);
}
BENCHMARK(BM_BuildTree20k)->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) { return qelbench::Main(argc, argv, {}); }
