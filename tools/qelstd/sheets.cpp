// qelstd sheets NAME|FILE: the sheet formats and sheet styles of a standard.
#include <cstdio>
#include <memory>
#include <string>

#include "QelstdCatalogue.h"
#include "QelstdJson.h"
#include "QelstdOutput.h"
#include "QelstdVerb.h"
#include "ZOLAnnStandardServices.h"
#include "ZOLDftStandardServices.h"

namespace {

std::string OrientationName(ZOLFormatOrientationsType o) {
  ZOLUnicodeString name;
  return ZOLDftStandardServices::GetNameFromEnum(o, name) == S_OK ? name.str() : std::to_string(static_cast<int>(o));
}

nlohmann::ordered_json FormatJson(const ZOLDrwStdSheetFormat& f) {
  return {{"name", f.name.str()}, {"width", f.width}, {"height", f.height}, {"orientation", OrientationName(f.orientation)}};
}

nlohmann::ordered_json StyleJson(const ZOLDrwStdSheetStyle& s) {
  using J = nlohmann::ordered_json;
  J j;
  j["name"] = s.name.str();
  j["scale"] = s.scale;
  j["projectionMethod"] = s.projectionMethod ? "Third angle" : "First angle";
  j["genViewsPosMode"] = s.hasGenViewsPosMode ? J(s.genViewsPosMode ? "FixedAxis" : "FixedCG") : J();
  j["orientation"] = s.hasOrientation ? J(s.orientation ? "Landscape" : "Portrait") : J();
  j["displayFormat"] = s.hasDisplayFormat ? J(s.displayFormat) : J();
  j["format"] = s.hasFormat ? FormatJson(s.format) : J();
  return j;
}

const char* Or(bool has, const char* text) { return has ? text : "-"; }

int RunSheets(const std::string& nameOrFile, bool json) {
  std::string path, why;
  if (!qelstd::ResolveStandard(nameOrFile, path, why)) {
    qelstd::Error(nameOrFile, why);
    return qelstd::kNotFound;
  }
  qelstd::SetSubject(path);
  qelstd::CollectedReports reports;
  std::unique_ptr<ZOLAnnStandardServices> services = ZOLAnnStandardServices::OpenFile(path.c_str());
  if (!services->IsSwitchable(0)) {
    qelstd::Error(path, "cannot be read as a standard (not well-formed, or enumerated values not defined)");
    return qelstd::kNotFound;
  }
  ZOLDrwStdSheetFormat* formats = nullptr;
  int formatCount = 0;
  const long formatsResult = services->GetAvailableSheetFormats(&formats, formatCount);
  std::unique_ptr<ZOLDrwStdSheetFormat[]> ownedFormats(formats);
  if (FAILED(formatsResult)) formatCount = 0;
  ZOLDrwStdSheetStyle* styles = nullptr;
  int styleCount = 0;
  const long stylesResult = services->GetAvailableSheetStyles(&styles, styleCount);
  std::unique_ptr<ZOLDrwStdSheetStyle[]> ownedStyles(styles);
  if (FAILED(stylesResult)) styleCount = 0;
  int version = -1;
  services->GetVersion(version);

  if (json) {
    nlohmann::ordered_json out;
    out["path"] = path;
    out["version"] = version;
    out["formats"] = nlohmann::ordered_json::array();
    for (int i = 0; i < formatCount; ++i) out["formats"].push_back(FormatJson(formats[i]));
    out["styles"] = nlohmann::ordered_json::array();
    for (int i = 0; i < styleCount; ++i) out["styles"].push_back(StyleJson(styles[i]));
    out["oldStyles"] = stylesResult == 1;
    out["reports"] = reports.Lines();
    qelstd::Printf(stdout, "%s\n", qelstd::JsonText(out, 2).c_str());
  } else {
    qelstd::Printf(stdout, "%s (version %d)\n\n", path.c_str(), version);
    if (FAILED(formatsResult)) {
      qelstd::Printf(stdout, "Sheet formats: none readable%s\n", version < 60 ? " (a standard before level 60 has none)" : "");
    } else {
      qelstd::Printf(stdout, "Sheet formats (%d):\n  %-20s %9s %9s  %s\n", formatCount, "NAME", "WIDTH", "HEIGHT", "ORIENTATION");
      for (int i = 0; i < formatCount; ++i)
        qelstd::Printf(stdout, "  %-20s %9g %9g  %s\n", formats[i].name.ConvertToChar(), formats[i].width, formats[i].height,
                    OrientationName(formats[i].orientation).c_str());
    }
    qelstd::Printf(stdout, "\n");
    if (FAILED(stylesResult)) {
      qelstd::Printf(stdout, "Sheet styles: none readable%s\n", version < 30 ? " (a standard before level 30 has none)" : "");
    } else {
      qelstd::Printf(stdout, "Sheet styles (%d%s):\n  %-16s %7s  %-11s  %-9s  %-11s  %-7s  %s\n", styleCount,
                  stylesResult == 1 ? ", scale and projection only" : "", "NAME", "SCALE", "PROJECTION", "VIEWS",
                  "ORIENTATION", "DISPLAY", "FORMAT");
      for (int i = 0; i < styleCount; ++i) {
        const ZOLDrwStdSheetStyle& s = styles[i];
        qelstd::Printf(stdout, "  %-16s %7g  %-11s  %-9s  %-11s  %-7s  %s\n", s.name.ConvertToChar(), s.scale,
                    s.projectionMethod ? "Third angle" : "First angle",
                    Or(s.hasGenViewsPosMode, s.genViewsPosMode ? "FixedAxis" : "FixedCG"),
                    Or(s.hasOrientation, s.orientation ? "Landscape" : "Portrait"),
                    Or(s.hasDisplayFormat, s.displayFormat ? "Yes" : "No"), Or(s.hasFormat, s.format.name.ConvertToChar()));
      }
    }
    for (const std::string& r : reports.Lines()) std::fprintf(stderr, "report: %s", r.c_str());
  }
  return FAILED(formatsResult) && FAILED(stylesResult) ? qelstd::kNotFound : qelstd::kDone;
}

void SetupSheets(CLI::App& app, int* status) {
  auto nameOrFile = std::make_shared<std::string>();
  auto json = std::make_shared<bool>(false);
  CLI::App* verb = app.add_subcommand("sheets", "Show the sheet formats and sheet styles of a standard");
  verb->add_option("NAME|FILE", *nameOrFile, "A standard file, or a standard's name")->required();
  verb->add_flag("--json", *json, "Print {path, version, formats, styles, oldStyles, reports}");
  verb->footer(
      "A name is found as by `qelstd info` (the working directory ADL_ODT_OUT or ZOLTemp must be set).\n"
      "Exit status 1 when neither formats nor styles can be read. Standards before level 60 have no\n"
      "sheet formats; before level 30 no sheet styles. Old standards have styles of a scale and a\n"
      "projection method only.\n"
      "\nExample:\n"
      "  $ ADL_ODT_OUT=/tmp/work qelstd sheets ISO --json | jq '.formats[].name'\n");
  verb->callback([nameOrFile, json, status] { *status = RunSheets(*nameOrFile, *json); });
}

const qelstd::VerbRegistrar registrar("sheets", SetupSheets);

}  // namespace
