// Wide texts of the style manager's interface.
#pragma once
#include <string>

#include "ZOLUnicodeString.h"

namespace qelstd {

/// A text as the wide text the style manager takes.
inline std::wstring Wide(const std::string& text) {
  wchar_t* w = ZOLUnicodeString(text).ConvertToWChar();
  std::wstring out(w ? w : L"");
  delete[] w;
  return out;
}

/// A wide text the library allocated, as narrow text; the wide text is freed.
inline std::string Narrow(wchar_t* text) {
  ZOLUnicodeString s;
  if (text) s.BuildFromWChar(text);
  delete[] text;
  return s.str();
}

}  // namespace qelstd
