// Every icon of the symbol catalogue drawn on one contact sheet, and the shapes of the icons that
// once read wrong.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ZOLPngWriter.h"
#include "catalogue/ZOLDftEngineeringSymbolCatalog.h"

namespace {

// Pixels of a base64 icon, row by row, 1 for ink; empty when the text is no icon of that size.
std::vector<std::vector<int>> Pixels(const std::string& text, int size) {
  static const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::vector<unsigned char> bytes;
  unsigned bits = 0;
  int count = 0;
  for (char c : text) {
    if (c == '=') break;
    bits = (bits << 6) | static_cast<unsigned>(digits.find(c));
    count += 6;
    if (count >= 8) {
      count -= 8;
      bytes.push_back(static_cast<unsigned char>(bits >> count));
    }
  }
  const int perRow = (size + 7) / 8;
  if (static_cast<int>(bytes.size()) != perRow * size) return {};
  std::vector<std::vector<int>> rows(static_cast<size_t>(size), std::vector<int>(static_cast<size_t>(size)));
  for (int y = 0; y < size; ++y)
    for (int x = 0; x < size; ++x) rows[y][x] = bytes[static_cast<size_t>(y * perRow + x / 8)] >> (7 - x % 8) & 1;
  return rows;
}

const ZOLDftEngineeringSymbol& Symbol(const std::string& name) {
  for (int i = 0; i < kZOLDftEngineeringSymbolCount; ++i)
    if (name == kZOLDftEngineeringSymbols[i].name) return kZOLDftEngineeringSymbols[i];
  ADD_FAILURE() << name;
  return kZOLDftEngineeringSymbols[0];
}

// Rows from the topmost to the bottommost ink of a column.
int Extent(const std::vector<std::vector<int>>& p, int x) {
  int top = -1, bottom = -1;
  for (int y = 0; y < static_cast<int>(p.size()); ++y)
    if (p[y][x]) {
      if (top < 0) top = y;
      bottom = y;
    }
  return top < 0 ? 0 : bottom - top + 1;
}

}  // namespace

// Six icons a symbol (heavy, thin, slanted; 16 and 22 pixels), four symbols a line, at three
// times their size; the sheet is left in the build folder to be looked at.
TEST(EngineeringSymbolIcons, ContactSheetOfEveryIcon) {
  const int scale = 3, cell = 24 * scale, group = 6 * cell + 2 * cell / 3, perLine = 4;
  const int lines = (kZOLDftEngineeringSymbolCount + perLine - 1) / perLine;
  const int width = perLine * group, height = lines * cell;
  std::vector<unsigned char> grey(static_cast<size_t>(width * height), 255);
  for (int i = 0; i < kZOLDftEngineeringSymbolCount; ++i) {
    const ZOLDftEngineeringSymbol& s = kZOLDftEngineeringSymbols[i];
    for (int k = 0; k < 6; ++k) {
      const int size = k % 2 ? 22 : 16;
      auto p = Pixels(s.icons[k / 2][k % 2], size);
      ASSERT_EQ(static_cast<int>(p.size()), size) << s.name;
      const int x0 = (i % perLine) * group + k * cell, y0 = (i / perLine) * cell;
      for (int y = 0; y < cell; ++y)
        for (int x = 0; x < cell; ++x) {
          const int px = x / scale - 1, py = y / scale - 1;
          unsigned char v = 255;
          if (px < 0 || py < 0 || px > size || py > size) v = 255;
          else if (px == size || py == size) v = 200;  // the icon's edge
          else if (p[py][px]) v = 0;
          else v = (px + py) % 2 ? 255 : 235;
          grey[static_cast<size_t>((y0 + y) * width + x0 + x)] = v;
        }
    }
  }
  const std::string path = std::string(QELSTD_TEST_OUTPUT_DIR) + "/engineering_symbol_icons.png";
  ASSERT_TRUE(zolpng::Write(path, width, height, grey)) << path;
  EXPECT_EQ(zolpng::Encode(1, 1, {0}).size(), 8u + 25 + 25 + 12) << "signature, IHDR, IDAT, IEND";
  RecordProperty("sheet", path);
}

// Rings keep their hole and parallel strokes their gaps in the heavy look at 16 pixels; the cone of
// the projection symbols turns its small end to the left in both.
TEST(EngineeringSymbolIcons, ShapesThatReadWrongOnceStayRight) {
  for (const char* name : {"<POSITION>", "<CONCENTRIC>", "<CIRCULAR>"})
    for (int look = 0; look < 3; ++look) {
      auto p = Pixels(Symbol(name).icons[look][0], 16);
      ASSERT_EQ(p.size(), 16u);
      int paperInside = 0;
      for (int y = 4; y <= 11; ++y)
        for (int x = 4; x <= 11; ++x) paperInside += !p[y][x];
      EXPECT_GE(paperInside, 12) << name << " look " << look;
    }
  for (int look = 0; look < 3; ++look)
    for (int k = 0; k < 2; ++k) {
      const int size = k ? 22 : 16;
      auto p = Pixels(Symbol("<SYMMETRY>").icons[look][k], size);
      ASSERT_EQ(static_cast<int>(p.size()), size);
      int strokes = 0;
      for (int y = 0, was = 0; y < size; ++y) {
        const int ink = p[y][size / 2 - 3];
        strokes += ink && !was;
        was = ink;
      }
      EXPECT_EQ(strokes, 3) << "<SYMMETRY> look " << look << " size " << size;
    }
  for (const char* name : {"<FIRSTANGLE>", "<THIRDANGLE>"})
    for (int look = 0; look < 3; ++look) {
      auto p = Pixels(Symbol(name).icons[look][1], 22);
      ASSERT_EQ(p.size(), 22u);
      const bool third = std::string(name) == "<THIRDANGLE>";
      const int left = third ? 12 : 2, right = third ? 19 : 9;  // inside the cone's two ends
      EXPECT_LT(Extent(p, left) + 2, Extent(p, right)) << name << " look " << look;
    }
}
