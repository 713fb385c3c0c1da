// The icons of engineering symbols: base64 text of raw 1-bit bitmaps, rows from the top, each row
// padded to whole bytes, the leftmost pixel in the high bit, a set bit being ink.
#pragma once
#include <string_view>
#include <vector>

namespace qelstd {

/// The bitmaps of an icon text (several may stand end to end), each size * size pixels row by row,
/// 1 for ink; empty when the text is no base64 of whole bitmaps of that size.
inline std::vector<std::vector<unsigned char>> DecodeIcons(std::string_view text, int size) {
  static constexpr std::string_view digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  if (size <= 0) return {};
  const int perRow = (size + 7) / 8, bytesPerIcon = perRow * size;
  const size_t charsPerIcon = static_cast<size_t>((bytesPerIcon + 2) / 3 * 4);
  if (text.empty() || text.size() % charsPerIcon) return {};
  std::vector<std::vector<unsigned char>> icons;
  std::vector<unsigned char> bytes;
  for (size_t at = 0; at < text.size(); at += charsPerIcon) {
    bytes.clear();
    unsigned bits = 0;
    int count = 0;
    for (char c : text.substr(at, charsPerIcon)) {
      if (c == '=') break;
      const size_t d = digits.find(c);
      if (d == std::string_view::npos) return {};
      bits = (bits << 6) | static_cast<unsigned>(d);
      count += 6;
      if (count >= 8) {
        count -= 8;
        bytes.push_back(static_cast<unsigned char>(bits >> count));
      }
    }
    if (static_cast<int>(bytes.size()) != bytesPerIcon) return {};
    std::vector<unsigned char>& pixels = icons.emplace_back(static_cast<size_t>(size * size));
    for (int y = 0; y < size; ++y)
      for (int x = 0; x < size; ++x)
        pixels[static_cast<size_t>(y * size + x)] = bytes[static_cast<size_t>(y * perRow + x / 8)] >> (7 - x % 8) & 1;
  }
  return icons;
}

}  // namespace qelstd
