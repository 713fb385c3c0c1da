// The elements of the standard dialect, one vocabulary for the DOM codec, the one-pass load of a
// standard object and the generator of the built-in standards: their order, their names, the value
// elements among them, and their identifiers (filled at load).
#pragma once
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "ZOLDftStdNamespace.h"

class ZOLDftXMLNodeID;

/// The elements of the dialect; Unknown for any other element.
enum class ZOLDftStdElement : uint8_t { Node, TypeVal, IntVal, FloatVal, StrVal, EnumVal, ColorVal, EnumDef, TypeDef, Count, Unknown = Count };
inline constexpr size_t kZOLDftStdElementCount = static_cast<size_t>(ZOLDftStdElement::Count);

namespace ZOLDftStdElementNames {
// By ZOLDftStdElement, Unknown last with no name.
inline constexpr std::string_view kLocal[] = {"node",   "typeval",  "intval",  "floatval", "strval",
                                              "enumval", "colorval", "enumdef", "typedef",  ""};
inline constexpr std::string_view kQualified[] = {"std:node",    "std:typeval",  "std:intval",
                                                  "std:floatval", "std:strval",   "std:enumval",
                                                  "std:colorval", "std:enumdef",  "std:typedef", ""};
static_assert(std::size(kLocal) == kZOLDftStdElementCount + 1 && std::size(kQualified) == kZOLDftStdElementCount + 1);
constexpr bool QualifiedNamesUseThePrefix() {
  for (size_t i = 0; i < kZOLDftStdElementCount; ++i) {
    const std::string_view q = kQualified[i];
    if (q.substr(0, ZOLDftStdNamespacePrefix.size()) != ZOLDftStdNamespacePrefix ||
        q[ZOLDftStdNamespacePrefix.size()] != ':' || q.substr(ZOLDftStdNamespacePrefix.size() + 1) != kLocal[i])
      return false;
  }
  return true;
}
static_assert(QualifiedNamesUseThePrefix());
}  // namespace ZOLDftStdElementNames

/// The local name of an element ("intval"); empty for Unknown.
constexpr std::string_view ZOLDftStdElementLocalName(ZOLDftStdElement element) {
  return ZOLDftStdElementNames::kLocal[static_cast<size_t>(element) < kZOLDftStdElementCount ? static_cast<size_t>(element)
                                                                                              : kZOLDftStdElementCount];
}

/// The name of an element as written with the dialect's prefix ("std:intval"); empty for Unknown.
constexpr std::string_view ZOLDftStdElementQualifiedName(ZOLDftStdElement element) {
  return ZOLDftStdElementNames::kQualified[static_cast<size_t>(element) < kZOLDftStdElementCount
                                               ? static_cast<size_t>(element)
                                               : kZOLDftStdElementCount];
}

/// The element of a local name of the dialect's namespace; Unknown for any other name.
constexpr ZOLDftStdElement ZOLDftStdElementOfLocalName(std::string_view localName) {
  for (size_t i = 0; i < kZOLDftStdElementCount; ++i)
    if (ZOLDftStdElementNames::kLocal[i] == localName) return static_cast<ZOLDftStdElement>(i);
  return ZOLDftStdElement::Unknown;
}

/// 1 for the five elements that hold a value: intval, floatval, strval, enumval, colorval.
constexpr bool ZOLDftStdElementIsValue(ZOLDftStdElement element) {
  return element >= ZOLDftStdElement::IntVal && element <= ZOLDftStdElement::ColorVal;
}

/// The identifier of an element of the dialect; a null identifier for Unknown.
const ZOLDftXMLNodeID& ZOLDftStdElementID(ZOLDftStdElement element);
/// The element of the dialect with that namespace URI and local name, or Unknown.
ZOLDftStdElement ZOLDftStdElementOf(std::string_view namespaceURI, std::string_view localName);

/// The word of a value element in the JSON description of a standard: "int", "double", "string",
/// "enum", "color"; empty for the other elements.
constexpr std::string_view ZOLDftStdElementJsonType(ZOLDftStdElement element) {
  constexpr std::string_view kJsonTypes[] = {"int", "double", "string", "enum", "color"};
  return ZOLDftStdElementIsValue(element)
             ? kJsonTypes[static_cast<size_t>(element) - static_cast<size_t>(ZOLDftStdElement::IntVal)]
             : std::string_view();
}

/// The value element of a word of the JSON description; Unknown for any other word.
constexpr ZOLDftStdElement ZOLDftStdElementOfJsonType(std::string_view type) {
  for (auto e = static_cast<size_t>(ZOLDftStdElement::IntVal); e <= static_cast<size_t>(ZOLDftStdElement::ColorVal); ++e)
    if (!type.empty() && ZOLDftStdElementJsonType(static_cast<ZOLDftStdElement>(e)) == type) return static_cast<ZOLDftStdElement>(e);
  return ZOLDftStdElement::Unknown;
}
