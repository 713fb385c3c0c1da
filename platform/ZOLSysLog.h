// Development mode, the system log, and the assertion report.
#pragma once
#include <functional>

/// 1 in development mode, else 0. The mode comes from ZOL_DEVELOPMENT_STAGE=1 in the
/// environment, read once, unless ZOLSetDevelopmentStage set it. The argument is unused.
int ZOLDevelopmentStage(int unused = 0);
/// Forces development mode on (1) or off (0); a negative value goes back to the environment.
void ZOLSetDevelopmentStage(int mode);

/// Hands a line to the abend log (development mode reports).
void ZOLSysLogAbend(const char* line);
/// Hands a line to the error log (reports outside development mode).
void ZOLSysLogError(const char* line);

/// Where ZOLSysLogAbend and ZOLSysLogError deliver; isAbend is 1 for the abend log.
using ZOLSysLogHook = std::function<void(bool isAbend, const char* line)>;
/// Installs a hook in place of the default (standard error); returns the previous one. An empty hook restores the default.
ZOLSysLogHook ZOLSysLogSetHook(ZOLSysLogHook hook);

/// Formats and delivers one assertion report; the caller goes on afterwards.
void ZOLAssertReport(const char* kind, const char* message, const char* file, int line);

/// Report kinds.
#define ZOL_KIND_BOOL "BOOL IS FALSE"
#define ZOL_KIND_POINTER "ON POINTER "

#ifndef __FILE_NAME__
#define __FILE_NAME__ __FILE__
#endif

/// Reports a failed condition, with an optional message.
#define ZOLAssertBool(message) ZOLAssertReport(ZOL_KIND_BOOL, (message), __FILE_NAME__, __LINE__)
/// Reports a null pointer, with an optional message.
#define ZOLAssertPointer(message) ZOLAssertReport(ZOL_KIND_POINTER, (message), __FILE_NAME__, __LINE__)
/// Reports a message with an empty kind.
#define ZOLAssertMessage(message) ZOLAssertReport("", (message), __FILE_NAME__, __LINE__)
