// How a tolerance is shown: one tolerance display format, with the members of a standard's
// ToleranceDisplay record.
#pragma once
#include "ZOLUnicodeString.h"

/// A tolerance display format. A plain value: the fields are its state and are read and written directly.
class QelStdToleranceDescription {
public:
  /// Two stacked numerical values at 0.7 of the text height, without a name.
  QelStdToleranceDescription();
  /// The default format under a name.
  explicit QelStdToleranceDescription(const ZOLUnicodeString& name);
  /// Every field, in the order of the members.
  QelStdToleranceDescription(const ZOLUnicodeString& name, int tolType, int tolSepar1, int tolSepar2,
                             double tolSymbolH, int tolSepTo1, int tolSepTo2, int tolSepTo3, int tolTrailing,
                             int tolFractLine, int tolPtOnValue, int tolAnchorPt, double tolIntX, double tolIntY,
                             double tolExtX, double tolExtY, int tolMergeSame, int tolShowNull, double tolScale,
                             double tolDispFact);
  QelStdToleranceDescription(const QelStdToleranceDescription&);
  QelStdToleranceDescription(QelStdToleranceDescription&&) noexcept;
  QelStdToleranceDescription& operator=(const QelStdToleranceDescription&);
  QelStdToleranceDescription& operator=(QelStdToleranceDescription&&) noexcept;
  ~QelStdToleranceDescription();

  ZOLUnicodeString Name;
  int TolType;
  int TolSepar_1;
  int TolSepar_2;
  double TolSymbolH;
  int TolSepTo_1;
  int TolSepTo_2;
  int TolSepTo_3;
  int TolTrailing;
  int TolFractLine;
  int TolPtOnValue;
  int TolAnchorPt;
  double TolIntX;
  double TolIntY;
  double TolExtX;
  double TolExtY;
  int TolMergeSame;
  int TolShowNull;
  double TolScale;
  double TolDispFact;
};
