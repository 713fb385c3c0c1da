// Decoding the built-in standards and reading their trees, for the tests of the built-in texts;
// the one-line dump of a tree serves the codec tests too.
#pragma once
#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLAnnStandardXMLValue.h"
#include "ZOLDftBuiltinStandards.h"
#include "ZOLRefCounted.h"
#include "ZOLTestReports.h"

namespace builtintest {

inline const std::vector<std::string>& Standards() {
  static const std::vector<std::string> names = {"ISO", "ANSI-ASME", "JIS"};
  return names;
}

/// The text of a built-in standard, as a string.
inline const std::string& Text(const std::string& name) {
  const ZOLUnicodeString* text = ZOLDftBuiltinStandards::GetText(name);
  static const std::string none;
  return text ? text->str() : none;
}

/// A parser holding the decoded standard; the decoding must succeed without any report.
inline std::unique_ptr<ZOLAnnStandardXMLParser> Decode(const std::string& name) {
  ZOLTestReports reports;
  auto parser = std::make_unique<ZOLAnnStandardXMLParser>();
  EXPECT_EQ(parser->DecodeXML(ZOLUnicodeString(Text(name)), 0), 0) << name;
  EXPECT_EQ(reports.Count(), 0) << name;
  return parser;
}

/// The node at a path of the document ("Root.Styles"), or null.
inline ZOLRef<ZOLAnnStandardXMLNode> At(ZOLAnnStandardXMLParser& parser, const std::string& path) {
  return ZOLRef<ZOLAnnStandardXMLNode>::Adopt(parser.GetNodeWithPath(ZOLUnicodeString(path)));
}

/// The names of the sub-nodes of a node, in order.
inline std::vector<std::string> Names(const ZOLAnnStandardXMLNode* node) {
  std::vector<std::string> out;
  if (node)
    for (auto* n : node->SubNodes()) out.push_back(n->Name().str());
  return out;
}

/// The value of a record field, by name.
inline std::string Field(const ZOLAnnStandardXMLNode* record, const std::string& name) {
  for (auto* v : record->Values())
    if (v->Name().str() == name) return v->Value().str();
  return "<absent>";
}

/// The whole subtree as text: kinds, names, values with their names and bounds.
inline void Dump(const ZOLAnnStandardXMLNode* node, std::string& out) {
  out += std::to_string(node->GetNodeType()) + ":" + node->Name().str() + "{";
  for (auto* v : node->Values())
    out += std::to_string(v->GetType()) + "/" + v->Name().str() + "/" + v->Value().str() + "/" +
           std::to_string(v->GetRangeVal()) + ";";
  for (auto* n : node->SubNodes()) Dump(n, out);
  out += "}";
}

inline std::string Dump(const ZOLAnnStandardXMLNode* node) {
  std::string out;
  if (node) Dump(node, out);
  return out;
}

/// A test that runs once for each built-in standard, named after it.
class EachStandard : public testing::TestWithParam<std::string> {
protected:
  const std::string& name = GetParam();
};

/// The standard's name as a test name: "ANSI-ASME" as "ANSI_ASME".
inline std::string StandardTestName(const testing::TestParamInfo<std::string>& info) {
  std::string id = info.param;
  for (char& c : id)
    if (c == '-') c = '_';
  return id;
}

}  // namespace builtintest
