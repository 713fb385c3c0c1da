// Arbitrary edit strings on a small document. Each input line is one edit: its first byte picks the
// operation and the occurrence, the rest is the edit string.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string_view>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLRefCounted.h"
#include "ZOLSysLog.h"

namespace {

const char* const kSeedTree[] = {"Root:Styles", "Root.Styles:Sheet", "Root.Styles.Sheet:Default", "Root:Annotation",
                                 "Root:SheetFormat", "Enum:YesNo", "TypeDef:FrameDef"};

void Apply(ZOLAnnStandardXMLParser& doc, unsigned char selector, std::string_view text) {
  static const int occurrences[] = {1, 0, -1, 2, 3, -7};
  const int occurrence = occurrences[(selector / 8) % 6];
  ZOLUnicodeString edit(text);
  switch (selector % 8) {
    case 0: doc.AddNodeWithPath(edit, 0); break;
    case 1: doc.AddNodeWithPath(edit, 1); break;
    case 2: doc.AddValueWithPath(edit, occurrence); break;
    case 3: doc.AddValueWithPathForAllOccurence(edit, occurrence); break;
    case 4: doc.ChangeValueWithPath(edit); break;
    case 5: doc.DeleteNodeWithPath(edit); break;
    case 6: ZOLRef<ZOLAnnStandardXMLNode>::Adopt(doc.GetNodeWithPath(edit)); doc.GetValueWithPath(edit); break;
    default: {
      ZOLRef<ZOLAnnStandardXMLNode>::Adopt(doc.Root()->GetNodeWithPath(edit, occurrence));
      ZOLRef<ZOLAnnStandardXMLValue>::Adopt(doc.EnumRoot()->GetValueWithPath(edit));
      break;
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ZOLSetDevelopmentStage(0);
  ZOLSysLogSetHook([](bool, const char*) {});
  // Check prints its faults on standard output.
  if (!std::freopen("/dev/null", "w", stdout)) return 0;
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ZOLAnnStandardXMLParser doc;
  for (const char* s : kSeedTree) doc.AddNodeWithPath(s, 0);
  doc.AddValueWithPath("Enum.YesNo::string:Yes", 1);
  doc.AddValueWithPath("Root.Styles.Sheet.Default:Framed:enum.YesNo:Yes", 1);
  std::string_view input(reinterpret_cast<const char*>(data), size);
  while (!input.empty()) {
    size_t end = input.find('\n');
    std::string_view line = input.substr(0, end);
    input = end == std::string_view::npos ? std::string_view() : input.substr(end + 1);
    if (!line.empty()) Apply(doc, static_cast<unsigned char>(line[0]), line.substr(1));
  }
  doc.GetVersion();
  doc.Check();
  ZOLRef<ZOLAnnStandardXMLNode>::Adopt(doc.Root()->Clone());
  return 0;
}
