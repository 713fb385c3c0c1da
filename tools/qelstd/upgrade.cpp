// qelstd upgrade PATH... [-o DIR] [--to LEVEL] [-j N] [--json REPORT]: brings standard files up to a
// later data level, one file as it is told, or folders of them by worker processes.
#include <chrono>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>
#include <unistd.h>
#include <vector>

#include "QelstdBatch.h"
#include "QelstdCatalogue.h"
#include "QelstdJson.h"
#include "QelstdInput.h"
#include "QelstdOutput.h"
#include "QelstdVerb.h"
#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStdPersistence.h"
#include "ZOLDrwParseStandard.h"
#include "ZOLFile.h"

namespace {

struct UpgradeOptions {
  std::vector<std::string> paths;
  std::string file;
  std::string directory = ".";
  int target = -1;
  bool updateDefaults = false;
  bool dryRun = false;
  int jobs = 0;
  std::string json;
  CLI::Option* jobsOption = nullptr;
};

// The stages that a pass from start to target would run, as the driver walks them.
std::vector<ZOLDrwParseStandard::StageInfo> Plan(int start, int target) {
  std::vector<ZOLDrwParseStandard::StageInfo> plan;
  for (const auto& s : ZOLDrwParseStandard::GetStages()) {
    if (start > s.from) continue;
    if (!s.fromFlatText && target != -1 && target < s.to) continue;
    plan.push_back(s);
  }
  return plan;
}

void PrintUnbuilt(const std::vector<ZOLDrwParseStandard::StageInfo>& plan) {
  for (const auto& s : plan)
    if (!s.built) std::fprintf(stderr, "  stage %2d  %3d -> %3d  %s: not built yet\n", s.stage, s.from, s.to, s.step);
}

int RunUpgrade(const UpgradeOptions& o) {
  if (std::string why = qelstd::WhyNotReadable(o.file); !why.empty()) {
    qelstd::Error(o.file, why);
    return qelstd::kNotFound;
  }
  const int current = ZOLDrwParseStandard::GetCurrentVersion();
  namespace fs = std::filesystem;
  const fs::path output = qelstd::OutputPathOf(o.file, o.directory);
  std::error_code ec;
  if (fs::equivalent(output, o.file, ec)) {
    qelstd::Error(output.string(), "would overwrite the input; choose another directory with -o");
    return qelstd::kUsage;
  }

  qelstd::SetSubject(o.file);
  qelstd::CollectedReports reports;
  ZOLUnicodeString input(o.file);
  ZOLDrwParseStandard driver(input);
  driver.Decode();
  if (driver.DecodeFailed()) {
    // Upgrading the part that was read would write a standard that lacks the rest.
    for (const std::string& r : reports.Lines()) std::fprintf(stderr, "report: %s", r.c_str());
    qelstd::Error(o.file, "does not decode as a standard: " + qelstd::WhyNotDecoded(o.file, reports.Lines()) +
                              "; no file written");
    return qelstd::kNotFound;
  }
  const int start = driver.GetVersion();
  const int target = o.target == -1 ? current : o.target;
  qelstd::Printf(stdout, "%s: parent %s, level %d\n", o.file.c_str(),
                 driver.GetParentStandard().IsEmpty() ? "(none)" : driver.GetParentStandard().ConvertToChar(), start);
  const auto plan = Plan(start, o.target);
  bool blocked = false;
  for (const auto& s : plan) blocked = blocked || !s.built;
  if (o.dryRun) {
    for (const auto& s : plan)
      qelstd::Printf(stdout, "  stage %2d  %3d -> %3d  %-20s %s\n", s.stage, s.from, s.to, s.step,
                     s.built ? "built" : "not built yet");
    if (plan.empty()) qelstd::Printf(stdout, "  nothing to run up to level %d\n", target);
    return blocked ? qelstd::kNotFound : qelstd::kDone;
  }
  if (blocked) {
    // Nothing is run or written when a stage on the way is missing: a partial file would mislead.
    qelstd::Error(o.file, "cannot be upgraded from level " + std::to_string(start) + " to " + std::to_string(target) +
                              " yet; no file written. Stages on the way that are not built:");
    PrintUnbuilt(plan);
    return qelstd::kNotFound;
  }
  ZOLDrwParseStandardUpgradeOptions options;
  options.UpdateDefaultValues = o.updateDefaults ? 1 : 0;
  fs::create_directories(o.directory, ec);
  driver.EncodeToVersion(o.target, options, output.string().c_str());
  const ZOLDrwParseStandard::Outcome& outcome = driver.GetOutcome();
  for (const std::string& r : reports.Lines()) std::fprintf(stderr, "report: %s", r.c_str());
  if (outcome.stoppedByGuard) {
    qelstd::Error(o.file, "its level cannot be told from its content; no stage ran");
  }
  if (!outcome.saved) {
    qelstd::Error(output.string(), "cannot be written");
    return qelstd::kNotFound;
  }
  qelstd::Printf(stdout, "%s: %d stage%s run, level %d\n", output.string().c_str(), outcome.stagesRun,
                 outcome.stagesRun == 1 ? "" : "s", outcome.levelReached);
  return outcome.stoppedByGuard ? qelstd::kNotFound : qelstd::kDone;
}

// The first stage of a plan that is not built, or null.
const ZOLDrwParseStandard::StageInfo* FirstUnbuilt(const std::vector<ZOLDrwParseStandard::StageInfo>& plan) {
  for (const auto& s : plan)
    if (!s.built) return &s;
  return nullptr;
}

// Why the level of a decoded file whose level the driver cannot tell is refused: a number in its
// version node above the current level is one of a later release, anything else no level at all.
std::string WhyNoLevel(const std::string& path) {
  ZOLAnnStandardXMLParser parser;
  int level = 0;
  if (parser.DecodeXML(ZOLUnicodeString(path), 1) == 0 && parser.Root()) {
    ZOLAnnStandardXMLNode* node = parser.Root()->FindNodeWithPath(ZOLDftStdPersistence::GetVersionNodePath().str(), 1);
    if (node && node->GetNumOfValue() == 1) node->Values().front()->Value().ConvertToNum(&level, "%d");
  }
  const int current = ZOLDrwParseStandard::GetCurrentVersion();
  if (level > current)
    return "its level " + std::to_string(level) + " is above the current level " + std::to_string(current);
  // The driver would save such a tree unchanged after its guard; a batch leaves it out instead.
  return "its level cannot be told from its content";
}

// One file of a batch, in a worker: decoded, checked, upgraded and saved, or refused with the reason.
// Nothing is written for a file that fails.
qelstd::BatchResult UpgradeOne(const qelstd::BatchItem& item, const UpgradeOptions& o) {
  namespace fs = std::filesystem;
  const auto started = std::chrono::steady_clock::now();
  qelstd::BatchResult r;
  r.input = item.input;
  r.output = item.output;
  r.result = "failed";
  std::error_code ec;
  const int current = ZOLDrwParseStandard::GetCurrentVersion();
  const int target = o.target == -1 ? current : o.target;
  if (!item.refused.empty()) {
    r.reason = item.refused;
  } else if (std::string why = qelstd::WhyNotReadable(item.input); !why.empty()) {
    r.reason = why;
  } else if (fs::equivalent(item.output, item.input, ec)) {
    r.reason = "its output would overwrite it; choose another directory with -o";
  } else {
    qelstd::CollectedReports reports;
    ZOLUnicodeString input(item.input);
    ZOLDrwParseStandard driver(input);
    driver.Decode();
    const int start = driver.GetVersion();
    const auto plan = Plan(start, o.target);
    const ZOLDrwParseStandard::StageInfo* unbuilt = FirstUnbuilt(plan);
    if (!driver.DecodeFailed()) {
      r.startLevel = r.levelReached = start;
      r.parent = driver.GetParentStandard().IsEmpty() ? "(none)" : driver.GetParentStandard().str();
    }
    if (driver.DecodeFailed()) {
      r.reason = "does not decode as a standard: " + qelstd::WhyNotDecoded(item.input, reports.Lines());
    } else if (start < 1 && !ZOLDrwParseStandard::IsFlatFile(input)) {
      // A flat legacy file is at level 0 by right; a tree there has no level.
      r.reason = WhyNoLevel(item.input);
    } else if (start > target) {
      r.reason = "its level " + std::to_string(start) + " is above the level asked for, " + std::to_string(target);
    } else if (unbuilt) {
      r.reason = "cannot be upgraded from level " + std::to_string(start) + " to " + std::to_string(target) +
                 " yet: stage " + std::to_string(unbuilt->stage) + " (" + std::to_string(unbuilt->from) + " -> " +
                 std::to_string(unbuilt->to) + ", " + unbuilt->step + ") is not built";
    } else if (o.dryRun) {
      r.result = "planned";
      r.stagesRun = static_cast<int>(plan.size());
      r.levelReached = plan.empty() ? start : plan.back().to;
    } else if (fs::create_directories(fs::path(item.output).parent_path(), ec), ec) {
      r.reason = "its output folder cannot be made: " + ec.message();
    } else {
      ZOLDrwParseStandardUpgradeOptions options;
      options.UpdateDefaultValues = o.updateDefaults ? 1 : 0;
      driver.EncodeToVersion(o.target, options, item.output.c_str());
      const ZOLDrwParseStandard::Outcome& outcome = driver.GetOutcome();
      r.stagesRun = outcome.stagesRun;
      r.levelReached = outcome.levelReached;
      if (outcome.saved) r.result = "upgraded";
      else r.reason = "its output " + item.output + " cannot be written";
    }
    r.reports = reports.Lines();
  }
  r.milliseconds = std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - started).count();
  return r;
}

