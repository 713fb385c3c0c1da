// What the fuzz targets share: a quiet library, a scratch folder of their own, and the one fault a
// load may throw.
#pragma once
#include <stdlib.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <stdexcept>
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

/// What run returns, or the text of the exception that a malformed colour throws out of a load or
/// a getter of the standard object; any other exception goes on to the fuzzer.
template <class Run>
std::string ColourFaultOr(Run run) {
  try {
    return run();
  } catch (const std::invalid_argument& e) {
    return e.what();
  } catch (const std::out_of_range& e) {
    return e.what();
  }
}

}  // namespace qelfuzz
