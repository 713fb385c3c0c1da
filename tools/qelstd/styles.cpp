// qelstd styles NAME|FILE [TYPE]: the style types of a standard, the names of each, and the
// default style, as a drafting module finds them through the style manager.
#include <nlohmann/json.hpp>

#include <cstdio>
#include <string>
#include <vector>

#include "QelstdJson.h"
#include "QelstdOutput.h"
#include "QelstdStandard.h"
#include "QelstdStyles.h"
#include "QelstdVerb.h"
#include "ZOLIDftStyle.h"
#include "ZOLIDftStyleManager.h"
#include "ZOLIUnknownList.h"

namespace {

struct StyleType {
  std::string name;
  std::string defaultStyle;
  bool defaultPresent = false;
  std::vector<std::string> styles;
};

// The styles of one type, or of every type, grouped by type in the order the manager gives them.
bool Collect(ZOLIDftStyleManager* manager, const std::string& type, std::vector<StyleType>& out) {
  std::vector<std::pair<std::string, std::string>> styles;
  if (!qelstd::ListStyles(manager, type, styles)) return false;
  for (auto& [styleType, name] : styles) {
    if (out.empty() || out.back().name != styleType) out.push_back({styleType, "", false, {}});
    out.back().styles.push_back(std::move(name));
  }
  if (!type.empty() && out.empty()) out.push_back({type, "", false, {}});
  for (StyleType& t : out) {
    wchar_t* name = nullptr;
    if (SUCCEEDED(manager->GetDefaultStyle(qelstd::Wide(t.name).c_str(), &name, nullptr))) t.defaultStyle = qelstd::Narrow(name);
    for (const std::string& s : t.styles) t.defaultPresent = t.defaultPresent || s == t.defaultStyle;
  }
  return true;
}

void Setup(CLI::App& app, int* status) {
  auto* cmd = app.add_subcommand("styles", "List the style types of a standard, their styles and the default style");
  cmd->footer("Example: qelstd styles ISO\n         qelstd styles JIS DistanceLengthDimension --json\n"
              "A default style that the standard does not hold is marked \"(absent)\".");
  auto standard = std::make_shared<std::string>();
  auto type = std::make_shared<std::string>();
  auto json = std::make_shared<bool>(false);
  cmd->add_option("standard", *standard, "Built-in name (ISO, JIS, ASME) or standard file")->required();
  cmd->add_option("type", *type, "Only this style type, as Curve or Text");
  cmd->add_flag("--json", *json, "Print one JSON object");
  cmd->callback([=] {
    ZOLIDrwStandard_var s = qelstd::OpenStandardOrFail(*standard, status);
    if (!s) return;
    qelstd::QuietReports quiet;
    ZOLIDftStyleManager_var manager(s.Get());
    std::vector<StyleType> types;
    if (manager.IsNull() || !Collect(manager, *type, types)) {
      qelstd::Error(*standard, "the styles cannot be listed");
      *status = qelstd::kNotFound;
      return;
    }
    if (!type->empty() && !s->HasNode(("Styles." + *type).c_str())) {
      qelstd::Error(*type, "no style type of this name in " + *standard);
      *status = qelstd::kNotFound;
      return;
    }
    if (*json) {
      nlohmann::ordered_json out = {{"standard", *standard}, {"types", nlohmann::ordered_json::array()}};
      for (const StyleType& t : types)
        out["types"].push_back({{"type", t.name}, {"default", t.defaultStyle}, {"defaultPresent", t.defaultPresent}, {"styles", t.styles}});
      qelstd::Printf(stdout, "%s\n", qelstd::JsonText(out).c_str());
    } else {
      for (const StyleType& t : types) {
        qelstd::Printf(stdout, "%s\tdefault %s%s\n", t.name.c_str(), t.defaultStyle.c_str(), t.defaultPresent ? "" : " (absent)");
        for (const std::string& name : t.styles) qelstd::Printf(stdout, "  %s\n", name.c_str());
      }
    }
    *status = qelstd::kDone;
  });
}

qelstd::VerbRegistrar s_styles("styles", &Setup);

}  // namespace
