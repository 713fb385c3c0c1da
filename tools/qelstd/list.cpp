// qelstd list: the standards of the repository and the built-in ones, with class and version.
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "QelstdCatalogue.h"
#include "QelstdVerb.h"
#include "ZOLDftStandardServices.h"
#include "ZOLStdServices.h"

namespace {

struct Entry {
  std::string name;
  std::string source;  // "repository" or "built-in"
  std::string path;    // empty when it could not be found
  std::string parent;
  int version = 0;
};

bool Classify(Entry& e) {
  if (e.path.empty()) return false;
  ZOLUnicodeString path(e.path), parent;
  ZOLDftStandardServices::GetStandardClassAndVersion(path, parent, e.version);
  e.parent = parent.str();
  return true;
}

int RunList(bool json) {
  std::vector<Entry> entries;
  qelstd::CollectedReports reports;
  std::unique_ptr<ZOLListValZOLUnicodeString> dirs(ZOLStdServices::GetStandardPath());
  if (dirs) {
    ZOLListValZOLUnicodeString names;
    ZOLDftStandardServices::ListStandards(names, 0);
    for (const ZOLUnicodeString& name : names) {
      Entry e{name.str(), "repository", "", "", 0};
      ZOLUnicodeString path;
      if (ZOLDftStandardServices::FindStandardFileInEnv(name, path, true) == S_OK) e.path = path.str();
      Classify(e);
      entries.push_back(e);
    }
  }
  const bool canWrite = !qelstd::WorkingDirectory().empty();
  ZOLListValZOLUnicodeString builtins;
  ZOLDftStandardServices::ListOOTBStandards(builtins);
  for (const ZOLUnicodeString& name : builtins) {
    bool listed = false;
    for (const Entry& e : entries) listed = listed || e.name == name.str();
    if (listed) continue;
    Entry e{name.str(), "built-in", "", "", 0};
    ZOLUnicodeString path;
    if (canWrite && ZOLDftStandardServices::FindStandardFileInEnv(name, path, false) == 0) e.path = path.str();
    Classify(e);
    entries.push_back(e);
  }

  if (json) {
    nlohmann::ordered_json out = nlohmann::ordered_json::array();
    for (const Entry& e : entries) {
      nlohmann::ordered_json j;
      j["name"] = e.name;
      j["source"] = e.source;
      j["path"] = e.path.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(e.path);
      j["parent"] = e.path.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(e.parent);
      j["class"] = e.path.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(qelstd::ClassOfParent(e.parent));
      j["version"] = e.path.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(e.version);
      out.push_back(j);
    }
    std::printf("%s\n", out.dump(2).c_str());
  } else {
    std::printf("%-24s %-10s %-6s %-7s %s\n", "NAME", "SOURCE", "CLASS", "VERSION", "PATH");
    for (const Entry& e : entries) {
      if (e.path.empty()) {
        std::printf("%-24s %-10s %-6s %-7s %s\n", e.name.c_str(), e.source.c_str(), "-", "-", "-");
        continue;
      }
      std::printf("%-24s %-10s %-6s %-7d %s\n", e.name.c_str(), e.source.c_str(),
                  e.parent.empty() ? "?" : e.parent.c_str(), e.version, e.path.c_str());
    }
  }
  if (!dirs) qelstd::Error("repository", "ZOLCollectionStandard and ZOLDefaultCollectionStandard are not set; built-in standards only");
  if (!canWrite) qelstd::Error("built-in standards", std::string("not read: ") + qelstd::kNoWorkingDirectory);
  return qelstd::kDone;
}

void SetupList(CLI::App& app, int* status) {
  auto json = std::make_shared<bool>(false);
  CLI::App* verb = app.add_subcommand("list", "List the standards of the repository and the built-in ones");
  verb->add_flag("--json", *json, "Print a JSON array of {name, source, path, parent, class, version}");
  verb->footer(
      "The repository is every directory named by ZOLCollectionStandard and ZOLDefaultCollectionStandard\n"
      "(lists separated by ':'), with the standards in its sub-directory drafting/. Built-in standards are\n"
      "written to the working directory (ADL_ODT_OUT, else ZOLTemp) to be read. CLASS is the parent\n"
      "standard: ISO, JIS, ASME or ANSI.\n"
      "\nExample:\n"
      "  $ ZOLCollectionStandard=/site/standards ADL_ODT_OUT=/tmp/work qelstd list\n"
      "  NAME                     SOURCE     CLASS  VERSION PATH\n"
      "  Company                  repository ISO    290     /site/standards/drafting/Company.xml\n"
      "  ANSI-ASME                built-in   ASME   280     /tmp/work/ANSI-ASME.xml\n");
  verb->callback([json, status] { *status = RunList(*json); });
}

const qelstd::VerbRegistrar registrar("list", SetupList);

}  // namespace
