// Builds a standard tree from short edit lines, for the set-up of tests.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ZOLAnnStandardXMLParser.h"

/// Applies each line, which must succeed: "N path:name" a plain node, "T path:name" a typed entry,
/// "V path:name:type:value" a value at occurrence 1, "L ..." a value on the last sub-node (-1).
inline void ZOLEditLines(ZOLAnnStandardXMLParser& p, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    std::string edit = line.substr(2);
    int rc = 0;
    switch (line[0]) {
      case 'N': rc = p.AddNodeWithPath(edit, 0); break;
      case 'T': rc = p.AddNodeWithPath(edit, 1); break;
      case 'V': rc = p.AddValueWithPath(edit, 1); break;
      case 'L': rc = p.AddValueWithPath(edit, -1); break;
      default: ADD_FAILURE() << "no such edit line: " << line;
    }
    ASSERT_EQ(rc, 0) << line;
  }
}
