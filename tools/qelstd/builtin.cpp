// qelstd builtin NAME [-o FILE]: writes one of the built-in standard texts.
#include <cstdio>
#include <memory>
#include <string>

#include "QelstdOutput.h"
#include "QelstdVerb.h"
#include "ZOLDftBuiltinStandards.h"

namespace {

struct BuiltinOptions {
  std::string name;
  std::string output;
};

int RunBuiltin(const BuiltinOptions& options) {
  const ZOLUnicodeString* text = ZOLDftBuiltinStandards::GetText(options.name);
  if (!text) {
    qelstd::Error(options.name, "not a built-in standard (ISO, ANSI-ASME, JIS)");
    return qelstd::kNotFound;
  }
  if (options.output.empty()) {
    // A failed write is told when the tool ends.
    qelstd::Write(stdout, text->str());
    return qelstd::kDone;
  }
  return qelstd::WriteFileWhole(options.output, text->str()) ? qelstd::kDone : qelstd::kNotFound;
}

void SetupBuiltin(CLI::App& app, int* status) {
  auto options = std::make_shared<BuiltinOptions>();
  CLI::App* verb = app.add_subcommand("builtin", "Write a built-in standard text (ISO, ANSI-ASME or JIS)");
  verb->footer("Example: qelstd builtin ISO -o drafting/ISO.xml");
  verb->add_option("name", options->name, "Name of the built-in standard: ISO, ANSI-ASME or JIS")->required();
  verb->add_option("-o,--output", options->output, "File to write (written whole or not at all); standard output by default");
  verb->callback([options, status] { *status = RunBuiltin(*options); });
}

const qelstd::VerbRegistrar registrar("builtin", SetupBuiltin);

}  // namespace
