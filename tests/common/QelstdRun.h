// Runs the qelstd binary as a user would, for the tests of its verbs.
#pragma once
#include <gtest/gtest.h>

#include <cstdio>
#include <string>
#include <sys/wait.h>

struct QelstdRun {
  int status;       // the exit status, -1 when qelstd did not exit normally
  std::string out;  // what it wrote on standard output
};

/// Runs "qelstd args" through the shell after prefix (variable settings); args may carry redirections.
inline QelstdRun RunQelstd(const std::string& args, const std::string& prefix = "") {
  std::string command = prefix + " '" QELSTD_QELSTD_EXE "' " + args;
  QelstdRun run{-1, ""};
  FILE* pipe = popen(command.c_str(), "r");
  if (!pipe) return run;
  char buffer[4096];
  for (size_t n; (n = fread(buffer, 1, sizeof buffer, pipe)) > 0;) run.out.append(buffer, n);
  int raw = pclose(pipe);
  run.status = WIFEXITED(raw) ? WEXITSTATUS(raw) : -1;
  return run;
}

/// Skips when this build has no qelstd; a configured binary that is missing fails the test.
#define QELSTD_REQUIRE_BINARY() \
  if (std::string(QELSTD_QELSTD_EXE).empty()) GTEST_SKIP() << "qelstd is not built"
