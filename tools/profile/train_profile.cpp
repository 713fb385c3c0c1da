// The work a profile-guided Release build is optimised for: the built-in standards loaded from
// memory and from files, as drafting modules and migration tools load standards, then read by
// dotted path as a redraw reads them. Run once, at build time, against the instrumented library.
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>

#include "ZOLDftBuiltinStandards.h"
#include "ZOLDftStandardServices.h"

namespace {

constexpr int kLoads = 20;
constexpr int kReads = 2000;
const char* const kStandards[] = {"ISO", "ANSI-ASME", "JIS"};

// A few reads of each kind, one of them a path with no value.
int Read(ZOLIDrwStandard* standard) {
  int i = 0, rgb[3] = {}, count = 0, found = 0;
  double d = 0;
  ZOLUnicodeString s;
  found += standard->GetValue("Curve.Default.Thickness", 1, i) == S_OK;
  found += standard->GetValue("Text.Default.Font.Size", 1, d) == S_OK;
  found += standard->GetValue("Dimension.ParentStandard", 1, s) == S_OK;
  found += standard->GetValue("Curve.Default.Color", rgb, &count) == S_OK;
  found += standard->GetValue("Text.Default.Font.NoSuchValue", 1, i) == S_OK;
  return found;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s SCRATCH_DIR\n", argv[0]);
    return 2;
  }
  const std::filesystem::path scratch = argv[1];
  std::filesystem::create_directories(scratch);
  for (const char* name : kStandards) {
    const ZOLUnicodeString* text = ZOLDftBuiltinStandards::GetText(name);
    if (!text) {
      std::fprintf(stderr, "no built-in standard %s\n", name);
      return 1;
    }
    const std::filesystem::path file = scratch / (std::string(name) + ".xml");
    std::ofstream(file, std::ios::binary) << text->str();
    int found = 0;
    for (int n = 0; n < kLoads; ++n) {
      ZOLIDrwStandard_var fromText = ZOLDftStandardServices::GetStandardFromBuffer(text, name);
      ZOLIDrwStandard_var fromFile = ZOLDftStandardServices::GetStandardFromFile(file.string().c_str(), name);
      if (!fromText || !fromFile) {
        std::fprintf(stderr, "built-in standard %s does not load\n", name);
        return 1;
      }
      for (int r = 0; r < kReads; ++r) found += Read(fromText);
    }
    std::printf("%s: %d loads, %d reads found\n", name, 2 * kLoads, found);
  }
  return 0;
}
