// The upgrade driver: parent and level, output path, the walk over the stages, style changes, output lines.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDrwParseStandard.h"
#include "ZOLRefCounted.h"
#include "ZOLEditLines.h"
#include "ZOLScratch.h"
#include "ZOLReportCountTest.h"
#include "upgrade/migration/ZOLDrwMigration.h"

namespace {

// A driver whose tree comes from edit lines and whose chain may be the test's own.
class Driver : public ZOLDrwParseStandard {
public:
  Driver(ZOLUnicodeString& name, std::vector<std::string> lines, const ZOLDrwMigrationStage* stages = nullptr, int count = 0)
      : ZOLDrwParseStandard(name, stages ? stages : ZOLDrwShippedStages().data(),
                            stages ? count : static_cast<int>(ZOLDrwShippedStages().size())),
        _lines(std::move(lines)) {}
  Driver(ZOLUnicodeString& name, std::vector<std::string> lines, std::vector<ZOLDrwMigrationStage>& chain)
      : Driver(name, std::move(lines), chain.data(), static_cast<int>(chain.size())) {}

  int DecodeTree(ZOLAnnStandardXMLParser& parser) override {
    ZOLEditLines(parser, _lines);
    return 0;
  }
  void SetStartLevel(int level) { _Version = level; }
  // Upgrades from a start level to a target (-1 the current), with or without default values.
  void Upgrade(int start, int target, bool updateDefaults = false) {
    _Version = start;
    ZOLDrwParseStandardUpgradeOptions options;
    options.UpdateDefaultValues = updateDefaults;
    UpgradeVersion(target, options);
  }
  ZOLAnnStandardXMLParser* Parser() { return _Parser; }
  // The text of the first value at a path.
  std::string Text(const char* path) { return _Parser->GetValueWithPath(path).str(); }

  using ZOLDrwParseStandard::ChangeStyleValue;
  using ZOLDrwParseStandard::CreateOutput;
  using ZOLDrwParseStandard::GetParentStandardId;

private:
  std::vector<std::string> _lines;
};

// A driver decoded at once.
struct Decoded : Driver {
  template <typename... Args>
  explicit Decoded(Args&&... args) : Driver(std::forward<Args>(args)...) { Decode(); }
};

std::vector<std::string> WithParent(const char* parent, const char* datumMode = nullptr) {
  std::vector<std::string> lines = {"N Root:Dimension", std::string("V Root.Dimension:ParentStandard:string:") + parent};
  if (datumMode) lines.push_back(std::string("V Root.Dimension:TXTDatumMode:int:") + datumMode);
  return lines;
}

// The stages that ran in a test chain, by their 1-based position.
std::vector<int> g_ran;

template <int N>
void RecordStep(ZOLDrwMigrationContext&) { g_ran.push_back(N); }

// The shipped levels, every step built and recording itself.
template <int... I>
std::vector<ZOLDrwMigrationStage> RecordingChain(std::integer_sequence<int, I...>) {
  std::vector<ZOLDrwMigrationStage> chain;
  auto shipped = ZOLDrwShippedStages();
  (chain.push_back({shipped[I].from, shipped[I].to, shipped[I].kind, shipped[I].name, &RecordStep<I + 1>}), ...);
  return chain;
}

std::vector<ZOLDrwMigrationStage> RecordingChain() { return RecordingChain(std::make_integer_sequence<int, 29>()); }

std::vector<int> Range(int first, int last) {
  std::vector<int> v;
  for (int i = first; i <= last; ++i) v.push_back(i);
  return v;
}

// Three text styles, each with the font Arial, after the parent.
std::vector<std::string> StylesWithParent(const char* parent) {
  std::vector<std::string> lines = WithParent(parent);
  lines.insert(lines.end(), {"N Root:Styles", "N Root.Styles:Text"});
  for (std::string style : {"Default", "Custom", "Last"})
    lines.insert(lines.end(), {"N Root.Styles.Text:" + style, "V Root.Styles.Text." + style + ":Font:string:Arial"});
  return lines;
}

// The font of each text style, joined by ",".
std::string Fonts(Driver& d) {
  return d.Text("Root.Styles.Text.Default.Font") + "," + d.Text("Root.Styles.Text.Custom.Font") + "," +
         d.Text("Root.Styles.Text.Last.Font");
}

class DriverTest : public ZOLReportCountTest {
protected:
  // Runs a recording chain over a decoded tree of parent ISO from start to target: the stages that
  // ran; the outcome is kept.
  std::vector<int> Walk(int start, int target, std::vector<ZOLDrwMigrationStage> chain = RecordingChain()) {
    Decoded d(name, WithParent("ISO"), chain);
    g_ran.clear();
    d.Upgrade(start, target);
    outcome = d.GetOutcome();
    return g_ran;
  }
  ZOLUnicodeString name{"std.xml"};
  ZOLDrwParseStandard::Outcome outcome;
};
class ParentStandard : public DriverTest {};
class Decode : public DriverTest {};
class CreateOutput : public DriverTest {};
class UpgradeWalk : public DriverTest {};
class ChangeStyleValue : public DriverTest {};
class EditTable : public DriverTest {};

}  // namespace

