// The document file: any bytes give a document or an error, never a fault; a document read is
// written back to a text that reads as the same document; and its local standards and styles
// read their stored values without a fault.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "ZOLIQelLocalStandard.h"
#include "ZOLIQelLocalStyle.h"
#include "ZOLOsmDocument.h"
#include "ZOLSysLog.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static const bool quiet = (ZOLSetDevelopmentStage(0), ZOLSysLogSetHook([](bool, const char*) {}), true);
  (void)quiet;
  std::string error;
  ZOLRef<ZOLOsmDocument> document =
      ZOLOsmDocument::Read(std::string_view(reinterpret_cast<const char*>(data), size), error);
  if (!document) {
    if (error.empty()) std::abort();
    return 0;
  }
  std::string text;
  if (FAILED(document->Write(text, error))) std::abort();  // everything read is UTF-8 and in the document
  ZOLRef<ZOLOsmDocument> again = ZOLOsmDocument::Read(text, error);
  std::string second;
  if (!again || FAILED(again->Write(second, error)) || second != text) std::abort();
  for (int i = 0; i < document->GetObjectCount(); ++i) {
    ZOLISpecObject_var object = document->GetObject(i);
    int value = 0;
    if (ZOLIQelLocalStandard_var local(object); !local.IsNull()) local->GetOverloadedValue("Annotation.Text.LeaderGap", value);
    if (ZOLIQelLocalStyle_var local(object); !local.IsNull()) local->GetOverloadedValue("Sheet.ViewMode", 1, value);
  }
  return 0;
}
