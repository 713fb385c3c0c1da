// The upgrade driver on any text as a standard file: decode, version, parent, and an upgrade into
// a temporary directory (which stops, and says so, at the first stage that is not built yet).
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

#include "QelFuzzFiles.h"
#include "ZOLDrwParseStandard.h"
#include "ZOLSysLog.h"

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
