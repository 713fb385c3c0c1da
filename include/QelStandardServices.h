// Drafting domain services beside a standard file: limit deviations of fits.
#pragma once
#include "ZOLResult.h"
#include "ZOLUnicodeString.h"

namespace QelStandardServices {

/// S_OK always. Writes the upper and lower limit deviation in mm of a tolerance class ("H7", "f7":
/// capital for a hole, case kept) at a nominal size in mm; leaves both untouched for an unknown
/// class or a size outside the class's ranges (up to 3150 mm, or 400 mm for F7, f7, g6 and P7).
/// unused is not read. Not thread-safe: the first query of a class fills a process-wide table.
HRESULT GetNumericalTolerance(const double& nominalSize, const ZOLUnicodeString& fit, const ZOLUnicodeString& unused,
                              double& upperDeviation, double& lowerDeviation);

}  // namespace QelStandardServices
