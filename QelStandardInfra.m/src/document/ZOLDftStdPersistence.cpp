// The version registry.
#include "ZOLDftStdPersistence.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "document/ZOLDftStdPersistenceSelfCheck.h"
#include "ZOLSysLog.h"

namespace {

constexpr int kCurrentVersion = 290;

// Versions below 110 are never written into a file: documents of that age are undated.
constexpr int kAcceptedVersions[] = {110, 120, 130, 140, 150, 160, 170, 180, 190, 200,
                                     210, 220, 230, 240, 250, 260, 270, 280, 290};
static_assert(std::size(kAcceptedVersions) == 19);

struct ReferenceNode {
  int release;
  const char* path;
  ZOLDftStdPersistence::NodeStatus status;
};

constexpr ReferenceNode kReferenceNodes[] = {
    {10, "Annotation", ZOLDftStdPersistence::NodeAdded},
    {11, "Styles", ZOLDftStdPersistence::NodeAdded},
    {12, "Dimension.CurvilinearLengthSymbol", ZOLDftStdPersistence::NodeAdded},
    {13, "General.DefaultToleranceFormat", ZOLDftStdPersistence::NodeRemoved},
    {14, "Styles.DimensionsSystem", ZOLDftStdPersistence::NodeAdded},
    {15, "ViewsSet", ZOLDftStdPersistence::NodeAdded},
    {16, "Annotation.Roughness.ExtensionLine.GapToSurf", ZOLDftStdPersistence::NodeAdded},
    {17, "EngineeringSymbols", ZOLDftStdPersistence::NodeAdded},
    {18, "Annotation.BlankBackground", ZOLDftStdPersistence::NodeAdded},
};

}  // namespace

int ZOLDftStdPersistenceSelfCheck(const int* table, int count) {
  int faults = 0;
  bool currentFound = false;
  const int oldest = ZOLDftStdPersistence::GetVersionFromRelease(20);
  for (int i = 0; i < count; ++i) {
    const int v = table[i];
    if (v != kCurrentVersion && v < oldest) {
      ZOLAssertMessage("Accepted version is < R20 version?!");
      ++faults;
    }
    if (v >= kCurrentVersion + 1) {
      ZOLAssertMessage("Accepted version is > current version?!");
      ++faults;
    }
    currentFound |= v == kCurrentVersion;
  }
  if (!currentFound) {
    ZOLAssertBool("Current version not found?!");
    ++faults;
  }
  return faults;
}

int ZOLDftStdPersistence::GetCurrentVersion() { return kCurrentVersion; }

int ZOLDftStdPersistence::GetVersionFromRelease(int release, int) {
  // One unsigned test: 0 and negative releases wrap around and fall through to -1.
  if (static_cast<uint32_t>(release) - 1u <= 7u) return 0;
  switch (release) {
    case 9: return 1;
    case 10: return 2;
    case 11: return 30;
    case 12: return 40;
    case 13: return 50;
    case 14: return 60;
    case 15: return 70;
    case 16: return 80;
    case 17: return 90;
    case 18: return 100;
    case 20: return 110;
    case 21: return 120;
    case 210: return 130;
    case 211:
    case 212: return 140;
    case 213: return 150;
    case 214: return 160;
    case 215: return 170;
    case 216: return 180;
    case 417:
    case 418: return 190;
    case 419: return 200;
    case 420: return 210;
    case 421: return 220;
    case 422: return 230;
    case 423: return 240;
    case 424: return 250;
    case 425: return 260;
    case 426: return 270;
    case 427: return 280;
    case 428: return 290;
    default: return -1;
  }
}

long ZOLDftStdPersistence::GetReferenceNodeForRelease(int release, ZOLUnicodeString& node, NodeStatus& status) {
  for (const auto& r : kReferenceNodes) {
    if (r.release != release) continue;
    node = r.path;
    status = r.status;
    return S_OK;
  }
  ZOLAssertMessage("Invalid input value!");
  return E_FAIL;
}

ZOLUnicodeString ZOLDftStdPersistence::GetVersionNodePath() { return ZOLUnicodeString("Version"); }

int ZOLDftStdPersistence::CheckExplicitVersionNumberIsValid(int version) {
  static bool checked = false;
  if (!checked) {
    checked = true;
    ZOLDftStdPersistenceSelfCheck(kAcceptedVersions, static_cast<int>(std::size(kAcceptedVersions)));
  }
  return std::find(std::begin(kAcceptedVersions), std::end(kAcceptedVersions), version) !=
                 std::end(kAcceptedVersions)
             ? 1
             : 0;
}