// Each case: parent, datum mode, the parent read, its id, and the reports.
TEST_F(ParentStandard, AnsiIsAsmeOrAnsiByItsDatumModeWhichNoOtherParentReads) {
  for (auto [parent, mode, read, id, count] :
       {std::tuple("ANSI", "1", "ASME", int(ZOLDrwParseStandard::ASME), 0), {"ANSI", "2", "ANSI", int(ZOLDrwParseStandard::ANSI), 0},
        {"ANSI", "0", "ANSI", int(ZOLDrwParseStandard::ANSI), 1}, {"JIS", "1", "JIS", int(ZOLDrwParseStandard::JIS), 0}}) {
    r.Clear();
    Decoded d(name, WithParent(parent, mode));
    EXPECT_EQ(d.GetParentStandard().str(), read) << parent << mode;
    EXPECT_EQ(r.CountContaining("Invalid TXTDatumMode"), count) << parent << mode;
    EXPECT_EQ(r.Count(), count) << parent << mode;
    EXPECT_EQ(d.GetParentStandardId(), id) << parent << mode;
  }
}

TEST_F(ParentStandard, MissingNodeGivesEmptyParentNotIsoToWhichNoMaskApplies) {
  std::vector<std::string> lines = StylesWithParent("");
  lines.erase(lines.begin() + 1);  // no ParentStandard node
  Decoded d(name, lines);
  EXPECT_EQ(d.GetParentStandard().str(), "");
  EXPECT_EQ(r.Count(), 0);
  EXPECT_EQ(d.GetParentStandardId(), 0);
  EXPECT_EQ(r.CountContaining("Unknown parent standard!!"), 1);
  EXPECT_EQ(d.ChangeStyleValue("Root.Styles.Text", "Font", 15, ZOLAnnStandardXMLValue::StringValue, "Arial", "Mono"), 0);
  EXPECT_EQ(Fonts(d), "Arial,Arial,Arial");
  reports = 2;
}

// An empty file name decodes nothing and encodes nothing; a missing file gives an empty tree,
// which has no Annotation node and so dates as release 9, and is known as failed.
TEST_F(Decode, EmptyFileNameDecodesNothingAndAMissingFileAnEmptyTree) {
  ZOLUnicodeString empty, missing("/nonexistent-dir/none.xml");
  for (auto [file, version, failed] : {std::tuple(&empty, 0, false), {&missing, 1, true}}) {
    ZOLDrwParseStandard d(*file);
    d.Decode();
    EXPECT_EQ(d.GetVersion(), version) << file->str();
    EXPECT_EQ(d.DecodeFailed(), failed) << file->str();
    EXPECT_EQ(d.GetParentStandard().str(), "") << file->str();
  }
  ZOLDrwParseStandard d(empty);
  d.Decode();
  ZOLUnicodeString out("previous");
  ZOLDrwParseStandardUpgradeOptions options;
  d.Encode("/nonexistent-dir", out, options);
  EXPECT_EQ(out.str(), "");
  EXPECT_FALSE(d.GetOutcome().saved);
}

