// The upgrade driver on any text as a standard file: decode, version, parent, and an upgrade into
// a temporary directory (which stops, and says so, at the first stage that is not built yet).
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

#include "ZOLDrwParseStandard.h"
#include "ZOLSysLog.h"

namespace {

std::string g_input, g_output;

// The input as a file; a plain write, since nothing here needs it on disk for good.
void WriteInput(const std::string& path, const uint8_t* data, size_t size) {
  FILE* f = std::fopen(path.c_str(), "wb");
  if (!f || std::fwrite(data, 1, size, f) != size || std::fclose(f) != 0) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ZOLSetDevelopmentStage(0);
  ZOLSysLogSetHook([](bool, const char*) {});
  if (!std::freopen("/dev/null", "w", stdout)) return 0;
  char dir[] = "/tmp/fuzz_upgrade_driver_XXXXXX";
  if (!::mkdtemp(dir)) std::abort();
  g_input = std::string(dir) + "/Fuzz.xml";
  g_output = std::string(dir) + "/Upgraded.xml";
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  WriteInput(g_input, data, size);
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
