// JSON output of the verbs.
#pragma once
#include <nlohmann/json.hpp>

#include <cstdio>
#include <string>

namespace qelstd {

/// The text of a JSON value; bytes that are no UTF-8 (a file name, a value of the file) become U+FFFD
/// instead of ending the tool.
template <class Json>
std::string JsonText(const Json& value, int indent = -1) {
  return value.dump(indent, ' ', false, nlohmann::json::error_handler_t::replace);
}

/// A value as the text verbs print it: strings as they are, reals with ten digits, arrays joined by
/// blanks, anything else as JSON.
inline std::string PlainText(const nlohmann::ordered_json& v) {
  if (v.is_string()) return v.get<std::string>();
  if (v.is_number_float()) {
    char buf[32];
    std::snprintf(buf, sizeof buf, "%.10g", v.get<double>());
    return buf;
  }
  if (v.is_array()) {
    std::string all;
    for (const auto& e : v) all += (all.empty() ? "" : " ") + PlainText(e);
    return all;
  }
  return JsonText(v);
}

}  // namespace qelstd
