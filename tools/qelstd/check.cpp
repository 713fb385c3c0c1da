// qelstd check FILE: decodes a standard file and lists its undefined enumerated values.
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

int RunCheck(const std::string& path, bool json) {
  if (std::string why = qelstd::WhyNotReadable(path); !why.empty()) {
    qelstd::Error(path, why);
    return qelstd::kNotFound;
  }
  qelstd::SetSubject(path);
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
  auto* verb = app.add_subcommand("check", "Decode a standard file and list its undefined enumerated values");
  auto path = std::make_shared<std::string>();
  auto json = std::make_shared<bool>(false);
  verb->add_option("FILE", *path, "Standard file in the std dialect")->required();
  verb->add_flag("--json", *json,
                 "Print {file, decode, version, enumFaults, reports, clean}, and decodeError when it does not decode");
  verb->footer("Prints the decode result (0 decoded, 1 failed), the data version, each enumerated value whose\n"
               "text its enumeration does not define, and the reports raised. Exit status 0 when the file\n"
               "decodes and every enumerated value is defined, 1 otherwise.\n"
               "\nExample:\n"
               "  $ qelstd check drafting/ISO.xml\n"
               "  file: drafting/ISO.xml\n"
               "  decode: 0 (decoded)\n"
               "  version: 290\n"
               "  enum faults: 0\n");
  verb->callback([path, json, status] { *status = RunCheck(*path, *json); });
}

const qelstd::VerbRegistrar registrar("check", SetupCheck);

}  // namespace
