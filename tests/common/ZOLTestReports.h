// Captures the reports of the platform's log for one test and counts them.
#pragma once
#include <string>
#include <vector>

#include "ZOLSysLog.h"

class ZOLTestReports {
public:
  /// Captures from now on, outside development mode.
  ZOLTestReports() {
    ZOLSetDevelopmentStage(0);
    _previous = ZOLSysLogSetHook([this](bool, const char* line) { _lines.emplace_back(line); });
  }
  ~ZOLTestReports() { ZOLSysLogSetHook(std::move(_previous)); ZOLSetDevelopmentStage(-1); }
  ZOLTestReports(const ZOLTestReports&) = delete;
  ZOLTestReports& operator=(const ZOLTestReports&) = delete;

  /// Number of reports since construction or the last Clear.
  int Count() const { return static_cast<int>(_lines.size()); }
  /// The report lines.
  const std::vector<std::string>& Lines() const { return _lines; }
  /// Number of reports whose line contains text.
  int CountContaining(const std::string& text) const {
    int n = 0;
    for (auto& l : _lines) n += l.find(text) != std::string::npos;
    return n;
  }
  void Clear() { _lines.clear(); }

private:
  std::vector<std::string> _lines;
  ZOLSysLogHook _previous;
};
