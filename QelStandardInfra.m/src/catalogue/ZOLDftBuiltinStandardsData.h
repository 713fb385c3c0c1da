// The built-in standard texts as the generator writes them: each text in raw string pieces.
#pragma once
#include <cstddef>

#include "document/ZOLDftParentStandard.h"

struct ZOLDftBuiltinStandardPieces {
  const char* name;             // "ISO", "ANSI-ASME", "JIS"
  const char* const* pieces;    // joined in order, they give the text
  size_t pieceCount;
  size_t length;                // bytes of the whole text
};

// By ZOLDftBuiltin; defined by the generated source.
extern const ZOLDftBuiltinStandardPieces kZOLDftBuiltinStandardPieces[kZOLDftBuiltinCount];
