// The report of a standard: one self-contained HTML page that draws what a standard defines.
#pragma once
#include <string>

#include "ZOLAnnStandardXMLParser.h"
#include "ZOLIDrwStandard.h"

namespace qelstd {

/// The page of a standard, read twice: tree is its decoded document (the outline, line types,
/// patterns, thicknesses and symbols), standard its object (header, sheet formats and styles);
/// file is the path shown in the header. Every drawing carries data-drawing (its kind) and
/// data-name (the entry it draws), so that a reader of the page can count them.
std::string RenderReport(const std::string& file, ZOLAnnStandardXMLParser& tree, ZOLIDrwStandard* standard);

}  // namespace qelstd
