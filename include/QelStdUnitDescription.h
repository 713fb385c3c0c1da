// How a number is shown: one numerical display format, with the members of a standard's
// NumericalDisplay record.
#pragma once
#include "ZOLUnicodeString.h"

/// A numerical display format. A plain value: the fields are its state and are read and written directly.
class QelStdUnitDescription {
public:
  /// The format "DISTMM" without its name: millimetres, decimal point, two decimals.
  QelStdUnitDescription();
  /// The format "DISTMM" under another name.
  explicit QelStdUnitDescription(const ZOLUnicodeString& name);
  /// Every field, in the order of the members.
  QelStdUnitDescription(const ZOLUnicodeString& name, int ndType, int ndUnit, double ndGlobalFact, int ndNulFac1,
                        int ndNulFac2, int ndExise, const ZOLUnicodeString& ndSep1000, double ndFact1, double ndFact2,
                        double ndFact3, double ndValPos1, double ndValPos2, double ndValPos3,
                        const ZOLUnicodeString& ndSepar1, const ZOLUnicodeString& ndSepar2,
                        const ZOLUnicodeString& ndSepar3, double ndSepScl1, double ndSepScl2, double ndSepScl3,
                        double ndSepPos1, double ndSepPos2, double ndSepPos3, double ndRestX, double ndRestY,
                        int ndFinZer, const ZOLUnicodeString& ndSepNum, int ndTypFrac, int ndSepDen, double ndOperY,
                        int ndNulOther, double ndResScl, int ndFact);
  QelStdUnitDescription(const QelStdUnitDescription&);
  QelStdUnitDescription(QelStdUnitDescription&&) noexcept;
  QelStdUnitDescription& operator=(const QelStdUnitDescription&);
  QelStdUnitDescription& operator=(QelStdUnitDescription&&) noexcept;
  ~QelStdUnitDescription();

  ZOLUnicodeString Name;
  int NDType;
  int NDUnit;
  double NDGlobalFact;
  int NDNulFac_1;
  int NDNulFac_2;
  int NDExise;
  ZOLUnicodeString NDSep1000;  // thousands separator, one symbol of the separator table or empty
  double NDFact_1;
  double NDFact_2;
  double NDFact_3;
  double NDValPos_1;
  double NDValPos_2;
  double NDValPos_3;
  ZOLUnicodeString NDSepar_1;
  ZOLUnicodeString NDSepar_2;
  ZOLUnicodeString NDSepar_3;
  double NDSepScl_1;
  double NDSepScl_2;
  double NDSepScl_3;
  double NDSepPos_1;
  double NDSepPos_2;
  double NDSepPos_3;
  double NDRestX;
  double NDRestY;
  int NDFinZer;
  ZOLUnicodeString NDSepNum;  // decimal separator, one symbol of the separator table
  int NDTypFrac;
  int NDSepDen;
  double NDOperY;
  int NDNulOther;
  double NDResScl;
  int NDFact;
};
