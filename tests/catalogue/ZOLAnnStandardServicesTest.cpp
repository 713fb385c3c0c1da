// Sheet formats and styles of a standard file, its scale, parent and version, and the parser cache.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "ZOLAnnStandardServices.h"
#include "ZOLCatalogueTestSupport.h"
#include "ZOLTestReports.h"

using namespace qeltest;
namespace fs = std::filesystem;

namespace {

// A repository with one standard, found by name through a working copy.
struct OneStandard {
  ScratchDir root;
  EnvOverride env;
  std::string name;
  std::string file;     // in the repository
  std::string working;  // the copy the services read
  OneStandard(const std::string& standardName, const std::string& text) : name(standardName) {
    env.Clear();
    fs::create_directories(root / "work");
    env.Set("ZOLCollectionStandard", root.Path());
    env.Set("ADL_ODT_OUT", root / "work");
    file = root / ("drafting/" + name + ".xml");
    working = root / ("work/" + name + ".xml");
    WriteText(file, text);
  }
  // Changes the text in the repository and in the working copy, and sets the copy's time.
  void Rewrite(const std::string& text, long seconds) {
    WriteText(file, text);
    WriteText(working, text);
    SetModified(working, seconds);
  }
};

std::string Formats() {
  return Node("SheetFormat", Format("A0 ISO", "1189", "841", "LandscapeOnly") +
                                 Format("A4 ISO", "210.5", "297", "PortraitByDefault"));
}

// A current standard: two full sheet styles over two formats.
std::string FullStandard(const std::string& scale = "1.0") {
  return Standard(Version(290) + Parent("JIS") + Formats() +
                  Node("Styles", Node("Sheet", FullSheetStyle("Default", "A4 ISO", scale) +
                                                   FullSheetStyle("Large", "A0 ISO", "0.5"))));
}

// An undated standard of release 13 (level 50): its Styles hold old sheet styles.
std::string Release13Standard() {
  return Standard(Node("Annotation", "") + Node("Dimension", Node("CurvilinearLengthSymbol", Str("x"))) +
                  Formats() + Node("Styles", Node("Sheet", OldSheetStyle("Default", "2.0"))));
}

}  // namespace

TEST(SheetStyles, FullStylesGiveZeroWithEveryPartAndTheirFormat) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("Full", FullStandard());
  ZOLTestReports r;
  ZOLAnnStandardServices services(s.name.c_str());
  ZOLDrwStdSheetStyle* styles = nullptr;
  int count = 0;
  EXPECT_EQ(services.GetAvailableSheetStyles(&styles, count), 0);
  ASSERT_EQ(count, 2);
  std::unique_ptr<ZOLDrwStdSheetStyle[]> owned(styles);
  const ZOLDrwStdSheetStyle& d = styles[0];
  EXPECT_EQ(d.name.str(), "Default");
  EXPECT_EQ(d.scale, 1.0);
  EXPECT_EQ(d.projectionMethod, 1);
  EXPECT_TRUE(d.hasGenViewsPosMode);
  EXPECT_EQ(d.genViewsPosMode, 1);
  EXPECT_TRUE(d.hasOrientation);
  EXPECT_EQ(d.orientation, 1);
  EXPECT_TRUE(d.hasDisplayFormat);
  EXPECT_TRUE(d.displayFormat);
  ASSERT_TRUE(d.hasFormat);
  EXPECT_EQ(d.format.name.str(), "A4 ISO");
  EXPECT_EQ(d.format.width, 210.5);
  EXPECT_EQ(d.format.orientation, PortraitByDefault);
  EXPECT_EQ(styles[1].format.name.str(), "A0 ISO");
  EXPECT_EQ(styles[1].scale, 0.5);
  EXPECT_EQ(r.Count(), 0);
}

