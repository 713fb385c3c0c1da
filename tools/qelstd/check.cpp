// qelstd check FILE: decodes a standard file and lists its undefined enumerated values, or, for a
// flat legacy file, its faults and the mandatory parameters it lacks.
#include <cstdio>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "QelstdCatalogue.h"
#include "QelstdInput.h"
#include "QelstdJson.h"
#include "QelstdOutput.h"
#include "QelstdVerb.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDrwParseStandard.h"

namespace {

struct CheckResult {
  int decode = 1;
  int version = -1;
  std::vector<std::string> faults;
  std::vector<std::string> reports;
};

// The faults of the enumeration check, one per entry, in the words and order of the tree's own
// check, which prints them run together.
std::vector<std::string> EnumFaults(const ZOLAnnStandardXMLParser& doc) {
  std::vector<std::string> faults;
  std::vector<std::pair<ZOLAnnStandardXMLNode*, std::string>> stack{{doc.Root(), "Enum undefined: Root"}};
  while (!stack.empty()) {
    auto [node, path] = std::move(stack.back());
    stack.pop_back();
    std::string here = path + "." + node->Name().str();
    for (auto* v : node->Values()) {
      if (v->GetType() != ZOLAnnStandardXMLValue::EnumValue) continue;
      if (!doc.EnumRoot()->FindValueWithPath(v->Name().str() + "." + v->Value().str()))
        faults.push_back(here + "." + v->Value().str() + " with enum \"" + v->Name().str() + "\"");
    }
    const auto& subs = node->SubNodes();
    for (auto it = subs.rbegin(); it != subs.rend(); ++it) stack.emplace_back(*it, here);
  }
  return faults;
}

// A flat legacy file: its faults and the mandatory parameters it lacks.
int RunFlatCheck(const std::string& path, bool json) {
  qelstd::CollectedReports collected;
  ZOLUnicodeString input(path);
  ZOLDrwParseStandard driver(input);
  ZOLListValZOLUnicodeString missing;
  driver.GetMissingParameters(missing);
  std::vector<std::string> faults, absent;
  for (const auto& fault : driver.GetFlatFaults()) faults.push_back(fault.message.str());
  for (int i = 1; i <= missing.Size(); ++i) absent.push_back(missing[i].str());
  const std::string parent = driver.GetParentStandard().str();
  const bool clean = faults.empty() && absent.empty();
  if (json) {
    nlohmann::ordered_json out;
    out["file"] = path;
    out["format"] = "flat";
    out["parent"] = parent;
    out["parameters"] = driver.GetParameterCount();
    out["faults"] = faults;
    out["missing"] = absent;
    out["clean"] = clean;
    qelstd::Printf(stdout, "%s\n", qelstd::JsonText(out, 2).c_str());
    return clean ? qelstd::kDone : qelstd::kNotFound;
  }
  qelstd::Printf(stdout, "file: %s\nformat: flat legacy parameters\nparent: %s\nparameters: %d\nfaults: %zu\n", path.c_str(),
                 parent.empty() ? "(none)" : parent.c_str(), driver.GetParameterCount(), faults.size());
  for (const auto& f : faults) qelstd::Printf(stdout, "  %s\n", f.c_str());
  qelstd::Printf(stdout, "missing mandatory parameters: %zu\n", absent.size());
  for (const auto& m : absent) qelstd::Printf(stdout, "  %s\n", m.c_str());
  return clean ? qelstd::kDone : qelstd::kNotFound;
}

int RunCheck(const std::string& path, bool json) {
  if (std::string why = qelstd::WhyNotReadable(path); !why.empty()) {
    qelstd::Error(path, why);
    return qelstd::kNotFound;
  }
  qelstd::SetSubject(path);
  if (ZOLDrwParseStandard::IsFlatFile(ZOLUnicodeString(path))) return RunFlatCheck(path, json);
  CheckResult r;
  qelstd::CollectedReports collected;
  ZOLAnnStandardXMLParser doc;
  r.decode = doc.DecodeXML(ZOLUnicodeString(path), 1);
  if (!json) qelstd::Printf(stdout, "file: %s\ndecode: %d (%s)\n", path.c_str(), r.decode, r.decode == 0 ? "decoded" : "failed");
  if (r.decode == 0) {
    r.version = doc.GetVersion();
    if (!json) qelstd::Printf(stdout, "version: %d\n", r.version);
    r.faults = EnumFaults(doc);
    if (!json) {
      qelstd::Printf(stdout, "enum faults: %zu\n", r.faults.size());
      for (const auto& f : r.faults) qelstd::Printf(stdout, "  %s\n", f.c_str());
    }
  }
  for (std::string line : collected.Lines()) {
    while (!line.empty() && line.back() == '\n') line.pop_back();
    r.reports.push_back(std::move(line));
  }
  bool clean = r.decode == 0 && r.faults.empty();
  if (json) {
    nlohmann::ordered_json out;
    out["file"] = path;
    out["decode"] = r.decode;
    out["version"] = r.version;
    out["enumFaults"] = r.faults;
    out["reports"] = r.reports;
    out["clean"] = clean;
    if (r.decode != 0) out["decodeError"] = qelstd::WhyNotDecoded(path, r.reports);
    qelstd::Printf(stdout, "%s\n", qelstd::JsonText(out, 2).c_str());
  } else {
    for (const auto& line : r.reports) qelstd::Printf(stdout, "report: %s\n", line.c_str());
    if (r.decode != 0) qelstd::Error(path, "does not decode as a standard: " + qelstd::WhyNotDecoded(path, r.reports));
  }
  return clean ? qelstd::kDone : qelstd::kNotFound;
}

void SetupCheck(CLI::App& app, int* status) {
  auto* verb = app.add_subcommand(
      "check", "Decode a standard file and list its undefined enumerated values, or the missing parameters of a flat file");
  auto path = std::make_shared<std::string>();
  auto json = std::make_shared<bool>(false);
  verb->add_option("FILE", *path, "Standard file in the std dialect, or a flat legacy file")->required();
  verb->add_flag("--json", *json,
                 "Print {file, decode, version, enumFaults, reports, clean}, and decodeError when it does not decode;\n"
                 "for a flat file {file, format, parent, parameters, faults, missing, clean}");
  verb->footer("Prints the decode result (0 decoded, 1 failed), the data version, each enumerated value whose\n"
               "text its enumeration does not define, and the reports raised. Exit status 0 when the file\n"
               "decodes and every enumerated value is defined, 1 otherwise.\n"
               "\nExample:\n"
               "  $ qelstd check drafting/ISO.xml\n"
               "  file: drafting/ISO.xml\n"
               "  decode: 0 (decoded)\n"
               "  version: 290\n"
               "  enum faults: 0\n"
               "\nA flat legacy file (KEYWORD value lines) gets its faults by line and the mandatory general\n"
               "parameters it does not value; exit status 0 when it has neither:\n"
               "  $ qelstd check tools/samples/Company-flat.std\n"
               "  file: tools/samples/Company-flat.std\n"
               "  format: flat legacy parameters\n"
               "  parent: ISO\n"
               "  parameters: 127\n"
               "  faults: 0\n"
               "  missing mandatory parameters: 0\n");
  verb->callback([path, json, status] { *status = RunCheck(*path, *json); });
}

const qelstd::VerbRegistrar registrar("check", SetupCheck);

}  // namespace
