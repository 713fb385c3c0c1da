// Writing HTML of a standard's texts: a standard is input, so its texts go into a page as text.
#pragma once
#include <charconv>
#include <cmath>
#include <string>
#include <string_view>
#include <system_error>

namespace qelstd {

/// Appends text with &, <, >, " and ' as character references, so that it reads as text both in an
/// element and in a quoted attribute.
inline void AppendEscaped(std::string& out, std::string_view text) {
  size_t plain = 0;
  for (size_t i = 0; i < text.size(); ++i) {
    const char* ref = nullptr;
    switch (text[i]) {
      case '&': ref = "&amp;"; break;
      case '<': ref = "&lt;"; break;
      case '>': ref = "&gt;"; break;
      case '"': ref = "&quot;"; break;
      case '\'': ref = "&#39;"; break;
      default: continue;
    }
    out.append(text, plain, i - plain);
    out += ref;
    plain = i + 1;
  }
  out.append(text, plain);
}

/// AppendEscaped to an empty text.
inline std::string Escaped(std::string_view text) {
  std::string out;
  AppendEscaped(out, text);
  return out;
}

/// A number for SVG coordinates: two decimals at most, no exponent; 0 for what is no finite number.
inline void AppendNumber(std::string& out, double v) {
  if (!std::isfinite(v) || (v > -0.005 && v < 0.005)) v = 0;
  char buf[400];
  const auto [end, error] = std::to_chars(buf, buf + sizeof buf, v, std::chars_format::fixed, 2);
  if (error != std::errc()) return out.push_back('0');
  const char* last = end;
  while (last[-1] == '0') --last;
  if (last[-1] == '.') --last;
  out.append(buf, static_cast<size_t>(last - buf));
}

}  // namespace qelstd
