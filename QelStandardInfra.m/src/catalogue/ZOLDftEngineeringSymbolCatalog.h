// The engineering symbol catalogue, generated from data/symbols.tsv: every symbol of the built-in
// standards with its place, code, font, flags and icons by parent.
#pragma once
#include "document/ZOLDftParentStandard.h"

// Columns by parent: indexed by ZOLDftBuiltin (ISO, ANSI-ASME, JIS; ZOLDftBuiltinOf for a parent).
// Looks of the icons by index: 0 heavy strokes (font KVISO1.otf), 1 thin strokes (SYM2.font),
// 2 thin slanted strokes (SYM1.font and SSS4.font).
struct ZOLDftEngineeringSymbol {
  const char* name;  // the tag with its angle brackets, as "<DIAMETER>"
  int position[kZOLDftBuiltinCount];  // 1-based place in the parent's list; 0 when the parent lacks the symbol
  int charCode[kZOLDftBuiltinCount];  // character code in the parent's font
  const char* font[kZOLDftBuiltinCount];  // font file name in the parent
  const char* flags[kZOLDftBuiltinCount];  // "Y" or "N" for ToleranceValue, DatumReference and Notes, as "YNN"
  int look[kZOLDftBuiltinCount];  // look of the parent's icons, an index of icons
  const char* icons[kZOLDftBuiltinCount][2];  // base64 1-bit bitmaps by look: 16 by 16 (32 bytes), 22 by 22 (66 bytes)
  const char* sameAs;  // the symbol whose drawing this one shares, or ""
};

extern const ZOLDftEngineeringSymbol kZOLDftEngineeringSymbols[];
extern const int kZOLDftEngineeringSymbolCount;
