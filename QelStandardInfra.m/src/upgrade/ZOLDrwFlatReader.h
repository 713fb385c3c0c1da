// The reader of flat legacy standard files: one "KEYWORD value" per line, comment, tolerance and
// numerical display blocks between their BEGIN_ and END_ keywords (README.md, "Flat legacy files").
#pragma once
#include <string_view>
#include <vector>

#include "ZOLDrwParseStandard.h"

// What a flat text holds. The parameters belong to the caller.
struct ZOLDrwFlatText {
  std::vector<ZOLDrwParseParameter*> parameters;
  std::vector<ZOLDrwParseStandard::FlatFault> faults;
};

// 1 when text reads as a flat file: no NUL byte, and its first line that is not blank begins
// with a keyword of the table.
bool ZOLDrwIsFlatText(std::string_view text);
// Reads a flat text, going on after each fault; the parent is left to the caller.
ZOLDrwFlatText ZOLDrwReadFlatText(std::string_view text);
