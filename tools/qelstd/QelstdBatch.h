// Upgrading many standard files in one run: finding them, sharing them out among worker processes,
// and what is told about each, on a terminal and to scripts.
#pragma once
#include <chrono>
#include <cstdio>
#include <functional>
#include <map>
#include <string>
#include <vector>

#include <nlohmann/json.hpp>

namespace qelstd {

/// A file of a batch and the file its result goes to; why it is refused before any work, if it is.
struct BatchItem {
  std::string input;
  std::string output;
  std::string refused;
};

/// The output of a file named alone: directory / its name cut at its first ".xml", and ".xml".
std::string OutputPathOf(const std::string& file, const std::string& directory);

/// The files under paths, in the order given: a file as it is, a directory searched recursively for
/// "*.xml" files in name order (links to directories not followed, the output directory left out).
/// A file's output is directory / its path relative to the directory argument (a file argument: its
/// name); a second input with the same output, or a folder that cannot be listed, comes back refused.
std::vector<BatchItem> CollectBatch(const std::vector<std::string>& paths, const std::string& directory);

/// What became of one file of a batch.
/// The reason of the files that an interrupt of the run (SIGINT, SIGTERM) left unstarted.
inline constexpr const char* kBatchInterrupted = "not upgraded: the run was interrupted";

struct BatchResult {
  std::string input;
  std::string output;
  /// The parent text as read ("(none)" when the file has none), empty when the file was not read.
  std::string parent;
  int startLevel = -1;
  int stagesRun = 0;
  int levelReached = -1;
  /// "upgraded", "planned" (a dry run) or "failed".
  std::string result;
  /// Why it failed, empty otherwise.
  std::string reason;
  /// The assertion reports raised while it was upgraded.
  std::vector<std::string> reports;
  double milliseconds = 0;

  bool Failed() const { return result == "failed"; }
};

/// The record of a result, as --json writes it and workers hand it back.
nlohmann::ordered_json ToJson(const BatchResult& r);
/// A result from its record; false when the record lacks a field.
bool FromJson(const nlohmann::json& j, BatchResult& r);

/// Runs work on every item in jobs worker processes (fewer when there are fewer items) and hands each
/// result to done in this process, as it comes, with the item's index. A worker that dies fails only
/// the file it was on, and a new worker takes its place.
void RunInWorkers(const std::vector<BatchItem>& items, int jobs, const std::function<BatchResult(const BatchItem&)>& work,
                  const std::function<void(size_t index, BatchResult&& result)>& done);

/// The progress line of a batch on a terminal (files done, failed, rate) and its closing summary.
class BatchProgress {
public:
  /// total files; draws on out only when show is 1.
  BatchProgress(size_t total, std::FILE* out, bool show);
  /// Counts a result, and draws the line at most ten times a second.
  void Add(const BatchResult& r);
  /// Writes a line above the progress line (a failure as it happens).
  void Note(const std::string& line);
  /// Clears the progress line.
  void Finish();
  /// Upgraded files per start level and parent, then the totals, on out.
  void PrintSummary(std::FILE* out) const;

private:
  void Draw(bool force);
  void Clear();

  size_t _total;
  std::FILE* _out;
  bool _show;
  size_t _done = 0;
  size_t _failed = 0;
  std::chrono::steady_clock::time_point _start = std::chrono::steady_clock::now();
  std::chrono::steady_clock::time_point _drawn{};
  bool _lineShown = false;
  /// Start level -> parent -> files that went through.
  std::map<int, std::map<std::string, size_t>> _passed;
};

}  // namespace qelstd
