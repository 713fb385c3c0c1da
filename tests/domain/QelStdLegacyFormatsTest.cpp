// The legacy number and tolerance formats: one record of each kind field by field (the columns of
// the tables land in their fields), siblings, defaults, and the separators as the symbol table
// codes them.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "QelStandardServices.h"
#include "ZOLReportCountTest.h"

namespace {

// The names of the fields in which two formats differ.
std::vector<std::string> Differences(const QelStdUnitDescription& a, const QelStdUnitDescription& b) {
  std::vector<std::string> out;
#define QELSTD_FIELD(f) \
  if (!(a.f == b.f)) out.push_back(#f);
  QELSTD_FIELD(Name) QELSTD_FIELD(NDType) QELSTD_FIELD(NDUnit) QELSTD_FIELD(NDGlobalFact) QELSTD_FIELD(NDNulFac_1)
  QELSTD_FIELD(NDNulFac_2) QELSTD_FIELD(NDExise) QELSTD_FIELD(NDSep1000) QELSTD_FIELD(NDFact_1) QELSTD_FIELD(NDFact_2)
  QELSTD_FIELD(NDFact_3) QELSTD_FIELD(NDValPos_1) QELSTD_FIELD(NDValPos_2) QELSTD_FIELD(NDValPos_3)
  QELSTD_FIELD(NDSepar_1) QELSTD_FIELD(NDSepar_2) QELSTD_FIELD(NDSepar_3) QELSTD_FIELD(NDSepScl_1)
  QELSTD_FIELD(NDSepScl_2) QELSTD_FIELD(NDSepScl_3) QELSTD_FIELD(NDSepPos_1) QELSTD_FIELD(NDSepPos_2)
  QELSTD_FIELD(NDSepPos_3) QELSTD_FIELD(NDRestX) QELSTD_FIELD(NDRestY) QELSTD_FIELD(NDFinZer) QELSTD_FIELD(NDSepNum)
  QELSTD_FIELD(NDTypFrac) QELSTD_FIELD(NDSepDen) QELSTD_FIELD(NDOperY) QELSTD_FIELD(NDNulOther)
  QELSTD_FIELD(NDResScl) QELSTD_FIELD(NDFact)
  return out;
}

std::vector<std::string> Differences(const QelStdToleranceDescription& a, const QelStdToleranceDescription& b) {
  std::vector<std::string> out;
  QELSTD_FIELD(Name) QELSTD_FIELD(TolType) QELSTD_FIELD(TolSepar_1) QELSTD_FIELD(TolSepar_2) QELSTD_FIELD(TolSymbolH)
  QELSTD_FIELD(TolSepTo_1) QELSTD_FIELD(TolSepTo_2) QELSTD_FIELD(TolSepTo_3) QELSTD_FIELD(TolTrailing)
  QELSTD_FIELD(TolFractLine) QELSTD_FIELD(TolPtOnValue) QELSTD_FIELD(TolAnchorPt) QELSTD_FIELD(TolIntX)
  QELSTD_FIELD(TolIntY) QELSTD_FIELD(TolExtX) QELSTD_FIELD(TolExtY) QELSTD_FIELD(TolMergeSame)
  QELSTD_FIELD(TolShowNull) QELSTD_FIELD(TolScale) QELSTD_FIELD(TolDispFact)
#undef QELSTD_FIELD
  return out;
}

template <class T>
const T& Named(const std::vector<std::shared_ptr<T>>& all, const char* name) {
  for (auto& d : all)
    if (d->Name == name) return *d;
  ADD_FAILURE() << "no format " << name;
  static const T none;
  return none;
}

const std::string kDegree = "\xC2\xB0";

bool IsUtf8(const std::string& s) {
  for (size_t i = 0; i < s.size(); ++i) {
    const unsigned char c = static_cast<unsigned char>(s[i]);
    const int n = c < 0x80 ? 0 : (c & 0xE0) == 0xC0 ? 1 : (c & 0xF0) == 0xE0 ? 2 : (c & 0xF8) == 0xF0 ? 3 : -1;
    if (n < 0 || i + n >= s.size()) return false;
    for (int k = 0; k < n; ++k)
      if ((static_cast<unsigned char>(s[++i]) & 0xC0) != 0x80) return false;
  }
  return true;
}

}  // namespace

class LegacyFormats : public ZOLReportCountTest {};

TEST_F(LegacyFormats, EachCallMakesNewObjectsOfEqualContent) {
  auto a = QelStandardServices::GetLegacyV4Units(), b = QelStandardServices::GetLegacyV4Units();
  auto c = QelStandardServices::GetLegacyV4Tolerances(), d = QelStandardServices::GetLegacyV4Tolerances();
  for (size_t i = 0; i < a.size(); ++i) {
    EXPECT_NE(a[i].get(), b[i].get());
    EXPECT_TRUE(Differences(*a[i], *b[i]).empty()) << i;
  }
  for (size_t i = 0; i < c.size(); ++i) {
    EXPECT_NE(c[i].get(), d[i].get());
    EXPECT_TRUE(Differences(*c[i], *d[i]).empty()) << i;
  }
  a[0]->NDType = 7;
  EXPECT_EQ(QelStandardServices::GetLegacyV4Units()[0]->NDType, 1);
}

TEST_F(LegacyFormats, DegreesMinutesSecondsFieldByField) {
  auto units = QelStandardServices::GetLegacyV4Units();
  const QelStdUnitDescription expected("NUM.ADMS", 2, 4, 1, 2, 2, 1, "", 0.000277778, 0.0166667, 1, 0, 0, 0, "\"", "'",
                                       kDegree, 1, 1, 1, 0.2, 0.2, 0.2, 0.5, 0, 1, ".", 2, 2, 0.5, 1, 1, 3);
  EXPECT_EQ(Differences(Named(units, "NUM.ADMS"), expected), std::vector<std::string>{});
  // Delivered factors, not the exact fractions of a degree.
  EXPECT_NE(Named(units, "ANGLEDMS").NDFact_1, 1 / 3600.0);
  EXPECT_EQ(Named(units, "ANGLEDMS").NDFact_2, 0.0166667);
}

TEST_F(LegacyFormats, SiblingsDifferOnlyWhereTheyShould) {
  auto units = QelStandardServices::GetLegacyV4Units();
  struct Pair {
    const char* a;
    const char* b;
    std::vector<std::string> fields;
  };
  for (const Pair& p : {Pair{"NUM.DIMM", "NUM,DIMM", {"Name", "NDSepNum"}},
                        Pair{"NUM.ADMS", "NUM,ADMS", {"Name", "NDNulFac_1", "NDSepNum"}},
                        Pair{"NUM.ADMS", "ANGLEDMS", {"Name", "NDSepPos_1", "NDSepPos_2", "NDSepPos_3"}},
                        Pair{"NUM.DIMM", "ANS.DIMM", {"Name", "NDFinZer", "NDNulOther"}}})
    EXPECT_EQ(Differences(Named(units, p.a), Named(units, p.b)), p.fields) << p.a << " / " << p.b;
}

TEST_F(LegacyFormats, TolerancesFieldByField) {
  auto tolerances = QelStandardServices::GetLegacyV4Tolerances();
  const QelStdToleranceDescription isonum("ISONUM", 2, 3, 4, 2.5, 0, 0, 0, 0, 1, 9, 3, 0, 0.5, -0.5, 0, 2, 2, 1, 1);
  EXPECT_EQ(Differences(Named(tolerances, "ISONUM"), isonum), std::vector<std::string>{});
  // Kept as delivered: its siblings have a symbol height of 1.
  EXPECT_EQ(Named(tolerances, "CPL_75A3").TolSymbolH, 25.4);
  EXPECT_EQ(Differences(Named(tolerances, "CPL_FLA3"), Named(tolerances, "CPL_50A3")),
            (std::vector<std::string>{"Name", "TolIntY", "TolExtX", "TolScale"}));
  EXPECT_EQ(Named(tolerances, "CPL_50A1").TolExtX, 0.214286);
}

TEST_F(LegacyFormats, DefaultsAreDistmmAndTheStackedTolerance) {
  auto units = QelStandardServices::GetLegacyV4Units();
  EXPECT_EQ(Differences(QelStdUnitDescription(), Named(units, "DISTMM")), std::vector<std::string>{"Name"});
  QelStdUnitDescription named("MINE");
  EXPECT_EQ(named.Name, "MINE");
  EXPECT_EQ(Differences(named, Named(units, "DISTMM")), std::vector<std::string>{"Name"});
  const QelStdToleranceDescription expected("", 2, 0, 0, 1.0, 0, 0, 0, 2, 1, 8, 2, 0.0, 0.6, 0.6, 0.0, 0, 0, 0.7, 1.0);
  EXPECT_EQ(Differences(QelStdToleranceDescription(), expected), std::vector<std::string>{});
  EXPECT_EQ(Differences(QelStdToleranceDescription("T"), expected), std::vector<std::string>{"Name"});
}

// The degree sign is U+00B0 in UTF-8; the decimal and thousands separators code as the symbol table says.
TEST_F(LegacyFormats, SeparatorsAreUtf8AndCodeAsTheSymbolTable) {
  auto units = QelStandardServices::GetLegacyV4Units();
  EXPECT_EQ(Named(units, "ANGLEDEC").NDSepar_1.str(), kDegree);
  EXPECT_EQ(Named(units, "INC.ADMS").NDSepar_3.str(), kDegree);
  for (auto& u : units) {
    for (const ZOLUnicodeString* s : {&u->Name, &u->NDSep1000, &u->NDSepar_1, &u->NDSepar_2, &u->NDSepar_3, &u->NDSepNum})
      EXPECT_TRUE(IsUtf8(s->str())) << u->Name.str();
    const int decimal = QelStandardServices::GetSymbolFromTable(u->NDSepNum);
    EXPECT_TRUE(decimal == 11 || decimal == 6) << u->Name.str();
    EXPECT_EQ(QelStandardServices::GetSymbolFromTable(u->NDSep1000), -1) << u->Name.str();
  }
}
