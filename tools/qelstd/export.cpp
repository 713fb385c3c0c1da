// qelstd export NAME|FILE [-o FILE.json]: a standard as the JSON object of its communication face.
#include <memory>
#include <string>

#include "QelstdOutput.h"
#include "QelstdStandard.h"
#include "QelstdVerb.h"
#include "ZOLIQelStandardCommunication.h"

namespace {

struct ExportOptions {
  std::string standard;
  std::string output;
  int indent = -1;
};

int RunExport(const ExportOptions& options, int* status) {
  ZOLIDrwStandard_var standard = qelstd::OpenStandardOrFail(options.standard, status);
  if (!standard) return *status;
  ZOLIQelStandardCommunication_var communication(standard.Get());
  ZOLOmxJsonObject json;
  if (!communication || communication->GetStandardAsJson(json) != S_OK) {
    qelstd::Error(options.standard, "the standard object gives no JSON export");
    return qelstd::kNotFound;
  }
  const std::string text = json.ToString(options.indent) + "\n";
  if (options.output.empty()) {
    qelstd::Write(stdout, text);
    return qelstd::kDone;
  }
  return qelstd::WriteFileWhole(options.output, text) ? qelstd::kDone : qelstd::kNotFound;
}

void SetupExport(CLI::App& app, int* status) {
  auto options = std::make_shared<ExportOptions>();
  CLI::App* verb = app.add_subcommand("export", "Write a standard as JSON: its enums, typedefs, styles and parameters");
  verb->footer("Example: qelstd export ISO -o ISO.json --indent 2\n"
               "The text feeds 'qelstd generate' once markup in its values is escaped.");
  verb->add_option("standard", options->standard, "Built-in name (ISO, JIS, ASME) or standard file")->required();
  verb->add_option("-o,--output", options->output, "File to write (written whole or not at all); standard output by default");
  verb->add_option("--indent", options->indent, "Blanks per level of a pretty-printed text; compact by default")
      ->check(CLI::Range(0, 16));
  verb->callback([options, status] { *status = RunExport(*options, status); });
}

const qelstd::VerbRegistrar registrar("export", SetupExport);

}  // namespace
