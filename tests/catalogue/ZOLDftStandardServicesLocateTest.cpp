// Finding a standard by name: the repository, working copies and built-in texts; listing; classes.
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

#include "ZOLCatalogueTestSupport.h"
#include "ZOLDftBuiltinStandards.h"
#include "ZOLDftStandardServices.h"
#include "ZOLStdServices.h"
#include "ZOLTestReports.h"


using qeltest::EnvOverride;
using qeltest::ReadText;
using qeltest::ScratchDir;
using qeltest::WriteText;
namespace fs = std::filesystem;

namespace {

// A repository of two directories (site first, delivered second) and a working directory.
struct Catalogue {
  ScratchDir root;
  EnvOverride env;
  std::string site = root / "site";
  std::string delivered = root / "delivered";
  std::string work = root / "work";
  Catalogue() {
    env.Clear();
    fs::create_directories(site + "/drafting");
    fs::create_directories(delivered + "/drafting");
    fs::create_directories(work);
    env.Set("ZOLCollectionStandard", site);
    env.Set("ZOLDefaultCollectionStandard", delivered);
    env.Set("ADL_ODT_OUT", work);
  }
};

std::vector<std::string> Items(const ZOLListValZOLUnicodeString& list) {
  std::vector<std::string> v;
  for (const ZOLUnicodeString& s : list) v.push_back(s.str());
  return v;
}

std::vector<std::string> Sorted(const ZOLListValZOLUnicodeString& list) {
  std::vector<std::string> v = Items(list);
  std::sort(v.begin(), v.end());
  return v;
}

const ZOLUnicodeString* Builtin(const char* name) { return ZOLDftBuiltinStandards::GetText(name); }

// The result of a search and the path it gave; "unchanged" when it gave none.
using Found = std::pair<long, std::string>;
Found Find(const char* name, bool inRepository) {
  ZOLUnicodeString path("unchanged");
  long hr = ZOLDftStandardServices::FindStandardFileInEnv(name, path, inRepository);
  return {hr, path.str()};
}

class FindInCollections : public testing::Test {
protected:
  Catalogue c;
};
class FindWorkingCopy : public FindInCollections {};

}  // namespace

TEST(StandardRepository, DirectoriesOfBothVariablesSplitOnColonSiteFirst) {
  EnvOverride env;
  env.Set("ZOLCollectionStandard", "/a::/b");
  env.Set("ZOLDefaultCollectionStandard", "/c");
  std::unique_ptr<ZOLListValZOLUnicodeString> dirs(ZOLStdServices::GetStandardPath());
  ASSERT_TRUE(dirs);
  EXPECT_EQ(Items(*dirs), (std::vector<std::string>{"/a", "/b", "/c"}));
  env.Unset("ZOLCollectionStandard");
  env.Set("ZOLDefaultCollectionStandard", "");
  dirs.reset(ZOLStdServices::GetStandardPath());
  ASSERT_TRUE(dirs) << "a defined but empty variable is an empty repository";
  EXPECT_EQ(dirs->Size(), 0);
  env.Unset("ZOLDefaultCollectionStandard");
  dirs.reset(ZOLStdServices::GetStandardPath());
  EXPECT_FALSE(dirs);
}

TEST(StandardRepository, FilesOfAKindAreTheXmlFilesOfEachDirectorySorted) {
  Catalogue c;
  WriteText(c.site + "/drafting/B.xml", "b");
  WriteText(c.site + "/drafting/A.xml", "a");
  WriteText(c.site + "/drafting/notes.txt", "n");
  fs::create_directories(c.site + "/drafting/Dir.xml");
  WriteText(c.delivered + "/drafting/A.xml", "a2");
  std::unique_ptr<ZOLListValZOLUnicodeString> files(ZOLStdServices::GetStandardFiles("drafting"));
  ASSERT_TRUE(files);
  EXPECT_EQ(Items(*files), (std::vector<std::string>{"A.xml", "B.xml", "A.xml"}));
}

