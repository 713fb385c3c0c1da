// Read-only JSON objects and arrays of the platform, over nlohmann's ordered_json (members keep
// their order). Text that does not parse gives an object with no members; a getter answers S_OK,
// or E_FAIL and leaves its out variable as it was when the member is absent or of another shape.
#pragma once
#include <memory>
#include <nlohmann/json.hpp>

#include "ZOLResult.h"
#include "ZOLUnicodeString.h"

using ZOLOmxJsonDocument = nlohmann::ordered_json;

/// A member's key.
class ZOLOmxKeyString {
public:
  explicit ZOLOmxKeyString(const std::string& key) : _key(key) {}
  /// The key's text.
  ZOLUnicodeString asString() const { return ZOLUnicodeString(_key); }

private:
  const std::string& _key;
};

/// Any JSON value inside a parsed document; it keeps the document alive.
struct ZOLOmxAny {
  std::shared_ptr<const ZOLOmxJsonDocument> document;
  const ZOLOmxJsonDocument* value = nullptr;
};

class ZOLOmxJsonArray {
public:
  /// An empty array.
  ZOLOmxJsonArray() = default;
  /// The array held by any; an empty array when it holds something else.
  explicit ZOLOmxJsonArray(const ZOLOmxAny& any);
  /// Number of elements.
  int Length() const;
  /// Element index, from 1, as an integer that fits 32 bits: S_OK, else E_FAIL with out unchanged.
  HRESULT GetInteger(int index, int& out) const;
  /// Element index, from 1, as a number: S_OK, else E_FAIL with out unchanged.
  HRESULT GetDouble(int index, double& out) const;
  /// Element index, from 1, as a string: S_OK, else E_FAIL with out unchanged.
  HRESULT GetString(int index, ZOLUnicodeString& out) const;

private:
  const ZOLOmxJsonDocument* At(int index) const;
  ZOLOmxAny _array;
};

class ZOLOmxJsonObject {
public:
  /// Parses text; text that is no JSON object gives an object with no members.
  explicit ZOLOmxJsonObject(const ZOLUnicodeString& text);
  /// The object held by any; an object with no members when it holds something else.
  explicit ZOLOmxJsonObject(const ZOLOmxAny& any);

  /// Calls visit(const ZOLOmxKeyString&, const ZOLOmxAny&) for each member in text order.
  template <class Visit>
  void ForEachMember(Visit&& visit) const {
    if (!_object.value) return;
    for (const auto& [key, value] : _object.value->items()) visit(ZOLOmxKeyString(key), ZOLOmxAny{_object.document, &value});
  }

  /// Member key as an integer that fits 32 bits: S_OK, else E_FAIL with out unchanged.
  HRESULT GetInteger(const char* key, int& out) const;
  /// Member key as a number: S_OK, else E_FAIL with out unchanged.
  HRESULT GetDouble(const char* key, double& out) const;
  /// Member key as a string: S_OK, else E_FAIL with out unchanged.
  HRESULT GetString(const char* key, ZOLUnicodeString& out) const;
  /// Member key as an array: S_OK, else E_FAIL with out unchanged.
  HRESULT GetArray(const char* key, ZOLOmxJsonArray& out) const;

private:
  const ZOLOmxJsonDocument* Member(const char* key) const;
  ZOLOmxAny _object;  // value is null or an object
};
