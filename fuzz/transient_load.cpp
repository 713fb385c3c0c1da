// Loads arbitrary text as a standard object and reads a few paths of every kind. Only the two
// exceptions of a malformed colour may leave the load or a getter. The same text read through the
// object's content handler must give the same object, or the same exception.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "QelFuzzFiles.h"
#include "ZOLDftStandardServices.h"
#include "ZOLSysLog.h"
#include "../tests/common/ZOLTransientLanes.h"

namespace {

// Reads every kind of value; arrays through the sized getters, with room for three at first and
// then for as many as the value has.
void ReadSome(ZOLIDrwStandard* s) {
  int i = 0;
  double d = 0;
  ZOLUnicodeString text;
  std::vector<int> ints(3);
  std::vector<double> reals(3);
  std::vector<ZOLUnicodeString> texts(3);
  std::vector<ZOLUnicodeString*> pointers;
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
    auto sized = [&](auto& buffer, auto data) {
      if (s->GetValue(path, data(), static_cast<int>(buffer.size()), &count) == S_FALSE) {
        buffer.resize(static_cast<size_t>(count));
        if (s->GetValue(path, data(), count, &count) != S_OK) __builtin_trap();
      }
    };
    sized(ints, [&] { return ints.data(); });
    sized(reals, [&] { return reals.data(); });
    sized(texts, [&] {
      pointers.clear();
      for (ZOLUnicodeString& t : texts) pointers.push_back(&t);
      return pointers.data();
    });
    // The forms without a capacity write as many as the sized ones told.
    s->GetValue(path, ints.data(), &count);
    s->GetValue(path, reals.data(), &count);
    s->GetValue(path, pointers.data(), &count);
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
  // What each lane made of the text: the object described, or the exception's text.
  ZOLIDrwStandard_var s;
  const std::string lean = qelfuzz::ColourFaultOr([&] {
    s = ZOLDftStandardServices::GetStandardFromBuffer(&text, "Fuzz");
    return s ? ZOLDescribeTransient(*static_cast<ZOLVotTransientStandard*>(s->GetImpl())) : std::string();
  });
  qelfuzz::ColourFaultOr([&] {
    if (s) ReadSome(s);
    return std::string();
  });
  const std::string general = qelfuzz::ColourFaultOr([&] {
    ZOLIDrwStandard_var g = ZOLLoadThroughContentHandler(text.str());
    return ZOLDescribeTransient(*static_cast<ZOLVotTransientStandard*>(g->GetImpl()));
  });
  if (lean != general) __builtin_trap();
  return 0;
}
