// Verbs of qelstd register themselves; each lives in a file of its own.
#pragma once
#include <CLI/CLI.hpp>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace qelstd {

/// Exit statuses of every verb.
enum Exit { kDone = 0, kNotFound = 1, kUsage = 2 };

/// Adds a subcommand to app; the verb stores its exit status in *status when it runs.
using VerbSetup = std::function<void(CLI::App& app, int* status)>;

struct VerbEntry {
  const char* name;
  VerbSetup setup;
};

inline std::vector<VerbEntry>& Verbs() {
  static std::vector<VerbEntry> verbs;
  return verbs;
}

/// Registers a verb at static initialisation: `static qelstd::VerbRegistrar r("apply", &SetupApply);`
struct VerbRegistrar {
  VerbRegistrar(const char* name, VerbSetup setup) { Verbs().push_back({name, std::move(setup)}); }
};

/// Writes "qelstd: <what>: <why>" to standard error.
inline void Error(const std::string& what, const std::string& why) {
  std::fprintf(stderr, "qelstd: %s: %s\n", what.c_str(), why.c_str());
}

/// The file or standard a verb is reading, named by an error that ends the verb (an exception of the
/// library, or memory running out); the verb's name until a verb sets it.
inline std::string& Subject() {
  static std::string subject;
  return subject;
}
inline void SetSubject(std::string subject) { Subject() = std::move(subject); }

}  // namespace qelstd
