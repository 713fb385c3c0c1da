// Sheet formats and styles of a standard file, its scale, parent and version, and the parser cache.
#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <sstream>
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

// A standard opened through the services, with the reports raised from then on; at the end of
// the test there must have been as many as it expects.
struct Opened : OneStandard {
  ZOLTestReports r;
  ZOLAnnStandardServices services;
  int reports = 0;
  Opened(const std::string& standardName, const std::string& text)
      : OneStandard(standardName, text), services(name.c_str()) {}
  ~Opened() { EXPECT_EQ(r.Count(), reports) << "reports raised"; }
};

// What a list query answered: its result, the count it set (-1 if none) and the list, owned.
template <typename T>
struct Listed {
  long hr;
  int count = -1;
  std::unique_ptr<T[]> items;
};

template <typename T>
Listed<T> List(long (ZOLAnnStandardServices::*get)(T**, int&), ZOLAnnStandardServices& services) {
  Listed<T> out;
  T* items = nullptr;
  out.hr = (services.*get)(&items, out.count);
  out.items.reset(items);
  return out;
}

Listed<ZOLDrwStdSheetStyle> SheetStyles(ZOLAnnStandardServices& services) {
  return List(&ZOLAnnStandardServices::GetAvailableSheetStyles, services);
}

Listed<ZOLDrwStdSheetFormat> SheetFormats(ZOLAnnStandardServices& services) {
  return List(&ZOLAnnStandardServices::GetAvailableSheetFormats, services);
}

// The result of the scale query and the scale, which starts at start.
std::pair<long, double> ScaleOf(ZOLAnnStandardServices& services, double start = 0) {
  long hr = services.GetSheetScale(start);
  return {hr, start};
}

std::pair<long, int> VersionOf(ZOLAnnStandardServices& services) {
  int version = 0;
  long hr = services.GetVersion(version);
  return {hr, version};
}

std::pair<long, std::string> ParentOf(ZOLAnnStandardServices& services) {
  ZOLUnicodeString parent;
  long hr = services.GetStandardParentName(parent);
  return {hr, parent.str()};
}

// A format as "name widthxheight orientation/reserved".
std::string Describe(const ZOLDrwStdSheetFormat& f) {
  std::ostringstream out;
  out << f.name.str() << " " << f.width << "x" << f.height << " " << f.orientation << "/" << f.reserved;
  return out.str();
}

// A style as "name scale p<projection> g<positioning> o<orientation> d<display> <format>", "-" for a part it lacks.
std::string Describe(const ZOLDrwStdSheetStyle& s) {
  auto part = [](bool has, int value) { return has ? std::to_string(value) : std::string("-"); };
  std::ostringstream out;
  out << s.name.str() << " " << s.scale << " p" << s.projectionMethod << " g" << part(s.hasGenViewsPosMode, s.genViewsPosMode)
      << " o" << part(s.hasOrientation, s.orientation) << " d" << part(s.hasDisplayFormat, s.displayFormat) << " "
      << (s.hasFormat ? Describe(s.format) : "-");
  return out.str();
}

}  // namespace

using Scale = std::pair<long, double>;
using Level = std::pair<long, int>;
using Named = std::pair<long, std::string>;

// Full styles give 0 with every part and their format; formats are read with locale-independent
// sizes; the default style, its scale and the parent follow.
TEST(SheetQueries, FullStandardGivesStylesFormatsDefaultScaleAndParent) {
  Opened s("Full", FullStandard("0.25"));
  auto styles = SheetStyles(s.services);
  EXPECT_EQ(styles.hr, 0);
  ASSERT_EQ(styles.count, 2);
  EXPECT_EQ(Describe(styles.items[0]), "Default 0.25 p1 g1 o1 d1 A4 ISO 210.5x297 1/0");
  EXPECT_EQ(Describe(styles.items[1]), "Large 0.5 p1 g1 o1 d1 A0 ISO 1189x841 3/0");
  auto formats = SheetFormats(s.services);
  ASSERT_EQ(formats.hr, S_OK);
  ASSERT_EQ(formats.count, 2);
  EXPECT_EQ(Describe(formats.items[0]) + ", " + Describe(formats.items[1]), "A0 ISO 1189x841 3/0, A4 ISO 210.5x297 1/0");
  ZOLDrwStdSheetStyle style;
  EXPECT_EQ(s.services.GetDefaultSheetStyle(style), 0);
  EXPECT_EQ(style.name.str(), "Default");
  EXPECT_EQ(ScaleOf(s.services), Scale(S_OK, 0.25));
  EXPECT_EQ(ParentOf(s.services), Named(S_OK, "JIS"));
  EXPECT_EQ(s.services.CheckXMLStructure(), 0);
}

