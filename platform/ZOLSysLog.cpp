#include "ZOLSysLog.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace {

int g_forcedStage = -1;

ZOLSysLogHook& Hook() {
  static ZOLSysLogHook hook;
  return hook;
}

void Deliver(bool isAbend, const char* line) {
  if (Hook()) {
    Hook()(isAbend, line ? line : "");
    return;
  }
  std::fputs(line ? line : "", stderr);
}

}  // namespace

int ZOLDevelopmentStage(int) {
  if (g_forcedStage >= 0) return g_forcedStage;
  static const int fromEnv = [] {
    const char* v = std::getenv("ZOL_DEVELOPMENT_STAGE");
    return v && std::strcmp(v, "1") == 0 ? 1 : 0;
  }();
  return fromEnv;
}

void ZOLSetDevelopmentStage(int mode) { g_forcedStage = mode < 0 ? -1 : (mode ? 1 : 0); }

void ZOLSysLogAbend(const char* line) { Deliver(true, line); }

void ZOLSysLogError(const char* line) { Deliver(false, line); }

ZOLSysLogHook ZOLSysLogSetHook(ZOLSysLogHook hook) {
  ZOLSysLogHook previous = std::move(Hook());
  Hook() = std::move(hook);
  return previous;
}

void ZOLAssertReport(const char* kind, const char* message, const char* file, int line) {
  char buffer[288];
  std::snprintf(buffer, sizeof buffer, ">> ASSERTION FAILED %.32s: %.40s [File: %.128s:%4d].<<\n",
                kind ? kind : "", message ? message : "", file ? file : "", line);
  if (ZOLDevelopmentStage(0)) {
    std::fputs(buffer, stdout);
    std::fflush(stdout);
    ZOLSysLogAbend(buffer);
  } else {
    ZOLSysLogError(buffer);
  }
}
