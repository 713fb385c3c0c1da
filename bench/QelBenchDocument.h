// What the document benchmarks share: a standard text decoded into a tree and saved again, the
// work that other document operations are measured against.
#pragma once
#include <benchmark/benchmark.h>

#include <string>

#include "ZOLAnnStandardXMLParser.h"

namespace qelbench {

inline void DecodeAndSave(const std::string& text) {
  ZOLAnnStandardXMLParser doc;
  doc.DecodeXML(ZOLUnicodeString(text), 0);
  ZOLUnicodeString out;
  doc.SaveInString(out);
  benchmark::DoNotOptimize(out.str().data());
}

}  // namespace qelbench
