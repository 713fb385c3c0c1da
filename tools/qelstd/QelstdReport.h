// The report of a standard: one self-contained HTML page that draws what a standard defines.
#pragma once
#include <string>

#include "ZOLIDrwStandard.h"

namespace qelstd {

/// The page of a standard object; file is the path shown in its header. Every drawing carries
/// data-drawing (its kind) and data-name (the entry it draws), so that a reader of the page can
/// count them.
std::string RenderReport(const std::string& file, ZOLIDrwStandard* standard);

}  // namespace qelstd
