#include "ZOLUnicodeString.h"

#include <charconv>
#include <climits>
#include <cstdio>
#include <cstring>
#include <cwchar>
#include <algorithm>
#include <cstdint>
#include <type_traits>

namespace {

const char* SkipBlanks(const char* p, const char* end) {
  while (p < end && (*p == ' ' || *p == '\t' || *p == '\n' || *p == '\r' || *p == '\f' || *p == '\v')) ++p;
  return p;
}

// Formats a number in the C locale, whatever the process locale says.
template <typename T>
std::string FormatNumber(T value, const char* format) {
  char buf[64];
  if constexpr (std::is_floating_point_v<T>) {
    // printf's real formats ("%g", "%.3f", "%le") rendered without the locale's decimal mark.
    int precision = 6;
    const char* f = format + (format[0] == '%' ? 1 : 0);
    if (*f == '.') {
      precision = 0;
      for (++f; *f >= '0' && *f <= '9'; ++f) precision = precision * 10 + (*f - '0');
    }
    if (*f == 'l') ++f;
    std::chars_format style = *f == 'f' ? std::chars_format::fixed
                            : *f == 'e' ? std::chars_format::scientific
                                        : std::chars_format::general;
    auto [ptr, ec] = std::to_chars(buf, buf + sizeof buf, value, style, precision);
    std::string out = ec == std::errc() ? std::string(buf, ptr) : std::string();
    // printf writes at least two exponent digits.
    if (size_t e = out.find('e'); e != std::string::npos && out.size() - e == 3) out.insert(e + 2, "0");
    return out;
  } else {
    int n = std::snprintf(buf, sizeof buf, format, value);
    return n > 0 ? std::string(buf, static_cast<size_t>(n)) : std::string();
  }
}

}  // namespace

ZOLUnicodeString& ZOLUnicodeString::Insert(int pos, const ZOLUnicodeString& text) {
  size_t at = pos < 0 ? 0 : std::min(static_cast<size_t>(pos), _text.size());
  _text.insert(at, text._text);
  return *this;
}

int ZOLUnicodeString::SearchSubString(const ZOLUnicodeString& sub, int start, SearchMode mode) const {
  size_t found;
  if (mode == Forward) {
    if (start < 0) start = 0;
    found = _text.find(sub._text, static_cast<size_t>(start));
  } else {
    found = _text.rfind(sub._text, start < 0 ? std::string::npos : static_cast<size_t>(start));
  }
  return found == std::string::npos ? -1 : static_cast<int>(found);
}

ZOLUnicodeString ZOLUnicodeString::SubString(int start, int length) const {
  if (start < 0) start = 0;
  if (static_cast<size_t>(start) >= _text.size()) return ZOLUnicodeString();
  size_t len = length < 0 ? std::string::npos : static_cast<size_t>(length);
  return ZOLUnicodeString(_text.substr(static_cast<size_t>(start), len));
}

int ZOLUnicodeString::ReplaceSubString(const ZOLUnicodeString& oldText, const ZOLUnicodeString& newText) {
  if (oldText._text.empty()) return 0;
  int count = 0;
  std::string out;
  size_t from = 0;
  for (size_t at; (at = _text.find(oldText._text, from)) != std::string::npos; from = at + oldText._text.size()) {
    out.append(_text, from, at - from);
    out += newText._text;
    ++count;
  }
  if (count) {
    out.append(_text, from, std::string::npos);
    _text = std::move(out);
  }
  return count;
}

ZOLUnicodeString& ZOLUnicodeString::Strip() {
  const char* ws = " \t\n\r\f\v";
  size_t first = _text.find_first_not_of(ws);
  if (first == std::string::npos) {
    _text.clear();
  } else {
    _text.erase(_text.find_last_not_of(ws) + 1);
    _text.erase(0, first);
  }
  return *this;
}

int ZOLUnicodeString::ConvertToNum(int* value, const char* format) const {
  if (!value) return 0;
  const char* p = SkipBlanks(_text.data(), _text.data() + _text.size());
  const char* end = _text.data() + _text.size();
  bool isUnsigned = format && std::strcmp(format, "%u") == 0;
  bool negative = false;
  if (p < end && (*p == '+' || *p == '-')) {
    negative = *p == '-';
    ++p;
  }
  long long number = 0;
  auto [ptr, ec] = std::from_chars(p, end, number);
  if (ptr == p || ec != std::errc() || number < 0) return 0;
  if (negative) number = -number;
  if (isUnsigned) {
    *value = static_cast<int>(static_cast<unsigned>(number));
  } else {
    if (number < INT_MIN || number > INT_MAX) return 0;
    *value = static_cast<int>(number);
  }
  return 1;
}

int ZOLUnicodeString::ConvertToNum(double* value, const char*) const {
  if (!value) return 0;
  const char* end = _text.data() + _text.size();
  const char* p = SkipBlanks(_text.data(), end);
  bool negative = false;
  if (p < end && (*p == '+' || *p == '-')) {
    negative = *p == '-';
    ++p;
  }
  if (p < end && (*p == '+' || *p == '-')) return 0;
  double number = 0.0;
  auto [ptr, ec] = std::from_chars(p, end, number, std::chars_format::general);
  if (ptr == p || (ec != std::errc() && ec != std::errc::result_out_of_range)) return 0;
  *value = negative ? -number : number;
  return 1;
}

ZOLUnicodeString& ZOLUnicodeString::BuildFromNum(int value, const char* format) {
  _text = FormatNumber(value, format ? format : "%d");
  return *this;
}

ZOLUnicodeString& ZOLUnicodeString::BuildFromNum(unsigned value, const char* format) {
  _text = FormatNumber(value, format ? format : "%u");
  return *this;
}

ZOLUnicodeString& ZOLUnicodeString::BuildFromNum(double value, const char* format) {
  _text = FormatNumber(value, format ? format : "%g");
  return *this;
}

ZOLUnicodeString& ZOLUnicodeString::BuildFromWChar(const wchar_t* text) {
  _text.clear();
  if (!text) return *this;
  for (; *text; ++text) {
    auto c = static_cast<uint32_t>(*text);
    if (c < 0x80) {
      _text += static_cast<char>(c);
    } else if (c < 0x800) {
      _text += static_cast<char>(0xC0 | (c >> 6));
      _text += static_cast<char>(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
      _text += static_cast<char>(0xE0 | (c >> 12));
      _text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      _text += static_cast<char>(0x80 | (c & 0x3F));
    } else {
      _text += static_cast<char>(0xF0 | (c >> 18));
      _text += static_cast<char>(0x80 | ((c >> 12) & 0x3F));
      _text += static_cast<char>(0x80 | ((c >> 6) & 0x3F));
      _text += static_cast<char>(0x80 | (c & 0x3F));
    }
  }
  return *this;
}

wchar_t* ZOLUnicodeString::ConvertToWChar() const {
  std::wstring out;
  const auto* p = reinterpret_cast<const unsigned char*>(_text.data());
  const auto* end = p + _text.size();
  while (p < end) {
    uint32_t c = *p++;
    int more = c >= 0xF0 ? 3 : c >= 0xE0 ? 2 : c >= 0xC0 ? 1 : 0;
    if (more) c &= 0x3F >> more;
    for (; more > 0 && p < end && (*p & 0xC0) == 0x80; --more) c = (c << 6) | (*p++ & 0x3F);
    out += static_cast<wchar_t>(c);
  }
  auto* result = new wchar_t[out.size() + 1];
  std::wmemcpy(result, out.c_str(), out.size() + 1);
  return result;
}
