// The version registry, and how a document is dated by its version node or its reference nodes.
#include <gtest/gtest.h>

#include "ZOLAnnStandardXMLParser.h"
#include "ZOLDftStdPersistence.h"
#include "document/ZOLDftStdPersistenceSelfCheck.h"
#include "ZOLReportCountTest.h"

using P = ZOLDftStdPersistence;

namespace {

class Registry : public ZOLReportCountTest {
protected:
  ZOLAnnStandardXMLParser doc;
};
class Dating : public Registry {};

void Build(ZOLAnnStandardXMLParser& doc, std::initializer_list<const char*> paths) {
  for (const char* p : paths) ASSERT_EQ(doc.AddNodeWithPath(p, 0), 0) << p;
}

// Every reference node of releases 10 to 18 that says "newer".
void BuildRelease18(ZOLAnnStandardXMLParser& doc) {
  Build(doc, {"Root:Annotation", "Root:Styles", "Root:Dimension", "Root.Dimension:CurvilinearLengthSymbol",
              "Root:General", "Root.Styles:DimensionsSystem", "Root:ViewsSet", "Root.Annotation:Roughness",
              "Root.Annotation.Roughness:ExtensionLine", "Root.Annotation.Roughness.ExtensionLine:GapToSurf",
              "Root:EngineeringSymbols", "Root.Annotation:BlankBackground"});
}

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

TEST_F(Dating, UndatedDocumentIsDatedByTheFirstMissingReferenceNode) {
  EXPECT_EQ(doc.GetVersion(), 1);
  Build(doc, {"Root:Styles"});  // a later node does not help without Annotation
  EXPECT_EQ(doc.GetVersion(), 1);
  ZOLAnnStandardXMLParser annotated;
  Build(annotated, {"Root:Annotation"});
  EXPECT_EQ(annotated.GetVersion(), 2);
  Build(doc, {"Root:Annotation"});
  EXPECT_EQ(doc.GetVersion(), 30);
  Build(doc, {"Root:Dimension", "Root.Dimension:CurvilinearLengthSymbol", "Root:General",
              "Root.General:DefaultToleranceFormat"});
  EXPECT_EQ(doc.GetVersion(), 40);  // the removed node is still there: older than release 13
  EXPECT_EQ(doc.DeleteNodeWithPath("Root.General.DefaultToleranceFormat"), 0);
  EXPECT_EQ(doc.GetVersion(), 50);
}

TEST_F(Dating, UndatedDocumentHoldingAllReferenceNodesIsOfVersion100) {
  BuildRelease18(doc);
  EXPECT_EQ(doc.GetVersion(), 100);
  EXPECT_EQ(doc.DeleteNodeWithPath("Root.Annotation.BlankBackground"), 0);
  EXPECT_EQ(doc.GetVersion(), 90);
}

TEST_F(Dating, ExplicitVersionNodeWins) {
  ASSERT_EQ(doc.AddValueWithPath("Root:Version:int:290", 1), 0);
  EXPECT_EQ(doc.GetVersion(), 290);
  EXPECT_EQ(doc.ChangeValueWithPath("Root.Version:110"), 0);
  EXPECT_EQ(doc.GetVersion(), 110);
}

TEST_F(Dating, ExplicitVersionNotAcceptedGivesMinusOneWithReports) {
  BuildRelease18(doc);
  ASSERT_EQ(doc.AddValueWithPath("Root:Version:int:100", 1), 0);
  EXPECT_EQ(doc.GetVersion(), -1);
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 2);  // the number, then GetVersion
  EXPECT_EQ(r.Count(), 2);
  r.Clear();
  for (const char* edit : {"Root.Version:295", "Root.Version:v290"}) {
    EXPECT_EQ(doc.ChangeValueWithPath(edit), 0);
    EXPECT_EQ(doc.GetVersion(), -1) << edit;
  }
  reports = 4;
}

TEST_F(Dating, MalformedVersionNodeGivesMinusOneWithAReportPerBreach) {
  ASSERT_EQ(doc.AddValueWithPath("Root:Version:float:290", 1), 0);
  EXPECT_EQ(doc.GetVersion(), -1);
  EXPECT_EQ(r.Count(), 2);  // not an integer, then GetVersion
  r.Clear();
  ASSERT_EQ(doc.AddNodeWithPath("Root.Version:Sub", 1), 0);
  EXPECT_EQ(doc.GetVersion(), -1);
  EXPECT_EQ(r.Count(), 3);  // a sub-node, not an integer, then GetVersion
  r.Clear();
  ZOLAnnStandardXMLParser record;
  ASSERT_EQ(record.AddNodeWithPath("Root:Version", 1), 0);
  ASSERT_EQ(record.AddValueWithPath("Root.Version:V:int:290", 1), 0);
  ASSERT_EQ(record.AddValueWithPath("Root.Version:W:int:290", 1), 0);
  EXPECT_EQ(record.GetVersion(), -1);
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 3);
  reports = 3;  // a record, two values, then GetVersion
}
