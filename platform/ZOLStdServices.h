// The application's repository of standard files: directories named by two environment
// variables, with one sub-directory per kind of standard ("<dir>/<kind>/<name>.xml").
//
// ZOLCollectionStandard and ZOLDefaultCollectionStandard each hold one directory or several
// separated by ':', as PATH does; empty entries are ignored. The directories of
// ZOLCollectionStandard (the site's own standards) come first, then those of
// ZOLDefaultCollectionStandard (the delivered ones), so that a site's file of a name wins.
#pragma once
#include <string_view>

#include "ZOLListValZOLUnicodeString.h"
#include "ZOLResult.h"
#include "ZOLUnicodeString.h"

/// The separator of the parts of a path.
inline constexpr char ZOLPathSeparator[] = "/";

namespace ZOLStdServices {

/// A new list of the repository's directories, in search order, that the caller deletes; null when
/// neither variable is defined (a defined but empty variable gives an empty list).
ZOLListValZOLUnicodeString* GetStandardPath();
/// A new list of the names of the ".xml" files of that kind, directory after directory, each sorted,
/// that the caller deletes; null when neither variable is defined.
ZOLListValZOLUnicodeString* GetStandardFiles(const ZOLUnicodeString& kind);
/// Copies the first "<dir>/<kind>/<name>.xml" of the repository to destination through a temporary
/// name and a rename; S_OK, or E_FAIL when there is no such file or it cannot be copied.
HRESULT CopyStandard(const ZOLUnicodeString& name, const ZOLUnicodeString& kind, const ZOLUnicodeString& destination);
/// Writes bytes to path through a temporary name and a rename, unless the file already holds exactly
/// these bytes, in which case it is left untouched (its modification time too); S_OK or E_FAIL.
HRESULT WriteFileIfChanged(const char* path, std::string_view bytes);

}  // namespace ZOLStdServices