TEST(SheetStyles, ScaleAndProjectionOnlyGiveOneWithEveryFlagClear) {
  Opened s("Old", Standard(Version(290) + Formats() +
                           Node("Styles", Node("Sheet", OldSheetStyle("Default", "2.0") +
                                                            Node("Positioned", Node("GlobalScale", "<std:floatval>3</std:floatval>") +
                                                                                   Node("ProjectionMethod", Str("Third angle")) +
                                                                                   Node("GenViewsPosMode", Str("FixedCG")))))));
  auto styles = SheetStyles(s.services);
  EXPECT_EQ(styles.hr, 1);
  ASSERT_EQ(styles.count, 2);
  EXPECT_EQ(Describe(styles.items[0]), "Default 2 p0 g- o- d- -");
  EXPECT_EQ(Describe(styles.items[1]), "Positioned 3 p1 g0 o- d- -");
}

TEST(SheetStyles, StyleWithSomeButNotAllPartsIsABadStructure) {
  Opened s("Partial", Standard(Version(290) + Formats() +
                               Node("Styles", Node("Sheet", Node("Default", Node("GlobalScale", "<std:floatval>1</std:floatval>") +
                                                                                Node("Orientation", Str("Portrait")))))));
  ZOLDrwStdSheetStyle sentinel;
  ZOLDrwStdSheetStyle* styles = &sentinel;
  int count = 0;
  EXPECT_EQ(s.services.GetAvailableSheetStyles(&styles, count), E_FAIL);
  EXPECT_EQ(styles, &sentinel) << "the output stays as it was";
  EXPECT_EQ(s.r.CountContaining("Bad xml structure"), 2) << "the style, then the list";
  s.reports = 2;
}

// A record of three values fails the list at once; a size that does not scan or an unknown
// orientation fails its record, and the list after all were read.
TEST(SheetFormats, BadRecordFailsTheWholeList) {
  struct Row {
    std::string formats;
    int count, reports;
  };
  for (const Row& row : {Row{Format("A0 ISO", "1189", "841", "LandscapeOnly") + Format("A1 ISO", "841", "594", "", false), -1, 1},
                         Row{Format("A0 ISO", "wide", "841", "LandscapeOnly") + Format("A1 ISO", "841", "594", "Sideways"), 2, 3}}) {
    Opened s("Bad", Standard(Version(290) + Node("SheetFormat", row.formats)));
    auto formats = SheetFormats(s.services);
    EXPECT_EQ(formats.hr, E_FAIL);
    EXPECT_EQ(formats.items, nullptr);
    if (row.count >= 0) {
      EXPECT_EQ(formats.count, row.count);
    }
    EXPECT_EQ(s.r.CountContaining("Bad xml structure"), row.reports);
    s.reports = row.reports;
  }
}

TEST(VersionThresholds, LevelFiftyHasSheetStylesButNoSheetFormats) {
  Opened s("R13", Release13Standard());
  EXPECT_EQ(VersionOf(s.services), Level(S_OK, 50));
  auto formats = SheetFormats(s.services);
  EXPECT_EQ(formats.hr, E_FAIL);
  EXPECT_EQ(formats.count, -1) << "refused before looking at the tree";
  EXPECT_EQ(SheetStyles(s.services).hr, 1);
  EXPECT_EQ(ScaleOf(s.services), Scale(S_OK, 2.0));
  EXPECT_EQ(s.services.IsSwitchable(50), 1);
  EXPECT_EQ(s.services.IsSwitchable(60), 0);
  EXPECT_EQ(s.services.CheckXMLStructure(), 0) << "below level 60 the sheet styles are not checked";
}

TEST(VersionThresholds, LevelBelowThirtyHasNoSheetStyles) {
  // Release 10: Annotation without Styles.
  Opened s("R10", Standard(Node("Annotation", "") + Parent("ISO")));
  auto styles = SheetStyles(s.services);
  EXPECT_EQ(styles.hr, E_FAIL);
  ZOLDrwStdSheetStyle style;
  EXPECT_EQ(s.services.GetDefaultSheetStyle(style), E_FAIL);
  EXPECT_EQ(styles.count, -1);
  EXPECT_EQ(VersionOf(s.services), Level(S_OK, 2));
}

TEST(SheetQueries, ScaleThatIsNoNumberStillAnswersAndLeavesTheScale) {
  Opened s("Full", FullStandard("big"));
  EXPECT_EQ(ScaleOf(s.services, 7.0), Scale(S_OK, 7.0));
}

