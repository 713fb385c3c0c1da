// A sheet format of a standard: name, size in millimetres and orientation.
#pragma once
#include "ZOLFormatOrientationsType.h"
#include "ZOLUnicodeString.h"

class ZOLDrwStdSheetFormat {
public:
  /// An unnamed format of size 0 x 0, landscape by default.
  ZOLDrwStdSheetFormat() = default;
  ZOLDrwStdSheetFormat(const ZOLDrwStdSheetFormat&) = default;
  ZOLDrwStdSheetFormat(ZOLDrwStdSheetFormat&&) noexcept = default;
  ZOLDrwStdSheetFormat& operator=(const ZOLDrwStdSheetFormat&) = default;
  ZOLDrwStdSheetFormat& operator=(ZOLDrwStdSheetFormat&&) noexcept = default;
  virtual ~ZOLDrwStdSheetFormat() = default;

  /// 1 when all five fields are equal.
  friend bool operator==(const ZOLDrwStdSheetFormat& a, const ZOLDrwStdSheetFormat& b) {
    return a.name == b.name && a.width == b.width && a.height == b.height && a.orientation == b.orientation &&
           a.reserved == b.reserved;
  }
  friend bool operator!=(const ZOLDrwStdSheetFormat& a, const ZOLDrwStdSheetFormat& b) { return !(a == b); }

  /// The format's name, as "A0 ISO".
  ZOLUnicodeString name;
  /// Width in millimetres.
  double width = 0.0;
  /// Height in millimetres.
  double height = 0.0;
  /// How the format may be turned.
  ZOLFormatOrientationsType orientation = LandscapeByDefault;
  /// Always 0.
  int reserved = 0;
};
