// The platform's narrow string. Every text of this library is UTF-8 in a std::string, so the
// narrow string is the same class as ZOLUnicodeString under the name that some interfaces use
// (the output path of an upgrade, for one); either name may be passed where the other is asked.
#pragma once
#include "ZOLUnicodeString.h"

using ZOLString = ZOLUnicodeString;
