// JSON output of the verbs.
#pragma once
#include <nlohmann/json.hpp>

#include <string>

namespace qelstd {

/// The text of a JSON value; bytes that are no UTF-8 (a file name, a value of the file) become U+FFFD
/// instead of ending the tool.
template <class Json>
std::string JsonText(const Json& value, int indent = -1) {
  return value.dump(indent, ' ', false, nlohmann::json::error_handler_t::replace);
}

}  // namespace qelstd
