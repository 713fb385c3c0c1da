// The elements of the standard dialect, as a static table of identifiers filled at load.
#pragma once
#include <string_view>

#include "ZOLDftXMLNodeID.h"

enum class ZOLDftStdElement { ColorVal, EnumDef, EnumVal, FloatVal, IntVal, Node, StrVal, TypeDef, TypeVal, Count, Unknown = Count };

/// The identifier of an element of the dialect.
const ZOLDftXMLNodeID& ZOLDftStdElementID(ZOLDftStdElement element);
/// The element of the dialect with that namespace URI and local name, or Unknown.
ZOLDftStdElement ZOLDftStdElementOf(std::string_view namespaceURI, std::string_view localName);
