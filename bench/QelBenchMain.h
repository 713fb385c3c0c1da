// A main for the benchmarks of this project: runs them with the usual flags, then prints the
// ratios each benchmark file cares about (to stdout for the console, to stderr beside JSON output).
#pragma once
#include <benchmark/benchmark.h>

#include <cstdio>
#include <cstring>
#include <map>
#include <set>
#include <memory>
#include <string>
#include <vector>

namespace qelbench {

/// numerator / denominator of two benchmarks' real times; target 0 means none.
struct Ratio {
  std::string label;
  std::string numerator;
  std::string denominator;
  double target = 0.0;
};

/// Forwards to the reporter the flags ask for and keeps each run's real time in ns.
class Collector : public benchmark::BenchmarkReporter {
public:
  explicit Collector(std::unique_ptr<benchmark::BenchmarkReporter> inner) : _inner(std::move(inner)) {}
  bool ReportContext(const Context& c) override { return _inner->ReportContext(c); }
  void ReportRuns(const std::vector<Run>& runs) override {
    for (const auto& r : runs) {
      // With --benchmark_repetitions the median stands for the benchmark, not the last repetition.
      benchmark::BenchmarkName plain = r.run_name;
      plain.repetitions.clear();
      const std::string name = plain.str();
      const bool median = r.run_type == Run::RT_Aggregate && r.aggregate_name == "median";
      if (!median && (r.run_type != Run::RT_Iteration || r.iterations == 0 || _fromMedian.count(name))) continue;
      if (median) _fromMedian.insert(name);
      _ns[name] = r.GetAdjustedRealTime() * Multiplier(r.time_unit);
      for (const auto& [key, counter] : r.counters) _counters[name + ":" + key] = counter.value;
    }
    _inner->ReportRuns(runs);
  }
  void Finalize() override { _inner->Finalize(); }
  /// Real time in ns of a benchmark, or a negative number when it did not run.
  double Ns(const std::string& name) const { auto it = _ns.find(name); return it == _ns.end() ? -1.0 : it->second; }
  /// A counter of a benchmark ("name:counter"), or a negative number.
  double Counter(const std::string& key) const { auto it = _counters.find(key); return it == _counters.end() ? -1.0 : it->second; }

private:
  static double Multiplier(benchmark::TimeUnit u) {
    switch (u) {
      case benchmark::kSecond: return 1e9;
      case benchmark::kMillisecond: return 1e6;
      case benchmark::kMicrosecond: return 1e3;
      default: return 1.0;
    }
  }
  std::unique_ptr<benchmark::BenchmarkReporter> _inner;
  std::map<std::string, double> _ns;
  std::map<std::string, double> _counters;
  std::set<std::string> _fromMedian;
};

/// Runs the registered benchmarks and prints the ratios; returns the exit status.
inline int Main(int argc, char** argv, const std::vector<Ratio>& ratios, const Collector** collected = nullptr) {
  bool json = false;
  for (int i = 1; i < argc; ++i) json |= std::strcmp(argv[i], "--benchmark_format=json") == 0;
  benchmark::Initialize(&argc, argv);
  if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
  std::unique_ptr<benchmark::BenchmarkReporter> inner;
  if (json) inner = std::make_unique<benchmark::JSONReporter>();
  else inner = std::make_unique<benchmark::ConsoleReporter>();
  static Collector* collector = nullptr;
  collector = new Collector(std::move(inner));
  benchmark::RunSpecifiedBenchmarks(collector);
  FILE* out = json ? stderr : stdout;
  for (const auto& r : ratios) {
    double a = collector->Ns(r.numerator), b = collector->Ns(r.denominator);
    if (a < 0 || b <= 0) continue;
    double q = a / b;
    if (r.target > 0)
      std::fprintf(out, "ratio %-40s %8.3f  (target <= %.2f: %s)\n", r.label.c_str(), q, r.target, q <= r.target ? "met" : "MISSED");
    else
      std::fprintf(out, "ratio %-40s %8.3f\n", r.label.c_str(), q);
  }
  if (collected) *collected = collector;
  benchmark::Shutdown();
  return 0;
}

}  // namespace qelbench
