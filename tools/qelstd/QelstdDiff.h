// The differences between two decoded standard trees, by path.
#pragma once
#include <string>
#include <vector>

#include "ZOLAnnStandardXMLParser.h"

namespace qelstd {

/// One node or value that stands in one tree only, or one value that differs.
struct Difference {
  enum Change { kOnlyInA, kOnlyInB, kChanged };
  Change change;
  /// True when a whole node (with all it holds) stands in one tree only.
  bool node;
  /// "Root", "Enum" or "TypeDef", then the sub-nodes by name; a record of a list by its type and
  /// its Name field ("Formats[A4 ISO]"), a repeated name by its occurrence ("#2"); then a field by
  /// its name, or a value by its 1-based place ("[2]") where a node holds several.
  std::string path;
  /// Each side's text and kind (ValueKind, or a count of what a node holds, kind "node"); empty on
  /// the side where it is absent.
  std::string textA, kindA, textB, kindB;
};

/// Every difference of a and b: within a node, its values first, then its sub-nodes in a's order,
/// then what only b holds in b's order. Equal trees give none.
std::vector<Difference> DiffTrees(ZOLAnnStandardXMLParser& a, ZOLAnnStandardXMLParser& b);

}  // namespace qelstd
