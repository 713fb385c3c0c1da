// Environment overrides and standard texts for the catalogue tests.
#pragma once
#include <gtest/gtest.h>

#include <cstdlib>
#include <optional>
#include <string>
#include <sys/time.h>
#include <vector>

#include "ZOLScratch.h"

namespace qeltest {

/// Sets or unsets variables for one test and restores what was there.
class EnvOverride {
public:
  EnvOverride() = default;
  ~EnvOverride() {
    for (auto it = _saved.rbegin(); it != _saved.rend(); ++it) {
      if (it->second)
        setenv(it->first.c_str(), it->second->c_str(), 1);
      else
        unsetenv(it->first.c_str());
    }
  }
  EnvOverride(const EnvOverride&) = delete;
  EnvOverride& operator=(const EnvOverride&) = delete;
  void Set(const std::string& name, const std::string& value) {
    Save(name);
    setenv(name.c_str(), value.c_str(), 1);
  }
  void Unset(const std::string& name) {
    Save(name);
    unsetenv(name.c_str());
  }
  /// No repository and no working directory.
  void Clear() {
    for (const char* v : {"ADL_ODT_OUT", "ZOLTemp", "ZOLCollectionStandard", "ZOLDefaultCollectionStandard"}) Unset(v);
  }

private:
  void Save(const std::string& name) {
    const char* v = std::getenv(name.c_str());
    _saved.emplace_back(name, v ? std::optional<std::string>(v) : std::nullopt);
  }
  std::vector<std::pair<std::string, std::optional<std::string>>> _saved;
};

/// Sets access and modification time of a file to seconds since the epoch.
inline void SetModified(const std::string& path, long seconds) {
  struct timeval times[2] = {{seconds, 0}, {seconds, 0}};
  ASSERT_EQ(utimes(path.c_str(), times), 0) << path;
}

/// The text of a standard file: the document element around body.
inline std::string Standard(const std::string& body) {
  return "<?xml version=\"1.0\"?>\n<std:node xmlns:std=\"http://www.qelstandardinfra.org/std\" name=\"drafting\">\n" +
         body + "</std:node>\n";
}

inline std::string Node(const std::string& name, const std::string& content) {
  return "<std:node name=\"" + name + "\">" + content + "</std:node>\n";
}

inline std::string Str(const std::string& text) { return "<std:strval>" + text + "</std:strval>"; }

inline std::string Version(int v) { return Node("Version", "<std:intval>" + std::to_string(v) + "</std:intval>"); }

inline std::string Parent(const std::string& parent, const std::string& datumMode = "") {
  std::string content = Node("ParentStandard", Str(parent));
  if (!datumMode.empty()) content += Node("TXTDatumMode", "<std:intval>" + datumMode + "</std:intval>");
  return Node("Dimension", content);
}

/// A sheet format record; values past the fourth or missing ones as given.
inline std::string Format(const std::string& name, const std::string& width, const std::string& height,
                          const std::string& orientation, bool withOrientation = true) {
  std::string v = "<std:strval name=\"Name\">" + name + "</std:strval><std:floatval name=\"Width\">" + width +
                  "</std:floatval><std:floatval name=\"Height\">" + height + "</std:floatval>";
  if (withOrientation) v += "<std:strval name=\"FormatOrientationType\">" + orientation + "</std:strval>";
  return "<std:typeval name=\"Formats\">" + v + "</std:typeval>\n";
}

/// A complete sheet style.
inline std::string FullSheetStyle(const std::string& name, const std::string& format, const std::string& scale) {
  return Node(name, Node("GlobalScale", "<std:floatval>" + scale + "</std:floatval>") + Node("Format", Str(format)) +
                        Node("Orientation", Str("Landscape")) + Node("DisplayFormat", Str("Yes")) +
                        Node("ProjectionMethod", Str("Third angle")) + Node("GenViewsPosMode", Str("FixedAxis")));
}

/// A sheet style of an old standard: a scale and a projection method only.
inline std::string OldSheetStyle(const std::string& name, const std::string& scale) {
  return Node(name, Node("GlobalScale", "<std:floatval>" + scale + "</std:floatval>") +
                        Node("ProjectionMethod", Str("First angle")));
}

}  // namespace qeltest
