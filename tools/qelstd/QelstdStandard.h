// Opening a standard object by built-in name or file, for the verbs that read standards.
#pragma once
#include <filesystem>
#include <string>

#include "QelstdVerb.h"
#include "ZOLDftStandardServices.h"
#include "ZOLSysLog.h"

namespace qelstd {

/// The standard object of a built-in name (ISO, JIS, ASME or ANSI-ASME) or of a standard file;
/// null with the reason when there is none.
inline ZOLIDrwStandard_var OpenStandard(const std::string& nameOrFile, std::string& why) {
  std::string name = nameOrFile == "ANSI-ASME" ? "ASME" : nameOrFile;
  if (name == "ISO" || name == "JIS" || name == "ASME") {
    ZOLIDrwStandard_var s = ZOLDftStandardServices::GetOOTBStandard(name.c_str(), 0);
    if (!s) why = "the built-in standard cannot be written to the working directory (ADL_ODT_OUT or ZOLTemp)";
    return s;
  }
  std::error_code ec;
  if (!std::filesystem::is_regular_file(nameOrFile, ec)) {
    why = "no built-in standard of that name (ISO, JIS, ASME) and no such file";
    return nullptr;
  }
  ZOLIDrwStandard_var s = ZOLDftStandardServices::GetStandardFromFile(nameOrFile.c_str(),
                                                                      std::filesystem::path(nameOrFile).stem().string().c_str());
  if (s && !s->HasNode("Dimension") && !s->HasNode("Version")) {
    why = "not a standard in the std dialect, or not well-formed";
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
