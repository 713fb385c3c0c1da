#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "ZOLDftStandardServices.h"
#include "ZOLScratch.h"
#include "ZOLTestReports.h"

#if __has_include("ZOLDftBuiltinStandards.h")
#define QELSTD_HAVE_BUILTINS 1
#else
#define QELSTD_HAVE_BUILTINS 0
#endif

namespace {

const std::string kOpen = "<std:node xmlns:std=\"http://www.qelstandardinfra.org/std\" name=\"drafting\">";

std::string Format(const char* name, const char* width, const char* height, const char* orientation) {
  return std::string("<std:typeval name=\"Formats\"><std:strval name=\"Name\">") + name +
         "</std:strval><std:floatval name=\"Width\">" + width + "</std:floatval><std:floatval name=\"Height\">" +
         height + "</std:floatval><std:enumval name=\"FormatOrientationType\">" + orientation +
         "</std:enumval></std:typeval>";
}

ZOLIDftStandard_var WithFormats(const std::string& formats) {
  ZOLUnicodeString text(kOpen + "<std:node name=\"SheetFormat\">" + formats + "</std:node></std:node>");
  return ZOLIDftStandard_var(ZOLDftStandardServices::GetStandardFromBuffer(&text, "T"));
}

// A working directory of its own for the default standards, with no repository.
class DefaultStandards : public ::testing::Test {
protected:
  static void SetUpTestSuite() {
    dir = std::filesystem::temp_directory_path() / ("qelstd-ootb-" + std::to_string(::getpid()));
    std::filesystem::create_directories(dir);
    setenv("ADL_ODT_OUT", dir.c_str(), 1);
    unsetenv("ZOLDefaultCollectionStandard");
    unsetenv("ZOLCollectionStandard");
  }
  static void TearDownTestSuite() { std::filesystem::remove_all(dir); }
  void SetUp() override {
    if (!QELSTD_HAVE_BUILTINS) GTEST_SKIP() << "the built-in standard texts are not part of this build";
  }
  static std::filesystem::path dir;
};
std::filesystem::path DefaultStandards::dir;

}  // namespace

TEST(SheetFormats, AllFormatsOfTheListInOrder) {
  ZOLTestReports r;
  auto s = WithFormats(Format("A0 ISO", "1189", "841", "LandscapeByDefault") + Format("A4 ISO", "297", "210", "PortraitOnly"));
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 0;
  ASSERT_EQ(ZOLDftStandardServices::GetSheetFormats(s, &formats, count), S_OK);
  ASSERT_EQ(count, 2);
  EXPECT_EQ(formats[0].name, "A0 ISO");
  EXPECT_EQ(formats[0].width, 1189.0);
  EXPECT_EQ(formats[1].height, 210.0);
  EXPECT_EQ(formats[1].orientation, PortraitOnly);
  delete[] formats;
  EXPECT_EQ(r.Count(), 0);
}

TEST(SheetFormats, BadArgumentsAreRefused) {
  ZOLTestReports r;
  auto s = WithFormats(Format("A0 ISO", "1189", "841", "LandscapeByDefault"));
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 1;
  EXPECT_EQ(ZOLDftStandardServices::GetSheetFormats(s, &formats, count), E_UNEXPECTED);
  EXPECT_EQ(formats, nullptr);
  count = 0;
  EXPECT_EQ(ZOLDftStandardServices::GetSheetFormats(nullptr, &formats, count), E_UNEXPECTED);
  EXPECT_EQ(ZOLDftStandardServices::GetSheetFormats(s, nullptr, count), E_UNEXPECTED);
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 2);
  EXPECT_EQ(r.CountContaining("ON POINTER"), 1);
  EXPECT_EQ(r.Count(), 3);
}

TEST(SheetFormats, AnUnknownOrientationFailsTheWholeList) {
  ZOLTestReports r;
  auto s = WithFormats(Format("A0 ISO", "1189", "841", "LandscapeByDefault") + Format("Odd", "1", "2", "Sideways"));
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 0;
  EXPECT_EQ(ZOLDftStandardServices::GetSheetFormats(s, &formats, count), E_FAIL);
  EXPECT_EQ(formats, nullptr);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(r.CountContaining("Bad imbedded standard structure"), 1);
  EXPECT_EQ(r.Count(), 1);

  ZOLDrwStdSheetFormat one;
  EXPECT_EQ(ZOLDftStandardServices::GetFormatData(*s, 2, one), E_FAIL);
  EXPECT_EQ(one.name, "Odd");  // what was read stays
  EXPECT_EQ(one.height, 2.0);
  EXPECT_EQ(one.orientation, LandscapeByDefault);
}