// The records of a batch, in input order, to a file (written whole or not at all) or "-" for standard output.
bool WriteJsonReport(const std::string& path, const std::vector<qelstd::BatchResult>& results) {
  nlohmann::ordered_json all = nlohmann::ordered_json::array();
  for (const qelstd::BatchResult& r : results) all.push_back(qelstd::ToJson(r));
  const std::string text = qelstd::JsonText(all, 1) + "\n";
  if (path == "-") return qelstd::Write(stdout, text);
  if (FAILED(ZOLWriteFileAtomically(path.c_str(), text))) {
    qelstd::Error(path, std::string("cannot be written: ") + std::strerror(errno));
    return false;
  }
  return true;
}

int RunBatch(const UpgradeOptions& o) {
  const std::vector<qelstd::BatchItem> items = qelstd::CollectBatch(o.paths, o.directory);
  if (items.empty()) {
    qelstd::Error(o.paths.front(), "holds no standard files (*.xml or flat legacy files)");
    return qelstd::kNotFound;
  }
  int jobs = o.jobs > 0 ? o.jobs : static_cast<int>(::sysconf(_SC_NPROCESSORS_ONLN));
  // With the records on standard output, the text for people goes beside the progress line.
  std::FILE* text = o.json == "-" ? stderr : stdout;
  std::vector<qelstd::BatchResult> results(items.size());
  qelstd::BatchProgress progress(items.size(), stderr, ::isatty(STDERR_FILENO) == 1);
  size_t failed = 0, unstarted = 0;
  qelstd::RunInWorkers(
      items, jobs, [&o](const qelstd::BatchItem& item) { return UpgradeOne(item, o); },
      [&](size_t index, qelstd::BatchResult&& r) {
        progress.Add(r);
        if (r.Failed()) {
          ++failed;
          // One line for them all below, not one per file left.
          if (r.reason == qelstd::kBatchInterrupted) ++unstarted;
          else progress.Note("qelstd: " + r.input + ": " + r.reason);
        } else if (o.dryRun) {
          qelstd::Printf(text, "%s: parent %s, level %d, %d stage%s to run\n", r.input.c_str(), r.parent.c_str(),
                         r.startLevel, r.stagesRun, r.stagesRun == 1 ? "" : "s");
        }
        results[index] = std::move(r);
      });
  progress.Finish();
  if (unstarted) qelstd::Error("upgrade", "interrupted: " + std::to_string(unstarted) + " files not started");
  progress.PrintSummary(text);
  const bool reported = o.json.empty() || WriteJsonReport(o.json, results);
  return failed == 0 && reported ? qelstd::kDone : qelstd::kNotFound;
}

