#include "ZOLDftXMLNodeID.h"

#include <array>

#include "document/ZOLDftStdElement.h"
#include "ZOLDftStdNamespace.h"
#include "ZOLSysLog.h"

ZOLDftXMLNodeID::ZOLDftXMLNodeID(ZOLUnicodeString namespaceURI, ZOLUnicodeString localName) {
  if (localName.IsEmpty()) {
    ZOLAssertMessage("Local name can't be empty");
    return;
  }
  _isNull = 0;
  _namespaceURI = std::move(namespaceURI);
  _localName = std::move(localName);
}

ZOLDftXMLNodeID ZOLDftXMLNodeID::BuildFromElement(ZOLIDOMElement_var element) {
  if (element.IsNull()) return ZOLDftXMLNodeID();
  std::string_view local, uri;
  if (FAILED(element.GetLocalName(local)) || FAILED(element.GetNamespaceURI(uri))) {
    ZOLAssertBool("");
    return ZOLDftXMLNodeID();
  }
  if (local.empty()) {
    // A reader without namespaces: the node name is all there is.
    if (!uri.empty()) {
      ZOLAssertBool("");
      return ZOLDftXMLNodeID();
    }
    std::string name;
    if (FAILED(element.GetNodeName(name))) {
      ZOLAssertBool("");
      return ZOLDftXMLNodeID();
    }
    return ZOLDftXMLNodeID(ZOLUnicodeString(), ZOLUnicodeString(std::move(name)));
  }
  return ZOLDftXMLNodeID(ZOLUnicodeString(uri), ZOLUnicodeString(local));
}

const ZOLUnicodeString& ZOLDftXMLNodeID::GetNamespaceURI() const {
  if (_isNull) ZOLAssertBool("ID is null");
  return _namespaceURI;
}

const ZOLUnicodeString& ZOLDftXMLNodeID::GetLocalName() const {
  if (_isNull) ZOLAssertBool("ID is null");
  return _localName;
}

ZOLUnicodeString ZOLDftXMLNodeID::ToString() const { return "<" + _namespaceURI + ">" + _localName; }

bool operator==(const ZOLDftXMLNodeID& a, const ZOLDftXMLNodeID& b) {
  if (a._isNull || b._isNull) return a._isNull && b._isNull;
  return a._namespaceURI == b._namespaceURI && a._localName == b._localName;
}

namespace {

// Reached through a function so that other static initialisers may use it.
const std::array<ZOLDftXMLNodeID, kZOLDftStdElementCount>& Ids() {
  static const std::array<ZOLDftXMLNodeID, kZOLDftStdElementCount> ids = [] {
    std::array<ZOLDftXMLNodeID, kZOLDftStdElementCount> made;
    for (size_t i = 0; i < made.size(); ++i)
      made[i] = ZOLDftXMLNodeID(ZOLUnicodeString(ZOLDftStdNamespaceURI),
                                ZOLUnicodeString(ZOLDftStdElementLocalName(static_cast<ZOLDftStdElement>(i))));
    return made;
  }();
  return ids;
}

// Filled at load.
const auto& g_ids = Ids();

}  // namespace

const ZOLDftXMLNodeID& ZOLDftStdElementID(ZOLDftStdElement element) {
  static const ZOLDftXMLNodeID null;
  size_t i = static_cast<size_t>(element);
  return i < Ids().size() ? Ids()[i] : null;
}

ZOLDftStdElement ZOLDftStdElementOf(std::string_view namespaceURI, std::string_view localName) {
  if (namespaceURI != ZOLDftStdNamespaceURI) return ZOLDftStdElement::Unknown;
  const auto& ids = Ids();
  for (size_t i = 0; i < ids.size(); ++i)
    if (ids[i].Matches(namespaceURI, localName)) return static_cast<ZOLDftStdElement>(i);
  return ZOLDftStdElement::Unknown;
}
