// Engineering symbols: the table of each context and parent, the fallback between the two sibling
// tables, and the rows that stand as they always stood.
#include <gtest/gtest.h>

#include <string>

#include "ZOLAnnStdEngineeringSymbolsServices.h"
#include "ZOLReportCountTest.h"
#include "catalogue/ZOLDftEngineeringSymbolCatalog.h"
#include "domain/ZOLAnnStdEngineeringSymbolsData.h"

namespace {

using Services = ZOLAnnStdEngineeringSymbolsServices;

// None of these lookups raises a report.
class EngineeringSymbols : public ZOLReportCountTest {};

struct Found {
  HRESULT result;
  ZOLUnicodeString font = "untouched", code = "untouched", icon16 = "untouched", icon22 = "untouched";
};

Found Look(const char* name, int context, int parent) {
  Found f;
  f.result = Services::GetEngSymbolDefinitionAndImage(name, static_cast<Services::SymbolContext>(context),
                                                        static_cast<Services::ParentStandard>(parent), f.font, f.code,
                                                        f.icon16, f.icon22, 0);
  return f;
}

}  // namespace

TEST_F(EngineeringSymbols, TableOfEachContextAndParentThenTheSibling) {
  struct Case {
    const char* name;
    int context, parent;
    HRESULT result;
    const char* font;
    const char* code;
  } cases[] = {
      {"<DIAMETER>", 1, 0, S_OK, "KVISO1.otf", "8960"},
      {"<DIAMETER>", 0, 0, S_OK, "SYM2.font", "8960"},
      {"<DIAMETER>", 0, 2, S_OK, "SYM1.font", "8960"},
      {"<DIAMETER>", 1, 2, S_OK, "SYM1.font", "8960"},
      {"<STRAIGHT>", 1, 1, S_OK, "KVISO1.otf", "9188"},
      {"<STRAIGHT>", 0, 1, S_OK, "SYM2.font", "9472"},
      {"<FLATNESS>", 0, 0, S_OK, "SYM2.font", "61440"},
      {"<FLATNESS>", 1, 2, S_OK, "SYM1.font", "61440"},
      {"<SUBSTITUTION>", 1, 0, S_OK, "KVISO1.otf", "42"},
      {"<SUBSTITUTION>", 0, 0, S_OK, "SSS4.font", "42"},
      {"<SUBSTITUTION>", 0, 2, S_OK, "SSS4.font", "42"},
      {"<NOACTUALSIZE>", 0, 0, S_OK, "SYM1.font", "9416"},
      {"<TANGENTPLANE>", 0, 1, S_OK, "SYM1.font", "9417"},
      {"<Reciprocity>", 0, 0, S_OK, "SYM2.font", "9415"},
      {"<SR>", 1, 0, S_OK, "KVISO1.otf", "61711"},
      {"<SR>", 0, 2, S_OK, "SYM1.font", "61711"},
      // Context 0 falls back on the KVISO1 set for the symbols its own set lacks, and says so.
      {"<DEGREE>", 0, 0, S_FALSE, "KVISO1.otf", "176"},
      {"<MICRO>", 0, 1, S_FALSE, "KVISO1.otf", "181"},
      {"<CHECKMARK>", 0, 0, S_FALSE, "KVISO1.otf", "10003"},
      {"<BALLOTX>", 0, 1, S_FALSE, "KVISO1.otf", "10007"},
      {"<DEGREE><MICRO>", 1, 0, S_FALSE, "SYM2.fontSYM2.font", "176181"},
      // The SYM1 set has no sibling.
      {"<CHECKMARK>", 1, 2, E_FAIL, "untouched", "untouched"},
      {"<Reciprocity>", 0, 2, E_FAIL, "untouched", "untouched"},
      {"<DEGREE><MICRO>", 0, 2, E_FAIL, "untouched", "untouched"},
      // Names compare exactly.
      {"<Unequally>", 1, 0, S_OK, "KVISO1.otf", "9418"},
      {"<UNEQUALLY>", 1, 0, E_FAIL, "untouched", "untouched"},
      {"<diameter>", 0, 0, E_FAIL, "untouched", "untouched"},
      {"DIAMETER", 1, 0, E_FAIL, "untouched", "untouched"},
      {"<SpotFace> ", 1, 0, E_FAIL, "untouched", "untouched"},
      {"<CF>", 0, 0, S_OK, "SYM2.font", "61697"},
      {"<Independency>", 1, 2, S_OK, "SYM1.font", "9406"},
      // In the catalogue of the built-in standards, but in none of the tables.
      {"<BETWEEN>", 1, 0, E_FAIL, "untouched", "untouched"},
      {"", 1, 0, E_INVALIDARG, "untouched", "untouched"},
      {"", 9, 9, E_INVALIDARG, "untouched", "untouched"},
      // A context other than 0 or 1 with a parent other than 2 selects no table; 2 takes any context.
      {"<DIAMETER>", 2, 0, E_FAIL, "untouched", "untouched"},
      {"<DIAMETER>", -1, 1, E_FAIL, "untouched", "untouched"},
      {"<DIAMETER>", 0, 3, E_FAIL, "untouched", "untouched"},
      {"<DIAMETER>", 5, 2, S_OK, "SYM1.font", "8960"},
  };
  for (const Case& c : cases) {
    Found f = Look(c.name, c.context, c.parent);
    const std::string at = std::string(c.name) + " context " + std::to_string(c.context) + " parent " +
                           std::to_string(c.parent);
    EXPECT_EQ(f.result, c.result) << at;
    EXPECT_EQ(f.font, c.font) << at;
    EXPECT_EQ(f.code, c.code) << at;
    if (FAILED(c.result)) {
      EXPECT_TRUE(f.icon16 == "untouched" && f.icon22 == "untouched") << at;
    }
  }
}

