// qelstd upgrade FILE [-o DIR] [--to LEVEL]: brings a standard file up to a later data level.
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "QelstdCatalogue.h"
#include "QelstdInput.h"
#include "QelstdOutput.h"
#include "QelstdVerb.h"
#include "ZOLDrwParseStandard.h"

namespace {

struct UpgradeOptions {
  std::string file;
  std::string directory = ".";
  int target = -1;
  bool updateDefaults = false;
  bool dryRun = false;
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
  if (o.target != -1 && (o.target < 0 || o.target > current)) {
    qelstd::Error("--to", "a level from 0 to " + std::to_string(current));
    return qelstd::kUsage;
  }
  namespace fs = std::filesystem;
  std::string stem = fs::path(o.file).filename().string();
  stem = stem.substr(0, stem.find(".xml"));
  const fs::path output = fs::path(o.directory) / (stem + ".xml");
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

void SetupUpgrade(CLI::App& app, int* status) {
  auto o = std::make_shared<UpgradeOptions>();
  CLI::App* verb = app.add_subcommand("upgrade", "Upgrade a standard file to a later data level");
  verb->add_option("FILE", o->file, "The standard file to upgrade")->required();
  verb->add_option("-o,--output-directory", o->directory, "Directory of the upgraded file (named as the input)")
      ->capture_default_str();
  verb->add_option("--to", o->target, "Level to reach (default: the current level)");
  verb->add_flag("--update-defaults", o->updateDefaults,
                 "Also replace delivered defaults by the new delivered values (for delivered standards)");
  verb->add_flag("--dry-run", o->dryRun, "List the stages that would run and whether each is built; write nothing");
  verb->footer(
      "Each stage of the chain brings a standard one release further. Stages whose steps are not built\n"
      "yet stop the upgrade: nothing is written, and the stages on the way are listed (exit status 1).\n"
      "A file that does not decode whole is not upgraded: nothing is written, and the reason is given\n"
      "(exit status 1).\n"
      "\nExample:\n"
      "  $ qelstd upgrade old/Company.xml -o new --to 140 --dry-run\n"
      "  $ qelstd upgrade old/Company.xml -o new\n");
  verb->callback([o, status] { *status = RunUpgrade(*o); });
}

const qelstd::VerbRegistrar registrar("upgrade", SetupUpgrade);

}  // namespace
