// How the verbs that show a decoded standard tree name its nodes and the kinds of its values.
#pragma once
#include <string>
#include <string_view>

#include "ZOLAnnStandardXMLNode.h"

namespace qelstd {

/// The kind of a value as it reads in a file: "int", "float", "string", "enum", "colour" (or "none"),
/// followed by the enumeration of an enum and the lower bound of a bounded value.
inline std::string ValueKind(const ZOLAnnStandardXMLValue& v) {
  std::string kind;
  switch (v.GetType()) {
    case ZOLAnnStandardXMLValue::IntValue: kind = "int"; break;
    case ZOLAnnStandardXMLValue::FloatValue: kind = "float"; break;
    case ZOLAnnStandardXMLValue::StringValue: kind = "string"; break;
    case ZOLAnnStandardXMLValue::EnumValue: kind = "enum"; break;
    case ZOLAnnStandardXMLValue::ColorValue: kind = "colour"; break;
    default: kind = "none"; break;
  }
  if (v.GetType() == ZOLAnnStandardXMLValue::EnumValue && !v.Name().IsEmpty()) kind += " " + v.Name().str();
  else if (v.GetRangeVal() == 1) kind += ", min " + v.Name().str();
  return kind;
}

/// Whether the values of a node are fields known by their names (a record or its type), rather
/// than entries known by their place.
inline bool HasNamedValues(const ZOLAnnStandardXMLNode& n) {
  return n.GetNodeType() == ZOLAnnStandardXMLNode::TypeValNode || n.GetNodeType() == ZOLAnnStandardXMLNode::TypeDefNode;
}

/// The text of a record's "Name" field, empty for any other node: records of a list share the name
/// of their type, and this tells them apart.
inline std::string_view RecordName(const ZOLAnnStandardXMLNode& n) {
  if (n.GetNodeType() != ZOLAnnStandardXMLNode::TypeValNode) return {};
  const ZOLAnnStandardXMLValue* v = n.FindValueByName("Name");
  return v ? std::string_view(v->Value()) : std::string_view();
}

}  // namespace qelstd
