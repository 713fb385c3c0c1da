#include "ZOLDftBuiltinStandards.h"
#include <cstdio>
int main() { const ZOLUnicodeString* iso = ZOLDftBuiltinStandards::GetText("ISO"); std::printf("ISO text: %d bytes\n", iso ? iso->GetLengthInChar() : -1); return iso && !iso->IsEmpty() ? 0 : 1; }
