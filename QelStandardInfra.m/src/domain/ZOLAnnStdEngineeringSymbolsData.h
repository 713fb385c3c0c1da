// The three tables of the engineering symbol lookup, generated from data/symbol_tables.tsv and the
// symbol catalogue.
#pragma once

struct ZOLAnnStdEngSymbolRow {
  const char* symbolName;  // the tag with its angle brackets
  const char* fontName;
  const char* charCode;  // decimal text
  const char* icon16;  // base64 of a 16 by 16 1-bit bitmap
  const char* icon22;  // base64 of a 22 by 22 1-bit bitmap
};

struct ZOLAnnStdEngSymbolTable {
  const ZOLAnnStdEngSymbolRow* rows;  // in search order
  int count;
};

// Heavy symbols of the KVISO1 font; thin symbols of SYM2; slanted symbols of SYM1.
extern const ZOLAnnStdEngSymbolTable kEngSymbolTableA;
extern const ZOLAnnStdEngSymbolTable kEngSymbolTableB;
extern const ZOLAnnStdEngSymbolTable kEngSymbolTableC;
