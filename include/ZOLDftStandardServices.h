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

// --- Standard objects by file, text and name; sheet format and path helpers ---

}  // namespace ZOLDftStandardServices
