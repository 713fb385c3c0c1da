// A standard text written directly from a JSON description, by plain concatenation.
#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>

#include "ZOLDftStandardServices.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLSysLog.h"

namespace {

// The value elements by the "type" of a description; any other type writes nothing.
struct ValueElement {
  std::string_view type;
  std::string_view tag;
};
constexpr ValueElement kValueElements[] = {
    {"int", "std:intval"},       {"double", "std:floatval"}, {"string", "std:strval"},
    {"enum", "std:enumval"},     {"color", "std:colorval"},
};

std::string_view TagOf(std::string_view type) {
  for (const auto& e : kValueElements)
    if (e.type == type) return e.tag;
  return {};
}

class Writer {
public:
  explicit Writer(std::string& out) : _out(out) {}

  void Enumeration(std::string_view name, const ZOLOmxJsonArray& literals) {
    Open("std:enumdef", name);
    ZOLUnicodeString literal;
    for (int i = 1, n = literals.Length(); i <= n; ++i) {
      literal = ZOLUnicodeString();
      literals.GetString(i, literal);
      _out += "<std:strval>";
      _out += literal.str();
      _out += "</std:strval>";
    }
    _out += "</std:enumdef>";
  }

  // A typedef's fields take their "default"; a record's fields their "value".
  void Record(std::string_view tag, std::string_view name, const ZOLOmxJsonObject& fields, const char* valueKey) {
    Open(tag, name);
    fields.ForEachMember([&](const ZOLOmxKeyString& key, const ZOLOmxAny& any) {
      const ZOLOmxJsonObject field(any);
      const std::string_view fieldTag = TagOf(field.OptString("type"));
      if (fieldTag.empty()) return;
      Open(fieldTag, key.view());
      Text(field, valueKey);
      Close(fieldTag);
    });
    Close(tag);
  }

  // A value element without a name, but an enum's, which names its enumeration.
  void Value(const ZOLOmxJsonObject& leaf) {
    const std::string_view type = leaf.OptString("type");
    const std::string_view tag = TagOf(type);
    if (tag.empty()) return;
    if (type == "enum") Open(tag, leaf.OptString("enum"));
    else _out.append("<").append(tag).append(">");
    Text(leaf, "value");
    Close(tag);
  }

  void Node(std::string_view name, const ZOLOmxJsonObject& node) {
    Open("std:node", name);
    bool leaf = false;
    node.ForEachMember([&](const ZOLOmxKeyString& key, const ZOLOmxAny& any) {
      if (leaf) return;
      if (!any.IsObject()) {
        // At the first member that is no object, the node itself is the leaf; the rest is not walked.
        leaf = true;
        Leaf(node);
        return;
      }
      const ZOLOmxJsonObject member(any);
      if (member.OptString("type") != "enum" && member.OptString("enumName") == key.view()) Value(member);
      else Node(key.view(), member);
    });
    _out += "</std:node>";
  }

private:
  void Leaf(const ZOLOmxJsonObject& leaf) {
    const ZOLOmxJsonArray entries = leaf.OptJsonArray("array");
    if (leaf.OptString("type") == "typeval") {
      const std::string recordType(leaf.OptString("typeval"));
      for (int i = 1, n = entries.Length(); i <= n; ++i) Record("std:typeval", recordType, Entry(entries, i), "value");
    } else if (entries.Length() > 0) {
      for (int i = 1, n = entries.Length(); i <= n; ++i) Value(Entry(entries, i));
    } else {
      Value(leaf);
    }
  }

  static ZOLOmxJsonObject Entry(const ZOLOmxJsonArray& entries, int index) {
    ZOLOmxJsonObject entry;
    entries.GetJsonObject(index, entry);
    return entry;
  }

  // The text of a value by its type: a decimal integer, a real with six decimals, else the string.
  void Text(const ZOLOmxJsonObject& value, const char* key) {
    const std::string_view type = value.OptString("type");
    if (type == "int") {
      int i = 0;
      value.GetInteger(key, i);
      char buf[16];
      _out.append(buf, std::to_chars(buf, buf + sizeof buf, i).ptr);
    } else if (type == "double") {
      double d = 0.0;
      value.GetDouble(key, d);
      char buf[512];  // "%f" of the largest double takes 316 characters
      const int len = std::snprintf(buf, sizeof buf, "%f", d);
      if (len > 0) _out.append(buf, static_cast<size_t>(len) < sizeof buf ? static_cast<size_t>(len) : sizeof buf - 1);
    } else {
      _out += value.OptString(key);
    }
  }

  void Open(std::string_view tag, std::string_view name) {
    _out.append("<").append(tag).append(" name=\"").append(name).append("\">");
  }
  void Close(std::string_view tag) { _out.append("</").append(tag).append(">"); }

  std::string& _out;
};

}  // namespace

long ZOLDftStandardServices::GenerateStandardXML(const ZOLOmxJsonObject& description, std::string& text) {
  static const char* const kSections[] = {"EnumDefinition", "TypeDefinition", "Styles", "Standard Parameters"};
  ZOLOmxJsonObject sections[4];
  for (int i = 0; i < 4; ++i) {
    if (FAILED(description.GetJsonObject(kSections[i], sections[i]))) {
      ZOLAssertBool(kSections[i]);
      return E_UNEXPECTED;
    }
  }
  std::string out;
  out.append("<?xml version=\"1.0\"?><std:node name=\"ISO\" type=\"drafting\" xmlns:std=\"")
      .append(ZOLDftStdNamespaceURI)
      .append("\">");
  Writer writer(out);
  sections[0].ForEachMember([&](const ZOLOmxKeyString& key, const ZOLOmxAny& any) {
    writer.Enumeration(key.view(), ZOLOmxJsonArray(any));
  });
  sections[1].ForEachMember([&](const ZOLOmxKeyString& key, const ZOLOmxAny& any) {
    writer.Record("std:typedef", key.view(), ZOLOmxJsonObject(any), "default");
  });
  writer.Node("Styles", sections[2]);
  sections[3].ForEachMember([&](const ZOLOmxKeyString& key, const ZOLOmxAny& any) {
    writer.Node(key.view(), ZOLOmxJsonObject(any));
  });
  out += "</std:node>";
  text.swap(out);
  return S_OK;
}
