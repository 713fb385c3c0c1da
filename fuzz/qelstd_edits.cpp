// Arbitrary bytes as an edit file of qelstd apply: parsed by the tool's own parser, the lines read
// applied to a small document within the tool's bound on value-all lines, and the result printed
// as the tool's outline.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

#include "QelstdEdits.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLSysLog.h"

namespace {

const char* const kSeedTree[] = {"Root:Styles", "Root.Styles:Text", "Root.Styles.Text:Default", "Root:Dimension",
                                 "Enum:YesNo", "TypeDef:FrameDef"};

std::FILE* g_sink = nullptr;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ZOLSetDevelopmentStage(0);
  ZOLSysLogSetHook([](bool, const char*) {});
  g_sink = std::fopen("/dev/null", "w");
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ZOLAnnStandardXMLParser doc;
  for (const char* s : kSeedTree) doc.AddNodeWithPath(s, 0);
  doc.AddValueWithPath("Enum.YesNo::string:Yes", 1);
  long long reach = 0;
  std::string why;
  // The tool applies nothing from a file with a bad line; the lines before it are applied here all
  // the same, to reach further.
  qelstd::ForEachEditLine(
      std::string_view(reinterpret_cast<const char*>(data), size),
      [&](const qelstd::EditLine& line) {
        // As the tool, nothing more once the bound is passed.
        if (reach > qelstd::kMaxValueAllReach) return;
        reach += qelstd::ValueAllReach(doc, line);
        if (reach <= qelstd::kMaxValueAllReach) qelstd::ApplyEditLine(doc, line);
      },
      why);
  if (g_sink) qelstd::PrintOutline(g_sink, doc);
  doc.GetVersion();
  return 0;
}
