// qelstd apply EDITS [--in FILE] [-o FILE]: tries edit strings on a document.
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

struct ApplyOptions {
  std::string edits;
  std::string in;   // document to start from; empty: an empty document
  std::string out;  // where to save the result; empty: nowhere
};

int RunApply(const ApplyOptions& options) {
  const std::string& path = options.edits;
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
  if (!options.in.empty() && doc.DecodeXML(ZOLUnicodeString(options.in), 1) != 0) {
    ZOLSysLogSetHook(std::move(previous));
    for (const auto& r : reports) std::fprintf(stderr, "report: %s", r.c_str());
    qelstd::Error(options.in, "not a standard document (decoding failed)");
    return qelstd::kNotFound;
  }
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
  reports.clear();
  HRESULT saved = options.out.empty() ? S_OK : doc.SaveInFile(ZOLUnicodeString(options.out));
  ZOLSysLogSetHook(std::move(previous));
  if (FAILED(saved)) {
    for (const auto& r : reports) std::fprintf(stderr, "report: %s", r.c_str());
    qelstd::Error(options.out, "cannot be saved; nothing was written");
    return qelstd::kNotFound;
  }
  if (!options.out.empty()) std::printf("saved: %s\n", options.out.c_str());
  return failed ? qelstd::kNotFound : qelstd::kDone;
}

void SetupApply(CLI::App& app, int* status) {
  auto* verb = app.add_subcommand("apply", "Apply a file of edit strings to a document and show the result");
  auto options = std::make_shared<ApplyOptions>();
  verb->add_option("EDITS", options->edits, "File of edit strings, one per line")->required();
  verb->add_option("--in", options->in, "Standard file to start from (default: an empty document)");
  verb->add_option("-o,--out", options->out, "Save the edited document to this file (written whole or not at all)");
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
               "  $ qelstd apply frames.edits\n"
               "  $ qelstd apply --in ISO.xml -o ISO-edited.xml frames.edits\n");
  verb->callback([options, status] { *status = RunApply(*options); });
}

const qelstd::VerbRegistrar registrar("apply", SetupApply);

}  // namespace
