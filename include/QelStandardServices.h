// Drafting domain services beside a standard file: limit deviations of fits, the legacy number and
// tolerance formats, separator codes, and the content type of a parameter name.
#pragma once
#include <memory>
#include <vector>

#include "QelStdToleranceDescription.h"
#include "QelStdUnitDescription.h"
#include "ZOLResult.h"
#include "ZOLUnicodeString.h"

namespace QelStandardServices {

/// S_OK always. Writes the upper and lower limit deviation in mm of a tolerance class ("H7", "f7":
/// capital for a hole, case kept) at a nominal size in mm; leaves both untouched for an unknown
/// class or a size outside the class's ranges (up to 3150 mm, or 400 mm for F7, f7, g6 and P7).
/// unused is not read. Not thread-safe: the first query of a class fills a process-wide table.
HRESULT GetNumericalTolerance(const double& nominalSize, const ZOLUnicodeString& fit, const ZOLUnicodeString& unused,
                              double& upperDeviation, double& lowerDeviation);

/// New objects of the 14 number formats of the V4 generation, "NUM.DIMM" first and "FEET-INC" last.
std::vector<std::shared_ptr<QelStdUnitDescription>> GetLegacyV4Units();
/// New objects of the 22 tolerance formats of the V4 generation, "TOL_NUM2" first and "ISOCOMB" last.
std::vector<std::shared_ptr<QelStdToleranceDescription>> GetLegacyV4Tolerances();

/// Whom a parameter name belongs to among the local objects.
enum QelContentType { ContentUnknown = 0, ContentStandard = 1, ContentStyle = 2 };

/// The separator character of a code from 1 to 18 ("." for 11, "," for 6); empty for any other code.
ZOLUnicodeString GetSymbolFromTable(int code);
/// The code of a separator character (11 for "."); -1 for any other text, the empty one included.
int GetSymbolFromTable(ZOLUnicodeString symbol);

/// ContentStandard when a parameter path, or its first element (path + ".1"), may be overridden by
/// a local standard; ContentStyle when by a local style; ContentUnknown otherwise.
QelContentType getContentType(const char* name);
/// Same as getContentType(const char*) on the narrow text of name.
QelContentType getContentType(ZOLUnicodeString name);

}  // namespace QelStandardServices