TEST_F(Decode, SecondDecodeChangesNothing) {
  Decoded d(name, WithParent("JIS"));
  ZOLAnnStandardXMLParser* first = d.Parser();
  d.Decode();
  EXPECT_EQ(d.Parser(), first);
}

TEST_F(CreateOutput, NameOfTheInputCutAtFirstXmlInTheGivenDirectoryWithBackslash) {
  ZOLUnicodeString name("/data/standards/Company.xml.old");
  Driver d(name, WithParent("ISO"));
  ZOLUnicodeString out("previous");
  d.CreateOutput("out", out);
  EXPECT_EQ(out.str(), "") << "nothing before Decode";
  d.Decode();
  d.CreateOutput("out", out);
  EXPECT_EQ(out.str(), "out\\Company.xml");
  d.CreateOutput(nullptr, out);
  EXPECT_EQ(out.str(), ".\\Company.xml");
}

// Each case: start level, target (-1 the current) and the stages that ran; a target equal to the
// start, or a start at or past the last stage, runs nothing.
TEST_F(UpgradeWalk, TargetStopsTheChainAtItsLevel) {
  for (auto [start, target, ran] : {std::tuple(100, 140, Range(11, 14)), {100, 145, Range(11, 14)}, {1, -1, Range(2, 29)},
                                    {30, 60, Range(4, 6)}, {150, 140, {}}, {140, 140, {}}, {281, -1, {}}, {290, -1, {}},
                                    {280, -1, {29}}})
    EXPECT_EQ(Walk(start, target), ran) << start << " to " << target;
}

TEST_F(UpgradeWalk, DecodedTreeAtLevelZeroOrBelowEndsThePassAtTheFlatTextStage) {
  for (int start : {-1, 0}) {
    r.Clear();
    EXPECT_EQ(Walk(start, -1), std::vector<int>{}) << start;
    EXPECT_TRUE(outcome.stoppedByGuard);
    EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
    EXPECT_EQ(r.Count(), 1);
  }
  reports = 1;
}

TEST_F(UpgradeWalk, UnbuiltStageStopsThePassAndIsReportedButNotBeyondTheTarget) {
  std::vector<ZOLDrwMigrationStage> chain = RecordingChain();
  chain[12].step = nullptr;  // stage 13, 120 to 130
  Decoded d(name, WithParent("ISO"), chain);
  g_ran.clear();
  d.Upgrade(100, -1);
  EXPECT_EQ(g_ran, (std::vector<int>{11, 12}));
  const ZOLDrwParseStandard::Outcome& o = d.GetOutcome();
  EXPECT_EQ(std::tuple(o.stagesRun, o.levelReached, o.blockedStage, o.blockedFrom, o.blockedTo), std::tuple(2, 120, 13, 120, 130));
  EXPECT_STREQ(o.blockedStep, "Migrate209To21n210");
  EXPECT_EQ(r.CountContaining("not built yet"), 1);
  EXPECT_EQ(r.Count(), 1);
  g_ran.clear();
  r.Clear();
  d.Upgrade(100, 120);
  EXPECT_EQ(g_ran, (std::vector<int>{11, 12}));
  EXPECT_EQ(d.GetOutcome().blockedStage, 0);
}

