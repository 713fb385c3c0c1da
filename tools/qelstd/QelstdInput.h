// The tool's own input files: the system's reason when one cannot be read, regular files only, and
// why a standard file did not decode.
#pragma once
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <memory>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

#include "ZOLDrwParseStandard.h"
#include "ZOLXMLDOM.h"

namespace qelstd {

/// The most bytes an edits file may hold; a larger one is refused unread.
inline constexpr size_t kMaxEditsFileBytes = size_t{64} << 20;

/// Why a file of that mode is no input: empty for a regular file.
inline std::string WhyNotRegular(mode_t mode) {
  if (S_ISREG(mode)) return std::string();
  if (S_ISDIR(mode)) return "is a directory";
  if (S_ISFIFO(mode)) return "is a FIFO, not a regular file";
  if (S_ISSOCK(mode)) return "is a socket, not a regular file";
  return "is a device, not a regular file";
}

/// Empty when path names a regular file that can be opened for reading; else why not, in the
/// system's words ("No such file or directory", "Permission denied") or as WhyNotRegular says.
inline std::string WhyNotReadable(const std::string& path) {
  struct stat info;
  // The type first: opening a device or a FIFO can block or have effects of its own.
  if (::stat(path.c_str(), &info) != 0) return std::strerror(errno);
  if (std::string why = WhyNotRegular(info.st_mode); !why.empty()) return why;
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (fd < 0) return std::strerror(errno);
  ::close(fd);
  return std::string();
}

/// Reads a regular file of at most maxBytes whole; false with why (as WhyNotReadable, or too large).
inline bool ReadRegularFile(const std::string& path, size_t maxBytes, std::string& text, std::string& why) {
  if (why = WhyNotReadable(path); !why.empty()) return false;
  const int fd = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
  if (fd < 0) return why = std::strerror(errno), false;
  struct stat info;
  const std::string tooLarge = "is larger than " + std::to_string(maxBytes >> 20) + " MiB, the most it may be";
  bool ok = ::fstat(fd, &info) == 0;
  if (!ok) why = std::strerror(errno);
  else if (why = WhyNotRegular(info.st_mode); !why.empty()) ok = false;
  else if (static_cast<unsigned long long>(info.st_size) > maxBytes) ok = false, why = tooLarge;
  text.clear();
  // Bounded again while reading: the file may grow after fstat.
  char buffer[1 << 16];
  while (ok) {
    const ssize_t n = ::read(fd, buffer, sizeof buffer);
    if (n < 0 && errno == EINTR) continue;
    if (n < 0) ok = false, why = std::strerror(errno);
    if (n <= 0) break;
    if (text.size() + static_cast<size_t>(n) > maxBytes) ok = false, why = tooLarge;
    else text.append(buffer, static_cast<size_t>(n));
  }
  ::close(fd);
  if (!ok) text.clear();
  return ok;
}

/// The message of a report line (">> ASSERTION FAILED kind: message [File: ...].<<"), empty if it has none.
inline std::string ReportMessage(std::string_view line) {
  const size_t file = line.rfind(" [File:");
  const size_t colon = line.find(": ");
  if (file == std::string_view::npos || colon == std::string_view::npos || colon + 2 >= file) return std::string();
  return std::string(line.substr(colon + 2, file - colon - 2));
}

/// Why a standard file did not decode: why it cannot be read, else the XML parser's first error,
/// else the last message among the reports raised while decoding, else that it is no standard.
inline std::string WhyNotDecoded(const std::string& path, const std::vector<std::string>& reports) {
  if (std::string why = WhyNotReadable(path); !why.empty()) return why;
  if (ZOLDrwParseStandard::IsFlatFile(ZOLUnicodeString(path))) {
    std::string first;
    for (const std::string& report : reports)
      if (first = ReportMessage(report); !first.empty()) break;
    return "a flat legacy file with faults" + (first.empty() ? std::string() : " (" + first + ")") +
           "; qelstd check lists them";
  }
  std::unique_ptr<ZOLIXMLDOMDocumentBuilder> builder;
  if (SUCCEEDED(CreateZOLIXMLDOMDocumentBuilder(builder)) && builder) {
    ZOLListValZOLUnicodeString names, values;
    names.Append(ZOLUnicodeString(ZOLDOMOptionEnableNameSpaces));
    values.Append(ZOLUnicodeString("true"));
    ZOLIDOMDocument document;
    if (FAILED(builder->BuildDocumentFromFile(path, names, values, document))) {
      std::string error = builder->GetLastError();
      // "path:line: message" reads as "line N: message" behind the path the caller names.
      if (error.compare(0, path.size() + 1, path + ":") == 0) error = "line " + error.substr(path.size() + 1);
      if (!error.empty()) return "not well-formed XML: " + error;
    }
  }
  for (auto it = reports.rbegin(); it != reports.rend(); ++it)
    if (std::string message = ReportMessage(*it); !message.empty()) return "not a standard of the std dialect (" + message + ")";
  return "not a standard of the std dialect";
}

}  // namespace qelstd
