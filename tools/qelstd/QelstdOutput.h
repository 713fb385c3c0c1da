// Checked writes: a failed write (a full disk, a closed pipe) ends the output and is told at exit.
#pragma once
#include <cerrno>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <string>
#include <string_view>

#include "QelstdVerb.h"
#include "ZOLFile.h"

namespace qelstd {

/// The errno of the first failed write of the tool's output, 0 while every write succeeded.
inline int& WriteError() {
  static int error = 0;
  return error;
}

namespace detail {
inline bool Failed() {
  if (WriteError() == 0) WriteError() = errno != 0 ? errno : EIO;
  return false;
}
}  // namespace detail

/// fprintf, or nothing once a write has failed; false from the first failure on.
__attribute__((format(printf, 2, 3))) inline bool Printf(std::FILE* out, const char* format, ...) {
  if (WriteError() != 0 || std::ferror(out)) return false;
  errno = 0;
  va_list args;
  va_start(args, format);
  const int n = std::vfprintf(out, format, args);
  va_end(args);
  return n < 0 || std::ferror(out) ? detail::Failed() : true;
}

/// fwrite of the whole text, or nothing once a write has failed; false from the first failure on.
inline bool Write(std::FILE* out, std::string_view text) {
  if (WriteError() != 0 || std::ferror(out)) return false;
  errno = 0;
  if (std::fwrite(text.data(), 1, text.size(), out) != text.size() || std::ferror(out)) return detail::Failed();
  return true;
}

/// Flushes out; the errno of the first failed write or of the flush, 0 when all went out.
inline int FinishOutput(std::FILE* out) {
  errno = 0;
  if (std::fflush(out) != 0 || std::ferror(out)) {
    if (WriteError() == 0) WriteError() = errno != 0 ? errno : EIO;
  }
  return WriteError();
}

/// Writes a whole file through a temporary name and a rename; false, with the error written, when it
/// could not be put in place (the old file is then as it was).
inline bool WriteFileWhole(const std::string& path, std::string_view text) {
  errno = 0;
  if (ZOLWriteFileAtomically(path.c_str(), text) == S_OK) return true;
  const int error = errno;
  Error(path, std::string("cannot be written") + (error ? std::string(": ") + std::strerror(error) : "") + "; nothing was written");
  return false;
}

}  // namespace qelstd
