// qelstd upgrade over a folder of 1,000 standards of mixed levels and parents, with one worker and
// with two: the wall time of whole runs of the tool, taken in turns (1, 2, 2, 1, ...) so that other
// work on a shared machine weighs on both sides alike. The CPU time of the pair runner says nothing
// here: the point is how much of the run two processes overlap. Flags: --files=N (1000),
// --rounds=N (5 runs of each side: on shared cores three pairs left the median to one noisy run),
// --dir=PATH (where the files go and stay; by default a temporary folder, removed).
#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "QelBenchMain.h"
#include "QelBenchUpgrade.h"

// Without the tool in this build there is nothing to time.
#ifndef QELSTD_QELSTD_EXE
#define QELSTD_QELSTD_EXE ""
#endif

namespace fs = std::filesystem;

namespace {

struct Settings {
  int files = 1000;
  int rounds = 5;
  std::string dir;
};

Settings TakeSettings(int& argc, char** argv) {
  Settings s;
  int kept = 1;
  for (int i = 1; i < argc; ++i) {
    if (std::strncmp(argv[i], "--files=", 8) == 0) s.files = std::max(1, std::atoi(argv[i] + 8));
    else if (std::strncmp(argv[i], "--rounds=", 9) == 0) s.rounds = std::max(1, std::atoi(argv[i] + 9));
    else if (std::strncmp(argv[i], "--dir=", 6) == 0) s.dir = argv[i] + 6;
    else argv[kept++] = argv[i];
  }
  argc = kept;
  argv[argc] = nullptr;
  return s;
}

// files standards in ten folders, cycling through the four parents and seven start levels.
void WriteInputs(const fs::path& in, int files) {
  std::vector<std::string> texts;
  for (const char* parent : {"ISO", "ANSI", "ASME", "JIS"}) {
    const std::string release9 = qelbench::Release9Text(parent);
    for (int level : {1, 30, 60, 100, 130, 170, 200})
      texts.push_back(level == 1 ? release9 : qelbench::MemoryDriver(release9).UpgradeAndSave(false, level));
  }
  for (int i = 0; i < files; ++i) {
    const fs::path file = in / ("g" + std::to_string(i % 10)) / ("Std" + std::to_string(i / 10) + ".xml");
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary) << texts[static_cast<size_t>(i) % texts.size()];
  }
}

// CPU seconds of the children waited for so far.
double ChildrenCpu() {
  rusage u{};
  getrusage(RUSAGE_CHILDREN, &u);
  return static_cast<double>(u.ru_utime.tv_sec + u.ru_stime.tv_sec) + (u.ru_utime.tv_usec + u.ru_stime.tv_usec) / 1e6;
}

// Wall seconds of one run of qelstd upgrade with that many workers, negative when it failed; cpu gets
// the CPU seconds of the run's processes.
double TimeRun(const fs::path& in, const fs::path& out, int jobs, int level, double& cpu) {
  fs::remove_all(out);
  const std::string command = std::string("'") + QELSTD_QELSTD_EXE + "' upgrade '" + in.string() + "' -o '" +
                              out.string() + "' --to " + std::to_string(level) + " -j " + std::to_string(jobs) +
                              " >/dev/null";
  const double cpuBefore = ChildrenCpu();
  const auto start = std::chrono::steady_clock::now();
  const int status = std::system(command.c_str());
  const double seconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
  cpu = ChildrenCpu() - cpuBefore;
  return status == 0 ? seconds : -1.0;
}

void Report(const Settings& s, FILE* out) {
  if (std::strlen(QELSTD_QELSTD_EXE) == 0) {
    std::fprintf(out, "batch  qelstd is not built: nothing timed\n");
    return;
  }
  std::string dir = s.dir;
  if (dir.empty()) {
    std::string pattern = (fs::temp_directory_path() / "qelstd-bench-XXXXXX").string();
    dir = mkdtemp(pattern.data()) ? pattern : std::string();
  } else {
    dir = (fs::path(dir) / "qelstd-bench-batch").string();
    fs::create_directories(dir);
  }
  if (dir.empty()) {
    std::fprintf(out, "batch  no directory for the files\n");
    return;
  }
  const fs::path in = fs::path(dir) / "in", out1 = fs::path(dir) / "out";
  WriteInputs(in, s.files);
  const int level = qelbench::MemoryDriver::HighestBuiltLevel();
  double load[3] = {0, 0, 0};
  getloadavg(load, 3);
  const double loadBefore = load[0];
  std::vector<double> one, two, ratios, cpuOne, cpuTwo;
  for (int r = 0; r < s.rounds; ++r) {
    // 1, 2 then 2, 1: a trend in the machine's load falls on both sides.
    const bool oneFirst = r % 2 == 0;
    double cpuA = 0, cpuB = 0;
    const double a = TimeRun(in, out1, oneFirst ? 1 : 2, level, cpuA);
    const double b = TimeRun(in, out1, oneFirst ? 2 : 1, level, cpuB);
    const double t1 = oneFirst ? a : b, t2 = oneFirst ? b : a;
    cpuOne.push_back(oneFirst ? cpuA : cpuB);
    cpuTwo.push_back(oneFirst ? cpuB : cpuA);
    if (t1 < 0 || t2 < 0) {
      std::fprintf(out, "batch  qelstd upgrade failed; is %s built?\n", QELSTD_QELSTD_EXE);
      break;
    }
    one.push_back(t1 * 1e9);
    two.push_back(t2 * 1e9);
    ratios.push_back(t2 / t1);
  }
  getloadavg(load, 3);
  if (!ratios.empty()) {
    const std::string what = std::to_string(s.files) + " files to level " + std::to_string(level);
    qelbench::PrintSpread(out, "wall", "upgrade batch, 1 worker, " + what, qelbench::SpreadOf(one), " ns", 0,
                          static_cast<int>(one.size()), "runs");
    qelbench::PrintSpread(out, "wall", "upgrade batch, 2 workers, " + what, qelbench::SpreadOf(two), " ns", 0,
                          static_cast<int>(two.size()), "runs");
    // At least 1.8 times faster with two workers: a ratio of at most 1 / 1.8.
    qelbench::PrintSpread(out, "ratio", "upgrade batch, 2 workers / 1 worker", qelbench::SpreadOf(ratios), "", 1 / 1.8,
                          static_cast<int>(ratios.size()), "pairs");
    // CPU time the run's processes took: what two workers add in work, whatever the machine's load.
    std::fprintf(out, "       speed-up %.2f; CPU of a run %.2f s with 1 worker, %.2f s with 2; load average %.2f before, %.2f after\n",
                 1 / qelbench::SpreadOf(ratios).median, qelbench::SpreadOf(cpuOne).median,
                 qelbench::SpreadOf(cpuTwo).median, loadBefore, load[0]);
  }
  // Files in a folder of the caller's stay there for a look; a temporary folder goes.
  std::error_code ec;
  if (s.dir.empty()) fs::remove_all(dir, ec);
}

}  // namespace

int main(int argc, char** argv) {
  const Settings settings = TakeSettings(argc, argv);
  // The CPU time of one file's work, the floor of a run's wall time per file and worker.
  static const std::string release9 = qelbench::Release9Text("ISO");
  benchmark::RegisterBenchmark("BM_UpgradeOneFile/ISO", [](benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(qelbench::MemoryDriver(release9).UpgradeAndSave(false).size());
  })->Unit(benchmark::kMillisecond);
  qelbench::Plan plan;
  plan.report = [settings](FILE* out) { Report(settings, out); };
  return qelbench::Main(argc, argv, plan);
}
