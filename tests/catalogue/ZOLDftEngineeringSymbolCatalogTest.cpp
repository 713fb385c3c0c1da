// The engineering symbol catalogue: places by parent, and the icons drawn for every symbol with the
// shapes of those that once read wrong.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "catalogue/ZOLDftEngineeringSymbolCatalog.h"

namespace {

// Pixels of a base64 icon, row by row (packed high bit first), 1 for ink; empty when the text is
// no icon of that size.
std::vector<std::vector<int>> Pixels(const std::string& text, int size) {
  static const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::vector<unsigned char> bytes;
  unsigned bits = 0;
  int count = 0;
  for (char c : text) {
    if (c == '=') break;
    const size_t d = digits.find(c);
    if (d == std::string::npos) return {};
    bits = (bits << 6) | static_cast<unsigned>(d);
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

int Ink(const std::vector<std::vector<int>>& p) {
  int n = 0;
  for (auto& row : p)
    for (int v : row) n += v;
  return n;
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

TEST(EngineeringSymbolCatalog, EveryIconDecodesToItsSizeAndHoldsADrawing) {
  for (int i = 0; i < kZOLDftEngineeringSymbolCount; ++i) {
    const ZOLDftEngineeringSymbol& s = kZOLDftEngineeringSymbols[i];
    for (int look = 0; look < 3; ++look) {
      auto small = Pixels(s.icons[look][0], 16);
      auto large = Pixels(s.icons[look][1], 22);
      ASSERT_EQ(small.size(), 16u) << s.name;
      ASSERT_EQ(large.size(), 22u) << s.name;
      EXPECT_GT(Ink(small), 8) << s.name;
      EXPECT_LT(Ink(small), 200) << s.name;
      EXPECT_GT(Ink(large), 12) << s.name;
    }
  }
}

TEST(EngineeringSymbolCatalog, DifferentSymbolsNeverShareAnIcon) {
  for (int look = 0; look < 3; ++look)
    for (int size = 0; size < 2; ++size) {
      std::map<std::string, const ZOLDftEngineeringSymbol*> seen;
      for (int i = 0; i < kZOLDftEngineeringSymbolCount; ++i) {
        const ZOLDftEngineeringSymbol& s = kZOLDftEngineeringSymbols[i];
        auto [it, fresh] = seen.emplace(s.icons[look][size], &s);
        if (fresh) continue;
        const ZOLDftEngineeringSymbol& o = *it->second;
        EXPECT_TRUE(std::string(s.sameAs) == o.name || std::string(o.sameAs) == s.name) << s.name << " and " << o.name;
      }
    }
  const ZOLDftEngineeringSymbol& tangent = Symbol("<Tangent>");
  EXPECT_STREQ(tangent.sameAs, "<TANGENTPLANE>");
  EXPECT_STREQ(tangent.icons[0][0], Symbol("<TANGENTPLANE>").icons[0][0]);
}

TEST(EngineeringSymbolCatalog, LookFollowsTheFontOfEachParent) {
  for (int i = 0; i < kZOLDftEngineeringSymbolCount; ++i) {
    const ZOLDftEngineeringSymbol& s = kZOLDftEngineeringSymbols[i];
    for (int p = 0; p < 3; ++p) {
      if (!s.position[p]) continue;
      std::string font = s.font[p];
      EXPECT_EQ(s.look[p], font == "KVISO1.otf" ? 0 : font == "SYM2.font" ? 1 : 2) << s.name;
    }
  }
}

// Rings keep their hole and parallel strokes their gaps in the heavy look at 16 pixels; the cone of
// the projection symbols turns its small end to the left in both.
TEST(EngineeringSymbolCatalog, ShapesThatReadWrongOnceStayRight) {
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
