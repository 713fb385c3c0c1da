// The engineering symbol catalogue: places by parent and the icons drawn for every symbol.
#include <gtest/gtest.h>

#include <map>
#include <string>
#include <vector>

#include "catalogue/ZOLDftEngineeringSymbolCatalog.h"

namespace {

// Plain decoding of the icon text, enough to look at the pixels.
std::vector<unsigned char> FromBase64(const std::string& text) {
  static const std::string digits = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::vector<unsigned char> out;
  unsigned bits = 0;
  int count = 0;
  for (char c : text) {
    if (c == '=') break;
    size_t d = digits.find(c);
    if (d == std::string::npos) return {};
    bits = (bits << 6) | static_cast<unsigned>(d);
    count += 6;
    if (count >= 8) {
      count -= 8;
      out.push_back(static_cast<unsigned char>((bits >> count) & 0xFF));
    }
  }
  return out;
}

int Ink(const std::vector<unsigned char>& bytes) {
  int n = 0;
  for (unsigned char b : bytes)
    for (; b; b &= static_cast<unsigned char>(b - 1)) ++n;
  return n;
}

const ZOLDftEngineeringSymbol* Find(const std::string& name) {
  for (int i = 0; i < kZOLDftEngineeringSymbolCount; ++i)
    if (name == kZOLDftEngineeringSymbols[i].name) return &kZOLDftEngineeringSymbols[i];
  return nullptr;
}

}  // namespace

TEST(EngineeringSymbolCatalog, EveryIconDecodesToItsSizeAndHoldsADrawing) {
  for (int i = 0; i < kZOLDftEngineeringSymbolCount; ++i) {
    const ZOLDftEngineeringSymbol& s = kZOLDftEngineeringSymbols[i];
    for (int look = 0; look < 3; ++look) {
      auto small = FromBase64(s.icons[look][0]);
      auto large = FromBase64(s.icons[look][1]);
      EXPECT_EQ(small.size(), 32u) << s.name;
      EXPECT_EQ(large.size(), 66u) << s.name;
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
  const ZOLDftEngineeringSymbol* tangent = Find("<Tangent>");
  ASSERT_TRUE(tangent);
  EXPECT_STREQ(tangent->sameAs, "<TANGENTPLANE>");
  EXPECT_STREQ(tangent->icons[0][0], Find("<TANGENTPLANE>")->icons[0][0]);
}

// The bitmaps' rows are packed high bit first, a row of 22 pixels in three bytes.
TEST(EngineeringSymbolCatalog, IconsEncodeTheirBitmapsRowByRow) {
  const ZOLDftEngineeringSymbol* d = Find("<DIAMETER>");
  ASSERT_TRUE(d);
  EXPECT_STREQ(d->icons[0][0], "AAAGAAYAA8AH4A8wGRgZmBmYGJgM8AfgA8AAYABgAAA=");
  EXPECT_STREQ(d->icons[0][1],
               "AAAAAYAAAYAAAcAAAPwAAf4AA+cABmGADmHADHDADDDADDDADDjADhnABhmAA58AAf4AAPwAAA4AAAYAAAYAAAAA");
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
