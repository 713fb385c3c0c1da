// qelstd diff A B [--json] [--upgrade]: every node and value that differs between two standards.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <new>
#include <stdexcept>
#include <string>
#include <vector>

#include "QelstdCatalogue.h"
#include "QelstdDiff.h"
#include "QelstdJson.h"
#include "QelstdOutput.h"
#include "QelstdVerb.h"

namespace {

namespace fs = std::filesystem;

struct DiffOptions {
  std::string a, b;
  bool json = false;
  bool upgrade = false;
};

// Exit status of a diff: 1 says that the standards differ, so trouble needs one of its own.
constexpr int kDiffer = 1, kTrouble = qelstd::kUsage;

// A directory of its own for the upgraded copies, removed with what it holds.
class TempDir {
public:
  TempDir() {
    std::string pattern = (fs::temp_directory_path() / "qelstd-diff-XXXXXX").string();
    if (mkdtemp(pattern.data())) _path = pattern;
  }
  ~TempDir() {
    std::error_code ec;
    if (!_path.empty()) fs::remove_all(_path, ec);
  }
  TempDir(const TempDir&) = delete;
  TempDir& operator=(const TempDir&) = delete;
  const std::string& Path() const { return _path; }

private:
  std::string _path;
};

// The level the shipped chain reaches from start before its first stage that is not built; start
// when no stage would run.
int ChainEnd(int start) {
  int end = start;
  for (const auto& s : ZOLDrwParseStandard::GetStages()) {
    if (start > s.from) continue;
    if (!s.built) break;
    end = std::max(end, s.to);
  }
  return end;
}

struct Side {
  std::string path;
  int level = -1;
  int upgradedTo = -1;  // -1 when no stage ran
  ZOLAnnStandardXMLParser tree;
};

// The tree of one side; with upgrade, brought through the chain into a file of dir first.
bool Load(const std::string& arg, bool upgrade, const std::string& dir, const char* tag, Side& side, std::string& why) {
  if (!qelstd::ResolveStandard(arg, side.path, why)) return false;
  qelstd::SetSubject(side.path);
  if (!upgrade) {
    if (!qelstd::DecodeStandardTree(side.path, side.tree, why)) return false;
    side.level = side.tree.GetVersion();
    return true;
  }
  qelstd::CollectedReports reports;
  ZOLUnicodeString input(side.path);
  ZOLDrwParseStandard driver(input);
  driver.Decode();
  if (driver.DecodeFailed()) {
    why = "does not decode as a standard: " + qelstd::WhyNotDecoded(side.path, reports.Lines());
    return false;
  }
  side.level = driver.GetVersion();
  const int end = ChainEnd(side.level);
  if (end <= side.level) return qelstd::DecodeStandardTree(side.path, side.tree, why);
  if (dir.empty()) return why = "no temporary directory for the upgraded copy", false;
  const std::string upgraded = dir + "/" + tag + ".xml";
  ZOLDrwParseStandardUpgradeOptions options;
  options.UpdateDefaultValues = 0;
  driver.EncodeToVersion(end, options, upgraded.c_str());
  const ZOLDrwParseStandard::Outcome& outcome = driver.GetOutcome();
  if (outcome.stoppedByGuard) return why = "its level cannot be told from its content, so it cannot be upgraded", false;
  if (!outcome.saved) return why = "its upgrade to level " + std::to_string(end) + " could not be written", false;
  side.upgradedTo = outcome.levelReached;
  return qelstd::DecodeStandardTree(upgraded, side.tree, why);
}

// A text on one line: line ends and tabs as escapes.
std::string OneLine(const std::string& text) {
  std::string out;
  for (char c : text) out += c == '\n' ? "\\n" : c == '\r' ? "\\r" : c == '\t' ? "\\t" : std::string(1, c);
  return out;
}

std::string Shown(const std::string& text, const std::string& kind) {
  return kind == "node" ? "(node: " + text + ")" : OneLine(text) + " (" + kind + ")";
}

nlohmann::ordered_json SideJson(const Side& s) {
  nlohmann::ordered_json j;
  j["file"] = s.path;
  j["level"] = s.level;
  j["upgradedTo"] = s.upgradedTo < 0 ? nlohmann::ordered_json() : nlohmann::ordered_json(s.upgradedTo);
  return j;
}

int RunDiff(const DiffOptions& o) {
  TempDir temp;
  Side a, b;
  std::string why;
  if (!Load(o.a, o.upgrade, temp.Path(), "a", a, why) || !Load(o.b, o.upgrade, temp.Path(), "b", b, why)) {
    qelstd::Error(qelstd::Subject().empty() ? o.a : qelstd::Subject(), why);
    return kTrouble;
  }
  const std::vector<qelstd::Difference> diffs = qelstd::DiffTrees(a.tree, b.tree);
  size_t counts[3] = {0, 0, 0};
  for (const auto& d : diffs) ++counts[d.change];
  static const char* const kChange[] = {"onlyInA", "onlyInB", "changed"};
  if (o.json) {
    nlohmann::ordered_json out;
    out["a"] = SideJson(a);
    out["b"] = SideJson(b);
    out["differences"] = nlohmann::ordered_json::array();
    for (const auto& d : diffs) {
      nlohmann::ordered_json r;
      r["change"] = kChange[d.change];
      r["what"] = d.node ? "node" : "value";
      r["path"] = d.path;
      r["a"] = d.change == qelstd::Difference::kOnlyInB ? nlohmann::ordered_json()
                                                         : nlohmann::ordered_json{{"value", d.textA}, {"kind", d.kindA}};
      r["b"] = d.change == qelstd::Difference::kOnlyInA ? nlohmann::ordered_json()
                                                         : nlohmann::ordered_json{{"value", d.textB}, {"kind", d.kindB}};
      out["differences"].push_back(std::move(r));
    }
    out["summary"] = {{"differences", diffs.size()}, {"changed", counts[qelstd::Difference::kChanged]},
                      {"onlyInA", counts[qelstd::Difference::kOnlyInA]}, {"onlyInB", counts[qelstd::Difference::kOnlyInB]}};
    qelstd::Printf(stdout, "%s\n", qelstd::JsonText(out, 1).c_str());
  } else {
    for (const auto& d : diffs) {
      switch (d.change) {
        case qelstd::Difference::kOnlyInA:
          qelstd::Printf(stdout, "- %s %s\n", d.path.c_str(), Shown(d.textA, d.kindA).c_str());
          break;
        case qelstd::Difference::kOnlyInB:
          qelstd::Printf(stdout, "+ %s %s\n", d.path.c_str(), Shown(d.textB, d.kindB).c_str());
          break;
        case qelstd::Difference::kChanged:
          qelstd::Printf(stdout, "~ %s %s -> %s\n", d.path.c_str(), Shown(d.textA, d.kindA).c_str(),
                         Shown(d.textB, d.kindB).c_str());
          break;
      }
    }
    if (!diffs.empty())
      qelstd::Printf(stdout, "%zu difference%s: %zu changed, %zu only in A, %zu only in B\n", diffs.size(),
                     diffs.size() == 1 ? "" : "s", counts[qelstd::Difference::kChanged],
                     counts[qelstd::Difference::kOnlyInA], counts[qelstd::Difference::kOnlyInB]);
  }
  return diffs.empty() ? qelstd::kDone : kDiffer;
}

void SetupDiff(CLI::App& app, int* status) {
  auto o = std::make_shared<DiffOptions>();
  CLI::App* verb = app.add_subcommand("diff", "Print every node and value that differs between two standards");
  verb->add_option("A", o->a, "A standard file, or a standard's name")->required();
  verb->add_option("B", o->b, "A standard file, or a standard's name")->required();
  verb->add_flag("--json", o->json, "Print {a, b, differences: [{change, what, path, a, b}], summary}");
  verb->add_flag("--upgrade", o->upgrade,
                 "Bring both through the upgrade chain as far as it is built first (neither file is changed)");
  verb->footer(
      "Lines: \"- PATH ...\" only in A, \"+ PATH ...\" only in B, \"~ PATH A -> B\" a value that differs,\n"
      "each with its kind; a node that stands in one standard only is one line with what it holds.\n"
      "Within a node: its values, its sub-nodes in A's order, then what only B holds. Records of a list\n"
      "are known by their Name field (Formats[A4 ISO]), repeated names by occurrence (#2), values of a\n"
      "list by place ([2]). A summary line ends the list; equal standards print nothing.\n"
      "Exit status 0 equal, 1 different, 2 a usage error or a standard that cannot be read or upgraded.\n"
      "A name is found as by `qelstd info` (the working directory ADL_ODT_OUT or ZOLTemp must be set).\n"
      "\nExample:\n"
      "  $ ADL_ODT_OUT=/tmp/work qelstd diff ISO JIS\n"
      "  $ qelstd diff --upgrade old/Company.xml /tmp/work/ISO.xml --json\n");
  verb->callback([o, status] {
    try {
      *status = RunDiff(*o);
      // Differences that could not be printed are no answer: trouble, not "different".
      if (qelstd::FinishOutput(stdout) != 0) *status = kTrouble;
    } catch (const std::bad_alloc&) {
      qelstd::Error(qelstd::Subject(), "out of memory");
      *status = kTrouble;
    } catch (const std::exception& e) {
      qelstd::Error(qelstd::Subject(), e.what());
      *status = kTrouble;
    }
  });
}

const qelstd::VerbRegistrar registrar("diff", SetupDiff);

}  // namespace
