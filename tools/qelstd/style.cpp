// qelstd style NAME|FILE TYPE [STYLE]: every value of one style with its type, each read through a
// style object as a drafting module reads it; without STYLE, the default style of the type.
#include <nlohmann/json.hpp>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "QelstdJson.h"
#include "QelstdOutput.h"
#include "QelstdStandard.h"
#include "QelstdVerb.h"
#include "ZOLDftStandardServices.h"
#include "ZOLIDftStyle.h"
#include "ZOLIDftStyleManager.h"

namespace {

struct Value {
  std::string path;
  int index = 1;
  int type = 0;  // ZOLDftStandardValueType, 0 for a colour
  const char* kind = "";
  nlohmann::ordered_json value;
};

// Reads one filed value through the style: kind is what the standard filed it as.
bool Read(ZOLIDftStyle* style, const std::string& kind, Value& v) {
  const char* p = v.path.c_str();
  if (kind == "integer") {
    int i = 0;
    v.type = ZOLDftStandardValueTypeInteger, v.kind = "integer";
    return style->GetValue(p, v.index, i) == S_OK && (v.value = i, true);
  }
  if (kind == "real") {
    double d = 0;
    v.type = ZOLDftStandardValueTypeReal, v.kind = "real";
    return style->GetValue(p, v.index, d) == S_OK && (v.value = d, true);
  }
  if (kind == "string" || kind == "enum") {
    ZOLUnicodeString t;
    v.type = kind == "enum" ? ZOLDftStandardValueTypeEnum : ZOLDftStandardValueTypeString, v.kind = kind == "enum" ? "enum" : "string";
    return style->GetValue(p, v.index, t) == S_OK && (v.value = t.str(), true);
  }
  int count = 0;
  if (kind == "integers") {
    // A colour is filed as integers too; its node holds one colour element, which has no value type.
    ZOLDftStandardValueType type = ZOLDftStandardValueTypeUnknown;
    const bool colour = style->GetValueType(p, &type, &count) != S_OK;
    v.type = colour ? 0 : ZOLDftStandardValueTypeInteger, v.kind = colour ? "colour" : "integers";
    if (style->GetValue(p, static_cast<int*>(nullptr), 0, &count) == E_FAIL) return false;
    std::vector<int> values(static_cast<size_t>(count));
    if (FAILED(style->GetValue(p, values.data(), count, &count))) return false;
    v.value = values;
    return true;
  }
  if (kind == "reals") {
    v.type = ZOLDftStandardValueTypeReal, v.kind = "reals";
    if (style->GetValue(p, static_cast<double*>(nullptr), 0, &count) == E_FAIL) return false;
    std::vector<double> values(static_cast<size_t>(count));
    if (FAILED(style->GetValue(p, values.data(), count, &count))) return false;
    v.value = values;
    return true;
  }
  if (kind == "strings") {
    v.type = ZOLDftStandardValueTypeString, v.kind = "strings";
    if (style->GetValue(p, static_cast<ZOLUnicodeString**>(nullptr), 0, &count) == E_FAIL) return false;
    std::vector<ZOLUnicodeString> texts(static_cast<size_t>(count));
    std::vector<ZOLUnicodeString*> pointers;
    for (auto& t : texts) pointers.push_back(&t);
    if (FAILED(style->GetValue(p, pointers.data(), count, &count))) return false;
    v.value = nlohmann::ordered_json::array();
    for (const auto& t : texts) v.value.push_back(t.str());
    return true;
  }
  return false;
}

void Setup(CLI::App& app, int* status) {
  auto* cmd = app.add_subcommand("style", "Print every value of a style with its type code");
  cmd->footer("Example: qelstd style ISO Curve\n         qelstd style JIS DistanceLengthDimension BasicDimension --json\n"
              "Type codes: 3 integer, 4 real, 6 string, 7 enum, 0 colour. A value of a list entry shows its index as [N].");
  auto standard = std::make_shared<std::string>();
  auto type = std::make_shared<std::string>();
  auto name = std::make_shared<std::string>();
  auto json = std::make_shared<bool>(false);
  cmd->add_option("standard", *standard, "Built-in name (ISO, JIS, ASME) or standard file")->required();
  cmd->add_option("type", *type, "Style type, as Curve or Text")->required();
  cmd->add_option("style", *name, "Style name; the default style of the type when left out");
  cmd->add_flag("--json", *json, "Print one JSON object");
  cmd->callback([=] {
    ZOLIDrwStandard_var s = qelstd::OpenStandardOrFail(*standard, status);
    if (!s) return;
    qelstd::QuietReports quiet;
    ZOLIDftStyleManager_var manager(s.Get());
    if (manager.IsNull()) {
      qelstd::Error(*standard, "the standard has no style manager");
      *status = qelstd::kNotFound;
      return;
    }
    std::string styleName = *name;
    if (styleName.empty()) {
      wchar_t* def = nullptr;
      if (SUCCEEDED(manager->GetDefaultStyle(qelstd::Wide(*type).c_str(), &def, nullptr))) {
        ZOLUnicodeString n;
        n.BuildFromWChar(def);
        styleName = n.str();
      }
      delete[] def;
    }
    ZOLIDftStyle* raw = nullptr;
    if (type->empty() || FAILED(manager->GetStyle(qelstd::Wide(styleName).c_str(), qelstd::Wide(*type).c_str(), &raw)) ||
        !s->HasNode(("Styles." + *type + "." + styleName).c_str())) {
      if (raw) raw->Release();
      qelstd::Error(*type + "." + styleName, "no such style in " + *standard);
      *status = qelstd::kNotFound;
      return;
    }
    ZOLIDftStyle_var style = ZOLIDftStyle_var::Adopt(raw);
    const std::string prefix = *type + "." + styleName + ".";
    ZOLListValZOLUnicodeString keys, kinds, texts;
    ZOLDftStandardServices::ListFiledValues(s, prefix.c_str(), keys, kinds, texts);
    std::vector<Value> values;
    for (int i = 1; i <= keys.Size(); ++i) {
      Value v;
      v.path = keys[i].str().substr(prefix.size());
      const std::string& kind = kinds[i].str();
      if (kind == "integer" || kind == "real" || kind == "string" || kind == "enum") {
        const size_t dot = v.path.rfind('.');
        if (dot == std::string::npos) continue;
        v.index = std::atoi(v.path.c_str() + dot + 1);
        v.path.erase(dot);
      }
      if (Read(style, kind, v)) values.push_back(std::move(v));
    }
    if (*json) {
      nlohmann::ordered_json out = {{"standard", *standard}, {"type", *type}, {"style", styleName},
                                    {"values", nlohmann::ordered_json::array()}};
      for (const Value& v : values)
        out["values"].push_back({{"path", v.path}, {"index", v.index}, {"type", v.type}, {"kind", v.kind}, {"value", v.value}});
      qelstd::Printf(stdout, "%s\n", qelstd::JsonText(out).c_str());
    } else {
      for (const Value& v : values) {
        std::string path = v.path + (v.index != 1 ? "[" + std::to_string(v.index) + "]" : "");
        qelstd::Printf(stdout, "%s\t%s\ttype %d %s\n", path.c_str(), qelstd::PlainText(v.value).c_str(), v.type, v.kind);
      }
    }
    *status = qelstd::kDone;
  });
}

qelstd::VerbRegistrar s_style("style", &Setup);

}  // namespace