TEST(StandardRepository, CopyTakesTheFirstDirectoryThatHasTheFile) {
  Catalogue c;
  WriteText(c.site + "/drafting/Company.xml", "site");
  WriteText(c.delivered + "/drafting/Company.xml", "delivered");
  WriteText(c.delivered + "/drafting/Other.xml", "other");
  EXPECT_EQ(ZOLStdServices::CopyStandard("Company", "drafting", c.work + "/out.xml"), S_OK);
  EXPECT_EQ(ReadText(c.work + "/out.xml"), "site");
  EXPECT_EQ(ZOLStdServices::CopyStandard("Other", "drafting", c.work + "/out.xml"), S_OK);
  EXPECT_EQ(ReadText(c.work + "/out.xml"), "other");
  EXPECT_EQ(ZOLStdServices::CopyStandard("None", "drafting", c.work + "/out.xml"), E_FAIL);
  EXPECT_EQ(ReadText(c.work + "/out.xml"), "other") << "a failed copy leaves the destination";
  EXPECT_EQ(ZOLStdServices::CopyStandard("Other", "drafting", c.root / "no/such/dir/out.xml"), E_FAIL);
}

TEST_F(FindInCollections, FirstDirectoryHoldingTheFileGivesItsPath) {
  WriteText(c.delivered + "/drafting/Company.xml", "delivered");
  EXPECT_EQ(Find("Company", true), Found(S_OK, c.delivered + "/drafting/Company.xml"));
  WriteText(c.site + "/drafting/Company.xml", "site");
  EXPECT_EQ(Find("Company", true), Found(S_OK, c.site + "/drafting/Company.xml"));
}

TEST_F(FindInCollections, UnknownNameOrEmptyRepositoryFailsAndLeavesThePath) {
  EXPECT_EQ(Find("None", true), Found(E_FAIL, "unchanged"));
  c.env.Set("ZOLCollectionStandard", "");
  c.env.Set("ZOLDefaultCollectionStandard", "");
  EXPECT_EQ(Find("None", true), Found(E_FAIL, "unchanged"));
  EXPECT_TRUE(fs::is_empty(c.work)) << "the repository search makes no working copy";
}

TEST_F(FindInCollections, NoRepositoryVariableIsSaidOnStandardOutput) {
  c.env.Clear();
  testing::internal::CaptureStdout();
  EXPECT_EQ(Find("ISO", true), Found(E_FAIL, "unchanged"));
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "ZOLDefaultCollectionStandard and ZOLCollectionStandard not defined.\n");
}

// Steps in one catalogue: a file written (under the catalogue's root), the name looked for, the
// result, and the working copy's text ("" when the search fails and leaves the path).
TEST_F(FindWorkingCopy, RepositoryFileThenAnyWorkingCopyThenTheBuiltinText) {
  struct Step {
    const char *file, *text, *name;
    long hr;
    const char* copy;
  };
  const Step steps[] = {
      {"delivered/drafting/Company.xml", "<company/>", "Company", 0, "<company/>"},  // copied to the working directory
      {"work/Gone.xml", "stale", "Gone", 0, "stale"},  // a copy left by an earlier call serves any name
      {nullptr, nullptr, "../work/Gone", 1, ""},
      {"delivered/xDrawing/JIS_Alternate.xml", "alternate", "JIS_Alternate", 0, "alternate"},  // from the drawing kind
      {nullptr, nullptr, "ISO_Alternate", 1, ""},
      {"work/ISO.xml", "stale", "ISO", 0, "stale"},  // the built-in text only where no working copy stands
      {"site/drafting/ISO.xml", "site iso", "ISO", 0, "site iso"},  // the repository before any copy
  };
  for (const Step& step : steps) {
    if (step.file) WriteText(c.root / step.file, step.text);
    std::string copy = c.work + "/" + step.name + ".xml";
    EXPECT_EQ(Find(step.name, false), Found(step.hr, step.hr ? "unchanged" : copy)) << step.name;
    if (!step.hr) {
      EXPECT_EQ(ReadText(copy), step.copy) << step.name;
    }
  }
}

TEST_F(FindWorkingCopy, AdlOdtOutGoesBeforeZolTemp) {
  WriteText(c.site + "/drafting/Company.xml", "x");
  c.env.Set("ZOLTemp", c.root / "temp-not-read");
  EXPECT_EQ(Find("Company", false), Found(0, c.work + "/Company.xml"));
  c.env.Unset("ADL_ODT_OUT");
  c.env.Set("ZOLTemp", c.work + "/temp");
  fs::create_directories(c.work + "/temp");
  EXPECT_EQ(Find("Company", false), Found(0, c.work + "/temp/Company.xml"));
}

