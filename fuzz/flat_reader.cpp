// The flat reader on any text, and stage 1 on what it accepted: every parameter it keeps is a
// keyword of the table in its place, and the first tree built from them decodes to its end.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "QelFuzzFiles.h"
#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStandardServices.h"
#include "ZOLDrwParseParameter.h"
#include "ZOLRefCounted.h"
#include "upgrade/ZOLDrwFlatReader.h"

namespace {

class FirstTree : public ZOLDrwParseStandard {
public:
  FirstTree() : ZOLDrwParseStandard(_name) {}
  // 1 when stage 1 built a tree whose last node, the thickness table, was read.
  bool Build() {
    ZOLDrwParseStandardUpgradeOptions options;
    UpgradeVersion(1, options);
    if (!_Parser) return false;
    ZOLRef<ZOLAnnStandardXMLNode> last = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(_Parser->GetNodeWithPath("Root.LineThickness"));
    return static_cast<bool>(last);
  }

private:
  inline static ZOLUnicodeString _name{"Fuzz.std"};
};

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  qelfuzz::QuietScratch("flat_reader");
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  ZOLDrwIsFlatText(text);
  ZOLDrwFlatText read = ZOLDrwReadFlatText(text);
  for (ZOLDrwParseParameter* p : read.parameters) {
    const int row = ZOLDftStandardServices::GetIndexFromKeyword(p->Keyword());
    const bool inBlock = !p->GetBlockKeyword().IsEmpty();
    if (row < 2 || inBlock != (row > 118) || (inBlock && p->GetBlockName().IsEmpty())) std::abort();
  }
  FirstTree tree;
  tree.DecodeFlatParameters(read.parameters.data(), static_cast<int>(read.parameters.size()), "ISO");
  // The tree costs a hundred times the reading: one input in four builds it.
  if (size % 4 == 0 && !tree.Build()) std::abort();
  return 0;
}
