// What the fuzz targets that read files share: a quiet library and a scratch folder of their own.
#pragma once
#include <stdlib.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "ZOLSysLog.h"

namespace qelfuzz {

/// Reports go nowhere and standard output (where the enumeration check prints) to /dev/null; a new
/// scratch folder named after the target, without a trailing slash.
inline std::string QuietScratch(const char* target) {
  ZOLSetDevelopmentStage(0);
  ZOLSysLogSetHook([](bool, const char*) {});
  if (!std::freopen("/dev/null", "w", stdout)) std::abort();
  std::string dir = std::string("/tmp/fuzz_") + target + "_XXXXXX";
  if (!::mkdtemp(dir.data())) std::abort();
  return dir;
}

/// The input as a file; a plain write, since nothing here needs it on disk for good.
inline void WriteInput(const std::string& path, const uint8_t* data, size_t size) {
  FILE* f = std::fopen(path.c_str(), "wb");
  if (!f || std::fwrite(data, 1, size, f) != size || std::fclose(f) != 0) std::abort();
}

}  // namespace qelfuzz