int RunUpgradeVerb(UpgradeOptions& o) {
  const int current = ZOLDrwParseStandard::GetCurrentVersion();
  if (o.target != -1 && (o.target < 0 || o.target > current)) {
    qelstd::Error("--to", "a level from 0 to " + std::to_string(current));
    return qelstd::kUsage;
  }
  if (o.jobsOption->count() > 0 && o.jobs < 1) {
    qelstd::Error("-j", "at least 1 worker");
    return qelstd::kUsage;
  }
  // One file named alone, with no batch option, keeps the single-file form and its messages.
  std::error_code ec;
  if (o.paths.size() == 1 && !std::filesystem::is_directory(o.paths.front(), ec) && o.jobsOption->count() == 0 &&
      o.json.empty()) {
    o.file = o.paths.front();
    return RunUpgrade(o);
  }
  return RunBatch(o);
}

void SetupUpgrade(CLI::App& app, int* status) {
  auto o = std::make_shared<UpgradeOptions>();
  CLI::App* verb = app.add_subcommand("upgrade", "Upgrade standard files to a later data level");
  verb->add_option("PATH", o->paths, "Standard files, and folders searched for *.xml files")->required();
  verb->add_option("-o,--output-directory", o->directory,
                   "Directory of the upgraded files (named as the inputs, below it as below the folder given)")
      ->capture_default_str();
  verb->add_option("--to", o->target, "Level to reach (default: the current level)");
  verb->add_flag("--update-defaults", o->updateDefaults,
                 "Also replace delivered defaults by the new delivered values (for delivered standards)");
  verb->add_flag("--dry-run", o->dryRun, "List the stages that would run and whether each is built; write nothing");
  o->jobsOption = verb->add_option("-j,--jobs", o->jobs, "Files upgraded at once, each by a process of its own (default: the number of cores)");
  verb->add_option("--json", o->json, "Write one record per file (input, output, parent, start level, stages run, "
                                      "result, reason, milliseconds) to REPORT; - for standard output");
  verb->footer(
      "Each stage of the chain brings a standard one release further. Stages whose steps are not built\n"
      "yet stop the upgrade: nothing is written, and the stages on the way are listed (exit status 1).\n"
      "A file that does not decode whole is not upgraded: nothing is written, and the reason is given\n"
      "(exit status 1).\n"
      "Several files, a folder, -j or --json upgrade a batch: a file that fails is told with its reason and\n"
      "the others go on (exit status 1 if any failed); a table of the files upgraded per start level and\n"
      "parent closes the run. Each file is written whole under a temporary name and then renamed.\n"
      "\nExample:\n"
      "  $ qelstd upgrade old/Company.xml -o new --to 140 --dry-run\n"
      "  $ qelstd upgrade old/Company.xml -o new\n"
      "  $ qelstd upgrade old/ more/Site.xml -o new -j 2 --json report.json\n");
  verb->callback([o, status] { *status = RunUpgradeVerb(*o); });
}

const qelstd::VerbRegistrar registrar("upgrade", SetupUpgrade);

}  // namespace
