// Shared by the parts of the generator of the built-in standards: parents and table reading.
#pragma once
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <optional>
#include <sstream>
#include <string>
#include <vector>

#include "document/ZOLDftParentStandard.h"

namespace qelgen {

// The built-in standards, each a column of the per-parent tables, in the library's order.
enum Parent {
  ISO = static_cast<int>(ZOLDftBuiltin::ISO),
  ANSI = static_cast<int>(ZOLDftBuiltin::AnsiAsme),
  JIS = static_cast<int>(ZOLDftBuiltin::JIS)
};
constexpr int kParents = kZOLDftBuiltinCount;
// "ISO", "ANSI-ASME", "JIS": the name of a built-in standard and of its file.
inline std::string StandardName(int parent) { return std::string(ZOLDftBuiltinName(static_cast<ZOLDftBuiltin>(parent))); }
// "ISO", "ANSI", "JIS": the parent text that a built-in standard stores.
inline std::string ParentWord(int parent) {
  return std::string(ZOLDftParentText(ZOLDftBuiltinParent(static_cast<ZOLDftBuiltin>(parent))));
}

inline std::string gDataDir;  // the folder of the tables
inline const char* gToolName = "generate_standards";  // names the tool in its messages

[[noreturn]] inline void Fail(const std::string& where, const std::string& why) {
  std::fprintf(stderr, "%s: %s: %s\n", gToolName, where.c_str(), why.c_str());
  std::exit(1);
}

inline std::vector<std::string> Split(const std::string& s, char sep) {
  std::vector<std::string> out;
  size_t start = 0;
  for (;;) {
    size_t p = s.find(sep, start);
    out.push_back(s.substr(start, p == std::string::npos ? std::string::npos : p - start));
    if (p == std::string::npos) return out;
    start = p + 1;
  }
}

inline std::vector<std::string> Words(const std::string& s) {
  std::vector<std::string> out;
  std::istringstream in(s);
  for (std::string w; in >> w;) out.push_back(w);
  return out;
}

// One line of a table, with its place for messages.
struct Row {
  std::string where;
  std::vector<std::string> cells;
  const std::string& At(size_t i) const {
    static const std::string empty;
    return i < cells.size() ? cells[i] : empty;
  }
};

// Reads a tab-separated table; "#" lines and empty lines are skipped.
inline std::vector<Row> ReadTable(const std::string& file) {
  std::ifstream in(gDataDir + "/" + file, std::ios::binary);
  if (!in) Fail(file, "cannot be read");
  std::vector<Row> rows;
  std::string line;
  for (int n = 1; std::getline(in, line); ++n) {
    if (!line.empty() && line.back() == '\r') line.pop_back();
    if (line.empty() || line[0] == '#') continue;
    rows.push_back({file + ":" + std::to_string(n), Split(line, '\t')});
  }
  return rows;
}

// A cell's text: a quoted cell ("", " ", """) stands for its content, blanks included.
inline std::string Literal(const std::string& cell) {
  if (cell.size() >= 2 && cell.front() == '"' && cell.back() == '"') return cell.substr(1, cell.size() - 2);
  return cell;
}

// The value of a per-parent row for one parent: ISO column, then ANSI and JIS when not empty;
// "~" says the parent has no such entry.
inline std::optional<std::string> ForParent(const Row& row, size_t isoColumn, int parent) {
  std::string cell = row.At(isoColumn);
  if (parent != ISO && !row.At(isoColumn + parent).empty()) cell = row.At(isoColumn + parent);
  if (cell == "~") return std::nullopt;
  return Literal(cell);
}

inline bool ParentListHas(const std::string& list, int parent) {
  if (list == "*" || list.empty()) return true;
  for (auto& w : Split(list, ','))
    if (w == ParentWord(parent)) return true;
  return false;
}

}  // namespace qelgen
