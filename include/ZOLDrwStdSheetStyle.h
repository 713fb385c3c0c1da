// A sheet style of a standard: scale, projection, view positioning, orientation and format.
#pragma once
#include "ZOLDrwStdSheetFormat.h"
#include "ZOLUnicodeString.h"

class ZOLDrwStdSheetStyle {
public:
  /// An unnamed style of scale 1 with every has-flag clear.
  ZOLDrwStdSheetStyle() = default;
  ZOLDrwStdSheetStyle(const ZOLDrwStdSheetStyle&) = default;
  ZOLDrwStdSheetStyle(ZOLDrwStdSheetStyle&&) noexcept = default;
  ZOLDrwStdSheetStyle& operator=(const ZOLDrwStdSheetStyle&) = default;
  ZOLDrwStdSheetStyle& operator=(ZOLDrwStdSheetStyle&&) noexcept = default;
  virtual ~ZOLDrwStdSheetStyle() = default;

  /// 1 when every field is equal.
  friend bool operator==(const ZOLDrwStdSheetStyle& a, const ZOLDrwStdSheetStyle& b) {
    return a.name == b.name && a.scale == b.scale && a.projectionMethod == b.projectionMethod &&
           a.genViewsPosMode == b.genViewsPosMode && a.hasGenViewsPosMode == b.hasGenViewsPosMode &&
           a.orientation == b.orientation && a.hasOrientation == b.hasOrientation &&
           a.displayFormat == b.displayFormat && a.hasDisplayFormat == b.hasDisplayFormat && a.format == b.format &&
           a.hasFormat == b.hasFormat;
  }
  /// 1 when a field differs.
  friend bool operator!=(const ZOLDrwStdSheetStyle& a, const ZOLDrwStdSheetStyle& b) { return !(a == b); }

  /// The style's node name.
  ZOLUnicodeString name;
  /// The global scale.
  double scale = 1.0;
  /// 0 "First angle", 1 "Third angle".
  int projectionMethod = 0;
  /// 0 "FixedCG", 1 "FixedAxis".
  int genViewsPosMode = 0;
  /// Set when genViewsPosMode was read.
  bool hasGenViewsPosMode = false;
  /// 0 "Portrait", 1 "Landscape".
  int orientation = 0;
  /// Set when orientation was read.
  bool hasOrientation = false;
  /// 1 "Yes", 0 "No".
  bool displayFormat = false;
  /// Set when displayFormat was read.
  bool hasDisplayFormat = false;
  /// The format that the style names.
  ZOLDrwStdSheetFormat format;
  /// Set when format was read.
  bool hasFormat = false;
};