TEST(SheetFormats, AStandardWithoutAFormatListIsRefused) {
  ZOLTestReports r;
  ZOLUnicodeString text(kOpen + "<std:node name=\"SheetFormat\"><std:strval>x</std:strval></std:node></std:node>");
  ZOLIDftStandard_var s(ZOLDftStandardServices::GetStandardFromBuffer(&text, "T"));
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 0;
  EXPECT_EQ(ZOLDftStandardServices::GetSheetFormats(s, &formats, count), E_UNEXPECTED);
  EXPECT_EQ(r.Count(), 1);
}

TEST(StandardVersion, WithoutVersionNodeTheFileIsDecoded) {
  ZOLTestReports r;
  qeltest::ScratchDir dir;
  qeltest::WriteText(dir / "std.xml", "<?xml version='1.0' ?>" + kOpen +
                                           "<std:node name=\"Dimension\"><std:node name=\"ParentStandard\"><std:strval>ISO</std:strval>"
                                           "</std:node></std:node></std:node>");
  ZOLUnicodeString file(dir / "std.xml"), className;
  int decoded = -7;
  ZOLDftStandardServices::GetStandardClassAndVersion(file, className, decoded);
  ASSERT_NE(decoded, -1);
  EXPECT_EQ(ZOLDftStandardServices::GetStandardFromFile(file, "V")->GetStdVersion(), decoded);
  EXPECT_EQ(r.Count(), 0);
}

TEST_F(DefaultStandards, KeptObjectIsReturnedAgainWithoutTheFileSystem) {
  ZOLTestReports r;
  auto first = ZOLDftStandardServices::GetOOTBStandard("JIS", 0);
  ASSERT_FALSE(first.IsNull());
  std::filesystem::remove_all(dir / "JIS.xml");
  auto second = ZOLDftStandardServices::GetOOTBStandard("JIS", 1);
  EXPECT_EQ(first.Get(), second.Get());
  EXPECT_FALSE(std::filesystem::exists(dir / "JIS.xml"));
  ZOLUnicodeString parent;
  EXPECT_EQ(second->GetParentStandard(parent), S_OK);
  EXPECT_EQ(parent, "JIS");
  EXPECT_EQ(r.Count(), 0);
}

TEST_F(DefaultStandards, AsmeLoadsTheAnsiAsmeTextUnderTheNameAsme) {
  ZOLTestReports r;
  auto asme = ZOLDftStandardServices::GetOOTBStandard("ASME", 0);
  ASSERT_FALSE(asme.IsNull());
  ZOLUnicodeString name, parent;
  EXPECT_EQ(asme->GetName(name), S_OK);
  EXPECT_EQ(name, "ASME");
  EXPECT_EQ(asme->GetParentStandard(parent), S_OK);
  EXPECT_EQ(parent, "ANSI");
  EXPECT_TRUE(std::filesystem::exists(dir / "ANSI-ASME.xml"));
  EXPECT_EQ(r.Count(), 0);
}

TEST_F(DefaultStandards, AnsiAsmeIsLocatedButGivesNull) {
  ZOLTestReports r;
  std::filesystem::remove_all(dir / "ANSI-ASME.xml");
  auto none = ZOLDftStandardServices::GetOOTBStandard("ANSI-ASME", 0);
  EXPECT_TRUE(none.IsNull());
  EXPECT_TRUE(std::filesystem::exists(dir / "ANSI-ASME.xml"));
  EXPECT_EQ(r.Count(), 0);
  EXPECT_TRUE(ZOLDftStandardServices::GetOOTBStandard("NoSuchStandard", 0).IsNull());
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
  EXPECT_EQ(r.Count(), 1);
}

TEST_F(DefaultStandards, IsoAnswersThroughEveryInterface) {
  ZOLTestReports r;
  auto iso = ZOLDftStandardServices::GetOOTBStandard("ISO", 0);
  ASSERT_FALSE(iso.IsNull());
  double size = 0;
  EXPECT_EQ(iso->GetValue("Text.Default.Font.Size", 1, size), S_OK);
  EXPECT_EQ(size, 3.5);
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 0;
  ASSERT_EQ(ZOLDftStandardServices::GetSheetFormats(ZOLIDftStandard_var(iso), &formats, count), S_OK);
  EXPECT_GT(count, 0);
  delete[] formats;
  int index = 0;
  EXPECT_EQ(iso->GetThicknessIndex(0.13, &index), S_OK);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(r.Count(), 0);
}
