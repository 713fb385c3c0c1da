// The identity of an XML element: its namespace URI and local name.
#pragma once
#include <string_view>

#include "ZOLUnicodeString.h"
#include "ZOLXMLDOM.h"

class ZOLDftXMLNodeID {
public:
  /// The null identifier, with empty strings.
  ZOLDftXMLNodeID() = default;
  ZOLDftXMLNodeID(const ZOLDftXMLNodeID&) = default;
  ZOLDftXMLNodeID& operator=(const ZOLDftXMLNodeID&) = default;
  /// The identifier of namespaceURI and localName; an empty local name is reported and gives the null identifier.
  ZOLDftXMLNodeID(ZOLUnicodeString namespaceURI, ZOLUnicodeString localName);

  /// The identifier of an element; the null identifier for a null element or an unreadable one.
  static ZOLDftXMLNodeID BuildFromElement(ZOLIDOMElement_var element);

  /// The namespace URI (empty and reported on the null identifier).
  const ZOLUnicodeString& GetNamespaceURI() const;
  /// The local name (empty and reported on the null identifier).
  const ZOLUnicodeString& GetLocalName() const;
  /// 1 for the null identifier.
  int IsNULL() const { return _isNull; }
  /// "<" + namespace URI + ">" + local name.
  ZOLUnicodeString ToString() const;
  /// 1 when this non-null identifier has that namespace URI and local name; compares without copies.
  bool Matches(std::string_view namespaceURI, std::string_view localName) const {
    return !_isNull && _namespaceURI == namespaceURI && _localName == localName;
  }

  /// 1 when both are null, or both are not and their strings are equal.
  friend bool operator==(const ZOLDftXMLNodeID& a, const ZOLDftXMLNodeID& b);
  /// The negation of ==.
  friend bool operator!=(const ZOLDftXMLNodeID& a, const ZOLDftXMLNodeID& b) { return !(a == b); }

private:
  int _isNull = 1;
  ZOLUnicodeString _namespaceURI;
  ZOLUnicodeString _localName;
};
