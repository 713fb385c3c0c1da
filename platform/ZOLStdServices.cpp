#include "ZOLStdServices.h"

#include <algorithm>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "ZOLFile.h"

namespace {

constexpr const char* kVariables[] = {"ZOLCollectionStandard", "ZOLDefaultCollectionStandard"};

void AppendEntries(std::string_view value, ZOLListValZOLUnicodeString& dirs) {
  while (!value.empty()) {
    size_t colon = value.find(':');
    std::string_view entry = value.substr(0, colon);
    if (!entry.empty()) dirs.Append(ZOLUnicodeString(entry));
    if (colon == std::string_view::npos) break;
    value.remove_prefix(colon + 1);
  }
}

std::string KindDirectory(const ZOLUnicodeString& dir, const ZOLUnicodeString& kind) {
  return dir.str() + ZOLPathSeparator + kind.str();
}

bool IsRegularFile(const std::string& path) {
  struct stat info;
  return ZOLFileStat(path.c_str(), &info) == 0 && S_ISREG(info.st_mode);
}

}  // namespace

ZOLListValZOLUnicodeString* ZOLStdServices::GetStandardPath() {
  bool defined = false;
  auto dirs = std::make_unique<ZOLListValZOLUnicodeString>();
  for (const char* variable : kVariables) {
    const char* value = ZOLGetEnv(variable);
    if (!value) continue;
    defined = true;
    AppendEntries(value, *dirs);
  }
  return defined ? dirs.release() : nullptr;
}

ZOLListValZOLUnicodeString* ZOLStdServices::GetStandardFiles(const ZOLUnicodeString& kind) {
  std::unique_ptr<ZOLListValZOLUnicodeString> dirs(GetStandardPath());
  if (!dirs) return nullptr;
  auto files = std::make_unique<ZOLListValZOLUnicodeString>();
  for (const ZOLUnicodeString& dir : *dirs) {
    std::string kindDir = KindDirectory(dir, kind);
    ZOLDirectory* listing = nullptr;
    if (ZOLOpenDirectory(kindDir.c_str(), &listing) != 0) continue;
    std::vector<std::string> names;
    std::string name;
    while (ZOLReadDirectory(listing, name) == 0) {
      std::string_view view(name);
      if (view.size() > 4 && view.ends_with(".xml") && IsRegularFile(kindDir + ZOLPathSeparator + name))
        names.push_back(name);
    }
    ZOLCloseDirectory(listing);
    std::sort(names.begin(), names.end());
    for (std::string& n : names) files->Append(ZOLUnicodeString(std::move(n)));
  }
  return files.release();
}

HRESULT ZOLStdServices::CopyStandard(const ZOLUnicodeString& name, const ZOLUnicodeString& kind,
                                     const ZOLUnicodeString& destination) {
  std::unique_ptr<ZOLListValZOLUnicodeString> dirs(GetStandardPath());
  if (!dirs || name.IsEmpty() || destination.IsEmpty()) return E_FAIL;
  for (const ZOLUnicodeString& dir : *dirs) {
    std::string source = KindDirectory(dir, kind) + ZOLPathSeparator + name.str() + ".xml";
    if (!IsRegularFile(source)) continue;
    std::string bytes;
    // The first file of the name decides: a later directory's file of that name is not a fallback.
    if (FAILED(ZOLReadFile(source.c_str(), bytes))) return E_FAIL;
    return WriteFileIfChanged(destination.ConvertToChar(), bytes);
  }
  return E_FAIL;
}

HRESULT ZOLStdServices::WriteFileIfChanged(const char* path, std::string_view bytes) {
  if (!path) return E_FAIL;
  // An unchanged working copy keeps its modification time, so that caches keyed by it stay valid.
  std::string present;
  if (SUCCEEDED(ZOLReadFile(path, present)) && present == bytes) return S_OK;
  return ZOLWriteFileAtomically(path, bytes);
}
