// The text of overriding values: written byte for byte in its own form, read through the
// platform's JSON object.
#include "local/ZOLQelLocalStandardAttributesJson.h"

#include <charconv>
#include <string_view>
#include <utility>

#include "detail/ZOLOmxJson.h"

namespace {

void AppendInt(std::string& out, int32_t value) { out += std::to_string(value); }

// Six decimals whatever the locale, as "%f" in the C locale: 2.5 is 2.500000.
void AppendDouble(std::string& out, double value) {
  char buffer[400];
  auto [end, ec] = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, 6);
  if (ec == std::errc()) out.append(buffer, end);
}

// Kept unescaped on purpose: documents written so far hold this form, and a quotation mark in a
// value breaks the text for the reader, as it always did.
void AppendString(std::string& out, const ZOLUnicodeString& value) {
  out += '"';
  out += value.ConvertToChar();
  out += '"';
}

template <class T, class Append>
void AppendVector(std::string& out, const std::vector<T>& values, Append append) {
  out += '[';
  for (size_t i = 0; i < values.size(); ++i) {
    if (i) out += ',';
    append(out, values[i]);
  }
  out += ']';
}

template <class T, class Get>
std::vector<T> ReadElements(const ZOLOmxJsonArray& array, Get get) {
  std::vector<T> values;
  for (int i = 1; i <= array.Length(); ++i) {
    T element{};
    (array.*get)(i, element);  // an element of another shape reads as zero or empty
    values.push_back(std::move(element));
  }
  return values;
}

LocalValue ReadVector(std::string_view type, const ZOLOmxJsonArray& array, bool& known) {
  known = true;
  if (type == "int_vector") return LocalValue(ReadElements<int>(array, &ZOLOmxJsonArray::GetInteger));
  if (type == "double_vector") return LocalValue(ReadElements<double>(array, &ZOLOmxJsonArray::GetDouble));
  if (type == "string_vector")
    return LocalValue(ReadElements<ZOLUnicodeString>(array, &ZOLOmxJsonArray::GetString));
  known = false;
  return LocalValue();
}

}  // namespace

namespace ZOLQelLocalStandardAttributes {

const char* LocalValueTypeName(const LocalValue& value) {
  switch (value.kind) {
    case LocalValueKind::Int: return "int";
    case LocalValueKind::Double: return "double";
    case LocalValueKind::String: return "string";
    case LocalValueKind::IntVector: return "int_vector";
    case LocalValueKind::DoubleVector: return "double_vector";
    case LocalValueKind::StringVector: return "string_vector";
  }
  return "invalid";
}

std::string LocalValueText(const LocalValue& value) {
  std::string out;
  switch (value.kind) {
    case LocalValueKind::Int: AppendInt(out, value.intValue); break;
    case LocalValueKind::Double: AppendDouble(out, value.doubleValue); break;
    case LocalValueKind::String: AppendString(out, value.stringValue); break;
    case LocalValueKind::IntVector: AppendVector(out, value.intVector, AppendInt); break;
    case LocalValueKind::DoubleVector: AppendVector(out, value.doubleVector, AppendDouble); break;
    case LocalValueKind::StringVector: AppendVector(out, value.stringVector, AppendString); break;
  }
  return out;
}

std::string SerializeOverloadedValues(const OverloadedValueMap& map) {
  std::string out = "{";
  bool first = true;
  for (const auto& [key, value] : map) {
    if (!first) out += ',';
    first = false;
    out += '"';
    out += key;
    // The blank before "value" is part of the stored form.
    out += "\":{\"type\":\"";
    out += LocalValueTypeName(value);
    out += "\", \"value\":";
    out += LocalValueText(value);
    out += '}';
  }
  out += '}';
  return out;
}

void ParseOverloadedValues(std::string text, OverloadedValueMap& map) {
  map.clear();
  const ZOLOmxJsonObject root{ZOLUnicodeString(std::move(text))};
  text.clear();
  root.ForEachMember([&map](const ZOLOmxKeyString& key, const ZOLOmxAny& any) {
    const ZOLOmxJsonObject entry(any);
    ZOLUnicodeString type;
    entry.GetString("type", type);
    const std::string& word = type.str();
    if (word == "int") {
      int value = 0;
      entry.GetInteger("value", value);
      map[key.asString().str()] = LocalValue(static_cast<int32_t>(value));
    } else if (word == "double") {
      double value = 0.0;
      entry.GetDouble("value", value);
      map[key.asString().str()] = LocalValue(value);
    } else if (word == "string") {
      ZOLUnicodeString value;
      entry.GetString("value", value);
      map[key.asString().str()] = LocalValue(std::move(value));
    } else {
      ZOLOmxJsonArray array;
      entry.GetArray("value", array);
      bool known = false;
      LocalValue value = ReadVector(word, array, known);
      if (known) map[key.asString().str()] = std::move(value);
    }
  });
}

}  // namespace ZOLQelLocalStandardAttributes
