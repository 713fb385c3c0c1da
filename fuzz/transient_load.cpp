// Loads arbitrary text as a standard object and reads a few paths of every kind. Only the two
// exceptions of a malformed colour may leave the load or a getter.
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

#include "ZOLDftStandardServices.h"
#include "ZOLSysLog.h"

namespace {

// The array getters write as many elements as the value has; no value has more than the text has bytes.
void ReadSome(ZOLIDrwStandard* s, size_t textSize) {
  int i = 0;
  double d = 0;
  ZOLUnicodeString text;
  std::vector<int> ints(textSize + 8);
  std::vector<double> reals(textSize + 8);
  int count = 0;
  for (const char* path : {"Version", "Dimension.ParentStandard", "Curve.Default.Color", "Styles.Curve.Default.Color",
                           "SheetFormat.Name", "A", "A.B", "A.B.C", "LineThickness.mm", "", "..", "Styles"}) {
    for (int index : {1, 2, 3}) {
      s->GetValue(path, index, i);
      s->GetValue(path, index, d);
      s->GetValue(path, index, text);
    }
    ZOLDftStandardValueType type;
    s->GetValueType(path, &type, &count);
    s->HasNode(path);
    s->GetValue(path, ints.data(), &count);
    s->GetValue(path, reals.data(), &count);
  }
  s->GetStdVersion();
  s->GetThicknessIndex(0.35, &i);
  ZOLListValZOLUnicodeString names;
  s->GetStyleNames("Curve", &names);
  ZOLIDftStandard_var dft(s);
  ZOLDrwStdSheetFormat* formats = nullptr;
  count = 0;
  if (dft && ZOLDftStandardServices::GetSheetFormats(dft, &formats, count) == S_OK) delete[] formats;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static bool quiet = [] {
    ZOLSysLogSetHook([](bool, const char*) {});
    return true;
  }();
  (void)quiet;
  ZOLUnicodeString text(std::string(reinterpret_cast<const char*>(data), size));
  try {
    ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromBuffer(&text, "Fuzz");
    if (s) ReadSome(s, size);
  } catch (const std::invalid_argument&) {
  } catch (const std::out_of_range&) {
  }
  return 0;
}
