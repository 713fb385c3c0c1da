// Opening a standard object by built-in name or file, for the verbs that read standards.
#pragma once
#include <filesystem>
#include <string>

#include "QelstdInput.h"
#include "QelstdVerb.h"
#include "QelstdWide.h"
#include "ZOLDftStandardServices.h"
#include "ZOLSysLog.h"

namespace qelstd {

/// The standard object of a built-in name (ISO, JIS, ASME or ANSI-ASME) or of a standard file;
/// null with the reason when there is none. Names the file being read as the subject of the verb.
inline ZOLIDrwStandard_var OpenStandard(const std::string& nameOrFile, std::string& why) {
  std::string name = nameOrFile == "ANSI-ASME" ? "ASME" : nameOrFile;
  if (name == "ISO" || name == "JIS" || name == "ASME") {
    ZOLUnicodeString path;
    SetSubject(ZOLDftStandardServices::FindStandardFileInEnv(name == "ASME" ? "ANSI-ASME" : name.c_str(), path, false) == 0
                   ? path.str()
                   : nameOrFile);
    ZOLIDrwStandard_var s = ZOLDftStandardServices::GetOOTBStandard(name.c_str(), 0);
    if (!s) why = "the built-in standard cannot be written to the working directory (ADL_ODT_OUT or ZOLTemp)";
    return s;
  }
  SetSubject(nameOrFile);
  if (std::string unreadable = WhyNotReadable(nameOrFile); !unreadable.empty()) {
    std::error_code ec;
    const bool exists = std::filesystem::exists(std::filesystem::symlink_status(nameOrFile, ec));
    why = exists || nameOrFile.find('/') != std::string::npos
              ? unreadable
              : "no built-in standard of that name (ISO, JIS, ASME) and no such file";
    return nullptr;
  }
  ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromFile(nameOrFile.c_str(),
                                                                      std::filesystem::path(nameOrFile).stem().string().c_str());
  if (!s) {
    why = "cannot be read as a standard";
    return nullptr;
  }
  if (!s->HasNode("Dimension") && !s->HasNode("Version")) {
    why = "does not decode as a standard: " + WhyNotDecoded(nameOrFile, {});
    return nullptr;
  }
  return s;
}

/// OpenStandard, with the error written and the exit status set when there is none.
inline ZOLIDrwStandard_var OpenStandardOrFail(const std::string& nameOrFile, int* status) {
  std::string why;
  ZOLIDrwStandard_var s = OpenStandard(nameOrFile, why);
  if (!s) {
    Error(nameOrFile, why);
    *status = kNotFound;
  }
  return s;
}

/// Swallows the reports of probing reads for as long as it lives.
class QuietReports {
public:
  QuietReports() : _previous(ZOLSysLogSetHook([](bool, const char*) {})) {}
  ~QuietReports() { ZOLSysLogSetHook(std::move(_previous)); }
  QuietReports(const QuietReports&) = delete;
  QuietReports& operator=(const QuietReports&) = delete;

private:
  ZOLSysLogHook _previous;
};

}  // namespace qelstd