TEST(SheetStyles, ScaleAndProjectionOnlyGiveOneWithEveryFlagClear) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("Old", Standard(Version(290) + Formats() +
                                Node("Styles", Node("Sheet", OldSheetStyle("Default", "2.0") +
                                                                 Node("Positioned", Node("GlobalScale", "<std:floatval>3</std:floatval>") +
                                                                                        Node("ProjectionMethod", Str("Third angle")) +
                                                                                        Node("GenViewsPosMode", Str("FixedCG")))))));
  ZOLTestReports r;
  ZOLAnnStandardServices services(s.name.c_str());
  ZOLDrwStdSheetStyle* styles = nullptr;
  int count = 0;
  EXPECT_EQ(services.GetAvailableSheetStyles(&styles, count), 1);
  ASSERT_EQ(count, 2);
  std::unique_ptr<ZOLDrwStdSheetStyle[]> owned(styles);
  EXPECT_EQ(styles[0].scale, 2.0);
  EXPECT_EQ(styles[0].projectionMethod, 0);
  EXPECT_FALSE(styles[0].hasFormat || styles[0].hasOrientation || styles[0].hasDisplayFormat ||
               styles[0].hasGenViewsPosMode);
  EXPECT_TRUE(styles[1].hasGenViewsPosMode);
  EXPECT_EQ(styles[1].genViewsPosMode, 0);
  EXPECT_EQ(r.Count(), 0);
}

TEST(SheetStyles, StyleWithSomeButNotAllPartsIsABadStructure) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("Partial", Standard(Version(290) + Formats() +
                                    Node("Styles", Node("Sheet", Node("Default", Node("GlobalScale", "<std:floatval>1</std:floatval>") +
                                                                                     Node("Orientation", Str("Portrait")))))));
  ZOLTestReports r;
  ZOLAnnStandardServices services(s.name.c_str());
  ZOLDrwStdSheetStyle sentinel;
  ZOLDrwStdSheetStyle* styles = &sentinel;
  int count = 0;
  EXPECT_EQ(services.GetAvailableSheetStyles(&styles, count), E_FAIL);
  EXPECT_EQ(styles, &sentinel) << "the output stays as it was";
  EXPECT_EQ(r.CountContaining("Bad xml structure"), 2) << "the style, then the list";
  EXPECT_EQ(r.Count(), 2);
}

TEST(SheetFormats, EveryRecordReadWithLocaleIndependentSizes) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("Full", FullStandard());
  ZOLTestReports r;
  ZOLAnnStandardServices services(s.name.c_str());
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 0;
  ASSERT_EQ(services.GetAvailableSheetFormats(&formats, count), S_OK);
  std::unique_ptr<ZOLDrwStdSheetFormat[]> owned(formats);
  ASSERT_EQ(count, 2);
  EXPECT_EQ(formats[0].name.str(), "A0 ISO");
  EXPECT_EQ(formats[0].width, 1189.0);
  EXPECT_EQ(formats[0].height, 841.0);
  EXPECT_EQ(formats[0].orientation, LandscapeOnly);
  EXPECT_EQ(formats[1].width, 210.5);
  EXPECT_EQ(formats[1].reserved, 0);
  EXPECT_EQ(r.Count(), 0);
}

TEST(SheetFormats, RecordOfThreeValuesFailsTheWholeList) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("Three", Standard(Version(290) + Node("SheetFormat", Format("A0 ISO", "1189", "841", "LandscapeOnly") +
                                                                          Format("A1 ISO", "841", "594", "", false))));
  ZOLTestReports r;
  ZOLAnnStandardServices services(s.name.c_str());
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 0;
  EXPECT_EQ(services.GetAvailableSheetFormats(&formats, count), E_FAIL);
  EXPECT_EQ(formats, nullptr);
  EXPECT_EQ(r.CountContaining("Bad xml structure"), 1);
  EXPECT_EQ(r.Count(), 1);
}

TEST(SheetFormats, UnknownOrientationOrSizeThatDoesNotScanIsABadRecord) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("Bad", Standard(Version(290) + Node("SheetFormat", Format("A0 ISO", "wide", "841", "LandscapeOnly") +
                                                                        Format("A1 ISO", "841", "594", "Sideways"))));
  ZOLTestReports r;
  ZOLAnnStandardServices services(s.name.c_str());
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = 0;
  EXPECT_EQ(services.GetAvailableSheetFormats(&formats, count), E_FAIL);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(r.CountContaining("Bad xml structure"), 3) << "each record, then the list";
}

