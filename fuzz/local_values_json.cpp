// The stored text of overriding values: any bytes are read without a throw or a fault, and a map
// read from text survives its own writing and reading where its strings need no escape.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "local/ZOLQelLocalStandardAttributesJson.h"

namespace {

bool NeedsEscape(const ZOLUnicodeString& s) {
  for (unsigned char c : s.str())
    if (c == '"' || c == '\\' || c < 0x20) return true;
  return false;
}

// Reals pass through six decimals, so only their kind and count are compared; a real beyond the
// double range of the writer's text comes back as another number.
bool Survives(const OverloadedValueMap& first) {
  for (const auto& [key, value] : first) {
    if (NeedsEscape(ZOLUnicodeString(key)) || NeedsEscape(value.stringValue)) return false;
    for (const ZOLUnicodeString& s : value.stringVector)
      if (NeedsEscape(s)) return false;
  }
  return true;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  using namespace ZOLQelLocalStandardAttributes;
  OverloadedValueMap first;
  ParseOverloadedValues(std::string(reinterpret_cast<const char*>(data), size), first);
  const std::string text = SerializeOverloadedValues(first);
  if (!Survives(first)) return 0;
  OverloadedValueMap second;
  ParseOverloadedValues(text, second);
  if (second.size() != first.size()) std::abort();
  for (const auto& [key, value] : first) {
    auto it = second.find(key);
    if (it == second.end()) std::abort();
    const LocalValue& back = it->second;
    if (back.kind != value.kind || back.intValue != value.intValue || back.stringValue != value.stringValue ||
        back.intVector != value.intVector || back.stringVector != value.stringVector ||
        back.doubleVector.size() != value.doubleVector.size())
      std::abort();
  }
  if (SerializeOverloadedValues(second).size() != text.size()) std::abort();
  return 0;
}
