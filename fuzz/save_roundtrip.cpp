// Whatever the writer saves, the reader must take back. The input is decoded as a standard text,
// and what was decoded must save to a text that decodes again to the same save; when it is none,
// its lines build a tree as edit strings instead. An edit from the input's last line is applied,
// the tree is saved to a file, and a save that succeeds must decode again to the same tree.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "QelFuzzFiles.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLSysLog.h"

namespace {

std::string g_path;

// One edit of a line: its first byte picks the operation, the rest is the edit string.
void Apply(ZOLAnnStandardXMLParser& doc, std::string_view line) {
  if (line.empty()) return;
  static const int occurrences[] = {1, 0, -1, 2};
  const unsigned char selector = static_cast<unsigned char>(line[0]);
  const int occurrence = occurrences[(selector / 8) % 4];
  ZOLUnicodeString edit(line.substr(1));
  switch (selector % 8) {
    case 0: doc.AddNodeWithPath(edit, 0); break;
    case 1: doc.AddNodeWithPath(edit, 1); break;
    case 2:
    case 6: doc.AddValueWithPath(edit, occurrence); break;
    case 3: doc.AddValueWithPathForAllOccurence(edit, occurrence); break;
    case 4:
    case 7: doc.ChangeValueWithPath(edit); break;
    default: doc.DeleteNodeWithPath(edit); break;
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
    for (std::string_view rest = input; !rest.empty();) {
      size_t end = rest.find('\n');
      Apply(built, rest.substr(0, end));
      rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    }
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
