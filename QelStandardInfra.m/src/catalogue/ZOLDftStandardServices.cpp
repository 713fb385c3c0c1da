// Locating and listing standards: the repository, the working copies, the built-in texts, and
// the orientation names of sheet formats.
#include "ZOLDftStandardServices.h"

#include <array>
#include <cstdio>
#include <memory>
#include <string>
#include <string_view>

#include "ZOLDftBuiltinStandards.h"
#include "ZOLDftStdPersistence.h"
#include "ZOLDrwParseStandard.h"
#include "ZOLFile.h"
#include "ZOLStdServices.h"
#include "ZOLSysLog.h"
#include "document/ZOLDftParentStandard.h"


namespace {

constexpr const char* kBuiltinNames[] = {"ISO", "JIS", "ANSI-ASME"};
constexpr const char* kAlternateNames[] = {"ISO_Alternate", "JIS_Alternate", "ANSI-ASME_Alternate"};
constexpr const char kAlternateKind[] = "xDrawing";

template <size_t N>
bool IsOneOf(const ZOLUnicodeString& name, const char* const (&names)[N]) {
  for (const char* n : names)
    if (name == n) return true;
  return false;
}

bool CanOpen(const std::string& path) {
  FILE* f = std::fopen(path.c_str(), "r");
  if (!f) return false;
  std::fclose(f);
  return true;
}

int ClassOfFile(const std::string& path) {
  ZOLUnicodeString file(path);
  ZOLDrwParseStandard reader(file);
  reader.Decode();
  return ZOLDftParentClass(ZOLDftParentOf(reader.GetParentStandard()));
}

// 1 when written, 0 otherwise. Through a temporary name and a rename, so that another process
// reading the same working copy meanwhile sees the old file or the new one, never half of one.
int WriteTextToFile(const ZOLUnicodeString& text, const std::string& path) {
  if (FAILED(ZOLStdServices::WriteFileIfChanged(path.c_str(), text.str()))) {
    std::fprintf(stderr, "Failed to open file for writing: %s\n", path.c_str());
    return 0;
  }
  return 1;
}

// The directory of the working copies, or null (said on standard error) when none is set: the
// current directory is never used by surprise. An empty value counts as not set.
const char* WorkingDirectory(const ZOLUnicodeString& name) {
  for (const char* variable : {"ADL_ODT_OUT", "ZOLTemp"}) {
    const char* dir = ZOLGetEnv(variable);
    if (dir && *dir) return dir;
  }
  std::fprintf(stderr, "Neither ADL_ODT_OUT nor ZOLTemp is set: no working directory for the standard %s.\n",
               name.ConvertToChar());
  return nullptr;
}

// Calls visit(entry, stem) for each entry of a directory whose name holds "." + extension.
template <typename Visit>
void WalkStandardFiles(const char* directory, const char* extension, Visit visit) {
  if (!directory || !extension) return;
  std::string suffix = *extension ? std::string(".") + extension : std::string();
  ZOLDirectory* listing = nullptr;
  if (ZOLOpenDirectory(directory, &listing) != 0) return;
  std::string entry;
  while (ZOLReadDirectory(listing, entry) == 0) {
    if (entry == "." || entry == "..") continue;
    // A search, not an end test: "x.xml.bak" qualifies, with the stem "x.xml".
    if (entry.find(suffix) == std::string::npos) continue;
    ZOLUnicodeString stem(std::string_view(entry).substr(0, entry.size() - suffix.size()));
    visit(std::string(directory) + ZOLPathSeparator + entry, stem);
  }
  ZOLCloseDirectory(listing);
}

}  // namespace

