// Whatever the writer saves, the reader must take back. The input is decoded as a standard text,
// and what was decoded must save to a text that decodes again to the same save. When it is none,
// each of its lines is an edit of a small document instead (its first byte picks the operation and
// the occurrence, the rest is the edit string), and the edited document is checked and cloned. An
// edit from the input's last line is applied to a decoded text; the tree is then saved to a file,
// and a save that succeeds must decode again to the same tree.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "QelFuzzFiles.h"
#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLRefCounted.h"
#include "ZOLSysLog.h"

namespace {

std::string g_path;

const char* const kSeedTree[] = {"Root:Styles", "Root.Styles:Sheet", "Root.Styles.Sheet:Default", "Root:Annotation",
                                 "Root:SheetFormat", "Enum:YesNo", "TypeDef:FrameDef"};

void Apply(ZOLAnnStandardXMLParser& doc, std::string_view line) {
  if (line.empty()) return;
  static const int occurrences[] = {1, 0, -1, 2, 3, -7};
  const unsigned char selector = static_cast<unsigned char>(line[0]);
  const int occurrence = occurrences[(selector / 8) % 6];
  ZOLUnicodeString edit(line.substr(1));
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

std::string_view LastLine(std::string_view text) {
  size_t end = text.find_last_not_of('\n');
  if (end == std::string_view::npos) return {};
  text = text.substr(0, end + 1);
  size_t start = text.rfind('\n');
  return start == std::string_view::npos ? text : text.substr(start + 1);
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  g_path = qelfuzz::QuietScratch("save_roundtrip") + "/Saved.xml";
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  std::string_view input(reinterpret_cast<const char*>(data), size);
  ZOLAnnStandardXMLParser decoded, built;
  ZOLAnnStandardXMLParser* doc = &decoded;
  if (decoded.DecodeXML(ZOLUnicodeString(input), 0) != 0) {
    doc = &built;
    for (const char* s : kSeedTree) built.AddNodeWithPath(s, 0);
    built.AddValueWithPath("Enum.YesNo::string:Yes", 1);
    built.AddValueWithPath("Root.Styles.Sheet.Default:Framed:enum.YesNo:Yes", 1);
    for (std::string_view rest = input; !rest.empty();) {
      size_t end = rest.find('\n');
      Apply(built, rest.substr(0, end));
      rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
    built.GetVersion();
    built.Check();
    ZOLRef<ZOLAnnStandardXMLNode>::Adopt(built.Root()->Clone());
  } else {
    ZOLUnicodeString saved, savedAgain;
    decoded.SaveInString(saved);
    ZOLAnnStandardXMLParser again;
    if (again.DecodeXML(saved, 0) != 0) __builtin_trap();
    again.SaveInString(savedAgain);
    if (!(savedAgain == saved)) __builtin_trap();
    Apply(decoded, LastLine(input));
  }
  if (doc->SaveInFile(ZOLUnicodeString(g_path)) != S_OK) return 0;
  ZOLAnnStandardXMLParser again;
  if (again.DecodeXML(ZOLUnicodeString(g_path), 1) != 0) __builtin_trap();
  ZOLUnicodeString first, second;
  doc->SaveInString(first);
  again.SaveInString(second);
  if (!(first == second)) __builtin_trap();
  return 0;
}
