// The built-in legacy formats, generated at build time by data/generate_legacy_formats from
// data/legacy_units.tsv and data/legacy_tolerances.tsv.
#pragma once
#include <memory>
#include <vector>

#include "QelStdToleranceDescription.h"
#include "QelStdUnitDescription.h"

/// New objects of the 14 legacy unit formats, in their order.
std::vector<std::shared_ptr<QelStdUnitDescription>> QelStdBuildLegacyV4Units();
/// New objects of the 22 legacy tolerance formats, in their order.
std::vector<std::shared_ptr<QelStdToleranceDescription>> QelStdBuildLegacyV4Tolerances();
