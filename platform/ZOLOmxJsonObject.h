// JSON objects and arrays of the platform. Members keep the order in which they were parsed or put.
// Copies are cheap: they share their document until one of them is changed. Nothing here throws
// on bad input: text that does not parse gives an object with no members, and a getter answers
// S_OK, or E_FAIL and leaves its out variable as it was when the member is absent or of another
// shape.
#pragma once
#include <memory>
#include <string>
#include <string_view>

#include "ZOLResult.h"
#include "ZOLUnicodeString.h"

/// A member's key; it views the text it was made from, which must outlive it.
class ZOLOmxKeyString {
public:
  explicit ZOLOmxKeyString(const std::string& key) : _key(key) {}
  explicit ZOLOmxKeyString(std::string_view key) : _key(key) {}
  explicit ZOLOmxKeyString(const char* key) : _key(key ? key : "") {}
  /// The key's text.
  ZOLUnicodeString asString() const { return ZOLUnicodeString(_key); }
  /// The key's text, without a copy.
  std::string_view view() const { return _key; }

private:
  std::string_view _key;
};

/// Any JSON value inside a document; it keeps the document alive.
class ZOLOmxAny {
public:
  ZOLOmxAny() = default;
  /// 1 when the value is an object.
  bool IsObject() const;
  /// 1 when the value is an array.
  bool IsArray() const;

private:
  friend class ZOLOmxJsonObject;
  friend class ZOLOmxJsonArray;
  friend struct ZOLOmxJsonAccess;
  // A value of a shared document, as an aliasing pointer: the layer beneath stays out of sight.
  std::shared_ptr<void> _value;
};

class ZOLOmxJsonObject;

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
  /// Element index, from 1, as an object: S_OK, else E_FAIL with out unchanged.
  HRESULT GetJsonObject(int index, ZOLOmxJsonObject& out) const;
  /// Element index, from 1, as any value (empty when out of range).
  ZOLOmxAny GetAny(int index) const;

  /// Makes room for that many elements in all, so that appending them allocates once.
  void Reserve(int elements);
  /// Appends a string; S_OK.
  HRESULT PutString(std::string_view value);
  HRESULT PutString(const ZOLUnicodeString& value) { return PutString(std::string_view(value.str())); }
  /// Appends a copy of an object (the object itself when it is an rvalue no one else shares); S_OK.
  HRESULT PutJsonObject(const ZOLOmxJsonObject& value);
  HRESULT PutJsonObject(ZOLOmxJsonObject&& value);

private:
  friend class ZOLOmxJsonObject;
  friend struct ZOLOmxJsonAccess;
  std::shared_ptr<void> _array;  // null (empty) or an array
};

class ZOLOmxJsonObject {
public:
  /// An object with no members.
  ZOLOmxJsonObject() = default;
  ZOLOmxJsonObject(const ZOLOmxJsonObject&) = default;
  ZOLOmxJsonObject(ZOLOmxJsonObject&&) noexcept = default;
  ZOLOmxJsonObject& operator=(const ZOLOmxJsonObject&) = default;
  ZOLOmxJsonObject& operator=(ZOLOmxJsonObject&&) noexcept = default;
  ~ZOLOmxJsonObject() = default;
  /// Parses text; text that is no JSON object gives an object with no members that is not valid.
  explicit ZOLOmxJsonObject(const ZOLUnicodeString& text);
  /// The object held by any; an object with no members when it holds something else.
  explicit ZOLOmxJsonObject(const ZOLOmxAny& any);

  /// 1 unless the object came from text that is no JSON object.
  bool IsValidJsonObject() const { return _valid; }
  /// The JSON text: compact for a negative indent, else pretty-printed with that many blanks a
  /// level. Bytes that are no UTF-8 become U+FFFD.
  std::string ToString(int indent = -1) const;

  /// Number of members.
  int Length() const;
  /// Calls visit(const ZOLOmxKeyString&, const ZOLOmxAny&) for each member in order.
  template <class Visit>
  void ForEachMember(Visit&& visit) const {
    const int n = Length();
    for (int i = 0; i < n; ++i) {
      std::string_view key;
      ZOLOmxAny value;
      MemberAt(i, key, value);
      visit(ZOLOmxKeyString(key), static_cast<const ZOLOmxAny&>(value));
    }
  }

  /// Member key as an integer that fits 32 bits: S_OK, else E_FAIL with out unchanged.
  HRESULT GetInteger(const char* key, int& out) const;
  /// Member key as a number: S_OK, else E_FAIL with out unchanged.
  HRESULT GetDouble(const char* key, double& out) const;
  /// Member key as a string: S_OK, else E_FAIL with out unchanged.
  HRESULT GetString(const char* key, ZOLUnicodeString& out) const;
  /// Member key as an array: S_OK, else E_FAIL with out unchanged.
  HRESULT GetArray(const char* key, ZOLOmxJsonArray& out) const;
  /// Member key as an object: S_OK, else E_FAIL with out unchanged.
  HRESULT GetJsonObject(const char* key, ZOLOmxJsonObject& out) const;
  /// Member key as an object; an object with no members when absent or of another shape.
  ZOLOmxJsonObject OptJsonObject(const char* key) const;
  /// Member key as an array; an empty array when absent or of another shape.
  ZOLOmxJsonArray OptJsonArray(const char* key) const;
  /// The text of member key; empty when absent or no string. The view is valid while this object
  /// lives unchanged.
  std::string_view OptString(const char* key) const;

  /// Makes room for that many members in all, so that putting them allocates once.
  void Reserve(int members);
  /// Sets member key, in place when it exists, else at the end; each answers S_OK.
  HRESULT PutObject(const ZOLOmxKeyString& key, const ZOLOmxJsonObject& value);
  HRESULT PutObject(const ZOLOmxKeyString& key, ZOLOmxJsonObject&& value);
  HRESULT PutArray(const ZOLOmxKeyString& key, const ZOLOmxJsonArray& value);
  HRESULT PutArray(const ZOLOmxKeyString& key, ZOLOmxJsonArray&& value);
  HRESULT PutString(const ZOLOmxKeyString& key, std::string_view value);
  HRESULT PutString(const ZOLOmxKeyString& key, const ZOLUnicodeString& value) {
    return PutString(key, std::string_view(value.str()));
  }
  HRESULT PutInteger(const ZOLOmxKeyString& key, int value);
  HRESULT PutDouble(const ZOLOmxKeyString& key, double value);

private:
  friend class ZOLOmxJsonArray;
  friend struct ZOLOmxJsonAccess;
  void MemberAt(int index, std::string_view& key, ZOLOmxAny& value) const;

  std::shared_ptr<void> _object;  // null (no members) or an object
  bool _valid = true;
};