TEST(VersionThresholds, LevelFiftyHasSheetStylesButNoSheetFormats) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("R13", Release13Standard());
  ZOLTestReports r;
  ZOLAnnStandardServices services(s.name.c_str());
  int version = 0;
  EXPECT_EQ(services.GetVersion(version), S_OK);
  EXPECT_EQ(version, 50);
  ZOLDrwStdSheetFormat* formats = nullptr;
  int count = -1;
  EXPECT_EQ(services.GetAvailableSheetFormats(&formats, count), E_FAIL);
  EXPECT_EQ(count, -1) << "refused before looking at the tree";
  ZOLDrwStdSheetStyle* styles = nullptr;
  EXPECT_EQ(services.GetAvailableSheetStyles(&styles, count), 1);
  delete[] styles;
  double scale = 0;
  EXPECT_EQ(services.GetSheetScale(scale), S_OK);
  EXPECT_EQ(scale, 2.0);
  EXPECT_EQ(services.IsSwitchable(50), 1);
  EXPECT_EQ(services.IsSwitchable(60), 0);
  EXPECT_EQ(services.CheckXMLStructure(), 0) << "below level 60 the sheet styles are not checked";
  EXPECT_EQ(r.Count(), 0);
}

TEST(VersionThresholds, LevelBelowThirtyHasNoSheetStyles) {
  QELSTD_REQUIRE_CODEC();
  // Release 10: Annotation without Styles.
  OneStandard s("R10", Standard(Node("Annotation", "") + Parent("ISO")));
  ZOLTestReports r;
  ZOLAnnStandardServices services(s.name.c_str());
  ZOLDrwStdSheetStyle* styles = nullptr;
  int count = -1;
  EXPECT_EQ(services.GetAvailableSheetStyles(&styles, count), E_FAIL);
  ZOLDrwStdSheetStyle style;
  EXPECT_EQ(services.GetDefaultSheetStyle(style), E_FAIL);
  EXPECT_EQ(count, -1);
  int version = 0;
  EXPECT_EQ(services.GetVersion(version), S_OK);
  EXPECT_EQ(version, 2);
  EXPECT_EQ(r.Count(), 0);
}

TEST(SheetQueries, DefaultStyleScaleAndParent) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("Full", FullStandard("0.25"));
  ZOLTestReports r;
  ZOLAnnStandardServices services(s.name.c_str());
  ZOLDrwStdSheetStyle style;
  EXPECT_EQ(services.GetDefaultSheetStyle(style), 0);
  EXPECT_EQ(style.name.str(), "Default");
  double scale = 0;
  EXPECT_EQ(services.GetSheetScale(scale), S_OK);
  EXPECT_EQ(scale, 0.25);
  ZOLUnicodeString parent;
  EXPECT_EQ(services.GetStandardParentName(parent), S_OK);
  EXPECT_EQ(parent.str(), "JIS");
  EXPECT_EQ(services.CheckXMLStructure(), 0);
  EXPECT_EQ(r.Count(), 0);
}

TEST(SheetQueries, ScaleThatIsNoNumberStillAnswersAndLeavesTheScale) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("Full", FullStandard("big"));
  ZOLTestReports r;
  ZOLAnnStandardServices services(s.name.c_str());
  double scale = 7.0;
  EXPECT_EQ(services.GetSheetScale(scale), S_OK);
  EXPECT_EQ(scale, 7.0);
}

TEST(CheckXMLStructure, StandardWithoutSheetStylesIsReported) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("NoStyles", Standard(Version(290) + Parent("ISO") + Formats() + Node("Styles", Node("Sheet", ""))));
  ZOLTestReports r;
  ZOLAnnStandardServices services(s.name.c_str());
  EXPECT_EQ(services.CheckXMLStructure(), 1);
  EXPECT_EQ(r.CountContaining("The R14 sheet styles are corrupted"), 1);
  EXPECT_EQ(r.Count(), 1);
}

TEST(CheckXMLStructure, VersionThatCannotBeToldIsReported) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("BadVersion", Standard(Version(100) + Parent("ISO")));
  ZOLTestReports r;
  ZOLAnnStandardServices services(s.name.c_str());
  int version = 0;
  EXPECT_EQ(services.GetVersion(version), E_FAIL);
  EXPECT_EQ(version, -1);
  r.Clear();
  EXPECT_EQ(services.CheckXMLStructure(), 1);
  EXPECT_EQ(r.CountContaining("The version of the file could not be d"), 1);
}

