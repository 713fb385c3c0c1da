// Standard texts of any shape through the DOM codec: decode, then save what was read and decode
// that again, which must succeed and give the same text.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "ZOLAnnStandardXMLParser.h"
#include "ZOLSysLog.h"

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  // Reports are expected on bad input; they must not flood the run.
  ZOLSysLogSetHook([](bool, const char*) {});
  ZOLSetDevelopmentStage(0);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  ZOLAnnStandardXMLParser doc;
  if (doc.DecodeXML(ZOLUnicodeString(std::string(reinterpret_cast<const char*>(data), size)), 0) != 0) return 0;
  ZOLUnicodeString saved;
  doc.SaveInString(saved);
  ZOLAnnStandardXMLParser again;
  if (again.DecodeXML(saved, 0) != 0) std::abort();
  ZOLUnicodeString savedAgain;
  again.SaveInString(savedAgain);
  if (!(savedAgain == saved)) std::abort();
  return 0;
}
