// qelstd report NAME|FILE -o FILE.html: one self-contained page that draws a standard.
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <memory>
#include <string>

#include "QelstdCatalogue.h"
#include "QelstdOutput.h"
#include "QelstdReport.h"
#include "QelstdVerb.h"
#include "ZOLFile.h"

namespace {

struct ReportOptions {
  std::string standard;
  std::string output;
};

int RunReport(const ReportOptions& o) {
  std::string path, why;
  if (!qelstd::ResolveStandard(o.standard, path, why)) {
    qelstd::Error(o.standard, why);
    return qelstd::kNotFound;
  }
  qelstd::SetSubject(path);
  ZOLAnnStandardXMLParser tree;
  if (!qelstd::DecodeStandardTree(path, tree, why)) {
    qelstd::Error(path, why);
    return qelstd::kNotFound;
  }
  ZOLIDrwStandard_var standard;
  {
    // What the object cannot read shows as missing in the page; the decode above told the faults.
    qelstd::CollectedReports quiet;
    standard = ZOLDftStandardServices::GetStandardFromFile(path.c_str(),
                                                           std::filesystem::path(path).stem().string().c_str());
  }
  if (!standard) {
    qelstd::Error(path, "cannot be read as a standard");
    return qelstd::kNotFound;
  }
  std::string page;
  {
    qelstd::CollectedReports quiet;
    page = qelstd::RenderReport(path, tree, standard);
  }
  errno = 0;
  if (ZOLWriteFileAtomically(o.output.c_str(), page) != S_OK) {
    const int error = errno;
    qelstd::Error(o.output, std::string("cannot be written") + (error ? std::string(": ") + std::strerror(error) : "") +
                                "; nothing was written");
    return qelstd::kNotFound;
  }
  qelstd::Printf(stdout, "%s: report of %s, %zu bytes\n", o.output.c_str(), path.c_str(), page.size());
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
      "their values; and the whole tree as a foldable outline with every value and its type. A small\n"
      "script adds search and unfolding. A name is found as by `qelstd info` (the working directory\n"
      "ADL_ODT_OUT or ZOLTemp must be set). Exit status 1 when the standard cannot be read or the page\n"
      "cannot be written; the page is written whole or not at all.\n"
      "\nExample:\n"
      "  $ ADL_ODT_OUT=/tmp/work qelstd report ISO -o iso.html\n");
  verb->callback([o, status] { *status = RunReport(*o); });
}

const qelstd::VerbRegistrar registrar("report", SetupReport);

}  // namespace
