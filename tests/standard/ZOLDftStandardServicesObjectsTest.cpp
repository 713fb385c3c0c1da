#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "ZOLDftStandardServices.h"
#include "ZOLScratch.h"
#include "ZOLReportCountTest.h"
#include "ZOLStandardObjectTestSupport.h"

namespace {

const std::string& kOpen = qeltest::kStdOpen;

std::string Format(const char* name, const char* width, const char* height, const char* orientation) {
  return std::string("<std:typeval name=\"Formats\"><std:strval name=\"Name\">") + name +
         "</std:strval><std:floatval name=\"Width\">" + width + "</std:floatval><std:floatval name=\"Height\">" +
         height + "</std:floatval><std:enumval name=\"FormatOrientationType\">" + orientation +
         "</std:enumval></std:typeval>";
}

ZOLIDftStandard_var WithFormats(const std::string& formats) {
  return ZOLIDftStandard_var(qeltest::FromBody(qeltest::Node("SheetFormat", formats)));
}

// A working directory of its own for the default standards, with no repository.
class DefaultStandards : public ZOLReportCountTest {
protected:
  static void SetUpTestSuite() {
    dir = new qeltest::ScratchDir;
    setenv("ADL_ODT_OUT", dir->Path().c_str(), 1);
    unsetenv("ZOLDefaultCollectionStandard");
    unsetenv("ZOLCollectionStandard");
  }
  static void TearDownTestSuite() { delete dir; }
  static qeltest::ScratchDir* dir;
};
qeltest::ScratchDir* DefaultStandards::dir;

using SheetFormats = ZOLReportCountTest;
using StandardVersion = ZOLReportCountTest;

}  // namespace

TEST_F(SheetFormats, AllFormatsOfTheListInOrder) {
  auto s = WithFormats(Format("A0 ISO", "1189", "841", "LandscapeByDefault") + Format("A4 ISO", "297", "210", "PortraitOnly"));
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 0;
  ASSERT_EQ(ZOLDftStandardServices::GetSheetFormats(s, &formats, count), S_OK);
  ASSERT_EQ(count, 2);
  std::unique_ptr<ZOLDrwStdSheetFormat[]> owned(formats);
  EXPECT_EQ(std::tuple(formats[0].name.str(), formats[0].width, formats[1].height, formats[1].orientation),
            std::tuple("A0 ISO", 1189.0, 210.0, PortraitOnly));
}

// A count that is not 0 in, a null standard or output, and a standard without a format list.
TEST_F(SheetFormats, BadArgumentsAreRefused) {
  auto s = WithFormats(Format("A0 ISO", "1189", "841", "LandscapeByDefault"));
  ZOLIDftStandard_var listless(qeltest::FromBody(qeltest::Node("SheetFormat", "<std:strval>x</std:strval>")));
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
  EXPECT_EQ(ZOLDftStandardServices::GetSheetFormats(listless, &formats, count), E_UNEXPECTED);
  reports = 4;
}

TEST_F(SheetFormats, AnUnknownOrientationFailsTheWholeList) {
  auto s = WithFormats(Format("A0 ISO", "1189", "841", "LandscapeByDefault") + Format("Odd", "1", "2", "Sideways"));
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 0;
  EXPECT_EQ(ZOLDftStandardServices::GetSheetFormats(s, &formats, count), E_FAIL);
  EXPECT_EQ(formats, nullptr);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(r.CountContaining("Bad imbedded standard structure"), 1);
  reports = 1;
  ZOLDrwStdSheetFormat one;
  EXPECT_EQ(ZOLDftStandardServices::GetFormatData(*s, 2, one), E_FAIL);
  // What was read stays.
  EXPECT_EQ(std::tuple(one.name.str(), one.height, one.orientation), std::tuple("Odd", 2.0, LandscapeByDefault));
}

TEST_F(StandardVersion, WithoutVersionNodeTheFileIsDecoded) {
  qeltest::ScratchDir dir;
  qeltest::WriteText(dir / "std.xml", "<?xml version='1.0' ?>" + kOpen +
                                           "<std:node name=\"Dimension\"><std:node name=\"ParentStandard\"><std:strval>ISO</std:strval>"
                                           "</std:node></std:node></std:node>");
  ZOLUnicodeString file(dir / "std.xml"), className;
  int decoded = -7;
  ZOLDftStandardServices::GetStandardClassAndVersion(file, className, decoded);
  ASSERT_NE(decoded, -1);
  EXPECT_EQ(ZOLDftStandardServices::GetStandardFromFile(file, "V")->GetStdVersion(), decoded);
}

TEST_F(DefaultStandards, KeptObjectIsReturnedAgainWithoutTheFileSystem) {
  auto first = ZOLDftStandardServices::GetOOTBStandard("JIS", 0);
  ASSERT_FALSE(first.IsNull());
  std::filesystem::remove_all(*dir / "JIS.xml");
  auto second = ZOLDftStandardServices::GetOOTBStandard("JIS", 1);
  EXPECT_EQ(first.Get(), second.Get());
  EXPECT_FALSE(std::filesystem::exists(*dir / "JIS.xml"));
  ZOLUnicodeString parent;
  EXPECT_EQ(second->GetParentStandard(parent), S_OK);
  EXPECT_EQ(parent, "JIS");
}

TEST_F(DefaultStandards, AsmeLoadsTheAnsiAsmeTextUnderTheNameAsme) {
  auto asme = ZOLDftStandardServices::GetOOTBStandard("ASME", 0);
  ASSERT_FALSE(asme.IsNull());
  ZOLUnicodeString name, parent;
  EXPECT_EQ(asme->GetName(name), S_OK);
  EXPECT_EQ(name, "ASME");
  EXPECT_EQ(asme->GetParentStandard(parent), S_OK);
  EXPECT_EQ(parent, "ANSI");
  EXPECT_TRUE(std::filesystem::exists(*dir / "ANSI-ASME.xml"));
}

TEST_F(DefaultStandards, AnsiAsmeIsLocatedButGivesNull) {
  std::filesystem::remove_all(*dir / "ANSI-ASME.xml");
  auto none = ZOLDftStandardServices::GetOOTBStandard("ANSI-ASME", 0);
  EXPECT_TRUE(none.IsNull());
  EXPECT_TRUE(std::filesystem::exists(*dir / "ANSI-ASME.xml"));
  EXPECT_EQ(r.Count(), 0);
  EXPECT_TRUE(ZOLDftStandardServices::GetOOTBStandard("NoSuchStandard", 0).IsNull());
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
  reports = 1;
}
