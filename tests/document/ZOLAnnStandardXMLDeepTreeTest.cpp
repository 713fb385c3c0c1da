// Documents nested very deeply: copy, check, lookup and release must not use the stack per level.
#include <gtest/gtest.h>

#include <string>

#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLAnnStandardXMLValue.h"
#include "ZOLRefCounted.h"
#include "ZOLTestReports.h"

namespace {

constexpr int kDepth = 100000;

// A chain of kDepth nodes named "n" below Root; the deepest holds an undefined enumerated value.
ZOLAnnStandardXMLNode* BuildChain(ZOLAnnStandardXMLParser& doc) {
  ZOLAnnStandardXMLNode* node = doc.Root();
  for (int i = 0; i < kDepth; ++i) {
    auto child = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(new ZOLAnnStandardXMLNode(ZOLAnnStandardXMLNode::PlainNode, "n"));
    node->AddNode(child.get(), -1);
    node = child.get();
  }
  auto v = ZOLRef<ZOLAnnStandardXMLValue>::Adopt(new ZOLAnnStandardXMLValue(ZOLAnnStandardXMLValue::EnumValue, "Bold", "FontStyle", 0));
  node->AddValue(v.get(), -1);
  return node;
}

}  // namespace

TEST(DeepTree, ChainOfHundredThousandNodesIsClonedCheckedFoundAndReleased) {
  ZOLTestReports r;
  auto doc = std::make_unique<ZOLAnnStandardXMLParser>();
  ZOLAnnStandardXMLNode* deepest = BuildChain(*doc);

  std::string path = "n";
  for (int i = 1; i < kDepth; ++i) path += ".n";
  EXPECT_EQ(ZOLRef<ZOLAnnStandardXMLNode>::Adopt(doc->Root()->GetNodeWithPath(path, 1)).get(), deepest);
  EXPECT_EQ(doc->GetValueWithPath("Root." + path), "Bold");

  auto copy = ZOLRef<ZOLAnnStandardXMLNode>::Adopt(doc->Root()->Clone());
  ASSERT_TRUE(copy);
  const ZOLAnnStandardXMLNode* walk = copy.get();
  int depth = 0;
  while (walk->GetNumOfNode() == 1) walk = walk->SubNodes()[0], ++depth;
  EXPECT_EQ(depth, kDepth);
  EXPECT_EQ(walk->Values()[0]->Value(), "Bold");

  testing::internal::CaptureStdout();
  EXPECT_EQ(doc->Check(), 0);
  std::string printed = testing::internal::GetCapturedStdout();
  EXPECT_EQ(printed.size(), std::string("Enum undefined: Root.Root").size() + 2 * kDepth + std::string(".Bold with enum \"FontStyle\"").size());
  const std::string tail = ".n.n.Bold with enum \"FontStyle\"";
  EXPECT_EQ(printed.substr(printed.size() - tail.size()), tail);

  EXPECT_EQ(doc->DeleteNodeWithPath("Root." + path + ".Bold"), 0);
  copy = ZOLRef<ZOLAnnStandardXMLNode>();
  doc.reset();
  EXPECT_EQ(r.Count(), 0);
}
