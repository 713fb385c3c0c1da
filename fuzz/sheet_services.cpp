// The sheet services on any text as a standard file, opened by path and by name through the
// repository. Each input gets a file of its own name, so that the parser cache, keyed by path and
// modification time, never hands an older input's parser back.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <sys/stat.h>
#include <unistd.h>

#include "QelFuzzFiles.h"
#include "ZOLAnnStandardServices.h"
#include "ZOLDftStandardServices.h"
#include "ZOLSysLog.h"

namespace {

std::string g_repository;

void Query(ZOLAnnStandardServices& s) {
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 0;
  if (s.GetAvailableSheetFormats(&formats, count) == S_OK) delete[] formats;
  ZOLDrwStdSheetStyle* styles = nullptr;
  count = 0;
  if (s.GetAvailableSheetStyles(&styles, count) >= 0) delete[] styles;
  ZOLDrwStdSheetStyle style;
  s.GetDefaultSheetStyle(style);
  double scale = 0;
  s.GetSheetScale(scale);
  ZOLUnicodeString parent;
  s.GetStandardParentName(parent);
  int version = 0;
  s.GetVersion(version);
  s.IsSwitchable(version);
  s.CheckXMLStructure();
}

}  // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
  const std::string dir = qelfuzz::QuietScratch("sheet_services");
  g_repository = dir;
  if (::mkdir((g_repository + "/drafting").c_str(), 0755) != 0 || ::mkdir((g_repository + "/work").c_str(), 0755) != 0)
    std::abort();
  ::setenv("ZOLCollectionStandard", g_repository.c_str(), 1);
  ::unsetenv("ZOLDefaultCollectionStandard");
  ::setenv("ADL_ODT_OUT", (g_repository + "/work").c_str(), 1);
  return 0;
}

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  static unsigned long run = 0;
  const std::string name = "F" + std::to_string(run++ % 1000000);
  const std::string file = g_repository + "/drafting/" + name + ".xml";
  qelfuzz::WriteInput(file, data, size);
  if (std::unique_ptr<ZOLAnnStandardServices> byPath = ZOLAnnStandardServices::OpenFile(file.c_str())) Query(*byPath);
  // By name the file is copied to the working directory first, which costs a flushed write: one
  // input in four takes that road.
  if (size % 4 == 0) {
    ZOLAnnStandardServices byName(name.c_str());
    Query(byName);
  }
  std::remove(file.c_str());
  std::remove((g_repository + "/work/" + name + ".xml").c_str());
  return 0;
}
