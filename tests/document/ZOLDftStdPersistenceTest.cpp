// The version registry, and how a document is dated by its version node or its reference nodes.
#include <gtest/gtest.h>

#include <string>
#include <vector>

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

}  // namespace

TEST_F(Registry, ConstantsAndCurrentVersion) {
  const std::vector<std::pair<const char*, const char*>> names = {
      {P::ZOLDftStdType, "drafting"},          {P::ZOLDftStdExtension, "xml"},           {P::ZOLDftStdNodeSeparator, "."},
      {P::ZOLDftStdNodeGeneral, "General"},    {P::ZOLDftStdNodeDress, "DressUp"},      {P::ZOLDftStdNodeDimension, "Dimension"},
      {P::ZOLDftStdNodeTolerance, "ToleranceFormats"}, {P::ZOLDftStdNodeValue, "ValueFormats"},
      {P::ZOLDftStdNodeThickness, "LineThickness"}, {P::ZOLDftStdNodeLinetypes, "LineTypes"}, {P::ZOLDftStdNodeStyles, "Styles"}};
  for (auto [got, want] : names) EXPECT_STREQ(got, want);
  EXPECT_EQ(P::GetCurrentVersion(), 290);
  EXPECT_EQ(P::GetVersionNodePath(), "Version");
  EXPECT_EQ(P::NodeAdded, 0);
  EXPECT_EQ(P::NodeRemoved, 1);
}

TEST_F(Registry, VersionFromReleaseTable) {
  const std::vector<std::pair<int, int>> rows = {
      {1, 0},     {8, 0},     {9, 1},     {10, 2},    {11, 30},   {12, 40},   {13, 50},   {14, 60},
      {15, 70},   {16, 80},   {17, 90},   {18, 100},  {20, 110},  {21, 120},  {210, 130}, {211, 140},
      {212, 140}, {213, 150}, {214, 160}, {215, 170}, {216, 180}, {417, 190}, {418, 190}, {419, 200},
      {420, 210}, {421, 220}, {422, 230}, {423, 240}, {424, 250}, {425, 260}, {426, 270}, {427, 280},
      {428, 290}};
  for (auto [release, version] : rows) EXPECT_EQ(P::GetVersionFromRelease(release, 0), version) << release;
  EXPECT_EQ(P::GetVersionFromRelease(428, 7), 290);  // the service pack is not looked at
}

TEST_F(Registry, VersionFromReleaseFirstRowIsOneUnsignedTest) {
  for (int release : {0, -5, -2147483647 - 1, 19, 22, 209, 217, 416, 429, 2147483647})
    EXPECT_EQ(P::GetVersionFromRelease(release, 0), -1) << release;
}

TEST_F(Registry, ReferenceNodesOfReleasesTenToEighteen) {
  const std::vector<std::tuple<int, const char*, P::NodeStatus>> rows = {
      {10, "Annotation", P::NodeAdded},
      {11, "Styles", P::NodeAdded},
      {12, "Dimension.CurvilinearLengthSymbol", P::NodeAdded},
      {13, "General.DefaultToleranceFormat", P::NodeRemoved},
      {14, "Styles.DimensionsSystem", P::NodeAdded},
      {15, "ViewsSet", P::NodeAdded},
      {16, "Annotation.Roughness.ExtensionLine.GapToSurf", P::NodeAdded},
      {17, "EngineeringSymbols", P::NodeAdded},
      {18, "Annotation.BlankBackground", P::NodeAdded}};
  for (auto [release, path, status] : rows) {
    ZOLUnicodeString node;
    P::NodeStatus got = status == P::NodeAdded ? P::NodeRemoved : P::NodeAdded;
    EXPECT_EQ(P::GetReferenceNodeForRelease(release, node, got), S_OK);
    EXPECT_EQ(node, path);
    EXPECT_EQ(got, status);
  }
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

TEST_F(Registry, AcceptedExplicitVersionsAreTheNineteenFrom110To290) {
  int accepted = 0;
  for (int v = -1000; v <= 1000; ++v) accepted += P::CheckExplicitVersionNumberIsValid(v);
  EXPECT_EQ(accepted, 19);
  for (int v = 110; v <= 290; v += 10) EXPECT_EQ(P::CheckExplicitVersionNumberIsValid(v), 1) << v;
  EXPECT_EQ(P::CheckExplicitVersionNumberIsValid(100), 0);
  EXPECT_EQ(P::CheckExplicitVersionNumberIsValid(115), 0);
  EXPECT_EQ(P::CheckExplicitVersionNumberIsValid(300), 0);
  EXPECT_EQ(P::CheckExplicitVersionNumberIsValid(P::GetCurrentVersion()), 1);
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

namespace {

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

TEST_F(Dating, UndatedDocumentWithoutAnnotationIsOfVersionOne) {
  EXPECT_EQ(doc.GetVersion(), 1);
  Build(doc, {"Root:Styles"});  // a later node does not help without Annotation
  EXPECT_EQ(doc.GetVersion(), 1);
}

TEST_F(Dating, UndatedDocumentIsDatedByTheFirstMissingReferenceNode) {
  Build(doc, {"Root:Annotation"});
  EXPECT_EQ(doc.GetVersion(), 2);
  Build(doc, {"Root:Styles", "Root:Dimension", "Root.Dimension:CurvilinearLengthSymbol", "Root:General",
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
  EXPECT_EQ(doc.ChangeValueWithPath("Root.Version:295"), 0);
  EXPECT_EQ(doc.GetVersion(), -1);
  EXPECT_EQ(doc.ChangeValueWithPath("Root.Version:v290"), 0);
  EXPECT_EQ(doc.GetVersion(), -1);
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
