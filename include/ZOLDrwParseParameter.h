// One parameter of a flat legacy standard: its keyword, its value, and the block it stands in.
#pragma once
#include "ZOLUnicodeString.h"

class ZOLDrwParseParameter {
public:
  /// A parameter; blockKeyword is "TOLERANCE" or "NUMERICAL_DISPLAY" inside such a block, else empty,
  /// and blockName the TolName or NDName of its block.
  ZOLDrwParseParameter(const ZOLUnicodeString& keyword, const ZOLUnicodeString& value,
                       const ZOLUnicodeString& blockKeyword, const ZOLUnicodeString& blockName)
      : _Keyword(keyword), _Value(value), _BlockKeyword(blockKeyword), _BlockName(blockName) {}
  virtual ~ZOLDrwParseParameter() = default;

  /// The name of the block instance the parameter belongs to; empty outside a block.
  virtual ZOLUnicodeString GetBlockName() { return _BlockName; }
  /// "TOLERANCE" or "NUMERICAL_DISPLAY" inside such a block, empty otherwise.
  virtual ZOLUnicodeString GetBlockKeyword() { return _BlockKeyword; }
  /// Appends the parameter's value line to out: a node of its tree name holding the value outside a
  /// block, a named record member inside one.
  virtual void Encode(ZOLUnicodeString& out);

  /// The keyword of the flat file.
  const ZOLUnicodeString& Keyword() const { return _Keyword; }
  /// The value as the flat file gave it.
  const ZOLUnicodeString& Value() const { return _Value; }

private:
  ZOLUnicodeString _Keyword;
  ZOLUnicodeString _Value;
  ZOLUnicodeString _BlockKeyword;
  ZOLUnicodeString _BlockName;
};
