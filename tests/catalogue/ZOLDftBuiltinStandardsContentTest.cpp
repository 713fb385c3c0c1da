// The content of the three built-in standards, decoded through the document codec: what holds
// whatever the tables say, and the values that one column per parent puts in each standard.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "BuiltinTestSupport.h"
#include "ZOLDftStdPersistence.h"

using namespace builtintest;

namespace {

// The value for the standard's parent, in the order ISO, ANSI-ASME, JIS.
template <typename T>
T ByParent(const std::string& name, T iso, T ansi, T jis) {
  return name == "ISO" ? iso : name == "ANSI-ASME" ? ansi : jis;
}

std::string Value(ZOLAnnStandardXMLParser& p, const std::string& path) { return p.GetValueWithPath(ZOLUnicodeString(path)).str(); }

// Number of records of a branch whose field has that text.
int CountRecords(const ZOLAnnStandardXMLNode* branch, const std::string& field, const std::string& text) {
  int n = 0;
  for (auto* r : branch->SubNodes()) n += Field(r, field) == text;
  return n;
}

// Decoded afresh for each test.
class EachBuiltin : public EachStandard {
protected:
  void SetUp() override { p = Decode(name); }
  std::unique_ptr<ZOLAnnStandardXMLParser> p;
};

}  // namespace

INSTANTIATE_TEST_SUITE_P(BuiltinStandard, EachBuiltin, testing::ValuesIn(Standards()), StandardTestName);

TEST_P(EachBuiltin, PassesTheEnumerationCheckAndIsOfVersion280) {
  ZOLTestReports reports;
  EXPECT_EQ(p->Check(), 1);
  EXPECT_EQ(p->GetVersion(), 280);
  EXPECT_EQ(reports.Count(), 0);
}

TEST_P(EachBuiltin, ReferenceNodesOfReleases10To18DateItAsCurrent) {
  for (int release = 10; release <= 18; ++release) {
    ZOLUnicodeString node;
    ZOLDftStdPersistence::NodeStatus status;
    ASSERT_EQ(ZOLDftStdPersistence::GetReferenceNodeForRelease(release, node, status), S_OK);
    bool present = static_cast<bool>(At(*p, "Root." + node.str()));
    EXPECT_EQ(present, status == ZOLDftStdPersistence::NodeAdded) << name << " release " << release;
  }
}

TEST_P(EachBuiltin, SavingAndDecodingAgainGivesTheSameTree) {
  ZOLUnicodeString saved;
  ZOLTestReports reports;
  p->SaveInString(saved);
  ZOLAnnStandardXMLParser again;
  ASSERT_EQ(again.DecodeXML(saved, 0), 0);
  EXPECT_EQ(reports.Count(), 0);
  EXPECT_EQ(Dump(again.Root()) + Dump(again.EnumRoot()) + Dump(again.TypeDefRoot()),
            Dump(p->Root()) + Dump(p->EnumRoot()) + Dump(p->TypeDefRoot()));
}

TEST_P(EachBuiltin, SheetStylesNameExistingFormatsOfFourValues) {
  auto sheet = At(*p, "Root.Styles.Sheet");
  auto formats = At(*p, "Root.SheetFormat");
  ASSERT_TRUE(sheet && formats);
  std::set<std::string> formatNames;
  for (auto* f : formats->SubNodes()) {
    EXPECT_EQ(f->GetNumOfValue(), 4);
    formatNames.insert(f->Values()[0]->Value().str());
  }
  for (auto* style : sheet->SubNodes()) {
    EXPECT_EQ(Names(style), (std::vector<std::string>{"GlobalScale", "ProjectionMethod", "GenViewsPosMode", "Format",
                                                        "Orientation", "DisplayFormat"}));
    auto format = At(*p, "Root.Styles.Sheet." + style->Name().str() + ".Format");
    EXPECT_EQ(formatNames.count(format->Values()[0]->Value().str()), 1u) << name << " " << style->Name().str();
  }
  auto scale = At(*p, "Root.Styles.Sheet." + sheet->SubNodes()[0]->Name().str() + ".GlobalScale");
  EXPECT_EQ(scale->Values()[0]->GetRangeVal(), 1);
  EXPECT_EQ(scale->Values()[0]->Name().str(), "0.0");
}

TEST_P(EachBuiltin, SymbolRowsAreNumberedFromOneAndCarryNineFields) {
  int position = 0;
  for (auto* row : At(*p, "Root.EngineeringSymbols")->SubNodes()) {
    ASSERT_EQ(row->GetNumOfValue(), 9);
    EXPECT_EQ(Field(row, "Position"), std::to_string(++position));
    EXPECT_EQ(Field(row, "Icon16x16").size(), 44u) << Field(row, "Name");
    EXPECT_EQ(Field(row, "Icon22x22").size(), 88u) << Field(row, "Name");
  }
}

