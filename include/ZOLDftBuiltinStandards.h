// The three standards built into the library, ISO, ANSI-ASME and JIS, as texts of the standard dialect.
#pragma once
#include <string_view>

#include "ZOLListValZOLUnicodeString.h"
#include "ZOLUnicodeString.h"

namespace ZOLDftBuiltinStandards {

/// The text of the built-in standard of that name ("ISO", "ANSI-ASME" or "JIS"), valid for the life of
/// the library; null for any other name.
const ZOLUnicodeString* GetText(std::string_view name);

/// The names of the built-in standards, in the order ISO, ANSI-ASME, JIS.
const ZOLListValZOLUnicodeString& GetNames();

}  // namespace ZOLDftBuiltinStandards
