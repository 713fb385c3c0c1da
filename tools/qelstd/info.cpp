// qelstd info NAME|FILE: where a standard is, its parent, class and data level.
#include <cstdio>
#include <memory>
#include <string>

#include "QelstdCatalogue.h"
#include "QelstdJson.h"
#include "QelstdOutput.h"
#include "QelstdVerb.h"
#include "ZOLDftStandardServices.h"

namespace {

constexpr const char* kClassNames[] = {"ISO", "JIS", "ASME", "ANSI", "other"};

int RunInfo(const std::string& nameOrFile, bool json) {
  std::string path, why;
  if (!qelstd::ResolveStandard(nameOrFile, path, why)) {
    qelstd::Error(nameOrFile, why);
    return qelstd::kNotFound;
  }
  qelstd::SetSubject(path);
  qelstd::CollectedReports reports;
  std::string parent;
  int version = 0;
  if (!qelstd::ReadParentAndVersion(path, reports, parent, version, why)) {
    for (const std::string& r : reports.Lines()) std::fprintf(stderr, "report: %s", r.c_str());
    qelstd::Error(path, why);
    return qelstd::kNotFound;
  }
  const int standardClass = qelstd::ClassOfParent(parent);
  const int release = qelstd::ReleaseOfVersion(version);
  if (json) {
    nlohmann::ordered_json out;
    out["path"] = path;
    out["parent"] = parent;
    out["class"] = standardClass;
    out["className"] = kClassNames[standardClass];
    out["version"] = version;
    out["release"] = release ? nlohmann::ordered_json(release) : nlohmann::ordered_json();
    out["reports"] = reports.Lines();
    qelstd::Printf(stdout, "%s\n", qelstd::JsonText(out, 2).c_str());
  } else {
    qelstd::Printf(stdout, "path:    %s\n", path.c_str());
    qelstd::Printf(stdout, "parent:  %s\n", parent.empty() ? "(none)" : parent.c_str());
    qelstd::Printf(stdout, "class:   %d (%s)\n", standardClass, kClassNames[standardClass]);
    if (release)
      qelstd::Printf(stdout, "version: %d (release %d)\n", version, release);
    else
      qelstd::Printf(stdout, "version: %d (cannot be told)\n", version);
    for (const std::string& r : reports.Lines()) qelstd::Printf(stdout, "report:  %s", r.c_str());
  }
  return qelstd::kDone;
}

void SetupInfo(CLI::App& app, int* status) {
  auto nameOrFile = std::make_shared<std::string>();
  auto json = std::make_shared<bool>(false);
  CLI::App* verb = app.add_subcommand("info", "Show where a standard is, its parent, class and data level");
  verb->add_option("NAME|FILE", *nameOrFile, "A standard file, or a standard's name")->required();
  verb->add_flag("--json", *json, "Print {path, parent, class, className, version, release, reports}");
  verb->footer(
      "A name is looked up in the repository (ZOLCollectionStandard, ZOLDefaultCollectionStandard) and among\n"
      "the built-in standards (ISO, JIS, ANSI-ASME), and copied into the working directory (ADL_ODT_OUT,\n"
      "else ZOLTemp), which must be set. Class: 0 ISO, 1 JIS, 2 ASME, 3 ANSI, 4 other. A file without a\n"
      "version node is dated by its content. A file that does not decode whole is refused with the reason\n"
      "(exit status 1).\n"
      "\nExample:\n"
      "  $ ADL_ODT_OUT=/tmp/work qelstd info JIS\n"
      "  path:    /tmp/work/JIS.xml\n"
      "  parent:  JIS\n"
      "  class:   1 (JIS)\n"
      "  version: 280 (release 427)\n");
  verb->callback([nameOrFile, json, status] { *status = RunInfo(*nameOrFile, *json); });
}

const qelstd::VerbRegistrar registrar("info", SetupInfo);

}  // namespace
