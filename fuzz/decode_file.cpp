// Standard files of any shape, read from disk by both readers: the DOM codec (DecodeXML of a path)
// and the standard object. Only the two exceptions of a malformed colour may leave the object's load.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <unistd.h>

#include "QelFuzzFiles.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStandardServices.h"
#include "ZOLSysLog.h"

namespace {

std::string g_path;

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  const std::string dir = qelfuzz::QuietScratch("decode_file");
  g_path = dir + "/Fuzz.xml";
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  qelfuzz::WriteInput(g_path, data, size);
  ZOLUnicodeString path(g_path);
  {
    ZOLAnnStandardXMLParser doc;
    if (doc.DecodeXML(path, 1) == 0) {
      doc.GetVersion();
      doc.Check();
    }
  }
  qelfuzz::ColourFaultOr([&] {
    ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromFile(path, "Fuzz");
    ZOLUnicodeString text;
    if (s) {
      s->GetStdVersion();
      s->GetValue("Dimension.ParentStandard", 1, text);
    }
    return text.str();
  });
  return 0;
}