TEST_F(UpgradeWalk, BlockedUpgradeWritesNoFile) {
  qeltest::ScratchDir dir;
  ZOLUnicodeString input("/somewhere/std.xml");
  std::vector<ZOLDrwMigrationStage> chain(ZOLDrwShippedStages().begin(), ZOLDrwShippedStages().end());
  chain[21].step = nullptr;  // stage 22, 210 to 220
  Decoded d(input, WithParent("ISO"), chain);
  d.SetStartLevel(210);
  ZOLDrwParseStandardUpgradeOptions options;
  d.EncodeToVersion(-1, options, (dir / "std.xml").c_str());
  EXPECT_FALSE(std::filesystem::exists(dir / "std.xml"));
  EXPECT_FALSE(d.GetOutcome().saved);
  EXPECT_EQ(d.GetOutcome().blockedFrom, 210);
  EXPECT_EQ(r.CountContaining("not built yet"), 1);
  reports = 1;
}

TEST_F(UpgradeWalk, ShippedChainListsEveryStageInOrder) {
  std::vector<ZOLDrwParseStandard::StageInfo> stages = ZOLDrwParseStandard::GetStages();
  ASSERT_EQ(stages.size(), 29u);
  EXPECT_TRUE(stages[0].fromFlatText);
  EXPECT_EQ(stages[0].from, 0);
  for (size_t i = 1; i < stages.size(); ++i) {
    EXPECT_FALSE(stages[i].fromFlatText);
    EXPECT_EQ(stages[i].from, stages[i - 1].to) << "stage " << i + 1;
  }
  EXPECT_EQ(stages.back().to, ZOLDrwParseStandard::GetCurrentVersion());
}

// A change runs over the styles in order and stops at the first that differs, leaving those
// before it changed; a mask without the parent succeeds without looking at the tree; a missing
// or empty family, an empty mask or a missing property or old value give zero with a report.
TEST_F(ChangeStyleValue, ChangesTheStylesInOrderUntilOneDiffers) {
  using V = ZOLAnnStandardXMLValue;
  struct Row {
    const char *parent, *customFont, *family, *property;
    int mask;
    V::Type type;
    const char *from, *to;
    int result;
    const char* fonts;  // Default, Custom and Last afterwards
    int reports;
  };
  const Row rows[] = {
      {"JIS", nullptr, "Root.Styles.Text", "Font", 12, V::StringValue, "Arial", "Mono", 1, "Mono,Mono,Mono", 0},
      {"ISO", "Courier", "Root.Styles.Text", "Font", 15, V::StringValue, "Arial", "Mono", 0, "Mono,Courier,Arial", 1},
      {"ISO", nullptr, "Root.Styles.Text", "Font", 15, V::EnumValue, "Arial", "Mono", 0, "Arial,Arial,Arial", 1},
      {"JIS", nullptr, "Root.No.Such.Family", "Font", 7, V::StringValue, "Arial", "Mono", 1, "Arial,Arial,Arial", 0},
      {"JIS", nullptr, "Root.Styles.Text", "Font", 3, V::StringValue, "Arial", "Mono", 1, "Arial,Arial,Arial", 0},
      {"ISO", nullptr, "Root.Styles.None", "Font", 15, V::StringValue, "a", "b", 0, "Arial,Arial,Arial", 1},
      {"ISO", nullptr, "Root.Styles.Empty", "Font", 15, V::StringValue, "a", "b", 0, "Arial,Arial,Arial", 1},
      {"ISO", nullptr, "Root.Styles.Text", "Font", 0, V::StringValue, "a", "b", 0, "Arial,Arial,Arial", 1},
      {"ISO", nullptr, "Root.Styles.Text", "Font", 15, V::StringValue, nullptr, "b", 0, "Arial,Arial,Arial", 1},
      {"ISO", nullptr, "Root.Styles.Text", "Size", 15, V::StringValue, "a", "b", 0, "Arial,Arial,Arial", 1},
  };
  for (const Row& row : rows) {
    r.Clear();
    std::vector<std::string> lines = StylesWithParent(row.parent);
    lines.push_back("N Root.Styles:Empty");
    Decoded d(name, lines);
    if (row.customFont) {
      ASSERT_EQ(d.Parser()->ChangeValueWithPath(std::string("Root.Styles.Text.Custom.Font:") + row.customFont), 0);
    }
    std::string what = std::string(row.parent) + " " + row.family + " " + row.property + " " + std::to_string(row.mask);
    EXPECT_EQ(d.ChangeStyleValue(row.family, row.property, row.mask, row.type, row.from, row.to), row.result) << what;
    EXPECT_EQ(Fonts(d), row.fonts) << what;
    EXPECT_EQ(r.Count(), row.reports) << what;
  }
  r.Clear();
}

