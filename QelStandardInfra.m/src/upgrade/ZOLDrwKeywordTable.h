// The keywords of flat legacy standards: their order, their names in the tree, and which ones a
// flat file must value.
#pragma once
#include <span>
#include <string_view>

class ZOLTrace;

struct ZOLDrwKeywordRow {
  const char* keyword;
  // Null where the tree name is the keyword itself.
  const char* param;
  int mandatory;

  std::string_view Keyword() const { return keyword; }
  std::string_view Param() const { return param ? param : keyword; }
};

// The 177 rows in their fixed order; Check depends on the indexes.
std::span<const ZOLDrwKeywordRow> ZOLDrwKeywordTable();

// Rows of the general parameters, of the tolerance block and of the numerical display block.
inline constexpr int kZOLDrwFirstGeneralRow = 2;
inline constexpr int kZOLDrwLastGeneralRow = 118;
inline constexpr int kZOLDrwFirstToleranceRow = 119;
inline constexpr int kZOLDrwFirstNumericalRow = 140;

// The 0-based row of the first keyword (or tree name) equal to word; -1 for none or an empty word.
int ZOLDrwKeywordIndex(std::string_view word);
int ZOLDrwParamIndex(std::string_view word);

// The trace ZOLDftStandardOutput, where Check writes.
ZOLTrace& ZOLDrwStandardOutputTrace();
