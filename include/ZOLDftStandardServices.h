// Free functions of the standards library: locating, listing and obtaining standards.
#pragma once
#include "ZOLFormatOrientationsType.h"
#include "ZOLListValZOLUnicodeString.h"
#include "ZOLResult.h"
#include "ZOLUnicodeString.h"

namespace ZOLDftStandardServices {

// --- Locating and listing standards ---

/// Finds the file of a standard: in the repository (inCollections, S_OK or E_FAIL), or as a working
/// copy in ADL_ODT_OUT or ZOLTemp, writing a built-in text when the repository has none (0 found, 1 not).
long FindStandardFileInEnv(const ZOLUnicodeString& name, ZOLUnicodeString& path, bool inCollections);
/// Appends the stems of the files of a directory whose names contain "." + extension; skipAnsi leaves ANSI standards out.
void ListFilesInDirectory(const char* directory, const char* extension, ZOLListValZOLUnicodeString& names, unsigned char skipAnsi);
/// Appends the stems of a directory's standard files to the list of their parent: ISO, JIS or ASME.
void ListXMLStdInDirectory(const char* directory, const char* extension, ZOLListValZOLUnicodeString& iso,
                           ZOLListValZOLUnicodeString& jis, ZOLListValZOLUnicodeString& asme);
/// Replaces names by the standards of the repository, without ".xml" and duplicates; flag is unused.
void ListStandards(ZOLListValZOLUnicodeString& names, unsigned char flag);
/// Replaces names by "ANSI-ASME", "ISO", "JIS".
void ListOOTBStandards(ZOLListValZOLUnicodeString& names);
/// The parent standard ("ISO", "JIS", "ASME", "ANSI" or empty) and the version of a standard file.
void GetStandardClassAndVersion(ZOLUnicodeString& path, ZOLUnicodeString& className, int& version);
/// S_OK with the orientation of that exact name ("LandscapeByDefault", "PortraitByDefault",
/// "PortraitOnly", "LandscapeOnly"); E_FAIL for any other name, value untouched.
long GetEnumFromName(const ZOLUnicodeString& name, ZOLFormatOrientationsType& value);
/// S_OK with the name of an orientation; E_FAIL for a value outside 0 to 3, name untouched.
long GetNameFromEnum(ZOLFormatOrientationsType value, ZOLUnicodeString& name);

// --- Keywords of flat legacy standards ---

/// The 0-based row of the keyword table whose keyword equals keyword; -1 for none or an empty text.
int GetIndexFromKeyword(const ZOLUnicodeString& keyword);
/// The 0-based row whose tree parameter name equals param; -1 for none or an empty text.
int GetIndexFromParam(const ZOLUnicodeString& param);
/// The keyword of the row of that parameter name; empty for none.
ZOLUnicodeString GetKeywordFromParam(const ZOLUnicodeString& param);
/// The tree parameter name of the row of that keyword; empty for none, and for the rows that have none.
ZOLUnicodeString GetParamFromKeyword(const ZOLUnicodeString& keyword);

// --- Standard objects by file, text and name; sheet format and path helpers ---
}  // namespace ZOLDftStandardServices

#include "ZOLDrwStdSheetFormat.h"
#include "ZOLIDftStandard.h"
#include "ZOLIDrwStandard.h"

namespace ZOLDftStandardServices {

/// S_OK with the 1-based sheet format of a standard object: name, width, height and orientation;
/// E_FAIL when one of the four is missing or the orientation is unknown (what was read stays).
long GetFormatData(ZOLIDftStandard& standard, int index, ZOLDrwStdSheetFormat& format);
/// S_OK with a new[] array of all sheet formats of a standard object and their number; E_UNEXPECTED for
/// bad arguments (formats null or set, count not 0) or no "SheetFormat" list; E_FAIL when a format is incomplete.
long GetSheetFormats(ZOLIDftStandard* standard, ZOLDrwStdSheetFormat** formats, int& count);
/// What stands behind the last "." of a path; empty without a dot or with a dot at the end.
ZOLUnicodeString GetAttributeSingleName(ZOLUnicodeString path);
/// What stands before the last "." of a path; empty without a dot.
ZOLUnicodeString GetFatherNode(ZOLUnicodeString path);
/// A new standard object read from a file, or null; a file that does not read gives an empty standard.
ZOLIDrwStandard_var GetStandardFromFile(const ZOLUnicodeString& path, const ZOLUnicodeString& name);
/// A new standard object read from a text, or null; a text that does not read gives an empty standard.
ZOLIDrwStandard_var GetStandardFromBuffer(const ZOLUnicodeString* text, const ZOLUnicodeString& name);
/// The kept standard object of "ISO", "JIS" or "ASME", made on first use; null for any other name; flag is unused.
ZOLIDrwStandard_var GetOOTBStandard(const ZOLUnicodeString& name, int flag);
/// S_OK with every value filed in a standard object whose cache key starts with prefix, sorted by key
/// (indexes in numeric order): the key, the kind ("integer", "real", "string", "enum", "integers",
/// "reals", "strings") and the value as text; E_INVALIDARG for a null or foreign object.
long ListFiledValues(ZOLIDrwStandard* standard, const ZOLUnicodeString& prefix, ZOLListValZOLUnicodeString& keys,
                     ZOLListValZOLUnicodeString& kinds, ZOLListValZOLUnicodeString& values);

}  // namespace ZOLDftStandardServices

// --- Standard text generation ---

#include <string>

#include "ZOLOmxJsonObject.h"

namespace ZOLDftStandardServices {

/// S_OK with text replaced by a standard text written from a description with the objects "EnumDefinition",
/// "TypeDefinition", "Styles" and "Standard Parameters"; E_UNEXPECTED, with a report and text unchanged,
/// when one of them is missing or no object. Nothing is escaped: markup in the description lands in the
/// text as it stands, and the document element is always named "ISO".
long GenerateStandardXML(const ZOLOmxJsonObject& description, std::string& text);

}  // namespace ZOLDftStandardServices
