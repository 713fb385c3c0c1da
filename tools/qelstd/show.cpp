// qelstd show NAME|FILE [PREFIX]: every value a standard filed at load, under a path prefix.
#include <cstdio>
#include <string>

#include "QelstdJson.h"
#include "QelstdOutput.h"
#include "QelstdStandard.h"
#include "QelstdVerb.h"

namespace {

void Setup(CLI::App& app, int* status) {
  auto* cmd = app.add_subcommand("show", "List the filed paths and values of a standard under a prefix");
  cmd->footer("Example: qelstd show ISO Curve.Default\n         qelstd show ./MyStandard.xml Dimension.DIML --json\n"
              "Keys are the cache keys: path.index for single values, the bare path for arrays and colours.");
  auto standard = std::make_shared<std::string>();
  auto prefix = std::make_shared<std::string>();
  auto json = std::make_shared<bool>(false);
  cmd->add_option("standard", *standard, "Built-in name (ISO, JIS, ASME) or standard file")->required();
  cmd->add_option("prefix", *prefix, "Start of the dotted paths to list; all when absent");
  cmd->add_flag("--json", *json, "Print a JSON array of {key, kind, value}");
  cmd->callback([=] {
    ZOLIDrwStandard_var s = qelstd::OpenStandardOrFail(*standard, status);
    if (!s) return;
    ZOLListValZOLUnicodeString keys, kinds, values;
    ZOLDftStandardServices::ListFiledValues(s, prefix->c_str(), keys, kinds, values);
    if (keys.Size() == 0) {
      qelstd::Error(*prefix, "no value filed under this prefix in " + *standard);
      *status = qelstd::kNotFound;
      return;
    }
    if (*json) {
      nlohmann::ordered_json out = nlohmann::ordered_json::array();
      for (int i = 1; i <= keys.Size(); ++i)
        out.push_back({{"key", keys[i].str()}, {"kind", kinds[i].str()}, {"value", values[i].str()}});
      qelstd::Printf(stdout, "%s\n", qelstd::JsonText(out, 1).c_str());
    } else {
      for (int i = 1; i <= keys.Size(); ++i)
        qelstd::Printf(stdout, "%s\t%s\t%s\n", keys[i].ConvertToChar(), kinds[i].ConvertToChar(), values[i].ConvertToChar());
    }
    *status = qelstd::kDone;
  });
}

qelstd::VerbRegistrar s_show("show", &Setup);

}  // namespace
