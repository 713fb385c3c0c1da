// A numerical display format.
#include "QelStdUnitDescription.h"

#include <utility>

QelStdUnitDescription::QelStdUnitDescription() : QelStdUnitDescription(ZOLUnicodeString()) {}

QelStdUnitDescription::QelStdUnitDescription(const ZOLUnicodeString& name)
    : QelStdUnitDescription(name, 1, 1, 1, 2, 2, 1, "", 1, 0, 0, 0, 0, 0, "", "", "", 1, 0, 0, 0, 0, 0, 0.5, 0, 1, ".", 2,
                            2, 0.5, 1, 1, 1) {}

QelStdUnitDescription::QelStdUnitDescription(
    const ZOLUnicodeString& name, int ndType, int ndUnit, double ndGlobalFact, int ndNulFac1, int ndNulFac2,
    int ndExise, const ZOLUnicodeString& ndSep1000, double ndFact1, double ndFact2, double ndFact3, double ndValPos1,
    double ndValPos2, double ndValPos3, const ZOLUnicodeString& ndSepar1, const ZOLUnicodeString& ndSepar2,
    const ZOLUnicodeString& ndSepar3, double ndSepScl1, double ndSepScl2, double ndSepScl3, double ndSepPos1,
    double ndSepPos2, double ndSepPos3, double ndRestX, double ndRestY, int ndFinZer, const ZOLUnicodeString& ndSepNum,
    int ndTypFrac, int ndSepDen, double ndOperY, int ndNulOther, double ndResScl, int ndFact)
    : Name(name),
      NDType(ndType),
      NDUnit(ndUnit),
      NDGlobalFact(ndGlobalFact),
      NDNulFac_1(ndNulFac1),
      NDNulFac_2(ndNulFac2),
      NDExise(ndExise),
      NDSep1000(ndSep1000),
      NDFact_1(ndFact1),
      NDFact_2(ndFact2),
      NDFact_3(ndFact3),
      NDValPos_1(ndValPos1),
      NDValPos_2(ndValPos2),
      NDValPos_3(ndValPos3),
      NDSepar_1(ndSepar1),
      NDSepar_2(ndSepar2),
      NDSepar_3(ndSepar3),
      NDSepScl_1(ndSepScl1),
      NDSepScl_2(ndSepScl2),
      NDSepScl_3(ndSepScl3),
      NDSepPos_1(ndSepPos1),
      NDSepPos_2(ndSepPos2),
      NDSepPos_3(ndSepPos3),
      NDRestX(ndRestX),
      NDRestY(ndRestY),
      NDFinZer(ndFinZer),
      NDSepNum(ndSepNum),
      NDTypFrac(ndTypFrac),
      NDSepDen(ndSepDen),
      NDOperY(ndOperY),
      NDNulOther(ndNulOther),
      NDResScl(ndResScl),
      NDFact(ndFact) {}

QelStdUnitDescription::QelStdUnitDescription(const QelStdUnitDescription&) = default;
QelStdUnitDescription::QelStdUnitDescription(QelStdUnitDescription&&) noexcept = default;
QelStdUnitDescription& QelStdUnitDescription::operator=(const QelStdUnitDescription&) = default;
QelStdUnitDescription& QelStdUnitDescription::operator=(QelStdUnitDescription&&) noexcept = default;
QelStdUnitDescription::~QelStdUnitDescription() = default;
