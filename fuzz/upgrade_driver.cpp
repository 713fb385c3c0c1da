// The upgrade driver on any text as a standard file, a tree or flat text: decode, version, parent,
// and an upgrade to the current level into a temporary directory.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>

#include "QelFuzzFiles.h"
#include "ZOLDrwParseStandard.h"

namespace {

std::string g_input, g_output;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  const std::string dir = qelfuzz::QuietScratch("upgrade_driver");
  g_input = dir + "/Fuzz.xml";
  g_output = dir + "/Upgraded.xml";
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  qelfuzz::WriteInput(g_input, data, size);
  ZOLUnicodeString file(g_input);
  ZOLDrwParseStandard reader(file);
  reader.Decode();
  reader.GetVersion();
  reader.GetParentStandard();
  ZOLDrwParseStandardUpgradeOptions options;
  // The first byte decides whether delivered defaults are replaced too.
  options.UpdateDefaultValues = size > 0 && (data[0] & 1);
  reader.EncodeToVersion(-1, options, g_output.c_str());
  reader.GetOutcome();
  std::remove(g_output.c_str());
  return 0;
}
