// Engineering symbols of dimension texts and tolerance frames: the font, character code and icons
// of a tag such as "<DIAMETER>".
#pragma once
#include <cstdint>

#include "ZOLResult.h"
#include "ZOLUnicodeString.h"

class ZOLAnnStdEngineeringSymbolsServices {
public:
  /// The symbol set asked for: 0 the set of the SYM2 font, 1 the set of the KVISO1 font.
  enum SymbolContext { SymbolContextSym2Font = 0, SymbolContextKviso1Font = 1 };
  /// The family of the standard: 0 and 1 share the KVISO1 and SYM2 sets; 2 is the family of the
  /// built-in standard with parent "ANSI", which writes its symbols with the SYM1 font.
  enum ParentStandard { ParentStandardISO = 0, ParentStandardJIS = 1, ParentStandardANSI = 2 };

  /// S_OK (0) and the symbol's font, code and icons from the table of context and parent; 1 when
  /// found only in the sibling table of the other context (parents 0 and 1); E_INVALIDARG for an
  /// empty name; E_FAIL when no table holds it. The out arguments change only on 0 and 1.
  static HRESULT GetEngSymbolDefinitionAndImage(const ZOLUnicodeString& iSymbolName, SymbolContext iContext,
                                                ParentStandard iParent, ZOLUnicodeString& oFontName,
                                                ZOLUnicodeString& oCharCode, ZOLUnicodeString& oIcon16,
                                                ZOLUnicodeString& oIcon22, int32_t iUnused);
};
