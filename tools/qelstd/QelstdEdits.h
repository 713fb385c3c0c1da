// Edit files and the tree outline, shared by the verbs that edit standards.
#pragma once
#include <cstdio>
#include <functional>
#include <string>
#include <string_view>

class ZOLAnnStandardXMLParser;

namespace qelstd {

/// One line of an edit file: an operation, its occurrence, and the edit string as written; the texts
/// are views into the text of the file.
struct EditLine {
  enum Op { Node, TypeVal, Value, ValueAll, Change, Delete };
  int number = 0;              // 1-based line number in the file
  Op op = Node;
  int occurrence = 1;          // value and value-all only
  std::string_view text;       // the edit string, blanks kept
  std::string_view written;    // the line as it stands in the file
};

/// The format of an edit file, for --help.
extern const char* const kEditFileFormat;

/// The most sub-nodes that the value-all lines of one edit file may reach together: each line adds a
/// value (or a node with a value) to every sub-node it reaches, so that a few lines could otherwise
/// grow a document by the square of their number.
inline constexpr long long kMaxValueAllReach = 1000000;

/// The deepest level that the outline shows by indentation; deeper lines begin with "[depth] ".
inline constexpr size_t kOutlineIndentLevels = 64;

/// Reads the lines of an edit file in order, handing each to take; nothing is kept, so that the
/// cost in memory is that of the text. On a bad line returns false with why naming the line (the
/// lines before it were handed over).
bool ForEachEditLine(std::string_view text, const std::function<void(const EditLine&)>& take, std::string& why);

/// Applies one line to a document; the result code of the edit-string operation.
int ApplyEditLine(ZOLAnnStandardXMLParser& doc, const EditLine& line);

/// How many sub-nodes a value-all line would add to, found as the edit-string operation finds them;
/// 0 for any other line. Raises no report.
long long ValueAllReach(const ZOLAnnStandardXMLParser& doc, const EditLine& line);

/// Prints the three roots as an outline, two blanks per level down to kOutlineIndentLevels, then the
/// depth in brackets, so that the output grows with the tree and not with the square of its depth.
/// False when a write failed (the rest is not written).
bool PrintOutline(std::FILE* out, const ZOLAnnStandardXMLParser& doc);

}  // namespace qelstd