TEST_F(FindWorkingCopy, NoWorkingDirectoryIsSaidAndNothingIsWritten) {
  WriteText(c.site + "/drafting/Company.xml", "x");
  c.env.Unset("ADL_ODT_OUT");
  c.env.Set("ZOLTemp", "");
  testing::internal::CaptureStderr();
  EXPECT_EQ(Find("Company", false), Found(1, "unchanged"));
  std::string err = testing::internal::GetCapturedStderr();
  EXPECT_NE(err.find("Neither ADL_ODT_OUT nor ZOLTemp is set"), std::string::npos) << err;
  EXPECT_FALSE(fs::exists("Company.xml")) << "never the current directory";
}

TEST_F(FindWorkingCopy, EachBuiltinIsWrittenWhenTheRepositoryIsEmpty) {
  c.env.Unset("ZOLCollectionStandard");
  c.env.Unset("ZOLDefaultCollectionStandard");
  for (const char* name : {"ISO", "JIS", "ANSI-ASME"}) {
    EXPECT_EQ(Find(name, false), Found(0, c.work + "/" + name + ".xml"));
    EXPECT_EQ(ReadText(c.work + "/" + name + ".xml"), Builtin(name)->str()) << name;
  }
  EXPECT_EQ(Find("ASME", false).first, 1) << "the file name is ANSI-ASME";
}

TEST_F(FindWorkingCopy, WorkingDirectoryThatCannotBeWrittenGivesOne) {
  WriteText(c.site + "/drafting/Company.xml", "x");
  WriteText(c.root / "plain-file", "not a directory");
  c.env.Set("ADL_ODT_OUT", c.root / "plain-file");
  EXPECT_EQ(Find("Company", false), Found(1, "unchanged"));
  c.env.Set("ADL_ODT_OUT", c.root / "no/such/dir");
  testing::internal::CaptureStderr();
  EXPECT_EQ(Find("ISO", false), Found(1, "unchanged"));
  std::string err = testing::internal::GetCapturedStderr();
  EXPECT_NE(err.find("Failed to open file for writing: "), std::string::npos) << err;
}

// The extension may stand anywhere in the name, and the stem loses its length; an empty extension
// lists every entry, and bad directories nothing.
TEST(ListFiles, ExtensionAnywhereInTheNameQualifiesAndTheStemLosesItsLength) {
  ScratchDir dir;
  for (const char* f : {"a.xml", "x.xml.bak", "c.txt", "dxmlx", "e.XML"}) WriteText(dir / f, "");
  ZOLListValZOLUnicodeString names;
  names.Append("a");
  ZOLDftStandardServices::ListFilesInDirectory(dir.Path().c_str(), "xml", names, 0);
  EXPECT_EQ(Sorted(names), (std::vector<std::string>{"a", "x.xml"})) << "a is not listed twice";
  names.RemoveAll();
  ZOLDftStandardServices::ListFilesInDirectory(dir.Path().c_str(), "", names, 0);
  EXPECT_EQ(Sorted(names), (std::vector<std::string>{"a.xml", "c.txt", "dxmlx", "e.XML", "x.xml.bak"}));
  ZOLDftStandardServices::ListFilesInDirectory((dir / "none").c_str(), "xml", names, 0);
  ZOLDftStandardServices::ListFilesInDirectory(nullptr, "xml", names, 0);
  ZOLDftStandardServices::ListFilesInDirectory(dir.Path().c_str(), nullptr, names, 0);
  EXPECT_EQ(names.Size(), 5);
}

TEST(ListStandards, RepositoryNamesWithoutXmlAndDuplicates) {
  Catalogue c;
  WriteText(c.site + "/drafting/Company.xml", "");
  WriteText(c.delivered + "/drafting/Company.xml", "");
  WriteText(c.delivered + "/drafting/ISO.xml", "");
  WriteText(c.delivered + "/drafting/Old.xml.xml", "");
  ZOLTestReports r;
  ZOLListValZOLUnicodeString names;
  names.Append("previous");
  ZOLDftStandardServices::ListStandards(names, 0);
  EXPECT_EQ(Items(names), (std::vector<std::string>{"Company", "ISO", "Old"}));
  EXPECT_EQ(r.Count(), 0);
}