// The spot face of the SYM2 set holds two drawings end to end; every other icon is one drawing.
TEST_F(EngineeringSymbols, IconsAreOneDrawingButTheSpotFaceOfTheThinSet) {
  const ZOLAnnStdEngSymbolTable* tables[] = {&kEngSymbolTableA, &kEngSymbolTableB, &kEngSymbolTableC};
  for (const ZOLAnnStdEngSymbolTable* t : tables)
    for (int i = 0; i < t->count; ++i) {
      const ZOLAnnStdEngSymbolRow& row = t->rows[i];
      const size_t drawings = t == &kEngSymbolTableB && std::string(row.symbolName) == "<SpotFace>" ? 2 : 1;
      EXPECT_EQ(std::string(row.icon16).size(), 44 * drawings) << row.symbolName;
      EXPECT_EQ(std::string(row.icon22).size(), 88 * drawings) << row.symbolName;
    }
  Found f = Look("<SpotFace>", 0, 1);
  EXPECT_EQ(f.result, S_OK);
  EXPECT_EQ(f.icon16, "AAAH4BgYI8QkJEgSSBJIEkgSSBJIEigUKAQYGAZgAYA=AAAAAAAAAAB//l5CQkJCQlxiYEJeekAAAAAAAAAAAAA=");
  EXPECT_EQ(kEngSymbolTableB.rows[40].symbolName, std::string("<SpotFace>"));
  EXPECT_EQ(kEngSymbolTableB.rows[4].symbolName, std::string("<DEGREE><MICRO>"));
}

// One source: the SYM1 set is the symbol list of the built-in standard with parent ANSI, and the
// other two draw the same catalogue in their looks.
TEST_F(EngineeringSymbols, TablesAreTheCatalogueOfTheBuiltinStandards) {
  EXPECT_EQ(kEngSymbolTableA.count, 64);
  EXPECT_EQ(kEngSymbolTableB.count, 61);
  EXPECT_EQ(kEngSymbolTableC.count, 61);
  const int ansi = static_cast<int>(ZOLDftBuiltin::AnsiAsme);
  int listed = 0;
  for (int i = 0; i < kZOLDftEngineeringSymbolCount; ++i) {
    const ZOLDftEngineeringSymbol& s = kZOLDftEngineeringSymbols[i];
    const int place = s.position[ansi];
    if (place < 1 || place > kEngSymbolTableC.count) continue;
    ++listed;
    const ZOLAnnStdEngSymbolRow& row = kEngSymbolTableC.rows[place - 1];
    EXPECT_STREQ(row.symbolName, s.name);
    EXPECT_STREQ(row.fontName, s.font[ansi]);
    EXPECT_EQ(row.charCode, std::to_string(s.charCode[ansi])) << s.name;
    EXPECT_STREQ(row.icon16, s.icons[s.look[ansi]][0]) << s.name;
    EXPECT_STREQ(row.icon22, s.icons[s.look[ansi]][1]) << s.name;
    Found a = Look(s.name, 1, 0), b = Look(s.name, 0, 0);
    if (a.result == S_OK) {
      EXPECT_EQ(a.icon16, s.icons[0][0]) << s.name;
    }
    if (b.result == S_OK && std::string(s.name) != "<SpotFace>") {
      EXPECT_EQ(b.icon16, s.icons[1][0]) << s.name;
    }
  }
  EXPECT_EQ(listed, kEngSymbolTableC.count);
  // The joined row carries the thin degree sign's icons.
  for (int i = 0; i < kZOLDftEngineeringSymbolCount; ++i)
    if (std::string(kZOLDftEngineeringSymbols[i].name) == "<DEGREE>") {
      EXPECT_STREQ(kEngSymbolTableB.rows[4].icon16, kZOLDftEngineeringSymbols[i].icons[1][0]);
    }
}
