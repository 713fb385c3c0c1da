// The platform's string: UTF-8 text in a std::string.
// Indexes and lengths count bytes (chars of the UTF-8 text); every text of a standard is ASCII.
#pragma once
#include <cstddef>
#include <string>
#include <string_view>

class ZOLUnicodeString {
public:
  /// Empty string.
  ZOLUnicodeString() = default;
  /// Copy of narrow UTF-8 text; null gives the empty string.
  ZOLUnicodeString(const char* text) : _text(text ? text : "") {}
  /// Copy of a byte string.
  ZOLUnicodeString(std::string text) : _text(std::move(text)) {}
  /// Copy of a view.
  explicit ZOLUnicodeString(std::string_view text) : _text(text) {}

  ZOLUnicodeString(const ZOLUnicodeString&) = default;
  ZOLUnicodeString(ZOLUnicodeString&&) noexcept = default;
  ZOLUnicodeString& operator=(const ZOLUnicodeString&) = default;
  ZOLUnicodeString& operator=(ZOLUnicodeString&&) noexcept = default;
  ZOLUnicodeString& operator=(const char* text) { _text = text ? text : ""; return *this; }

  /// 1 when both texts are equal byte for byte (with case).
  friend bool operator==(const ZOLUnicodeString& a, const ZOLUnicodeString& b) { return a._text == b._text; }
  friend bool operator==(const ZOLUnicodeString& a, const char* b) { return a._text == (b ? b : ""); }
  friend bool operator==(const ZOLUnicodeString& a, std::string_view b) { return a._text == b; }
  friend bool operator<(const ZOLUnicodeString& a, const ZOLUnicodeString& b) { return a._text < b._text; }

  /// Concatenation.
  friend ZOLUnicodeString operator+(const ZOLUnicodeString& a, const ZOLUnicodeString& b) { return ZOLUnicodeString(a._text + b._text); }
  friend ZOLUnicodeString operator+(const ZOLUnicodeString& a, const char* b) { return ZOLUnicodeString(a._text + (b ? b : "")); }
  friend ZOLUnicodeString operator+(const char* a, const ZOLUnicodeString& b) { return ZOLUnicodeString((a ? a : "") + b._text); }
  ZOLUnicodeString& operator+=(const ZOLUnicodeString& b) { _text += b._text; return *this; }
  ZOLUnicodeString& operator+=(std::string_view b) { _text += b; return *this; }

  /// Appends text; returns the string.
  ZOLUnicodeString& Append(const ZOLUnicodeString& text) { _text += text._text; return *this; }
  /// Inserts text before byte position pos (clamped to the length).
  ZOLUnicodeString& Insert(int pos, const ZOLUnicodeString& text);

  /// Length in chars (bytes of the UTF-8 text).
  int GetLengthInChar() const { return static_cast<int>(_text.size()); }
  /// 1 when empty.
  bool IsEmpty() const { return _text.empty(); }

  enum SearchMode { Forward = 0, Backward = 1 };
  /// 0-based index of sub at or after start (Forward) or at or before start (Backward; -1 start = end); -1 if absent.
  int SearchSubString(const ZOLUnicodeString& sub, int start = 0, SearchMode mode = Forward) const;
  /// The length chars from start (clamped); a negative length runs to the end.
  ZOLUnicodeString SubString(int start, int length) const;
  /// Replaces every occurrence of oldText by newText; returns how many were replaced.
  int ReplaceSubString(const ZOLUnicodeString& oldText, const ZOLUnicodeString& newText);
  /// Same as ReplaceSubString.
  int ReplaceAll(const ZOLUnicodeString& oldText, const ZOLUnicodeString& newText) { return ReplaceSubString(oldText, newText); }
  /// Removes leading and trailing white space.
  ZOLUnicodeString& Strip();

  /// The text as a NUL-terminated narrow UTF-8 string, valid while the string lives unchanged.
  const char* ConvertToChar() const { return _text.c_str(); }
  /// Reads a leading integer ("%d", "%u") after optional blanks and sign, ignoring what follows; not 0 if one converted.
  int ConvertToNum(int* value, const char* format = "%d") const;
  /// Reads a leading real ("%le", "%lf", "%g") with "." as mark whatever the locale; not 0 if one converted.
  int ConvertToNum(double* value, const char* format = "%le") const;
  /// Replaces the text by an integer written with "%d" or "%u"; returns the string.
  ZOLUnicodeString& BuildFromNum(int value, const char* format = "%d");
  ZOLUnicodeString& BuildFromNum(unsigned value, const char* format = "%u");
  /// Replaces the text by a real written with "%g" (or another printf real format) in the C locale.
  ZOLUnicodeString& BuildFromNum(double value, const char* format = "%g");
  /// Replaces the text by the UTF-8 form of a wide string.
  ZOLUnicodeString& BuildFromWChar(const wchar_t* text);
  /// A new[] wide copy that the caller deletes with delete[].
  wchar_t* ConvertToWChar() const;

  /// The bytes.
  const std::string& str() const { return _text; }
  std::string& str() { return _text; }
  operator std::string_view() const { return _text; }

private:
  std::string _text;
};

struct ZOLUnicodeStringHash {
  using is_transparent = void;
  size_t operator()(std::string_view s) const noexcept { return std::hash<std::string_view>{}(s); }
  size_t operator()(const ZOLUnicodeString& s) const noexcept { return std::hash<std::string_view>{}(s.str()); }
};
