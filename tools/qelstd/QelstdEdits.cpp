// Edit files and the tree outline.
#include "QelstdEdits.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLAnnStandardXMLValue.h"

namespace qelstd {

const char* const kEditFileFormat =
    "Edit file: one edit per line, applied in order; blank lines and lines starting with # are skipped.\n"
    "  node PATH:NAME[:POS]                        add a node (an enumdef under Enum, a typedef under TypeDef)\n"
    "  typeval PATH:NAME[:POS]                     add a record instance\n"
    "  value[@OCC] PATH:NAME:TYPE:VALUE[:POS]      add a value; TYPE is int, float, string, color,\n"
    "                                              enum.ENUMNAME or float.m.LOWERBOUND\n"
    "  value-all[@OCC] PATH:NAME:TYPE:VALUE[:POS]  add it to every node named by the last component\n"
    "  change PATH:TEXT                            change a value (PATH:FIELD:TEXT on a record)\n"
    "  delete PATH                                 remove a node, or a value by name or text\n"
    "One blank separates the operation from the edit string, which runs to the end of the line as written.\n"
    "OCC is the occurrence of the last path step: 1 (default) by name, 0 or -1 the last sub-node, n the\n"
    "n-th sub-node; -1 also forces a value onto that node itself. POS is 1-based; empty appends.\n";

namespace {

bool ReadOp(std::string_view word, EditLine& line, bool& takesOccurrence) {
  static const std::pair<std::string_view, EditLine::Op> ops[] = {
      {"node", EditLine::Node},         {"typeval", EditLine::TypeVal}, {"value", EditLine::Value},
      {"value-all", EditLine::ValueAll}, {"change", EditLine::Change},   {"delete", EditLine::Delete}};
  for (const auto& [name, op] : ops) {
    if (word != name) continue;
    line.op = op;
    takesOccurrence = op == EditLine::Value || op == EditLine::ValueAll;
    return true;
  }
  return false;
}

const char* NodeKind(ZOLAnnStandardXMLNode::Type type) {
  switch (type) {
    case ZOLAnnStandardXMLNode::PlainNode: return "node";
    case ZOLAnnStandardXMLNode::TypeDefNode: return "typedef";
    case ZOLAnnStandardXMLNode::EnumDefNode: return "enumdef";
    case ZOLAnnStandardXMLNode::TypeValNode: return "typeval";
    default: return "";
  }
}

const char* ValueKind(ZOLAnnStandardXMLValue::Type type) {
  switch (type) {
    case ZOLAnnStandardXMLValue::IntValue: return "intval";
    case ZOLAnnStandardXMLValue::FloatValue: return "floatval";
    case ZOLAnnStandardXMLValue::StringValue: return "strval";
    case ZOLAnnStandardXMLValue::EnumValue: return "enumval";
    case ZOLAnnStandardXMLValue::ColorValue: return "colorval";
    default: return "value";
  }
}

}  // namespace

bool ParseEditLines(const std::string& text, std::vector<EditLine>& lines, std::string& why) {
  std::string_view rest = text;
  for (int number = 1; !rest.empty(); ++number) {
    size_t end = rest.find('\n');
    std::string_view raw = rest.substr(0, end);
    rest = end == std::string_view::npos ? std::string_view() : rest.substr(end + 1);
    if (!raw.empty() && raw.back() == '\r') raw.remove_suffix(1);
    size_t first = raw.find_first_not_of(" \t");
    if (first == std::string_view::npos || raw[first] == '#') continue;
    std::string_view body = raw.substr(first);
    size_t blank = body.find(' ');
    std::string_view word = body.substr(0, blank);
    EditLine line;
    line.number = number;
    line.written = std::string(body);
    line.text = blank == std::string_view::npos ? std::string() : std::string(body.substr(blank + 1));
    std::string_view occurrence;
    if (size_t at = word.find('@'); at != std::string_view::npos) {
      occurrence = word.substr(at + 1);
      word = word.substr(0, at);
    }
    bool takesOccurrence = false;
    if (!ReadOp(word, line, takesOccurrence)) {
      why = "line " + std::to_string(number) + ": unknown operation '" + std::string(word) + "'";
      return false;
    }
    if (!occurrence.data()) {
      lines.push_back(std::move(line));
      continue;
    }
    auto [ptr, ec] = std::from_chars(occurrence.data(), occurrence.data() + occurrence.size(), line.occurrence);
    if (!takesOccurrence || occurrence.empty() || ec != std::errc() || ptr != occurrence.data() + occurrence.size()) {
      why = "line " + std::to_string(number) + ": bad occurrence '@" + std::string(occurrence) + "' for " +
            std::string(word);
      return false;
    }
    lines.push_back(std::move(line));
  }
  return true;
}

int ApplyEditLine(ZOLAnnStandardXMLParser& doc, const EditLine& line) {
  switch (line.op) {
    case EditLine::Node: return doc.AddNodeWithPath(line.text, 0);
    case EditLine::TypeVal: return doc.AddNodeWithPath(line.text, 1);
    case EditLine::Value: return doc.AddValueWithPath(line.text, line.occurrence);
    case EditLine::ValueAll: return doc.AddValueWithPathForAllOccurence(line.text, line.occurrence);
    case EditLine::Change: return doc.ChangeValueWithPath(line.text);
    case EditLine::Delete: return doc.DeleteNodeWithPath(line.text);
  }
  return 1;
}

void PrintOutline(std::FILE* out, const ZOLAnnStandardXMLParser& doc) {
  std::vector<std::pair<const ZOLAnnStandardXMLNode*, size_t>> stack;
  for (auto* root : {doc.TypeDefRoot(), doc.EnumRoot(), doc.Root()})
    if (root) stack.emplace_back(root, 0);
  std::reverse(stack.begin(), stack.end());
  std::string indent;
  while (!stack.empty()) {
    auto [node, depth] = stack.back();
    stack.pop_back();
    indent.assign(2 * depth, ' ');
    if (node->GetNodeType() == ZOLAnnStandardXMLNode::RootNode)
      std::fprintf(out, "%s%s\n", indent.c_str(), node->Name().ConvertToChar());
    else
      std::fprintf(out, "%s%s \"%s\"\n", indent.c_str(), NodeKind(node->GetNodeType()), node->Name().ConvertToChar());
    indent.append(2, ' ');
    for (const ZOLAnnStandardXMLValue* v : node->Values()) {
      std::fprintf(out, "%s%s", indent.c_str(), ValueKind(v->GetType()));
      if (v->GetRangeVal()) std::fprintf(out, " min \"%s\"", v->Name().ConvertToChar());
      else if (!v->Name().IsEmpty()) std::fprintf(out, " \"%s\"", v->Name().ConvertToChar());
      std::fprintf(out, " = \"%s\"\n", v->Value().ConvertToChar());
    }
    const auto& subs = node->SubNodes();
    for (auto it = subs.rbegin(); it != subs.rend(); ++it) stack.emplace_back(*it, depth + 1);
  }
}

}  // namespace qelstd