TEST(OutputLine, AddSkipsEmptyAndNullPartsAndEndsTheLineOnRequest) {
  ZOLUnicodeString out("a");
  ZOLDrwParseStandard::AddOutputLine(out, ZOLUnicodeString(), 1);
  ZOLDrwParseStandard::AddOutputLine(out, ZOLUnicodeString("b"), 0);
  ZOLDrwParseStandard::AddOutputLine(out, static_cast<const char*>(nullptr), 1);
  ZOLDrwParseStandard::AddOutputLine(out, "<x ", nullptr, "/>", 1);
  ZOLDrwParseStandard::AddOutputLine(out, nullptr, nullptr, nullptr, 0);
  EXPECT_EQ(out.str(), "a\nb\n<x />\n");
}

TEST(OutputLine, InsertOnlyWithinTheTextAndOnlyWhatIsNotEmpty) {
  ZOLUnicodeString out("ac");
  ZOLDrwParseStandard::InsertOutputLine(out, 1, "b", 0);
  EXPECT_EQ(out.str(), "abc");
  ZOLDrwParseStandard::InsertOutputLine(out, 3, "d", nullptr, "e", 1);
  EXPECT_EQ(out.str(), "abcde\n") << "the length itself is a valid position";
  ZOLDrwParseStandard::InsertOutputLine(out, 0, ZOLUnicodeString(">"), 0);
  EXPECT_EQ(out.str(), ">abcde\n");
  ZOLDrwParseStandard::InsertOutputLine(out, 8, "x", 1);
  ZOLDrwParseStandard::InsertOutputLine(out, -1, "x", 1);
  ZOLDrwParseStandard::InsertOutputLine(out, 2, ZOLUnicodeString(), 0);
  EXPECT_EQ(out.str(), ">abcde\n");
  ZOLDrwParseStandard::InsertOutputLine(out, 1, static_cast<const char*>(nullptr), 1);
  EXPECT_EQ(out.str(), ">\nabcde\n") << "a line end alone is not empty";
}

TEST(UpgradeOptions, OneWordWithTheBitClear) {
  static_assert(sizeof(ZOLDrwParseStandardUpgradeOptions) == 4);
  ZOLDrwParseStandardUpgradeOptions options;  // default-initialised, as callers declare it
  EXPECT_EQ(options.UpdateDefaultValues, 0u);
}

TEST(UpdateVersionNode, MovesOnlyTheExpectedIntegerVersion) {
  ZOLTestReports r;
  ZOLAnnStandardXMLParser p, undated, text;
  ZOLEditLines(p, {"V Root:Version:int:150"});
  ZOLEditLines(text, {"V Root:Version:string:150"});
  UpdateVersionNode(&p, "140", "160");
  EXPECT_EQ(p.GetValueWithPath("Root.Version"), "150");
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
  UpdateVersionNode(&p, "150", "160");
  EXPECT_EQ(p.GetValueWithPath("Root.Version"), "160");
  EXPECT_EQ(r.Count(), 1);
  UpdateVersionNode(&undated, "100", "110");
  EXPECT_EQ(r.CountContaining("ON POINTER"), 1);
  UpdateVersionNode(&text, "150", "160");
  EXPECT_EQ(text.GetValueWithPath("Root.Version"), "150");
  EXPECT_EQ(r.Count(), 3);
}

