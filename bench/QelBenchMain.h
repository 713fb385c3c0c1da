// A main for the benchmarks of this project. Google Benchmark gives the plain figure of each
// benchmark; the ratios and target figures come from a pair runner that alternates timed batches of
// the sides it compares, on the thread's CPU time, so that other work on a shared machine slows
// both sides of a ratio alike instead of whichever happened to run while it was busy.
#pragma once
#include <benchmark/benchmark.h>
#include <malloc.h>
#include <sys/resource.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace qelbench {

/// CPU time of the calling thread in ns.
inline double ThreadCpuNs() {
  timespec t{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &t);
  return static_cast<double>(t.tv_sec) * 1e9 + static_cast<double>(t.tv_nsec);
}

/// A heap that keeps what it has. By default glibc gives the top of its heap back to the system
/// whenever enough of it is free, and maps large blocks afresh each time; whether a loop of loads or
/// parses then pays new pages on every iteration depends on what else happens to live on the heap
/// (a DOM kept alive for another benchmark tripled a load's page faults). A long-running application
/// has a grown heap; so does every benchmark here.
inline void KeepHeap() {
  mallopt(M_TRIM_THRESHOLD, 256 << 20);
  mallopt(M_MMAP_THRESHOLD, 32 << 20);
}

/// Something to time: `run(n)` does it n times, and each time counts as `units` operations (a pass
/// over many keys counts as one read per key).
struct Side {
  std::string name;
  std::function<void(std::int64_t)> run;
  double units = 1.0;
};

/// A side that calls op n times in a loop of its own, so that op is inlined and a batch pays one
/// indirect call, not one per operation.
template <class Op>
Side Loop(std::string name, Op op, double units = 1.0) {
  return {std::move(name), [op](std::int64_t n) mutable {
            for (std::int64_t i = 0; i < n; ++i) op();
          },
          units};
}

/// numerator / denominator in CPU time per operation, where the denominator of each pair is the
/// fastest of its sides (a floor measured two ways); target 0 means none.
struct Ratio {
  std::string label;
  Side numerator;
  std::vector<Side> denominators;
  double target = 0.0;
};

/// CPU ns per operation of one side; target 0 means none.
struct Figure {
  std::string label;
  Side side;
  double target = 0.0;
};

/// What a benchmark file measures beside its Google benchmarks.
struct Plan {
  std::vector<Ratio> ratios;
  std::vector<Figure> figures;
  /// Lines printed after the ratios and figures (figures that need no timing, such as memory).
  std::function<void(FILE*)> report;
};

struct Spread {
  double min = 0, median = 0, max = 0;
};

inline Spread SpreadOf(std::vector<double> v) {
  Spread s;
  if (v.empty()) return s;
  std::sort(v.begin(), v.end());
  s.min = v.front();
  s.max = v.back();
  const size_t m = v.size() / 2;
  s.median = v.size() % 2 ? v[m] : (v[m - 1] + v[m]) / 2;
  return s;
}

struct Options {
  int pairs = 31;
  /// CPU time of a batch: long enough that the clock's resolution is lost in it, short enough to fit
  /// in one time slice of a busy machine, so that most batches run unpreempted.
  double batchMs = 2.0;
  /// Pause before each batch. A thread that wakes gets a fresh time slice, so the batch is
  /// preempted far less often (at load 9 on 2 cores, 1 ms batches: 5 % instead of 30 %).
  /// Sides whose single operation runs far longer than a batch get none: they are preempted
  /// anyway, and the pause only hands the caches to other work first.
  double pauseMs = 0.2;
};

/// Times batches of one side and counts the batches that other work preempted.
class Batcher {
public:
  Batcher(Side side, const Options& options) : _side(std::move(side)), _pauseMs(options.pauseMs) {
    Calibrate(options.batchMs * 1e6);
  }
  /// CPU ns per operation of one batch.
  double Measure(bool pause) {
    if (pause && _pauseMs > 0) {
      const timespec nap{0, static_cast<long>(_pauseMs * 1e6)};
      nanosleep(&nap, nullptr);
    }
    rusage before{}, after{};
    getrusage(RUSAGE_THREAD, &before);
    const double start = ThreadCpuNs();
    _side.run(_count);
    const double ns = ThreadCpuNs() - start;
    getrusage(RUSAGE_THREAD, &after);
    ++Tally().batches;
    if (after.ru_nivcsw != before.ru_nivcsw) ++Tally().preempted;
    return ns / (static_cast<double>(_count) * _side.units);
  }
  const std::string& Name() const { return _side.name; }
  /// Whether a batch of this side fits the batch length asked for (no single operation much longer).
  bool Short() const { return _batchNs <= 2 * _targetNs; }

  struct Counts {
    long batches = 0, preempted = 0;
  };
  /// Batches measured so far in this process, and how many of them were preempted.
  static Counts& Tally() {
    static Counts counts;
    return counts;
  }

private:
  // Grows the count until a batch takes about batchNs; the runs on the way warm caches and the
  // allocator, so that the first measured batch is like the others.
  void Calibrate(double batchNs) {
    _targetNs = batchNs;
    _count = 1;
    for (;;) {
      const double start = ThreadCpuNs();
      _side.run(_count);
      const double spent = std::max(ThreadCpuNs() - start, 1.0);
      _batchNs = spent;
      if (spent >= batchNs) break;
      const double grow = std::min(10.0, std::max(1.1, 1.2 * batchNs / spent));
      _count = std::max<std::int64_t>(_count + 1, static_cast<std::int64_t>(std::ceil(_count * grow)));
    }
  }
  Side _side;
  double _pauseMs;
  double _targetNs = 0, _batchNs = 0;
  std::int64_t _count = 1;
};