TEST(UnreadableStandard, ObjectWithoutParserAnswersFailure) {
  EnvOverride env;
  env.Clear();
  ScratchDir work;
  env.Set("ADL_ODT_OUT", work.Path());
  ZOLTestReports r;
  ZOLAnnStandardServices services("NoSuchStandard");
  int version = 0;
  EXPECT_EQ(services.GetVersion(version), E_FAIL);
  EXPECT_EQ(services.IsSwitchable(1), 0);
  ZOLUnicodeString parent;
  EXPECT_EQ(services.GetStandardParentName(parent), E_FAIL);
  double scale = 0;
  EXPECT_EQ(services.GetSheetScale(scale), E_FAIL);
  EXPECT_EQ(r.Count(), 0);
  EXPECT_EQ(services.CheckXMLStructure(), E_FAIL);
  EXPECT_EQ(r.CountContaining("No parser available"), 1);
  EXPECT_EQ(r.Count(), 1);
  ZOLAnnStandardServices none(nullptr);
  EXPECT_EQ(none.IsSwitchable(0), 0);
}

TEST(ParserCache, UnchangedFileIsServedFromTheCacheWithoutReading) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("Cached", FullStandard("1.0"));
  ZOLAnnStandardServices first(s.name.c_str());
  SetModified(s.working, 1000000000);
  ZOLAnnStandardServices reads(s.name.c_str());  // the new time fills the cache
  EXPECT_EQ(reads.IsCached(), 1);
  // Same time, new text: a second object must not read the file.
  s.Rewrite(FullStandard("0.5"), 1000000000);
  ZOLAnnStandardServices hit(s.name.c_str());
  EXPECT_EQ(hit.IsCached(), 1);
  double scale = 0;
  EXPECT_EQ(hit.GetSheetScale(scale), S_OK);
  EXPECT_EQ(scale, 1.0);
}

TEST(ParserCache, NewModificationTimeReadsTheFileAndEarlierObjectsKeepTheirParser) {
  QELSTD_REQUIRE_CODEC();
  OneStandard s("Touched", FullStandard("1.0"));
  auto older = std::make_unique<ZOLAnnStandardServices>(s.name.c_str());
  s.Rewrite(FullStandard("0.5"), 1000000100);
  ZOLAnnStandardServices newer(s.name.c_str());
  double scale = 0;
  EXPECT_EQ(newer.GetSheetScale(scale), S_OK);
  EXPECT_EQ(scale, 0.5);
  // The cache now holds the newer parser; the older object still reads its own.
  EXPECT_EQ(older->GetSheetScale(scale), S_OK);
  EXPECT_EQ(scale, 1.0);
  ZOLDrwStdSheetStyle* styles = nullptr;
  int count = 0;
  EXPECT_EQ(older->GetAvailableSheetStyles(&styles, count), 0);
  delete[] styles;
  older.reset();
  EXPECT_EQ(newer.GetSheetScale(scale), S_OK);
  EXPECT_EQ(scale, 0.5);
}

TEST(SheetQueries, BuiltinStandardsPassTheStructureCheckWithFullSheetStyles) {
  QELSTD_REQUIRE_CODEC();
  EnvOverride env;
  env.Clear();
  ScratchDir work;
  env.Set("ADL_ODT_OUT", work.Path());
  ZOLTestReports r;
  for (const char* name : {"ISO", "JIS", "ANSI-ASME"}) {
    ZOLAnnStandardServices services(name);
    EXPECT_EQ(services.CheckXMLStructure(), 0) << name;
    ZOLDrwStdSheetFormat* formats = nullptr;
    int count = 0;
    EXPECT_EQ(services.GetAvailableSheetFormats(&formats, count), S_OK) << name;
    EXPECT_GE(count, 1) << name;
    delete[] formats;
    ZOLDrwStdSheetStyle style;
    EXPECT_EQ(services.GetDefaultSheetStyle(style), 0) << name;
    EXPECT_TRUE(style.hasFormat) << name;
    ZOLUnicodeString parent;
    EXPECT_EQ(services.GetStandardParentName(parent), S_OK);
    EXPECT_EQ(parent.str(), std::string(name) == "ANSI-ASME" ? "ANSI" : name);
  }
  EXPECT_EQ(r.Count(), 0);
}
