// The version registry: how releases map onto data versions, which versions a file may carry,
// and by which reference nodes an undated document is dated.
#pragma once
#include "ZOLResult.h"
#include "ZOLUnicodeString.h"

class ZOLDftStdPersistence {
public:
  /// Kind of standard; also its directory name and the default document element name.
  static constexpr const char ZOLDftStdType[] = "drafting";
  /// Extension of a standard file.
  static constexpr const char ZOLDftStdExtension[] = "xml";
  /// Separator of a node path.
  static constexpr const char ZOLDftStdNodeSeparator[] = ".";
  /// Top-level node names.
  static constexpr const char ZOLDftStdNodeGeneral[] = "General";
  static constexpr const char ZOLDftStdNodeDress[] = "DressUp";
  static constexpr const char ZOLDftStdNodeDimension[] = "Dimension";
  static constexpr const char ZOLDftStdNodeTolerance[] = "ToleranceFormats";
  static constexpr const char ZOLDftStdNodeValue[] = "ValueFormats";
  static constexpr const char ZOLDftStdNodeThickness[] = "LineThickness";
  static constexpr const char ZOLDftStdNodeLinetypes[] = "LineTypes";
  static constexpr const char ZOLDftStdNodeStyles[] = "Styles";

  /// Whether a reference node first exists in a release, or no longer exists in it.
  enum NodeStatus { NodeAdded = 0, NodeRemoved = 1 };

  /// The current data version: 290.
  static int GetCurrentVersion();
  /// The data version of a release, or -1 for an unknown release; the service pack is not looked at.
  static int GetVersionFromRelease(int release, int iServicePack = 0);
  /// S_OK with the reference node (relative to "Root.") and its status for releases 10 to 18;
  /// E_FAIL with a report, outputs untouched, for any other release.
  static long GetReferenceNodeForRelease(int release, ZOLUnicodeString& node, NodeStatus& status);
  /// The path of the version node below "Root.": "Version".
  static ZOLUnicodeString GetVersionNodePath();
  /// 1 if a file may carry this explicit version, else 0.
  static int CheckExplicitVersionNumberIsValid(int version);
};
