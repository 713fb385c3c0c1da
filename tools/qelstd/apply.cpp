// qelstd apply EDITS [--in FILE] [-o FILE]: tries edit strings on a document.
#include <cstdio>
#include <string>
#include <vector>

#include "QelstdCatalogue.h"
#include "QelstdEdits.h"
#include "QelstdInput.h"
#include "QelstdOutput.h"
#include "QelstdVerb.h"
#include "ZOLAnnStandardXMLParser.h"

namespace {

struct ApplyOptions {
  std::string edits;
  std::string in;   // document to start from; empty: an empty document
  std::string out;  // where to save the result; empty: nowhere
};

int RunApply(const ApplyOptions& options) {
  const std::string& path = options.edits;
  qelstd::SetSubject(path);
  std::string text, why;
  if (!qelstd::ReadRegularFile(path, qelstd::kMaxEditsFileBytes, text, why)) {
    qelstd::Error(path, why);
    return qelstd::kNotFound;
  }
  // The whole file is read before any line is applied: a bad line is a usage error that changes nothing.
  if (!qelstd::ForEachEditLine(text, [](const qelstd::EditLine&) {}, why)) {
    qelstd::Error(path, why);
    return qelstd::kUsage;
  }
  if (!options.in.empty()) {
    qelstd::SetSubject(options.in);
    if (why = qelstd::WhyNotReadable(options.in); !why.empty()) {
      qelstd::Error(options.in, why);
      return qelstd::kNotFound;
    }
  }
  // Reports are shown under the line that raised them.
  qelstd::CollectedReports reports;
  ZOLAnnStandardXMLParser doc;
  if (!options.in.empty() && doc.DecodeXML(ZOLUnicodeString(options.in), 1) != 0) {
    for (const auto& r : reports.Lines()) std::fprintf(stderr, "report: %s", r.c_str());
    qelstd::Error(options.in, "does not decode as a standard: " + qelstd::WhyNotDecoded(options.in, reports.Lines()));
    return qelstd::kNotFound;
  }
  qelstd::SetSubject(path);
  int failed = 0;
  long long reach = 0;
  int stoppedAt = 0;
  qelstd::ForEachEditLine(
      text,
      [&](const qelstd::EditLine& line) {
        if (stoppedAt) return;
        reports.Clear();
        reach += qelstd::ValueAllReach(doc, line);
        if (reach > qelstd::kMaxValueAllReach) {
          stoppedAt = line.number;
          return;
        }
        const int result = qelstd::ApplyEditLine(doc, line);
        failed += result != 0;
        qelstd::Printf(stdout, "%d: %d  %.*s\n", line.number, result, static_cast<int>(line.written.size()),
                       line.written.data());
        for (const auto& r : reports.Lines()) qelstd::Printf(stdout, "    report: %s", r.c_str());
      },
      why);
  if (stoppedAt) {
    qelstd::Error(path, "line " + std::to_string(stoppedAt) + ": the value-all lines would reach more than " +
                            std::to_string(qelstd::kMaxValueAllReach) + " sub-nodes; stopped there, nothing saved");
    return qelstd::kNotFound;
  }
  qelstd::Printf(stdout, "\n");
  qelstd::PrintOutline(stdout, doc);
  qelstd::Printf(stdout, "\nversion: %d\n", doc.GetVersion());
  for (const auto& r : reports.Lines()) qelstd::Printf(stdout, "report: %s", r.c_str());
  reports.Clear();
  HRESULT saved = options.out.empty() ? S_OK : doc.SaveInFile(ZOLUnicodeString(options.out));
  if (FAILED(saved)) {
    for (const auto& r : reports.Lines()) std::fprintf(stderr, "report: %s", r.c_str());
    qelstd::Error(options.out, "cannot be saved; nothing was written");
    return qelstd::kNotFound;
  }
  if (!options.out.empty()) qelstd::Printf(stdout, "saved: %s\n", options.out.c_str());
  return failed ? qelstd::kNotFound : qelstd::kDone;
}

void SetupApply(CLI::App& app, int* status) {
  auto* verb = app.add_subcommand("apply", "Apply a file of edit strings to a document and show the result");
  auto options = std::make_shared<ApplyOptions>();
  verb->add_option("EDITS", options->edits, "File of edit strings, one per line (a regular file of at most 64 MiB)")
      ->required();
  verb->add_option("--in", options->in, "Standard file to start from (default: an empty document)");
  verb->add_option("-o,--out", options->out, "Save the edited document to this file (written whole or not at all)");
  verb->footer(std::string(qelstd::kEditFileFormat) +
               "\nPrints each line's result code (0 done, 1 place not found, 2 position not a number, 3 text a\n"
               "file cannot hold) and the reports it raised, then the document as an outline and its version. The outline indents two\n"
               "blanks per level down to level 64; deeper lines keep that indent and begin with their depth,\n"
               "as \"[65] node \\\"X\\\"\". Exit status 1 when a line did not give 0.\n"
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
