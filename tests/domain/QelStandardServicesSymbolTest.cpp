// Separator codes both ways, the content type of parameter names, and the admission lists they ask.
#include <gtest/gtest.h>

#include <climits>
#include <memory>
#include <set>
#include <string>
#include <vector>

#include "QelStandardServices.h"
#include "ZOLQelLocalStandardAttributes.h"
#include "ZOLReportCountTest.h"

using namespace QelStandardServices;

// None of these lookups raises a report.
class SymbolTable : public ZOLReportCountTest {};
class ContentType : public ZOLReportCountTest {};

TEST_F(SymbolTable, CodesAndCharactersAreInverse) {
  std::set<std::string> seen;
  for (int code = 1; code <= 18; ++code) {
    ZOLUnicodeString symbol = GetSymbolFromTable(code);
    EXPECT_EQ(symbol.GetLengthInChar(), 1) << code;
    EXPECT_EQ(GetSymbolFromTable(symbol), code) << code;
    EXPECT_TRUE(seen.insert(symbol.str()).second) << "code " << code << " repeats " << symbol.str();
  }
}

TEST_F(SymbolTable, UnknownCodesAndSymbols) {
  for (int code : {0, 19, -1, INT_MIN, INT_MAX}) EXPECT_EQ(GetSymbolFromTable(code), "") << code;
  // The empty symbol is what a standard stores as -1 in NDSep1000: no thousands separator.
  for (const char* symbol : {"", "x", "..", ". ", "\t", "'", "\xC2\xB0"})
    EXPECT_EQ(GetSymbolFromTable(ZOLUnicodeString(symbol)), -1) << '"' << symbol << '"';
}

TEST_F(ContentType, NamesOfBothListsOfNeitherAndPrefixes) {
  struct Case {
    const char* name;
    QelContentType type;
  };
  const Case cases[] = {
      {"Annotation.Text.LeaderGap", ContentStandard},
      {"Text.Default.Font.Name", ContentStyle},
      {"General.SheetColors.View background.Color", ContentStandard},
      {"Sheet.A0 ISO.GlobalScale", ContentStyle},
      {"Sheet.ViewMode", ContentStyle},
      // A sequence stands in the lists by its first element.
      {"Patterns.coloring.color", ContentStandard},
      {"Patterns.hatching.angle1", ContentStandard},
      {"Patterns.hatching.angle1.1", ContentStandard},
      {"Patterns.coloring.color.15", ContentStandard},
      {"Patterns.coloring.color.2", ContentUnknown},
      {"Patterns.hatching.angle1.2", ContentUnknown},
      {"nothing", ContentUnknown},
      {"", ContentUnknown},
      {"Annotation.Text", ContentUnknown},
      {"Annotation", ContentUnknown},
      {"Text.Default.Font", ContentUnknown},
      {"Annotation.Text.LeaderGap.1", ContentUnknown},
      {"Annotation.Text.LeaderGap.", ContentUnknown},
      {"annotation.text.leadergap", ContentUnknown},
      {" Annotation.Text.LeaderGap", ContentUnknown},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(getContentType(c.name), c.type) << '"' << c.name << '"';
    EXPECT_EQ(getContentType(ZOLUnicodeString(c.name)), c.type) << '"' << c.name << '"';
  }
  EXPECT_EQ(getContentType(static_cast<const char*>(nullptr)), ContentUnknown);
}

TEST(AdmissionLists, EveryCallerSharesOneMapOfEachKind) {
  std::shared_ptr<LocalAttributeMap> a, b, c, d;
  ZOLQelLocalStandardAttributes::GetLocalStandardMap(a);
  ZOLQelLocalStandardAttributes::GetLocalStandardMap(b);
  ZOLQelLocalStandardAttributes::GetLocalStyleMap(c);
  ZOLQelLocalStandardAttributes::GetLocalStyleMap(d);
  ASSERT_TRUE(a && c);
  EXPECT_EQ(a.get(), b.get());
  EXPECT_EQ(c.get(), d.get());
  EXPECT_NE(a.get(), c.get());
  for (auto& [path, ordinal] : *a) EXPECT_EQ(c->count(path), 0u) << path << " stands in both lists";
}

// Two pairs of sheet colours share their ordinals; every other ordinal is unique and the last is 64.
TEST(AdmissionLists, OrdinalsOfTheStandardMapKeepTheirSharedPairs) {
  std::shared_ptr<LocalAttributeMap> map;
  ZOLQelLocalStandardAttributes::GetLocalStandardMap(map);
  EXPECT_EQ(map->at("General.SheetColors.View background.InnerFrameColor"), "35");
  EXPECT_EQ(map->at("General.SheetColors.3DDesign.Color"), "35");
  EXPECT_EQ(map->at("General.SheetColors.View background.EditionColor"), "36");
  EXPECT_EQ(map->at("General.SheetColors.View background.Color"), "36");
  std::set<int> ordinals;
  for (auto& [path, ordinal] : *map) ordinals.insert(std::stoi(ordinal));
  EXPECT_EQ(ordinals.size(), 64u);
  EXPECT_EQ(*ordinals.begin(), 1);
  EXPECT_EQ(*ordinals.rbegin(), 64);
  std::shared_ptr<LocalAttributeMap> styles;
  ZOLQelLocalStandardAttributes::GetLocalStyleMap(styles);
  std::set<int> styleOrdinals;
  for (auto& [path, ordinal] : *styles) styleOrdinals.insert(std::stoi(ordinal));
  EXPECT_EQ(styleOrdinals.size(), 114u);
  EXPECT_EQ(*styleOrdinals.rbegin(), 114);
}
