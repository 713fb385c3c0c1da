// qelstd report and diff as the tool builds them, from files of the built-in standards: the page of
// a standard (its object loaded, the page rendered; not written) against a load of the same file,
// and the diff of two standards (both trees decoded and walked) against a load of each.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>

#include "QelBenchMain.h"
#include "QelstdDiff.h"
#include "QelstdReport.h"
#include "ZOLDftBuiltinStandards.h"
#include "ZOLDftStandardServices.h"
#include "ZOLFile.h"

namespace {

namespace fs = std::filesystem;

// The file of a built-in text, written once into a directory of this run.
const std::string& FileOf(const char* name) {
  static const std::string dir = [] {
    std::string pattern = (fs::temp_directory_path() / "qelstd-bench-report-XXXXXX").string();
    if (!mkdtemp(pattern.data())) {
      std::fprintf(stderr, "no temporary directory\n");
      std::exit(2);
    }
    std::atexit([] {
      std::error_code ec;
      fs::remove_all(dir, ec);
    });
    return pattern;
  }();
  static std::string files[3];
  std::string& file = files[std::string(name) == "ISO" ? 0 : std::string(name) == "JIS" ? 1 : 2];
  if (file.empty()) {
    const ZOLUnicodeString* text = ZOLDftBuiltinStandards::GetText(name);
    file = dir + "/" + name + ".xml";
    if (!text || ZOLWriteFileAtomically(file.c_str(), text->str()) != S_OK) {
      std::fprintf(stderr, "cannot write the built-in text %s\n", name);
      std::exit(2);
    }
  }
  return file;
}

size_t Load(const char* name) {
  ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromFile(FileOf(name).c_str(), name);
  return s ? 1 : 0;
}

size_t Report(const char* name) {
  ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromFile(FileOf(name).c_str(), name);
  return qelstd::RenderReport(FileOf(name), s).size();
}

size_t Diff(const char* a, const char* b) {
  ZOLAnnStandardXMLParser ta, tb;
  ta.DecodeXML(ZOLUnicodeString(FileOf(a)), 1);
  tb.DecodeXML(ZOLUnicodeString(FileOf(b)), 1);
  return qelstd::DiffTrees(ta, tb).size();
}

// The page alone, from an object at hand.
void BM_Render(benchmark::State& state) {
  ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromFile(FileOf("ISO").c_str(), "ISO");
  for (auto _ : state) benchmark::DoNotOptimize(qelstd::RenderReport(FileOf("ISO"), s).size());
}

void BM_Report(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(Report("ISO"));
}
void BM_Diff(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(Diff("ISO", "JIS"));
}
void BM_Load(benchmark::State& state) {
  for (auto _ : state) benchmark::DoNotOptimize(Load("ISO"));
}

}  // namespace

BENCHMARK(BM_Render)->Name("BM_Render/ISO")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Report)->Name("BM_Report/ISO")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Diff)->Name("BM_Diff/ISO-JIS")->Unit(benchmark::kMillisecond);
BENCHMARK(BM_Load)->Name("BM_Load/ISO")->Unit(benchmark::kMillisecond);

int main(int argc, char** argv) {
  qelbench::KeepHeap();
  // One of each before any timing, so that the first timed one finds the heap grown.
  Report("ISO"), Diff("ISO", "JIS"), Load("JIS");
  qelbench::Plan plan;
  plan.ratios.push_back({"report / load, ISO", qelbench::Loop("report", [] { benchmark::DoNotOptimize(Report("ISO")); }),
                         {qelbench::Loop("load", [] { benchmark::DoNotOptimize(Load("ISO")); })},
                         5.0});
  plan.ratios.push_back({"diff / two loads, ISO and JIS",
                         qelbench::Loop("diff", [] { benchmark::DoNotOptimize(Diff("ISO", "JIS")); }),
                         {qelbench::Loop("two loads", [] { benchmark::DoNotOptimize(Load("ISO") + Load("JIS")); })},
                         4.0});
  return qelbench::Main(argc, argv, plan);
}
