// The engineering symbol catalogue of the generator: symbols.tsv read, and every icon drawn.
#pragma once
#include <array>
#include <string>
#include <vector>

#include "generator_tables.h"

namespace qelgen {

// A drawing is rasterised in three looks: heavy strokes (fonts of the KVISO1 family), thin strokes
// (SYM2), and thin strokes with a slight slant (SYM1 and SSS4).
enum Look { LookHeavy = 0, LookThin = 1, LookSlanted = 2 };
constexpr int kLooks = 3;
inline const char* const kLookName[kLooks] = {"heavy", "thin", "slanted"};

struct Symbol {
  std::string name;
  std::array<int, kParents> position{};  // 0: not in that parent's list
  std::array<std::string, kParents> code, font, flags;
  std::string drawing;                    // the catalogue's description, or "=<OTHER>"
  std::string sameAs;                     // the symbol whose drawing this one shares
  std::array<std::array<std::string, 2>, kLooks> icons;  // [look][16, 22]
  std::string where;
};

/// The look of the icons of a font.
Look LookOfFont(const std::string& font);

/// The base64 icon of a hand-drawn bitmap of icon_bitmaps.txt, by "name look size"; stops the tool when there is none.
std::string HandDrawnIcon(const std::string& key);

/// The catalogue with the icons of every symbol in every look; stops the tool on a fault of the tables.
std::vector<Symbol> LoadSymbols();

}  // namespace qelgen