long ZOLDftStandardServices::FindStandardFileInEnv(const ZOLUnicodeString& name, ZOLUnicodeString& path,
                                                   bool inCollections) {
  // A name is a file name in a directory of standards, never a path of its own.
  const bool usable = !name.IsEmpty() && name.SearchSubString(ZOLPathSeparator) < 0;
  const std::string fileName = name.str() + "." + ZOLDftStdPersistence::ZOLDftStdExtension;
  if (inCollections) {
    std::unique_ptr<ZOLListValZOLUnicodeString> dirs(ZOLStdServices::GetStandardPath());
    if (!dirs) {
      std::printf("ZOLDefaultCollectionStandard and ZOLCollectionStandard not defined.\n");
      return E_FAIL;
    }
    if (!usable) return E_FAIL;
    for (const ZOLUnicodeString& dir : *dirs) {
      std::string candidate =
          dir.str() + ZOLPathSeparator + ZOLDftStdPersistence::ZOLDftStdType + ZOLPathSeparator + fileName;
      if (CanOpen(candidate)) {
        path = ZOLUnicodeString(std::move(candidate));
        return S_OK;
      }
    }
    return E_FAIL;
  }

  if (!usable) return 1;
  const char* dir = WorkingDirectory(name);
  if (!dir) return 1;
  const ZOLUnicodeString working(std::string(dir) + ZOLPathSeparator + fileName);
  // The copy's result is not looked at: whatever stands at the working path now is the answer, so
  // a working copy left by an earlier call is served as it is, and the built-in text is written only
  // when there is none. Callers that load the working copy by modification time rely on it staying put.
  (void)ZOLStdServices::CopyStandard(name, ZOLDftStdPersistence::ZOLDftStdType, working);
  if (CanOpen(working.str())) {
    path = working;
    return 0;
  }
  if (IsOneOf(name, kAlternateNames)) {
    if (SUCCEEDED(ZOLStdServices::CopyStandard(name, kAlternateKind, working)) && CanOpen(working.str())) {
      path = working;
      return 0;
    }
    return 1;
  }
  if (IsOneOf(name, kBuiltinNames)) {
    const ZOLUnicodeString* text = ZOLDftBuiltinStandards::GetText(name.str());
    if (text && WriteTextToFile(*text, working.str()) && CanOpen(working.str())) {
      path = working;
      return 0;
    }
  }
  return 1;
}

void ZOLDftStandardServices::ListFilesInDirectory(const char* directory, const char* extension,
                                                  ZOLListValZOLUnicodeString& names, unsigned char skipAnsi) {
  WalkStandardFiles(directory, extension, [&](const std::string& file, const ZOLUnicodeString& stem) {
    if (names.Locate(stem)) return;
    if (skipAnsi && ClassOfFile(file) == ZOLDftParentClass(ZOLDftParent::ANSI)) return;
    names.Append(stem);
  });
}

void ZOLDftStandardServices::ListXMLStdInDirectory(const char* directory, const char* extension,
                                                   ZOLListValZOLUnicodeString& iso, ZOLListValZOLUnicodeString& jis,
                                                   ZOLListValZOLUnicodeString& asme) {
  const std::array<ZOLListValZOLUnicodeString*, 3> lists = {&iso, &jis, &asme};
  WalkStandardFiles(directory, extension, [&](const std::string& file, const ZOLUnicodeString& stem) {
    int fileClass = -1;  // decoded only when a list lacks the stem
    for (int i = 0; i < 3; ++i) {
      if (lists[i]->Locate(stem)) continue;
      if (fileClass < 0) fileClass = ClassOfFile(file);
      if (fileClass == i) lists[i]->Append(stem);
    }
  });
}

void ZOLDftStandardServices::ListStandards(ZOLListValZOLUnicodeString& names, unsigned char /*flag*/) {
  names.RemoveAll();
  std::unique_ptr<ZOLListValZOLUnicodeString> files(
      ZOLStdServices::GetStandardFiles(ZOLUnicodeString(ZOLDftStdPersistence::ZOLDftStdType)));
  if (!files) {
    ZOLAssertPointer("");
    return;
  }
  const ZOLUnicodeString extension(std::string(".") + ZOLDftStdPersistence::ZOLDftStdExtension);
  for (ZOLUnicodeString file : *files) {
    file.ReplaceSubString(extension, ZOLUnicodeString());
    names.Append(file);
  }
  names.RemoveDuplicates();
}

void ZOLDftStandardServices::ListOOTBStandards(ZOLListValZOLUnicodeString& names) {
  names.RemoveAll();
  for (const char* name : {"ANSI-ASME", "ISO", "JIS"}) names.Append(name);
}

void ZOLDftStandardServices::GetStandardClassAndVersion(ZOLUnicodeString& path, ZOLUnicodeString& className,
                                                        int& version) {
  ZOLDrwParseStandard reader(path);
  reader.Decode();
  className = reader.GetParentStandard();
  version = reader.GetVersion();
}

namespace {

constexpr std::array<const char*, 4> kOrientationNames = {"LandscapeByDefault", "PortraitByDefault", "PortraitOnly",
                                                          "LandscapeOnly"};

}  // namespace

long ZOLDftStandardServices::GetEnumFromName(const ZOLUnicodeString& name, ZOLFormatOrientationsType& value) {
  for (size_t i = 0; i < kOrientationNames.size(); ++i)
    if (name == kOrientationNames[i]) {
      value = static_cast<ZOLFormatOrientationsType>(i);
      return S_OK;
    }
  return E_FAIL;
}

long ZOLDftStandardServices::GetNameFromEnum(ZOLFormatOrientationsType value, ZOLUnicodeString& name) {
  const int index = static_cast<int>(value);
  if (index < 0 || index >= static_cast<int>(kOrientationNames.size())) return E_FAIL;
  name = kOrientationNames[static_cast<size_t>(index)];
  return S_OK;
}
