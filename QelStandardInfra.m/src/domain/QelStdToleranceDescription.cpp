// A tolerance display format.
#include "QelStdToleranceDescription.h"

QelStdToleranceDescription::QelStdToleranceDescription() : QelStdToleranceDescription(ZOLUnicodeString()) {}

QelStdToleranceDescription::QelStdToleranceDescription(const ZOLUnicodeString& name)
    : QelStdToleranceDescription(name, 2, 0, 0, 1.0, 0, 0, 0, 2, 1, 8, 2, 0.0, 0.6, 0.6, 0.0, 0, 0, 0.7, 1.0) {}

QelStdToleranceDescription::QelStdToleranceDescription(const ZOLUnicodeString& name, int tolType, int tolSepar1,
                                                       int tolSepar2, double tolSymbolH, int tolSepTo1, int tolSepTo2,
                                                       int tolSepTo3, int tolTrailing, int tolFractLine,
                                                       int tolPtOnValue, int tolAnchorPt, double tolIntX,
                                                       double tolIntY, double tolExtX, double tolExtY,
                                                       int tolMergeSame, int tolShowNull, double tolScale,
                                                       double tolDispFact)
    : Name(name),
      TolType(tolType),
      TolSepar_1(tolSepar1),
      TolSepar_2(tolSepar2),
      TolSymbolH(tolSymbolH),
      TolSepTo_1(tolSepTo1),
      TolSepTo_2(tolSepTo2),
      TolSepTo_3(tolSepTo3),
      TolTrailing(tolTrailing),
      TolFractLine(tolFractLine),
      TolPtOnValue(tolPtOnValue),
      TolAnchorPt(tolAnchorPt),
      TolIntX(tolIntX),
      TolIntY(tolIntY),
      TolExtX(tolExtX),
      TolExtY(tolExtY),
      TolMergeSame(tolMergeSame),
      TolShowNull(tolShowNull),
      TolScale(tolScale),
      TolDispFact(tolDispFact) {}

QelStdToleranceDescription::QelStdToleranceDescription(const QelStdToleranceDescription&) = default;
QelStdToleranceDescription::QelStdToleranceDescription(QelStdToleranceDescription&&) noexcept = default;
QelStdToleranceDescription& QelStdToleranceDescription::operator=(const QelStdToleranceDescription&) = default;
QelStdToleranceDescription& QelStdToleranceDescription::operator=(QelStdToleranceDescription&&) noexcept = default;
QelStdToleranceDescription::~QelStdToleranceDescription() = default;
