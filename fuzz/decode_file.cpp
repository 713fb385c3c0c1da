// Standard files of any shape, read from disk by both readers: the DOM codec (DecodeXML of a path)
// and the standard object. Only the two exceptions of a malformed colour may leave the object's load.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <unistd.h>

#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStandardServices.h"
#include "ZOLSysLog.h"

namespace {

std::string g_path;

// The input as a file; a plain write, since nothing here needs it on disk for good.
void WriteInput(const std::string& path, const uint8_t* data, size_t size) {
  FILE* f = std::fopen(path.c_str(), "wb");
  if (!f || std::fwrite(data, 1, size, f) != size || std::fclose(f) != 0) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  ZOLSetDevelopmentStage(0);
  ZOLSysLogSetHook([](bool, const char*) {});
  // The enumeration check prints its faults on standard output.
  if (!std::freopen("/dev/null", "w", stdout)) return 0;
  char dir[] = "/tmp/fuzz_decode_file_XXXXXX";
  if (!::mkdtemp(dir)) std::abort();
  g_path = std::string(dir) + "/Fuzz.xml";
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  WriteInput(g_path, data, size);
  ZOLUnicodeString path(g_path);
  {
    ZOLAnnStandardXMLParser doc;
    if (doc.DecodeXML(path, 1) == 0) {
      doc.GetVersion();
      doc.Check();
    }
  }
  try {
    ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromFile(path, "Fuzz");
    if (s) {
      s->GetStdVersion();
      ZOLUnicodeString text;
      s->GetValue("Dimension.ParentStandard", 1, text);
    }
  } catch (const std::invalid_argument&) {
  } catch (const std::out_of_range&) {
  }
  return 0;
}
