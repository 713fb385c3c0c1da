// A standard text written directly from a JSON description, by plain concatenation.
#include <charconv>
#include <cstdio>
#include <string>
#include <string_view>

#include "ZOLDftStandardServices.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLSysLog.h"
#include "document/ZOLDftStdElement.h"

namespace {

using Element = ZOLDftStdElement;

constexpr std::string_view Tag(Element e) { return ZOLDftStdElementQualifiedName(e); }

// The tag of the value element of a description's "type"; empty for any other type, which writes nothing.
std::string_view TagOf(std::string_view type) { return Tag(ZOLDftStdElementOfJsonType(type)); }

class Writer {
public:
  explicit Writer(std::string& out) : _out(out) {}

  void Enumeration(std::string_view name, const ZOLOmxJsonArray& literals) {
    Open(Tag(Element::EnumDef), name);
    ZOLUnicodeString literal;
    for (int i = 1, n = literals.Length(); i <= n; ++i) {
      literal = ZOLUnicodeString();
      literals.GetString(i, literal);
      _out.append("<").append(Tag(Element::StrVal)).append(">").append(literal.str());
      Close(Tag(Element::StrVal));
    }
    Close(Tag(Element::EnumDef));
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
    Open(Tag(Element::Node), name);
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
    Close(Tag(Element::Node));
  }

private:
  void Leaf(const ZOLOmxJsonObject& leaf) {
    const ZOLOmxJsonArray entries = leaf.OptJsonArray("array");
    if (leaf.OptString("type") == "typeval") {
      const std::string recordType(leaf.OptString("typeval"));
      for (int i = 1, n = entries.Length(); i <= n; ++i) Record(Tag(Element::TypeVal), recordType, Entry(entries, i), "value");
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
  // Kept on purpose: the document element is "ISO" whichever standard is described; readers take
  // the parent from the standard's values, not from this name.
  out.append("<?xml version=\"1.0\"?><")
      .append(Tag(Element::Node))
      .append(" name=\"ISO\" type=\"drafting\" xmlns:")
      .append(ZOLDftStdNamespacePrefix)
      .append("=\"")
      .append(ZOLDftStdNamespaceURI)
      .append("\">");
  Writer writer(out);
  sections[0].ForEachMember([&](const ZOLOmxKeyString& key, const ZOLOmxAny& any) {
    writer.Enumeration(key.view(), ZOLOmxJsonArray(any));
  });
  sections[1].ForEachMember([&](const ZOLOmxKeyString& key, const ZOLOmxAny& any) {
    writer.Record(Tag(Element::TypeDef), key.view(), ZOLOmxJsonObject(any), "default");
  });
  writer.Node("Styles", sections[2]);
  sections[3].ForEachMember([&](const ZOLOmxKeyString& key, const ZOLOmxAny& any) {
    writer.Node(key.view(), ZOLOmxJsonObject(any));
  });
  out.append("</").append(Tag(Element::Node)).append(">");
  text.swap(out);
  return S_OK;
}