/// ns, us or ms with three significant digits or so.
inline std::string Duration(double ns) {
  char text[32];
  if (ns >= 1e6) std::snprintf(text, sizeof text, "%.3g ms", ns / 1e6);
  else if (ns >= 1e3) std::snprintf(text, sizeof text, "%.3g us", ns / 1e3);
  else std::snprintf(text, sizeof text, "%.3g ns", ns);
  return text;
}

inline void PrintSpread(FILE* out, const char* kind, const std::string& label, Spread s, const char* unit, double target,
                        int samples, const char* over) {
  // Four significant digits: a ratio of 0.008 needs them as much as one of 18.
  std::fprintf(out, "%-6s %-40s %#9.4g%s  (min %#.4g, max %#.4g over %d %s)", kind, label.c_str(), s.median, unit, s.min,
               s.max, samples, over);
  if (target > 0) std::fprintf(out, "  (target <= %g%s: %s)", target, unit, s.median <= target ? "met" : "MISSED");
  std::fputc('\n', out);
}

/// Measures each ratio over interleaved pairs (numerator, then each denominator side, again and
/// again) and each figure over batches taken in turn with the others; prints median and spread.
inline void RunPlan(const Plan& plan, const Options& options, FILE* out) {
  for (const Ratio& r : plan.ratios) {
    Batcher numerator(r.numerator, options);
    std::vector<Batcher> floors;
    for (const Side& d : r.denominators) floors.emplace_back(d, options);
    // Both sides of a ratio are paused alike, or neither.
    bool pause = numerator.Short();
    for (const Batcher& f : floors) pause = pause && f.Short();
    std::vector<double> ratios, numeratorNs;
    std::vector<std::vector<double>> floorNs(floors.size());
    for (int p = 0; p < options.pairs; ++p) {
      const double a = numerator.Measure(pause);
      double b = 0;
      for (size_t i = 0; i < floors.size(); ++i) {
        const double ns = floors[i].Measure(pause);
        floorNs[i].push_back(ns);
        b = i == 0 ? ns : std::min(b, ns);
      }
      numeratorNs.push_back(a);
      ratios.push_back(a / b);
    }
    PrintSpread(out, "ratio", r.label, SpreadOf(ratios), "", r.target, options.pairs, "pairs");
    // The sides' own medians, to see which moved when a ratio does.
    std::fprintf(out, "       medians: %s %s", numerator.Name().c_str(), Duration(SpreadOf(numeratorNs).median).c_str());
    for (size_t i = 0; i < floors.size(); ++i)
      std::fprintf(out, "%s %s %s", i ? "," : ";", floors[i].Name().c_str(), Duration(SpreadOf(floorNs[i]).median).c_str());
    std::fputc('\n', out);
  }
  if (!plan.figures.empty()) {
    std::vector<Batcher> batchers;
    for (const Figure& f : plan.figures) batchers.emplace_back(f.side, options);
    std::vector<std::vector<double>> ns(batchers.size());
    for (int p = 0; p < options.pairs; ++p)
      for (size_t i = 0; i < batchers.size(); ++i) ns[i].push_back(batchers[i].Measure(batchers[i].Short()));
    for (size_t i = 0; i < batchers.size(); ++i)
      PrintSpread(out, "cpu", plan.figures[i].label, SpreadOf(ns[i]), " ns", plan.figures[i].target, options.pairs,
                  "batches");
  }
  if (plan.report) plan.report(out);
  const Batcher::Counts& tally = Batcher::Tally();
  if (tally.batches > 0)
    std::fprintf(out, "pairs  %ld timed batches, %ld of them preempted by other work\n", tally.batches, tally.preempted);
}

/// Takes this main's own flags out of argv: --pairs=N (0 skips the pair runner), --batch_ms=X and
/// --pause_ms=X (0 for none).
inline Options TakeOptions(int& argc, char** argv) {
  Options o;
  int kept = 1;
  for (int i = 1; i < argc; ++i) {
    if (std::strncmp(argv[i], "--pairs=", 8) == 0) o.pairs = std::atoi(argv[i] + 8);
    else if (std::strncmp(argv[i], "--batch_ms=", 11) == 0) o.batchMs = std::atof(argv[i] + 11);
    else if (std::strncmp(argv[i], "--pause_ms=", 11) == 0) o.pauseMs = std::atof(argv[i] + 11);
    else argv[kept++] = argv[i];
  }
  argc = kept;
  argv[argc] = nullptr;
  if (o.pairs < 0) o.pairs = 0;
  if (!(o.batchMs > 0)) o.batchMs = Options().batchMs;
  if (!(o.pauseMs >= 0) || o.pauseMs >= 1000) o.pauseMs = Options().pauseMs;
  return o;
}

/// Runs the registered Google benchmarks, then the plan; returns the exit status.
inline int Main(int argc, char** argv, const Plan& plan) {
  KeepHeap();
  const Options options = TakeOptions(argc, argv);
  bool json = false;
  for (int i = 1; i < argc; ++i) json |= std::strcmp(argv[i], "--benchmark_format=json") == 0;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  benchmark::RunSpecifiedBenchmarks();
  benchmark::Shutdown();
  // Beside JSON output the lines go to stderr, so that stdout stays one JSON document.
  FILE* out = json ? stderr : stdout;
  std::fflush(stdout);
  if (options.pairs > 0) RunPlan(plan, options, out);
  else if (plan.report) plan.report(out);
  return 0;
}

}  // namespace qelbench
