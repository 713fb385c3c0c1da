// Free functions of the standards library: locating, listing and obtaining standards.
#pragma once
#include "ZOLResult.h"
#include "ZOLUnicodeString.h"

namespace ZOLDftStandardServices {

// --- Locating and listing standards ---

// --- Standard objects by file, text and name; sheet format and path helpers ---

}  // namespace ZOLDftStandardServices