TEST(CheckXMLStructure, StandardWithoutSheetStylesIsReported) {
  Opened s("NoStyles", Standard(Version(290) + Parent("ISO") + Formats() + Node("Styles", Node("Sheet", ""))));
  EXPECT_EQ(s.services.CheckXMLStructure(), 1);
  EXPECT_EQ(s.r.CountContaining("The R14 sheet styles are corrupted"), 1);
  s.reports = 1;
}

TEST(CheckXMLStructure, VersionThatCannotBeToldIsReported) {
  Opened s("BadVersion", Standard(Version(100) + Parent("ISO")));
  EXPECT_EQ(VersionOf(s.services), Level(E_FAIL, -1));
  s.r.Clear();
  EXPECT_EQ(s.services.CheckXMLStructure(), 1);
  EXPECT_EQ(s.r.CountContaining("The version of the file could not be d"), 1);
  s.reports = s.r.Count();
}

TEST(UnreadableStandard, ObjectWithoutParserAnswersFailure) {
  EnvOverride env;
  env.Clear();
  ScratchDir work;
  env.Set("ADL_ODT_OUT", work.Path());
  ZOLTestReports r;
  ZOLAnnStandardServices services("NoSuchStandard");
  EXPECT_EQ(VersionOf(services).first, E_FAIL);
  EXPECT_EQ(services.IsSwitchable(1), 0);
  EXPECT_EQ(ParentOf(services).first, E_FAIL);
  EXPECT_EQ(ScaleOf(services).first, E_FAIL);
  EXPECT_EQ(r.Count(), 0);
  EXPECT_EQ(services.CheckXMLStructure(), E_FAIL);
  EXPECT_EQ(r.CountContaining("No parser available"), 1);
  EXPECT_EQ(r.Count(), 1);
  ZOLAnnStandardServices none(nullptr);
  EXPECT_EQ(none.IsSwitchable(0), 0);
}

TEST(ParserCache, UnchangedFileIsServedFromTheCacheWithoutReading) {
  OneStandard s("Cached", FullStandard("1.0"));
  ZOLAnnStandardServices first(s.name.c_str());
  SetModified(s.working, 1000000000);
  ZOLAnnStandardServices reads(s.name.c_str());  // the new time fills the cache
  EXPECT_EQ(reads.IsCached(), 1);
  // Same time, new text: a second object must not read the file.
  s.Rewrite(FullStandard("0.5"), 1000000000);
  ZOLAnnStandardServices hit(s.name.c_str());
  EXPECT_EQ(hit.IsCached(), 1);
  EXPECT_EQ(ScaleOf(hit), Scale(S_OK, 1.0));
}

TEST(ParserCache, NewModificationTimeReadsTheFileAndEarlierObjectsKeepTheirParser) {
  OneStandard s("Touched", FullStandard("1.0"));
  auto older = std::make_unique<ZOLAnnStandardServices>(s.name.c_str());
  s.Rewrite(FullStandard("0.5"), 1000000100);
  ZOLAnnStandardServices newer(s.name.c_str());
  EXPECT_EQ(ScaleOf(newer), Scale(S_OK, 0.5));
  // The cache now holds the newer parser; the older object still reads its own.
  EXPECT_EQ(ScaleOf(*older), Scale(S_OK, 1.0));
  EXPECT_EQ(SheetStyles(*older).hr, 0);
  older.reset();
  EXPECT_EQ(ScaleOf(newer), Scale(S_OK, 0.5));
}

TEST(SheetQueries, BuiltinStandardsPassTheStructureCheckWithFullSheetStyles) {
  EnvOverride env;
  env.Clear();
  ScratchDir work;
  env.Set("ADL_ODT_OUT", work.Path());
  ZOLTestReports r;
  for (const char* name : {"ISO", "JIS", "ANSI-ASME"}) {
    ZOLAnnStandardServices services(name);
    EXPECT_EQ(services.CheckXMLStructure(), 0) << name;
    auto formats = SheetFormats(services);
    EXPECT_EQ(formats.hr, S_OK) << name;
    EXPECT_GE(formats.count, 1) << name;
    ZOLDrwStdSheetStyle style;
    EXPECT_EQ(services.GetDefaultSheetStyle(style), 0) << name;
    EXPECT_TRUE(style.hasFormat) << name;
    EXPECT_EQ(ParentOf(services), Named(S_OK, std::string(name) == "ANSI-ASME" ? "ANSI" : name));
  }
  EXPECT_EQ(r.Count(), 0);
}
