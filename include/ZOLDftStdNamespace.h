// The namespace of the standard dialect, its prefix, and the words of its elements.
#pragma once
#include <string_view>

/// The namespace URI of every element of a standard file.
inline constexpr std::string_view ZOLDftStdNamespaceURI = "http://www.qelstandardinfra.org/std";
/// The prefix that standard files bind to the namespace.
inline constexpr std::string_view ZOLDftStdNamespacePrefix = "std";
