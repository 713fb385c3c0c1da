// The version registry, and how a document is dated by its version node or its reference nodes.
#include <gtest/gtest.h>

#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStdPersistence.h"
#include "document/ZOLDftStdPersistenceSelfCheck.h"
#include "ZOLEditLines.h"
#include "ZOLReportCountTest.h"

using P = ZOLDftStdPersistence;

namespace {

class Registry : public ZOLReportCountTest {
protected:
  ZOLAnnStandardXMLParser doc;
};
class Dating : public Registry {};

}  // namespace

TEST_F(Registry, VersionFromRelease_IgnoresTheServicePackAndGivesMinusOneOffTheTable) {
  EXPECT_EQ(P::GetVersionFromRelease(428, 7), P::GetCurrentVersion());
  for (int release : {0, -5, -2147483647 - 1, 19, 22, 209, 217, 416, 429, 2147483647})
    EXPECT_EQ(P::GetVersionFromRelease(release, 0), -1) << release;
}

TEST_F(Registry, ReferenceNodeOfAnotherReleaseIsReportedAndLeavesTheOutputs) {
  ZOLUnicodeString node("untouched");
  P::NodeStatus status = P::NodeRemoved;
  EXPECT_EQ(P::GetReferenceNodeForRelease(9, node, status), E_FAIL);
  EXPECT_EQ(P::GetReferenceNodeForRelease(19, node, status), E_FAIL);
  EXPECT_EQ(node, "untouched");
  EXPECT_EQ(status, P::NodeRemoved);
  EXPECT_EQ(r.CountContaining(">> ASSERTION FAILED : Invalid input value! [File: ZOLDftStdPersistence.cpp:"), 2);
  reports = 2;
}

TEST_F(Registry, ExplicitVersion_OnlyLevelsOfTheTableUpToTheCurrentAreAccepted) {
  for (auto [v, accepted] : {std::pair{P::GetCurrentVersion(), 1}, {110, 1}, {100, 0}, {115, 0}, {300, 0}, {-1, 0}})
    EXPECT_EQ(P::CheckExplicitVersionNumberIsValid(v), accepted) << v;
  EXPECT_EQ(r.Count(), 0);  // the one-time self-check of the real table is quiet
}

TEST_F(Registry, SelfCheckReportsEachFaultOfATable) {
  const int good[] = {110, 200, 290};
  EXPECT_EQ(ZOLDftStdPersistenceSelfCheck(good, 3), 0);
  EXPECT_EQ(r.Count(), 0);
  const int old[] = {100, 290, 30};
  EXPECT_EQ(ZOLDftStdPersistenceSelfCheck(old, 3), 2);
  EXPECT_EQ(r.CountContaining(">> ASSERTION FAILED : Accepted version is < R20 version?! [File:"), 2);
  r.Clear();
  const int future[] = {110, 291, 300};
  EXPECT_EQ(ZOLDftStdPersistenceSelfCheck(future, 3), 3);
  EXPECT_EQ(r.CountContaining(">> ASSERTION FAILED : Accepted version is > current version?! [File:"), 2);
  EXPECT_EQ(r.CountContaining(">> ASSERTION FAILED BOOL IS FALSE: Current version not found?! [File:"), 1);
  reports = 3;
}

// Each case: edit lines on a new document, the version it is dated by, and the reports dating raises.
TEST_F(Dating, ByTheVersionNodeOrElseTheFirstMissingReferenceNode) {
  // Every reference node of releases 10 to 18 that says "newer".
  const std::vector<std::string> r18 = {"N Root:Annotation", "N Root:Styles", "N Root:Dimension",
                                        "N Root.Dimension:CurvilinearLengthSymbol", "N Root:General",
                                        "N Root.Styles:DimensionsSystem", "N Root:ViewsSet", "N Root.Annotation:Roughness",
                                        "N Root.Annotation.Roughness:ExtensionLine",
                                        "N Root.Annotation.Roughness.ExtensionLine:GapToSurf", "N Root:EngineeringSymbols",
                                        "N Root.Annotation:BlankBackground"};
  // The removed node is still there: older than release 13.
  const std::vector<std::string> r12 = {"N Root:Styles", "N Root:Annotation", "N Root:Dimension",
                                        "N Root.Dimension:CurvilinearLengthSymbol", "N Root:General",
                                        "N Root.General:DefaultToleranceFormat"};
  auto plus = [](std::vector<std::string> lines, std::initializer_list<std::string> more) {
    lines.insert(lines.end(), more);
    return lines;
  };
  struct Case {
    std::vector<std::string> lines;
    int version, reports;
  };
  const Case cases[] = {
      {{}, 1, 0},
      {{"N Root:Styles"}, 1, 0},  // a later node does not help without Annotation
      {{"N Root:Annotation"}, 2, 0},
      {{"N Root:Styles", "N Root:Annotation"}, 30, 0},
      {r12, 40, 0},
      {plus(r12, {"D Root.General.DefaultToleranceFormat"}), 50, 0},
      {r18, 100, 0},
      {plus(r18, {"D Root.Annotation.BlankBackground"}), 90, 0},
      {{"V Root:Version:int:290"}, 290, 0},
      {{"V Root:Version:int:290", "C Root.Version:110"}, 110, 0},
      // Not accepted: the number, then GetVersion.
      {plus(r18, {"V Root:Version:int:100"}), -1, 2},
      {plus(r18, {"V Root:Version:int:100", "C Root.Version:295"}), -1, 2},
      {plus(r18, {"V Root:Version:int:100", "C Root.Version:v290"}), -1, 2},
      // Malformed: a report per breach (a record, values, sub-nodes, not an integer), then GetVersion.
      {{"V Root:Version:float:290"}, -1, 2},
      {{"V Root:Version:float:290", "T Root.Version:Sub"}, -1, 3},
      {{"T Root:Version", "V Root.Version:V:int:290", "V Root.Version:W:int:290"}, -1, 3},
  };
  for (const Case& c : cases) {
    ZOLAnnStandardXMLParser dated;
    ZOLEditLines(dated, c.lines);
    EXPECT_EQ(r.Count(), 0) << "the edits report nothing";
    EXPECT_EQ(dated.GetVersion(), c.version) << testing::PrintToString(c.lines);
    EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), c.reports) << testing::PrintToString(c.lines);
    EXPECT_EQ(r.Count(), c.reports) << testing::PrintToString(c.lines);
    r.Clear();
  }
}