namespace {

const ZOLDrwEditOp kTestTable[] = {
    {ZOLDrwEditOp::AddValueInAllStyles, "Root.Styles.Text.*:Blanking:enum.YesNo:Yes:0"},
    {ZOLDrwEditOp::ChangeValue, "Root.Styles.Text.Default.Font:AnsiFont", 1, 3},
    {ZOLDrwEditOp::ChangeValue, "Root.Styles.Text.Default.Font:IsoFont", 1, 12},  // last, so that running it shows
    {ZOLDrwEditOp::AddValue, "Root.Styles.Text.Last:Color:int:7", 1, 0, true},
    {ZOLDrwEditOp::AddNode, "Root:Frames"},
};

void TableStep(ZOLDrwMigrationContext& c) { ZOLDrwRunEditTable(c, kTestTable); }

}  // namespace

TEST_F(EditTable, LinesRunUnderTheirParentMaskAndOptionCondition) {
  const ZOLDrwMigrationStage chain[] = {{100, 110, ZOLDrwMigrationStage::EditsTree, "TableStep", &TableStep}};
  for (bool update : {false, true}) {
    Decoded d(name, StylesWithParent("ASME"), chain, 1);
    d.Upgrade(100, -1, update);
    EXPECT_EQ(d.GetOutcome().stagesRun, 1);
    for (const char* s : {"Default", "Custom", "Last"})
      EXPECT_EQ(d.Text((std::string("Root.Styles.Text.") + s + ".Blanking").c_str()), "Yes") << s;
    EXPECT_EQ(d.Text("Root.Styles.Text.Default.Font"), "AnsiFont");
    EXPECT_EQ(d.Text("Root.Styles.Text.Last.Color"), update ? "7" : "");
    EXPECT_TRUE(ZOLRef<ZOLAnnStandardXMLNode>::Adopt(d.Parser()->GetNodeWithPath("Root.Frames")));
  }
}

TEST_F(EditTable, StyleLineOnAFamilyWithoutStylesChangesNothing) {
  ZOLAnnStandardXMLParser p;
  ZOLEditLines(p, {"N Root:Styles", "N Root.Styles:Text"});
  EXPECT_EQ(AddValueInAllStyles(&p, "Root.Styles.Text", ":Blanking:string:Yes", 1), E_FAIL);
  EXPECT_EQ(AddNodeInAllStyles(&p, "Root.Styles.None", ":Sub", 0), E_FAIL);
  ZOLRef<ZOLAnnStandardXMLNode> text = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(p.GetNodeWithPath("Root.Styles.Text"));
  ASSERT_TRUE(text);
  EXPECT_EQ(text->GetNumOfNode(), 0);
}

TEST(Encode, CurrentStandardRunsNothingAndIsSavedUnderItsNameInTheDirectory) {
  qeltest::ScratchDir dir;
  {
    ZOLAnnStandardXMLParser source;
    ZOLEditLines(source, {"V Root:Version:int:290", "N Root:Dimension", "V Root.Dimension:ParentStandard:string:ISO"});
    ASSERT_EQ(source.SaveInFile(ZOLUnicodeString(dir / "Company.xml")), S_OK);
  }
  ZOLTestReports r;
  ZOLUnicodeString name(dir / "Company.xml");
  ZOLDrwParseStandard d(name);
  EXPECT_FALSE(d.DecodeFailed()) << "nothing decoded yet";
  d.Decode();
  EXPECT_FALSE(d.DecodeFailed());
  EXPECT_EQ(d.GetVersion(), 290);
  EXPECT_EQ(d.GetParentStandard().str(), "ISO");
  ZOLUnicodeString out;
  ZOLDrwParseStandardUpgradeOptions options;
  d.Encode((dir / "out").c_str(), out, options);
  EXPECT_EQ(out.str(), dir / "out\\Company.xml");
  EXPECT_EQ(d.GetOutcome().stagesRun, 0);
  EXPECT_TRUE(d.GetOutcome().saved);
  EXPECT_TRUE(std::filesystem::exists(out.str()));
  EXPECT_EQ(r.Count(), 0);
}
