// qelstd report NAME|FILE -o FILE.html: one self-contained page that draws a standard.
#include <cerrno>
#include <cstring>
#include <memory>
#include <string>

#include "QelstdOutput.h"
#include "QelstdReport.h"
#include "QelstdStandard.h"
#include "QelstdVerb.h"
#include "ZOLFile.h"

namespace {

struct ReportOptions {
  std::string standard;
  std::string output;
};

int RunReport(const ReportOptions& o) {
  int status = qelstd::kDone;
  ZOLIDrwStandard_var standard = qelstd::OpenStandardOrFail(o.standard, &status);
  if (!standard) return status;
  std::string page;
  {
    // Reads of what a standard lacks are reported; the page shows them as missing.
    qelstd::QuietReports quiet;
    page = qelstd::RenderReport(qelstd::Subject(), standard);
  }
  errno = 0;
  if (ZOLWriteFileAtomically(o.output.c_str(), page) != S_OK) {
    const int error = errno;
    qelstd::Error(o.output, std::string("cannot be written") + (error ? std::string(": ") + std::strerror(error) : "") +
                                "; nothing was written");
    return qelstd::kNotFound;
  }
  qelstd::Printf(stdout, "%s: report of %s, %zu bytes\n", o.output.c_str(), qelstd::Subject().c_str(), page.size());
  return qelstd::kDone;
}

void SetupReport(CLI::App& app, int* status) {
  auto o = std::make_shared<ReportOptions>();
  CLI::App* verb = app.add_subcommand("report", "Write a standard as one HTML page that draws what it defines");
  verb->add_option("NAME|FILE", o->standard, "A standard file, or a standard's name")->required();
  verb->add_option("-o,--output", o->output, "The HTML file to write")->required();
  verb->footer(
      "The page needs no network and no script: a header (name, parent, level, file); the line types,\n"
      "hatchings, dottings, colourings and line thicknesses drawn at their proportions; the engineering\n"
      "symbols with their icons enlarged; the sheet formats at one scale; the styles by type with\n"
      "their values; and every value the standard files, as a foldable outline by path with its type.\n"
      "A small script adds search and unfolding. Everything is read through the standard object, as a\n"
      "drafting module reads it. A built-in name (ISO, JIS, ASME) needs the working directory\n"
      "ADL_ODT_OUT or ZOLTemp. Exit status 1 when the standard cannot be read or the page cannot be\n"
      "written; the page is written whole or not at all.\n"
      "\nExample:\n"
      "  $ ADL_ODT_OUT=/tmp/work qelstd report ISO -o iso.html\n");
  verb->callback([o, status] { *status = RunReport(*o); });
}

const qelstd::VerbRegistrar registrar("report", SetupReport);

}  // namespace
