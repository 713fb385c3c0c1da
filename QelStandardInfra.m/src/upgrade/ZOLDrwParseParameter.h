// One parameter of a flat legacy standard: a keyword and its value.
#pragma once
#include "ZOLUnicodeString.h"

class ZOLDrwParseParameter {
public:
  ZOLDrwParseParameter(ZOLUnicodeString keyword, ZOLUnicodeString value)
      : _keyword(std::move(keyword)), _value(std::move(value)) {}
  virtual ~ZOLDrwParseParameter() = default;

  /// The keyword of the flat file.
  const ZOLUnicodeString& Keyword() const { return _keyword; }
  /// The value as written in the flat file.
  const ZOLUnicodeString& Value() const { return _value; }

private:
  ZOLUnicodeString _keyword;
  ZOLUnicodeString _value;
};
