// The text in which a local standard or style stores its overriding values, in and out.
#pragma once
#include <string>

#include "LocalValue.h"

namespace ZOLQelLocalStandardAttributes {

/// Empties map and fills it from text; text that does not parse gives an empty map, a member of an
/// unknown type is skipped and the others kept. Never throws but for memory exhaustion.
void ParseOverloadedValues(std::string text, OverloadedValueMap& map);
/// One JSON object of every entry in the map's order, as {"path":{"type":"int", "value":3}}.
std::string SerializeOverloadedValues(const OverloadedValueMap& map);
/// The type word of the value's kind: "int" ... "string_vector", or "invalid".
const char* LocalValueTypeName(const LocalValue& value);
/// The text of the value alone: reals with six decimals, strings quoted and not escaped; empty for no kind.
std::string LocalValueText(const LocalValue& value);

}  // namespace ZOLQelLocalStandardAttributes
