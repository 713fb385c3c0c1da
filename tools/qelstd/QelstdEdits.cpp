// Edit files and the tree outline.
#include "QelstdEdits.h"

#include <algorithm>
#include <charconv>
#include <string>
#include <string_view>
#include <utility>

#include "QelstdOutput.h"
#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLAnnStandardXMLValue.h"
#include "ZOLSysLog.h"

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
    "n-th sub-node; -1 also forces a value onto that node itself. POS is 1-based; empty appends.\n"
    "An edit file may hold at most 64 MiB, and its value-all lines may reach at most 1000000 sub-nodes\n"
    "together; a line that would reach more stops the run.\n";

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

bool ForEachEditLine(std::string_view text, const std::function<void(const EditLine&)>& take, std::string& why) {
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
    line.written = body;
    line.text = blank == std::string_view::npos ? std::string_view() : body.substr(blank + 1);
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
      take(line);
      continue;
    }
    auto [ptr, ec] = std::from_chars(occurrence.data(), occurrence.data() + occurrence.size(), line.occurrence);
    if (!takesOccurrence || occurrence.empty() || ec != std::errc() || ptr != occurrence.data() + occurrence.size()) {
      why = "line " + std::to_string(number) + ": bad occurrence '@" + std::string(occurrence) + "' for " +
            std::string(word);
      return false;
    }
    take(line);
  }
  return true;
}

int ApplyEditLine(ZOLAnnStandardXMLParser& doc, const EditLine& line) {
  switch (line.op) {
    case EditLine::Node: return doc.AddNodeWithPath(ZOLUnicodeString(line.text), 0);
    case EditLine::TypeVal: return doc.AddNodeWithPath(ZOLUnicodeString(line.text), 1);
    case EditLine::Value: return doc.AddValueWithPath(ZOLUnicodeString(line.text), line.occurrence);
    case EditLine::ValueAll: return doc.AddValueWithPathForAllOccurence(ZOLUnicodeString(line.text), line.occurrence);
    case EditLine::Change: return doc.ChangeValueWithPath(ZOLUnicodeString(line.text));
    case EditLine::Delete: return doc.DeleteNodeWithPath(ZOLUnicodeString(line.text));
  }
  return 1;
}

long long ValueAllReach(const ZOLAnnStandardXMLParser& doc, const EditLine& line) {
  if (line.op != EditLine::ValueAll || !doc.Root()) return 0;
  std::string_view text = line.text;
  const size_t colon = text.find(':');
  if (colon == std::string_view::npos) return 0;
  std::string_view path = text.substr(0, colon);
  const size_t dot = path.find('.');
  if (dot == std::string_view::npos || path.substr(0, dot) != "Root") return 0;
  std::string_view rest = path.substr(dot + 1), last = rest;
  // The parent as the operation finds it: the sum of each dot's offset in what was left at that step.
  size_t parentLength = 0;
  for (size_t d; (d = last.find('.')) != std::string_view::npos; last.remove_prefix(d + 1)) parentLength += d;
  // An occurrence beyond the sub-nodes is reported by the lookup; the operation itself reports it again.
  ZOLSysLogHook previous = ZOLSysLogSetHook([](bool, const char*) {});
  const ZOLAnnStandardXMLNode* parent = doc.Root()->FindNodeWithPath(rest.substr(0, parentLength), line.occurrence);
  ZOLSysLogSetHook(std::move(previous));
  if (!parent) return 0;
  long long reach = 0;
  for (const ZOLAnnStandardXMLNode* node : parent->SubNodes()) reach += node->Name().str() == last;
  return reach;
}

bool PrintOutline(std::FILE* out, const ZOLAnnStandardXMLParser& doc) {
  std::vector<std::pair<const ZOLAnnStandardXMLNode*, size_t>> stack;
  for (auto* root : {doc.TypeDefRoot(), doc.EnumRoot(), doc.Root()})
    if (root) stack.emplace_back(root, 0);
  std::reverse(stack.begin(), stack.end());
  std::string indent;
  auto lead = [&indent](size_t depth) -> const std::string& {
    indent.assign(2 * std::min(depth, kOutlineIndentLevels), ' ');
    if (depth > kOutlineIndentLevels) indent += "[" + std::to_string(depth) + "] ";
    return indent;
  };
  bool ok = true;
  while (ok && !stack.empty()) {
    auto [node, depth] = stack.back();
    stack.pop_back();
    if (node->GetNodeType() == ZOLAnnStandardXMLNode::RootNode)
      ok = Printf(out, "%s%s\n", lead(depth).c_str(), node->Name().ConvertToChar());
    else
      ok = Printf(out, "%s%s \"%s\"\n", lead(depth).c_str(), NodeKind(node->GetNodeType()), node->Name().ConvertToChar());
    lead(depth + 1);
    for (const ZOLAnnStandardXMLValue* v : node->Values()) {
      if (!ok) break;
      ok = Printf(out, "%s%s", indent.c_str(), ValueKind(v->GetType()));
      if (v->GetRangeVal()) ok = ok && Printf(out, " min \"%s\"", v->Name().ConvertToChar());
      else if (!v->Name().IsEmpty()) ok = ok && Printf(out, " \"%s\"", v->Name().ConvertToChar());
      ok = ok && Printf(out, " = \"%s\"\n", v->Value().ConvertToChar());
    }
    const auto& subs = node->SubNodes();
    for (auto it = subs.rbegin(); it != subs.rend(); ++it) stack.emplace_back(*it, depth + 1);
  }
  return ok;
}

}  // namespace qelstd