TEST_P(EachBuiltin, ValuesOfEachParentsColumn) {
  const std::string basic = ByParent<std::string>(name, "TED", "BasicDimension", "TED");
  EXPECT_EQ(Value(*p, "Root.Dimension.ParentStandard"), ByParent<std::string>(name, "ISO", "ANSI", "JIS"));
  EXPECT_EQ(Value(*p, "Root.Dimension.TXTDatumMode"), ByParent<std::string>(name, "0", "1", "0"));
  EXPECT_EQ(Value(*p, "Root.Dimension.DIMLTextGap"), ByParent<std::string>(name, "0.5", "2.032", "3"));
  EXPECT_EQ(Value(*p, "Root.Dimension.SYMBArrowSide"), ByParent<std::string>(name, "2", "3.2146", "2"));
  EXPECT_EQ(Value(*p, "Root.Styles.DistanceLengthDimension." + basic + ".Framing.Frame"), "Rectangle");
  auto sizes = At(*p, "Root.General.AllowedTextFontSizes");
  std::string start;
  for (size_t i = 0; i < 5; ++i) start += sizes->Values()[i]->Value().str() + " ";
  EXPECT_EQ(start, ByParent<std::string>(name, "2.5 3.5 5.0 7.0 10.0 ", "0.25 0.35 0.5 0.7 1.0 ", "2.24 2.5 3.15 3.5 4.5 "));
  auto symbols = At(*p, "Root.EngineeringSymbols");
  EXPECT_EQ(CountRecords(symbols.get(), "Font", "SYM1.font"), ByParent(name, 0, 111, 0));
  EXPECT_EQ(CountRecords(symbols.get(), "Name", "<DynamicProfile>"), ByParent(name, 0, 1, 0));
  std::vector<std::string> welding;
  for (auto* v : At(*p, "Enum.WeldingSymbol")->Values()) welding.push_back(v->Value().str());
  EXPECT_EQ(std::count(welding.begin(), welding.end(), "VFlareWelding"), ByParent(name, 0, 1, 0));
  EXPECT_EQ(static_cast<bool>(At(*p, "Enum.WeldingSystemDisplay")), name == "ISO");
}

TEST(BuiltinStandard, DefaultSheetStyleIsTheFirstAndFormatsHaveTheSizesOfTheirParent) {
  auto iso = Decode("ISO");
  auto ansi = Decode("ANSI-ASME");
  ZOLTestReports reports;
  EXPECT_EQ(ZOLRef<ZOLAnnStandardXMLNode>::Adopt(At(*iso, "Root.Styles.Sheet")->GetDefaultNode())->Name().str(), "A0 ISO");
  EXPECT_EQ(reports.Count(), 0);
  auto format = [](ZOLAnnStandardXMLParser& p, const std::string& formatName) {
    for (auto* f : At(p, "Root.SheetFormat")->SubNodes())
      if (Field(f, "Name") == formatName) return Field(f, "Width") + "x" + Field(f, "Height");
    return std::string("none");
  };
  EXPECT_EQ(format(*iso, "A4 ISO"), "297x210");
  EXPECT_EQ(format(*ansi, "A ANSI"), "279.40x215.90");
  EXPECT_EQ(Value(*ansi, "Root.Styles.Sheet.J US Standard.Format"), "J U.S.Standard");
}

TEST(BuiltinStandard, SharedBranchesAreEqualAcrossParents) {
  auto iso = Decode("ISO");
  auto ansi = Decode("ANSI-ASME");
  auto jis = Decode("JIS");
  for (const char* branch : {"ToleranceFormats", "ValueFormats", "Frames", "LineThickness", "Patterns", "ViewsSet",
                             "StandardMode", "Version"}) {
    std::string path = std::string("Root.") + branch;
    EXPECT_EQ(Dump(At(*ansi, path).get()), Dump(At(*iso, path).get())) << branch;
    EXPECT_EQ(Dump(At(*jis, path).get()), Dump(At(*iso, path).get())) << branch;
  }
  EXPECT_EQ(Dump(At(*jis, "Root.LineTypes").get()), Dump(At(*iso, "Root.LineTypes").get()));
  EXPECT_EQ(Dump(At(*jis, "Root.EngineeringSymbols").get()), Dump(At(*iso, "Root.EngineeringSymbols").get()));
  EXPECT_NE(Dump(At(*ansi, "Root.LineTypes").get()), Dump(At(*iso, "Root.LineTypes").get()));
}
