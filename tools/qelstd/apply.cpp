// qelstd apply EDITS: tries edit strings on an empty document.
#include <cerrno>
#include <cstring>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "QelstdEdits.h"
#include "QelstdVerb.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLSysLog.h"

namespace {

// Reads a whole file; false with the system's reason.
bool ReadText(const std::string& path, std::string& text, std::string& why) {
  std::ifstream in(path, std::ios::binary);
  if (!in) {
    why = std::strerror(errno);
    return false;
  }
  std::ostringstream all;
  all << in.rdbuf();
  if (in.bad()) {
    why = "cannot be read";
    return false;
  }
  text = all.str();
  return true;
}

int RunApply(const std::string& path) {
  std::string text, why;
  if (!ReadText(path, text, why)) {
    qelstd::Error(path, why);
    return qelstd::kNotFound;
  }
  std::vector<qelstd::EditLine> lines;
  if (!qelstd::ParseEditLines(text, lines, why)) {
    qelstd::Error(path, why);
    return qelstd::kUsage;
  }
  // Reports are shown under the line that raised them.
  std::vector<std::string> reports;
  ZOLSysLogHook previous = ZOLSysLogSetHook([&reports](bool, const char* report) { reports.emplace_back(report); });
  ZOLAnnStandardXMLParser doc;
  int failed = 0;
  for (const auto& line : lines) {
    reports.clear();
    int result = qelstd::ApplyEditLine(doc, line);
    failed += result != 0;
    std::printf("%d: %d  %s\n", line.number, result, line.written.c_str());
    for (const auto& r : reports) std::printf("    report: %s", r.c_str());
  }
  std::printf("\n");
  qelstd::PrintOutline(stdout, doc);
  std::printf("\nversion: %d\n", doc.GetVersion());
  for (const auto& r : reports) std::printf("report: %s", r.c_str());
  ZOLSysLogSetHook(std::move(previous));
  return failed ? qelstd::kNotFound : qelstd::kDone;
}

void SetupApply(CLI::App& app, int* status) {
  auto* verb = app.add_subcommand("apply", "Apply a file of edit strings to an empty document and show the result");
  auto path = std::make_shared<std::string>();
  verb->add_option("EDITS", *path, "File of edit strings, one per line")->required();
  verb->footer(std::string(qelstd::kEditFileFormat) +
               "\nPrints each line's result code (0 done, 1 place not found, 2 position not a number) and the\n"
               "reports it raised, then the document as an outline and its version. Exit status 1 when a line\n"
               "did not give 0.\n"
               "\nExample:\n"
               "  $ cat frames.edits\n"
               "  node Enum:YesNo\n"
               "  value Enum.YesNo::string:Yes\n"
               "  node Root:Frames\n"
               "  typeval Root.Frames:Frame\n"
               "  value@-1 Root.Frames.Frame:Visible:enum.YesNo:Yes\n"
               "  $ qelstd apply frames.edits\n");
  verb->callback([path, status] { *status = RunApply(*path); });
}

const qelstd::VerbRegistrar registrar("apply", SetupApply);

}  // namespace
