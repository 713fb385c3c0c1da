// The built-in standard texts as the generator writes them: each text in raw string pieces.
#pragma once
#include <cstddef>

struct ZOLDftBuiltinStandardPieces {
  const char* name;             // "ISO", "ANSI-ASME", "JIS"
  const char* const* pieces;    // joined in order, they give the text
  size_t pieceCount;
  size_t length;                // bytes of the whole text
};

// In the order ISO, ANSI-ASME, JIS; defined by the generated source.
extern const ZOLDftBuiltinStandardPieces kZOLDftBuiltinStandardPieces[3];
