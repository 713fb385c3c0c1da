// Finding a standard by name or file, and collecting reports, for the catalogue verbs.
#pragma once
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "QelstdInput.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStandardServices.h"
#include "ZOLDrwParseStandard.h"
#include "ZOLDftStdPersistence.h"
#include "ZOLSysLog.h"

namespace qelstd {

/// The working directory of working copies (ADL_ODT_OUT, else ZOLTemp), or empty when neither is set.
inline std::string WorkingDirectory() {
  for (const char* v : {"ADL_ODT_OUT", "ZOLTemp"}) {
    const char* dir = std::getenv(v);
    if (dir && *dir) return dir;
  }
  return std::string();
}

/// The reason given when a name needs a working directory and none is set.
inline constexpr const char* kNoWorkingDirectory =
    "a standard name needs a working directory: set ADL_ODT_OUT (or ZOLTemp) to a writable directory";

/// The file of a standard file or name (found through the repository or the built-in texts into the
/// working directory); false with the reason otherwise. An argument that exists, or holds a "/", is a
/// file, and must be a regular file that can be read.
inline bool ResolveStandard(const std::string& nameOrFile, std::string& path, std::string& why) {
  std::error_code ec;
  if (std::filesystem::exists(std::filesystem::symlink_status(nameOrFile, ec)) ||
      nameOrFile.find('/') != std::string::npos) {
    why = WhyNotReadable(nameOrFile);
    if (!why.empty()) return false;
    path = nameOrFile;
    return true;
  }
  if (WorkingDirectory().empty()) {
    why = kNoWorkingDirectory;
    return false;
  }
  ZOLUnicodeString found;
  if (ZOLDftStandardServices::FindStandardFileInEnv(ZOLUnicodeString(nameOrFile), found, false) != 0) {
    why = "no such file and no standard of that name in the repository or among the built-in standards";
    return false;
  }
  path = found.str();
  return true;
}

/// The release that first has a data level, or 0 when none does.
inline int ReleaseOfVersion(int version) {
  for (int release = 1; release <= 428; ++release)
    if (ZOLDftStdPersistence::GetVersionFromRelease(release, 0) == version) return release;
  return 0;
}

/// The class of a parent text: 0 ISO, 1 JIS, 2 ASME, 3 ANSI, 4 anything else.
inline int ClassOfParent(const std::string& parent) {
  if (parent == "ISO") return 0;
  if (parent == "JIS") return 1;
  if (parent == "ASME") return 2;
  if (parent == "ANSI") return 3;
  return 4;
}

/// Keeps the reports raised while it lives, instead of printing them.
class CollectedReports {
public:
  CollectedReports()
      : _previous(ZOLSysLogSetHook([this](bool, const char* line) { _lines.emplace_back(line); })) {}
  ~CollectedReports() { ZOLSysLogSetHook(std::move(_previous)); }
  CollectedReports(const CollectedReports&) = delete;
  CollectedReports& operator=(const CollectedReports&) = delete;
  const std::vector<std::string>& Lines() const { return _lines; }
  void Clear() { _lines.clear(); }

private:
  std::vector<std::string> _lines;
  ZOLSysLogHook _previous;
};

/// Parent text and level of a standard file, as the catalogue reads them; false with why when the
/// file does not decode (read in part or not at all), which the catalogue itself does not tell.
/// reports collects what the decode raises; only this decode's reports give the reason.
inline bool ReadParentAndVersion(const std::string& path, const CollectedReports& reports, std::string& parent,
                                 int& version, std::string& why) {
  const size_t before = reports.Lines().size();
  ZOLUnicodeString file(path);
  ZOLDrwParseStandard reader(file);
  reader.Decode();
  parent = reader.GetParentStandard().str();
  version = reader.GetVersion();
  if (!reader.DecodeFailed()) return true;
  why = "does not decode as a standard: " +
        WhyNotDecoded(path, std::vector<std::string>(reports.Lines().begin() + before, reports.Lines().end()));
  return false;
}

/// Decodes a standard file into tree; false with why when it does not decode whole.
inline bool DecodeStandardTree(const std::string& path, ZOLAnnStandardXMLParser& tree, std::string& why) {
  CollectedReports reports;
  if (tree.DecodeXML(ZOLUnicodeString(path), 1) == 0) return true;
  why = "does not decode as a standard: " + WhyNotDecoded(path, reports.Lines());
  return false;
}

}  // namespace qelstd
