// Builds and edits a standard tree from short edit lines, for tests.
#pragma once
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ZOLAnnStandardXMLParser.h"

/// Applies each line: "N path:name" a plain node, "T path:name" a typed entry, "V edit" a value,
/// "A edit" a value at every namesake, "C edit" a change, "D path" a deletion, "L edit" a value on
/// the last sub-node. "@k" after V or A gives the occurrence (1 when absent; L is V@-1). A line
/// must give 0 unless it ends in " => r", r being the result it must give.
inline void ZOLEditLines(ZOLAnnStandardXMLParser& p, const std::vector<std::string>& lines) {
  for (const std::string& line : lines) {
    const size_t space = line.find(' ');
    const std::string op = line.substr(0, space);
    std::string edit = space == std::string::npos ? std::string() : line.substr(space + 1);
    int expected = 0;
    if (size_t arrow = edit.rfind(" => "); arrow != std::string::npos) {
      expected = std::stoi(edit.substr(arrow + 4));
      edit.erase(arrow);
    }
    const int occurrence = op.size() > 2 && op[1] == '@' ? std::stoi(op.substr(2)) : op == "L" ? -1 : 1;
    int rc = -99;
    switch (op[0]) {
      case 'N': rc = p.AddNodeWithPath(edit, 0); break;
      case 'T': rc = p.AddNodeWithPath(edit, 1); break;
      case 'V':
      case 'L': rc = p.AddValueWithPath(edit, occurrence); break;
      case 'A': rc = p.AddValueWithPathForAllOccurence(edit, occurrence); break;
      case 'C': rc = p.ChangeValueWithPath(edit); break;
      case 'D': rc = p.DeleteNodeWithPath(edit); break;
      default: ADD_FAILURE() << "no such edit line: " << line;
    }
    ASSERT_EQ(rc, expected) << line;
  }
}
