// Edit files and the tree outline, shared by the verbs that edit standards.
#pragma once
#include <cstdio>
#include <string>
#include <vector>

class ZOLAnnStandardXMLParser;

namespace qelstd {

/// One line of an edit file: an operation, its occurrence, and the edit string as written.
struct EditLine {
  enum Op { Node, TypeVal, Value, ValueAll, Change, Delete };
  int number = 0;        // 1-based line number in the file
  Op op = Node;
  int occurrence = 1;    // value and value-all only
  std::string text;      // the edit string, blanks kept
  std::string written;   // the line as it stands in the file
};

/// The format of an edit file, for --help.
extern const char* const kEditFileFormat;

/// Parses the text of an edit file. On a bad line returns false with why naming the line.
bool ParseEditLines(const std::string& text, std::vector<EditLine>& lines, std::string& why);

/// Applies one line to a document; the result code of the edit-string operation.
int ApplyEditLine(ZOLAnnStandardXMLParser& doc, const EditLine& line);

/// Prints the three roots as an indented outline (two blanks per level), deepest trees included.
void PrintOutline(std::FILE* out, const ZOLAnnStandardXMLParser& doc);

}  // namespace qelstd
