// qelstd get NAME|FILE PATH [--index N]: one value, read as a drafting module reads it.
#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdio>
#include <string>
#include <type_traits>
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

// The whole array or colour at a path through the getters with a capacity: the count first, then a
// buffer of that count. False when there is no value.
template <class T>
bool ReadArray(ZOLIDrwStandard* s, const char* path, std::vector<T>& out) {
  int count = 0;
  HRESULT hr = s->GetValue(path, static_cast<T*>(nullptr), 0, &count);
  // The count is asked again if the value grew between the calls; a cached read does not.
  for (int tries = 0; tries < 3 && SUCCEEDED(hr) && count > 0; ++tries) {
    out.assign(static_cast<size_t>(count), T());
    const int capacity = count;
    hr = s->GetValue(path, out.data(), capacity, &count);
    if (hr == S_OK) {
      out.resize(static_cast<size_t>(std::min(count, capacity)));
      return !out.empty();
    }
  }
  return false;
}

bool ReadArray(ZOLIDrwStandard* s, const char* path, std::vector<std::string>& out) {
  int count = 0;
  HRESULT hr = s->GetValue(path, static_cast<ZOLUnicodeString**>(nullptr), 0, &count);
  for (int tries = 0; tries < 3 && SUCCEEDED(hr) && count > 0; ++tries) {
    std::vector<ZOLUnicodeString> texts(static_cast<size_t>(count));
    std::vector<ZOLUnicodeString*> pointers;
    for (auto& t : texts) pointers.push_back(&t);
    const int capacity = count;
    hr = s->GetValue(path, pointers.data(), capacity, &count);
    if (hr == S_OK) {
      out.clear();
      for (int i = 0; i < std::min(count, capacity); ++i) out.push_back(texts[static_cast<size_t>(i)].str());
      return !out.empty();
    }
  }
  return false;
}

// An array of more than one element whole; otherwise the one value as its own getter reads it,
// which is how a drafting module reads it. kind names one or many.
template <class T>
bool ReadOneOrMany(ZOLIDrwStandard* s, const char* path, const char* one, const char* many, Reading& out) {
  std::vector<T> values;
  if (ReadArray(s, path, values) && values.size() != 1) {
    out.kind = many;
    out.value = values;
    return true;
  }
  out.kind = one;
  std::conditional_t<std::is_same_v<T, std::string>, ZOLUnicodeString, T> single{};
  if (s->GetValue(path, 1, single) == S_OK) {
    if constexpr (std::is_same_v<T, std::string>) out.value = single.str();
    else out.value = single;
    return true;
  }
  if (values.size() != 1) return false;
  out.value = values.front();
  return true;
}

// Reads by the type of the path's entries when the standard can tell it, else by trying the
// getters whose type rules are strict on a leaf: integers or a colour, then a real, then a string.
// Arrays are read whole, however many elements they have.
bool Read(ZOLIDrwStandard* s, const std::string& path, int index, Reading& out) {
  const char* p = path.c_str();
  ZOLDftStandardValueType type = ZOLDftStandardValueTypeUnknown;
  int count = 0;
  qelstd::QuietReports quiet;
  if (index == 1 && s->GetValueType(p, &type, &count) == S_OK && count >= 1) {
    out.type = type;
    switch (type) {
      case ZOLDftStandardValueTypeInteger: return ReadOneOrMany<int>(s, p, "integer", "integers", out);
      case ZOLDftStandardValueTypeReal: return ReadOneOrMany<double>(s, p, "real", "reals", out);
      case ZOLDftStandardValueTypeString: return ReadOneOrMany<std::string>(s, p, "string", "strings", out);
      case ZOLDftStandardValueTypeEnum: return ReadOneOrMany<std::string>(s, p, "enum", "enum", out);
      case ZOLDftStandardValueTypeTypedEntry:
        out.kind = "typed entries";
        out.value = count;
        return true;
      default:
        return false;
    }
  }
  std::vector<int> ints;
  if (index == 1 && ReadArray(s, p, ints)) {
    out.type = ints.size() == 1 ? ZOLDftStandardValueTypeInteger : 0;
    out.kind = ints.size() == 1 ? "integer" : "colour";
    if (ints.size() == 1) out.value = ints.front();
    else out.value = ints;
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
      qelstd::Printf(stdout, "%s\ttype %d %s\n", qelstd::PlainText(r.value).c_str(), r.type, r.kind);
    }
    *status = qelstd::kDone;
  });
}

qelstd::VerbRegistrar s_get("get", &Setup);

}  // namespace