TEST(ListStandards, NoRepositoryIsReportedAndGivesAnEmptyList) {
  EnvOverride env;
  env.Clear();
  ZOLTestReports r;
  ZOLListValZOLUnicodeString names;
  names.Append("previous");
  ZOLDftStandardServices::ListStandards(names, 1);
  EXPECT_EQ(names.Size(), 0);
  EXPECT_EQ(r.CountContaining("ON POINTER"), 1);
  EXPECT_EQ(r.Count(), 1);
}

TEST(ListStandards, OutOfTheBoxNamesInTheirOrder) {
  ZOLListValZOLUnicodeString names;
  names.Append("previous");
  ZOLDftStandardServices::ListOOTBStandards(names);
  EXPECT_EQ(Items(names), (std::vector<std::string>{"ANSI-ASME", "ISO", "JIS"}));
}

// A file that decodes to nothing has no parent and the level of release 9.
TEST(StandardClass, ParentAndVersionOfAFile) {
  ScratchDir dir;
  WriteText(dir / "asme.xml", qeltest::Standard(qeltest::Version(250) + qeltest::Parent("ANSI", "1")));
  ZOLTestReports r;
  for (auto [file, parent, level] : {std::tuple(dir / "asme.xml", "ASME", 250), {"/nonexistent-dir/none.xml", "", 1}}) {
    ZOLUnicodeString path(file), className("previous");
    int version = -5;
    ZOLDftStandardServices::GetStandardClassAndVersion(path, className, version);
    EXPECT_EQ(className.str(), parent) << file;
    EXPECT_EQ(version, level) << file;
  }
  EXPECT_EQ(r.Count(), 0);
}

TEST(ListByParent, AnsiIsLeftOutAndEachParentGoesToItsList) {
  ScratchDir dir;
  using qeltest::Parent;
  using qeltest::Standard;
  WriteText(dir / "iso.xml", Standard(Parent("ISO")));
  WriteText(dir / "jis.xml", Standard(Parent("JIS")));
  WriteText(dir / "asme.xml", Standard(Parent("ANSI", "1")));
  WriteText(dir / "ansi.xml", Standard(Parent("ANSI", "2")));
  WriteText(dir / "none.xml", Standard(""));
  ZOLTestReports r;
  ZOLListValZOLUnicodeString names;
  ZOLDftStandardServices::ListFilesInDirectory(dir.Path().c_str(), "xml", names, 1);
  EXPECT_EQ(Sorted(names), (std::vector<std::string>{"asme", "iso", "jis", "none"}));
  ZOLListValZOLUnicodeString iso, jis, asme;
  jis.Append("iso");
  ZOLDftStandardServices::ListXMLStdInDirectory(dir.Path().c_str(), "xml", iso, jis, asme);
  EXPECT_EQ(Items(iso), (std::vector<std::string>{"iso"}));
  EXPECT_EQ(Sorted(jis), (std::vector<std::string>{"iso", "jis"}));
  EXPECT_EQ(Items(asme), (std::vector<std::string>{"asme"}));
  EXPECT_EQ(r.Count(), 0);
}

TEST(OrientationNames, NamesAndValuesBothWaysAndUnknownsLeaveTheOutput) {
  for (auto [name, value] : {std::pair("LandscapeByDefault", LandscapeByDefault), {"PortraitOnly", PortraitOnly}, {"LandscapeOnly", LandscapeOnly}}) {
    ZOLFormatOrientationsType got = PortraitByDefault;
    EXPECT_EQ(ZOLDftStandardServices::GetEnumFromName(name, got), S_OK);
    EXPECT_EQ(got, value);
    ZOLUnicodeString back;
    EXPECT_EQ(ZOLDftStandardServices::GetNameFromEnum(value, back), S_OK);
    EXPECT_EQ(back.str(), name);
  }
  ZOLFormatOrientationsType value = PortraitOnly;
  EXPECT_EQ(ZOLDftStandardServices::GetEnumFromName("portraitonly", value), E_FAIL);
  EXPECT_EQ(value, PortraitOnly);
  ZOLUnicodeString name("unchanged");
  EXPECT_EQ(ZOLDftStandardServices::GetNameFromEnum(static_cast<ZOLFormatOrientationsType>(4), name), E_FAIL);
  EXPECT_EQ(ZOLDftStandardServices::GetNameFromEnum(static_cast<ZOLFormatOrientationsType>(-1), name), E_FAIL);
  EXPECT_EQ(name.str(), "unchanged");
}
