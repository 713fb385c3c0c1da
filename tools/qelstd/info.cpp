// qelstd info NAME|FILE: where a standard is, its parent, class and data level.
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>

#include "QelstdCatalogue.h"
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
  qelstd::CollectedReports reports;
  ZOLUnicodeString file(path), parent;
  int version = 0;
  ZOLDftStandardServices::GetStandardClassAndVersion(file, parent, version);
  const int standardClass = qelstd::ClassOfParent(parent.str());
  const int release = qelstd::ReleaseOfVersion(version);
  if (json) {
    nlohmann::ordered_json out;
    out["path"] = path;
    out["parent"] = parent.str();
    out["class"] = standardClass;
    out["className"] = kClassNames[standardClass];
    out["version"] = version;
    out["release"] = release ? nlohmann::ordered_json(release) : nlohmann::ordered_json();
    out["reports"] = reports.Lines();
    std::printf("%s\n", out.dump(2).c_str());
  } else {
    std::printf("path:    %s\n", path.c_str());
    std::printf("parent:  %s\n", parent.IsEmpty() ? "(none)" : parent.ConvertToChar());
    std::printf("class:   %d (%s)\n", standardClass, kClassNames[standardClass]);
    if (release)
      std::printf("version: %d (release %d)\n", version, release);
    else
      std::printf("version: %d (cannot be told)\n", version);
    for (const std::string& r : reports.Lines()) std::printf("report:  %s", r.c_str());
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
      "version node is dated by its content.\n"
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
