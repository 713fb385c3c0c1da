// qelstd compare: the three built-in standards side by side, as their objects answer.
#include <cstdio>
#include <string>
#include <vector>

#include "QelstdJson.h"
#include "QelstdOutput.h"
#include "QelstdStandard.h"
#include "QelstdVerb.h"

namespace {

std::string Real(ZOLIDrwStandard* s, const char* path) {
  double d = 0;
  if (s->GetValue(path, 1, d) != S_OK) return "-";
  char buf[32];
  std::snprintf(buf, sizeof buf, "%g", d);
  return buf;
}

// The sheet style that counts as default: one named "Default", else the first.
std::string DefaultSheetStyle(ZOLIDrwStandard* s) {
  ZOLListValZOLUnicodeString names;
  if (s->GetStyleNames("Sheet", &names) != S_OK || names.Size() == 0) return "-";
  std::string style = names.Locate("Default") ? "Default" : names[1].str();
  ZOLUnicodeString format, projection;
  s->GetValue(("Sheet." + style + ".Format").c_str(), 1, format);
  s->GetValue(("Sheet." + style + ".ProjectionMethod").c_str(), 1, projection);
  return style + " (" + format.str() + ", " + projection.str() + ")";
}

nlohmann::ordered_json Describe(const char* name, ZOLIDrwStandard* s) {
  nlohmann::ordered_json row;
  ZOLUnicodeString text;
  s->GetName(text);
  row["name"] = text.str();
  text = "";
  s->GetParentStandard(text);
  row["parent"] = text.str();
  row["version"] = s->GetStdVersion();
  row["text height"] = Real(s, "Text.Default.Font.Size");
  row["arrow angle"] = Real(s, "Dimension.SYMBArrowAngle");
  row["arrow length"] = Real(s, "Dimension.SYMBArrowSide");
  row["text gap"] = Real(s, "Dimension.DIMLTextGap");
  ZOLIDftStandard_var dft(s);
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 0;
  std::vector<std::string> list;
  if (dft && ZOLDftStandardServices::GetSheetFormats(dft, &formats, count) == S_OK) {
    for (int i = 0; i < count; ++i) {
      char size[48];
      std::snprintf(size, sizeof size, " %gx%g", formats[i].width, formats[i].height);
      list.push_back(formats[i].name.str() + size);
    }
    delete[] formats;
  }
  row["sheet formats"] = std::to_string(list.size()) + (list.empty() ? "" : ": " + list.front() + " ... " + list.back());
  row["default sheet style"] = DefaultSheetStyle(s);
  (void)name;
  return row;
}

void Setup(CLI::App& app, int* status) {
  auto* cmd = app.add_subcommand("compare", "Print telling values of the built-in standards ISO, ASME and JIS side by side");
  cmd->footer("Example: qelstd compare\n         qelstd compare --json");
  auto json = std::make_shared<bool>(false);
  cmd->add_flag("--json", *json, "Print one JSON object, standard by standard");
  cmd->callback([=] {
    nlohmann::ordered_json all;
    qelstd::QuietReports quiet;
    for (const char* name : {"ISO", "ASME", "JIS"}) {
      std::string why;
      ZOLIDrwStandard_var s = qelstd::OpenStandard(name, why);
      if (!s) {
        qelstd::Error(name, why);
        *status = qelstd::kNotFound;
        return;
      }
      all[name] = Describe(name, s);
    }
    if (*json) {
      qelstd::Printf(stdout, "%s\n", qelstd::JsonText(all, 1).c_str());
    } else {
      qelstd::Printf(stdout, "%-20s", "");
      for (auto& [name, row] : all.items()) qelstd::Printf(stdout, "  %-40s", name.c_str());
      qelstd::Printf(stdout, "\n");
      for (auto& [field, unused] : all["ISO"].items()) {
        (void)unused;
        qelstd::Printf(stdout, "%-20s", field.c_str());
        for (auto& [name, row] : all.items()) {
          const auto& v = row[field];
          std::string text = v.is_string() ? v.get<std::string>() : qelstd::JsonText(v);
          qelstd::Printf(stdout, "  %-40s", text.c_str());
        }
        qelstd::Printf(stdout, "\n");
      }
    }
    *status = qelstd::kDone;
  });
}

qelstd::VerbRegistrar s_compare("compare", &Setup);

}  // namespace
