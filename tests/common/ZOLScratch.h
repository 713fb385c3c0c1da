// Scratch directories and whole-file reads and writes for the tests.
#pragma once
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace qeltest {

/// A fresh directory under the system's temporary directory, removed afterwards.
class ScratchDir {
public:
  ScratchDir() {
    std::string pattern = (std::filesystem::temp_directory_path() / "qelstd-test-XXXXXX").string();
    _path = mkdtemp(pattern.data()) ? pattern : std::string();
  }
  ~ScratchDir() {
    std::error_code ec;
    std::filesystem::remove_all(_path, ec);
  }
  ScratchDir(const ScratchDir&) = delete;
  ScratchDir& operator=(const ScratchDir&) = delete;
  const std::string& Path() const { return _path; }
  std::string operator/(const std::string& rel) const { return _path + "/" + rel; }

private:
  std::string _path;
};

/// Writes text to path, making its directories; gives the path back.
inline std::string WriteText(const std::string& path, const std::string& text) {
  std::filesystem::create_directories(std::filesystem::path(path).parent_path());
  std::ofstream(path, std::ios::binary) << text;
  return path;
}

inline std::string ReadText(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  std::ostringstream all;
  all << in.rdbuf();
  return all.str();
}

}  // namespace qeltest
