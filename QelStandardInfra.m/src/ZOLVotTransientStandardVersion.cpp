// The version of a standard object, with the fallback on the file's own version.
#include "ZOLDftStandardServices.h"
#include "ZOLVotTransientStandard.h"

// Until the locating services are linked in, a standard without "Version" answers -1.
namespace ZOLDftStandardServices {
void GetStandardClassAndVersion(ZOLUnicodeString& path, ZOLUnicodeString& className, int& version) __attribute__((weak));
}

int ZOLVotTransientStandard::GetStdVersion() {
  if (_Version != -1) return _Version;
  if (GetValue("Version", 1, _Version) == S_OK) return _Version;
  ZOLUnicodeString className;
  if (&ZOLDftStandardServices::GetStandardClassAndVersion)
    ZOLDftStandardServices::GetStandardClassAndVersion(_FilePath, className, _Version);
  return _Version;
}
