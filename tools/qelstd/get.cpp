// qelstd get NAME|FILE PATH [--index N]: one value, read as a drafting module reads it.
#include <nlohmann/json.hpp>

#include <cstdio>
#include <string>
#include <vector>

#include "QelstdJson.h"
#include "QelstdOutput.h"
#include "QelstdStandard.h"
#include "QelstdVerb.h"

namespace {

struct Reading {
  int type = 0;          // ZOLDftStandardValueType, 0 for a colour
  const char* kind = "";
  nlohmann::ordered_json value;
};

std::string Text(const nlohmann::ordered_json& v) {
  if (v.is_string()) return v.get<std::string>();
  if (v.is_number_float()) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.10g", v.get<double>());
    return buf;
  }
  if (v.is_array()) {
    std::string all;
    for (const auto& e : v) all += (all.empty() ? "" : " ") + Text(e);
    return all;
  }
  return qelstd::JsonText(v);
}

// Reads by the type of the path's entries when the standard can tell it, else by trying the
// getters whose type rules are strict on a leaf: integers or a colour, then a real, then a string.
bool Read(ZOLIDrwStandard* s, const std::string& path, int index, Reading& out) {
  const char* p = path.c_str();
  ZOLDftStandardValueType type = ZOLDftStandardValueTypeUnknown;
  int count = 0;
  qelstd::QuietReports quiet;
  if (index == 1 && s->GetValueType(p, &type, &count) == S_OK && count >= 1) {
    out.type = type;
    std::vector<int> ints(count + 3);
    std::vector<double> reals(count + 3);
    std::vector<ZOLUnicodeString> texts(count + 3);
    std::vector<ZOLUnicodeString*> pointers;
    for (auto& t : texts) pointers.push_back(&t);
    switch (type) {
      case ZOLDftStandardValueTypeInteger:
        out.kind = count == 1 ? "integer" : "integers";
        if (count == 1 && s->GetValue(p, 1, ints[0]) == S_OK) return out.value = ints[0], true;
        if (s->GetValue(p, ints.data(), &count) != S_OK) return false;
        out.value = std::vector<int>(ints.begin(), ints.begin() + count);
        return true;
      case ZOLDftStandardValueTypeReal:
        out.kind = count == 1 ? "real" : "reals";
        if (count == 1 && s->GetValue(p, 1, reals[0]) == S_OK) return out.value = reals[0], true;
        if (s->GetValue(p, reals.data(), &count) != S_OK) return false;
        out.value = std::vector<double>(reals.begin(), reals.begin() + count);
        return true;
      case ZOLDftStandardValueTypeString:
      case ZOLDftStandardValueTypeEnum:
        out.kind = type == ZOLDftStandardValueTypeEnum ? "enum" : count == 1 ? "string" : "strings";
        if (count == 1 && s->GetValue(p, 1, texts[0]) == S_OK) return out.value = texts[0].str(), true;
        if (s->GetValue(p, pointers.data(), &count) != S_OK) return false;
        out.value = nlohmann::ordered_json::array();
        for (int i = 0; i < count; ++i) out.value.push_back(texts[i].str());
        return true;
      case ZOLDftStandardValueTypeTypedEntry:
        out.kind = "typed entries";
        out.value = count;
        return true;
      default:
        return false;
    }
  }
  int ints[16] = {};
  count = 0;
  if (index == 1 && s->GetValue(p, ints, &count) == S_OK) {
    out.type = count == 1 ? ZOLDftStandardValueTypeInteger : 0;
    out.kind = count == 1 ? "integer" : "colour";
    if (count == 1) out.value = ints[0];
    else out.value = std::vector<int>(ints, ints + count);
    return true;
  }
  int i = 0;
  double d = 0;
  ZOLUnicodeString t;
  if (index != 1 && s->GetValue(p, index, i) == S_OK) return out = {ZOLDftStandardValueTypeInteger, "integer", i}, true;
  if (s->GetValue(p, index, d) == S_OK) return out = {ZOLDftStandardValueTypeReal, "real", d}, true;
  if (s->GetValue(p, index, t) == S_OK) return out = {ZOLDftStandardValueTypeString, "string", t.str()}, true;
  return false;
}

void Setup(CLI::App& app, int* status) {
  auto* cmd = app.add_subcommand("get", "Print one value of a standard and its type code");
  cmd->footer("Example: qelstd get ISO Dimension.SYMBArrowAngle\n         qelstd get JIS SheetFormat.Name --index 2 --json\n"
              "Type codes: 3 integer, 4 real, 6 string, 7 enum, 8 typed entries (the count), 0 colour.");
  auto standard = std::make_shared<std::string>();
  auto path = std::make_shared<std::string>();
  auto index = std::make_shared<int>(1);
  auto json = std::make_shared<bool>(false);
  cmd->add_option("standard", *standard, "Built-in name (ISO, JIS, ASME) or standard file")->required();
  cmd->add_option("path", *path, "Dotted path, as Dimension.DIMLTextGap or Curve.Default.Color")->required();
  cmd->add_option("--index", *index, "One-based index in a list of typed entries")->check(CLI::PositiveNumber);
  cmd->add_flag("--json", *json, "Print one JSON object");
  cmd->callback([=] {
    ZOLIDrwStandard_var s = qelstd::OpenStandardOrFail(*standard, status);
    if (!s) return;
    Reading r;
    if (!Read(s, *path, *index, r)) {
      qelstd::Error(*path, "no value at this path" + (*index != 1 ? " and index " + std::to_string(*index) : std::string()) +
                               " in " + *standard);
      *status = qelstd::kNotFound;
      return;
    }
    if (*json) {
      nlohmann::ordered_json out = {{"standard", *standard}, {"path", *path}, {"index", *index},
                                    {"type", r.type}, {"kind", r.kind}, {"value", r.value}};
      qelstd::Printf(stdout, "%s\n", qelstd::JsonText(out).c_str());
    } else {
      qelstd::Printf(stdout, "%s\ttype %d %s\n", Text(r.value).c_str(), r.type, r.kind);
    }
    *status = qelstd::kDone;
  });
}

qelstd::VerbRegistrar s_get("get", &Setup);

}  // namespace
