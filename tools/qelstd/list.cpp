// qelstd list: the standards of the repository and the built-in ones, with class and version.
#include <cstdio>
#include <memory>
#include <string>
#include <vector>

#include "QelstdCatalogue.h"
#include "QelstdJson.h"
#include "QelstdOutput.h"
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
  std::string unreadable;  // why the file does not decode, empty when it does
};

void Classify(Entry& e, const qelstd::CollectedReports& reports) {
  if (!e.path.empty()) qelstd::ReadParentAndVersion(e.path, reports, e.parent, e.version, e.unreadable);
}

int RunList(bool json) {
  std::vector<Entry> entries;
  qelstd::CollectedReports reports;
  std::unique_ptr<ZOLListValZOLUnicodeString> dirs(ZOLStdServices::GetStandardPath());
  if (dirs) {
    ZOLListValZOLUnicodeString names;
    ZOLDftStandardServices::ListStandards(names, 0);
    for (const ZOLUnicodeString& name : names) {
      Entry e{name.str(), "repository", "", "", 0, ""};
      ZOLUnicodeString path;
      if (ZOLDftStandardServices::FindStandardFileInEnv(name, path, true) == S_OK) e.path = path.str();
      Classify(e, reports);
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
    Entry e{name.str(), "built-in", "", "", 0, ""};
    ZOLUnicodeString path;
    if (canWrite && ZOLDftStandardServices::FindStandardFileInEnv(name, path, false) == 0) e.path = path.str();
    Classify(e, reports);
    entries.push_back(e);
  }

  if (json) {
    nlohmann::ordered_json out = nlohmann::ordered_json::array();
    for (const Entry& e : entries) {
      nlohmann::ordered_json j;
      j["name"] = e.name;
      j["source"] = e.source;
      j["path"] = e.path.empty() ? nlohmann::ordered_json() : nlohmann::ordered_json(e.path);
      const bool known = !e.path.empty() && e.unreadable.empty();
      j["parent"] = known ? nlohmann::ordered_json(e.parent) : nlohmann::ordered_json();
      j["class"] = known ? nlohmann::ordered_json(qelstd::ClassOfParent(e.parent)) : nlohmann::ordered_json();
      j["version"] = known ? nlohmann::ordered_json(e.version) : nlohmann::ordered_json();
      out.push_back(j);
    }
    qelstd::Printf(stdout, "%s\n", qelstd::JsonText(out, 2).c_str());
  } else {
    qelstd::Printf(stdout, "%-24s %-10s %-6s %-7s %s\n", "NAME", "SOURCE", "CLASS", "VERSION", "PATH");
    for (const Entry& e : entries) {
      if (e.path.empty() || !e.unreadable.empty()) {
        qelstd::Printf(stdout, "%-24s %-10s %-6s %-7s %s\n", e.name.c_str(), e.source.c_str(), "-", "-",
                       e.path.empty() ? "-" : e.path.c_str());
        continue;
      }
      qelstd::Printf(stdout, "%-24s %-10s %-6s %-7d %s\n", e.name.c_str(), e.source.c_str(),
                  e.parent.empty() ? "?" : e.parent.c_str(), e.version, e.path.c_str());
    }
  }
  for (const Entry& e : entries)
    if (!e.unreadable.empty()) qelstd::Error(e.path, e.unreadable);
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
      "standard: ISO, JIS, ASME or ANSI. A file that does not decode whole is listed without class and\n"
      "version, and its reason is written to standard error.\n"
      "\nExample:\n"
      "  $ ZOLCollectionStandard=/site/standards ADL_ODT_OUT=/tmp/work qelstd list\n"
      "  NAME                     SOURCE     CLASS  VERSION PATH\n"
      "  Company                  repository ISO    290     /site/standards/drafting/Company.xml\n"
      "  ANSI-ASME                built-in   ASME   280     /tmp/work/ANSI-ASME.xml\n");
  verb->callback([json, status] { *status = RunList(*json); });
}

const qelstd::VerbRegistrar registrar("list", SetupList);

}  // namespace
