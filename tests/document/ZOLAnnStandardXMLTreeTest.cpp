// The standard tree: positions and indexes, lookups, deletion, change, copy and the enumeration check.
#include <gtest/gtest.h>

#include <string>

#include "DocumentTestHelpers.h"
#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLAnnStandardXMLValue.h"
#include "ZOLQelInstCount.h"
#include "ZOLRefCounted.h"
#include "ZOLReportCountTest.h"

namespace {

using Node = ZOLAnnStandardXMLNode;
using Value = ZOLAnnStandardXMLValue;
using NodeRef = ZOLRef<Node>;
using ValueRef = ZOLRef<Value>;

NodeRef MakeNode(const char* name, Node::Type type = Node::PlainNode) { return NodeRef::Adopt(new Node(type, name)); }

ValueRef MakeValue(const char* text, const char* name = "", Value::Type type = Value::StringValue, int range = 0) {
  return ValueRef::Adopt(new Value(type, text, name, range));
}

void AddChild(Node* parent, const char* name, int position = -1) { parent->AddNode(MakeNode(name).get(), position); }

// Appends plain sub-nodes, then unnamed string values, and gives the node back.
Node* Fill(Node* node, std::initializer_list<const char*> names, std::initializer_list<const char*> texts = {}) {
  for (const char* name : names) AddChild(node, name);
  for (const char* text : texts) node->AddValue(MakeValue(text).get(), -1);
  return node;
}

// The node a lookup gave, released at once (the tree keeps it alive).
const Node* Found(Node* node) { return NodeRef::Adopt(node).get(); }

class Tree : public ZOLReportCountTest {
protected:
  NodeRef n = MakeNode("N");
};

}  // namespace

// Each step: a name, its position, and the names after it. The same rule holds for values.
TEST_F(Tree, AddNodeAndAddValue_ExplicitPositionNeverAppendsButNegativeDoes) {
  NodeRef values = MakeNode("V");
  for (auto [name, position, after] : {std::tuple("a", 0, ""), {"a", -1, "a"}, {"b", -5, "a,b"}, {"c", 2, "a,b"},
                                       {"c", 0, "c,a,b"}, {"d", 1, "c,d,a,b"}}) {
    AddChild(n.get(), name, position);
    values->AddValue(MakeValue(name).get(), position);
    EXPECT_EQ(Names(n.get()), after) << name << "@" << position;
    EXPECT_EQ(Texts(values.get()), after) << name << "@" << position;
  }
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 4);  // a position at or beyond the size
  reports = 4;
}

TEST_F(Tree, AddNodeAndAddValue_NullIsReportedOnPointerAndAddsNothing) {
  n->AddNode(nullptr, -1);
  n->AddValue(nullptr, -1);
  EXPECT_EQ(n->GetNumOfNode() + n->GetNumOfValue(), 0);
  EXPECT_EQ(r.CountContaining("ON POINTER "), 2);
  reports = 2;
}

TEST_F(Tree, AddNode_TakesAReferenceOfItsOwn) {
  NodeRef child = MakeNode("C");
  n->AddNode(child.get(), -1);
  EXPECT_EQ(child->RefCount(), 2u);
  NodeRef got = NodeRef::Adopt(n->GetNode(0));
  EXPECT_EQ(child->RefCount(), 3u);
}

TEST_F(Tree, AddNodeWithValue_ChecksNamesAndPosition) {
  // An enum without its name or its text, a name on a plain value, no node name, a bad position.
  for (auto [node, type, text, name, position] :
       {std::tuple("Mode", Value::EnumValue, "Yes", "", -1), {"Mode", Value::EnumValue, "", "YesNo", -1},
        {"Size", Value::FloatValue, "1.0", "0.0", -1}, {"", Value::IntValue, "1", "", -1}, {"Size", Value::IntValue, "1", "", -2},
        {"Size", Value::IntValue, "1", "", 1}})
    EXPECT_EQ(n->AddNodeWithValue(node, type, text, name, position), 0) << node << " " << text << " " << position;
  EXPECT_EQ(n->GetNumOfNode(), 0);
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 6);
  r.Clear();
  EXPECT_EQ(n->AddNodeWithValue("Mode", Value::EnumValue, "Yes", "YesNo", -1), 1);
  EXPECT_EQ(n->AddNodeWithValue("Size", Value::IntValue, "3", "", 0), 1);
  EXPECT_EQ(Names(n.get()), "Size,Mode");
  EXPECT_EQ(r.Count(), 0);
  EXPECT_EQ(n->SubNodes()[0]->GetNodeType(), Node::PlainNode);
  EXPECT_EQ(Describe(n->SubNodes()[0]), "1//3/0");
  // A position equal to the size passes the check but loses the node.
  EXPECT_EQ(n->AddNodeWithValue("Lost", Value::IntValue, "3", "", 2), 1);
  EXPECT_EQ(Names(n.get()), "Size,Mode");
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
  reports = 1;
}

TEST_F(Tree, GetNode_NegativeIndexGivesTheLastAndBeyondIsNullWithReport) {
  EXPECT_EQ(n->GetNode(0), nullptr);  // empty
  EXPECT_EQ(n->GetValue(-1), nullptr);
  EXPECT_EQ(r.Count(), 2);
  r.Clear();
  Fill(n.get(), {"a", "b", "c"}, {"1", "2", "3"});
  EXPECT_EQ(Found(n->GetNode(-1))->Name(), "c");
  EXPECT_EQ(Found(n->GetNode(-7))->Name(), "c");
  EXPECT_EQ(Found(n->GetNode(1))->Name(), "b");
  EXPECT_EQ(ValueRef::Adopt(n->GetValue(-7))->Value(), "3");
  EXPECT_EQ(r.Count(), 0);
  EXPECT_EQ(n->GetNode(3), nullptr);
  EXPECT_EQ(n->GetValue(3), nullptr);
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 2);
  reports = 2;
}

TEST_F(Tree, GetByName_FirstExactMatchWithoutReport) {
  EXPECT_EQ(n->GetNodeByName("a"), nullptr);
  Fill(n.get(), {"a", "b", "b"});
  n->AddValue(MakeValue("1", "Width").get(), -1);
  n->AddValue(MakeValue("2", "Width").get(), -1);
  EXPECT_EQ(Found(n->GetNodeByName("b")), n->SubNodes()[1]);
  EXPECT_EQ(n->GetNodeByName("B"), nullptr);
  EXPECT_EQ(ValueRef::Adopt(n->GetValueByName("Width"))->Value(), "1");
  EXPECT_EQ(n->GetValueByName("1"), nullptr);  // by name, not by text
}

TEST_F(Tree, GetDefaultNode_PrefersDefaultElseTheFirst) {
  EXPECT_EQ(n->GetDefaultNode(), nullptr);
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
  EXPECT_EQ(Found(Fill(n.get(), {"Thin"})->GetDefaultNode())->Name(), "Thin");
  EXPECT_EQ(Found(Fill(n.get(), {"Default"})->GetDefaultNode())->Name(), "Default");
  reports = 1;
}

// The occurrence takes the rank on the last step whatever the name; 0 and -1 the last.
TEST_F(Tree, GetNodeWithPath_OccurrenceTakesTheRankOnTheLastStep) {
  Node* a = Fill(n.get(), {"A"})->SubNodes()[0];
  Fill(a, {"B", "X", "B"});
  for (auto [path, occurrence, rank] : {std::tuple("A.B", 1, 0), {"A.B", 2, 1}, {"A.Nothing", 3, 2}, {"A.B", 0, 2}, {"A.B", -1, 2}})
    EXPECT_EQ(Found(n->GetNodeWithPath(path, occurrence)), a->SubNodes()[static_cast<size_t>(rank)]) << path << " " << occurrence;
  EXPECT_EQ(Found(n->GetNodeWithPath("A", 1)), a);
  for (auto [path, occurrence] : {std::pair("A.Q", 1), {"Q.B", 2}, {"", 1}}) EXPECT_EQ(n->GetNodeWithPath(path, occurrence), nullptr) << path;
  EXPECT_EQ(r.Count(), 0);
  EXPECT_EQ(n->GetNodeWithPath("A.B", 4), nullptr);  // beyond: GetNode's report
  reports = 1;
}

TEST_F(Tree, GetValueWithPathFindsAndDeleteNodeWithPathRemovesAValueByItsText) {
  n->AddNode(MakeNode("Frame", Node::EnumDefNode).get(), -1);
  Node* frame = Fill(n->SubNodes()[0], {"Inner"}, {"Square", "Circle"});
  frame->AddValue(MakeValue("1.5", "Circle").get(), -1);
  frame->AddValue(MakeValue("7", "Width").get(), -1);
  EXPECT_EQ(ValueRef::Adopt(n->GetValueWithPath("Frame.Circle")).get(), frame->Values()[1]);
  for (const char* none : {"Frame.1.5", "Frame.Oval", "Arrow.Circle"}) EXPECT_EQ(n->GetValueWithPath(none), nullptr) << none;
  // Each step: a path, the result, and the values and sub-nodes of Frame after it.
  for (auto [path, result, after] : {std::tuple("Frame.Circle", 0, "Square,1.5,7|Inner"), {"Frame.Circle", 0, "Square,7|Inner"},
                                     {"Frame.Circle", 1, "Square,7|Inner"}, {"Frame.Width", 0, "Square|Inner"},
                                     {"Frame.Inner", 0, "Square|"}, {"Arrow.Square", 1, "Square|"}}) {
    EXPECT_EQ(n->DeleteNodeWithPath(path), result) << path;
    EXPECT_EQ(Texts(frame) + "|" + Names(frame), after) << path;
  }
  EXPECT_EQ(n->DeleteNodeWithPath("Frame"), 0);
  EXPECT_EQ(n->GetNumOfNode(), 0);
}

TEST_F(Tree, DeleteSubNodeAndDeleteValue_HaveOppositeResults) {
  Fill(n.get(), {"a", "b"}, {"1", "2"});
  for (auto [index, result] : {std::pair(0, 0), {1, 1}, {-1, 1}}) EXPECT_EQ(n->DeleteSubNode(index), result) << index;
  EXPECT_EQ(Names(n.get()), "b");
  EXPECT_EQ(r.Count(), 0);
  for (auto [index, result] : {std::pair(1, 1), {1, 0}, {-1, 0}}) EXPECT_EQ(n->DeleteValue(index), result) << index;
  EXPECT_EQ(Texts(n.get()), "1");
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 2);
  reports = 2;
}

TEST_F(Tree, Clone_IsDeepAndSharesNothing) {
  NodeRef src = MakeNode("Sheet", Node::TypeValNode);
  src->AddValue(MakeValue("1.0", "0.0", Value::FloatValue, 1).get(), -1);
  src->AddValue(MakeValue("Yes", "YesNo", Value::EnumValue).get(), -1);
  Fill(Fill(src.get(), {"a", "b"})->SubNodes()[1], {}, {"deep"});
  NodeRef copy = NodeRef::Adopt(src->Clone());
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->GetNodeType(), Node::TypeValNode);
  EXPECT_EQ(copy->Name(), "Sheet");
  EXPECT_EQ(Names(copy.get()), "a,b");
  EXPECT_EQ(Describe(copy.get()), "2/0.0/1.0/1;4/YesNo/Yes/0");
  EXPECT_NE(copy->Values()[0], src->Values()[0]);
  EXPECT_NE(copy->SubNodes()[1], src->SubNodes()[1]);
  copy->SubNodes()[1]->ChangeValue("changed");
  copy->Values()[1]->SetValue("No");
  EXPECT_EQ(Texts(src->SubNodes()[1]), "deep");
  EXPECT_EQ(Texts(src.get()), "1.0,Yes");
}

TEST_F(Tree, ValueCheck_OnlyEnumeratedValuesAreLookedAt) {
  NodeRef enums = MakeNode("Enum", Node::RootNode);
  ValueRef bad = MakeValue("Nothing", "YesNo", Value::EnumValue);
  ValueRef plain = MakeValue("Nothing", "YesNo", Value::StringValue);
  testing::internal::CaptureStdout();
  EXPECT_EQ(plain->Check(enums.get(), "P"), 0);
  EXPECT_EQ(bad->Check(nullptr, "P"), 0);
  EXPECT_EQ(bad->Check(enums.get(), "P"), 1);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "P.Nothing with enum \"YesNo\"");
}

TEST_F(Tree, Check_PrintsEachFaultWithTheRootNameTwiceAndGoesOn) {
  ZOLAnnStandardXMLParser doc;
  ASSERT_EQ(doc.AddNodeWithPath("Enum:FontStyle", 0), 0);
  ASSERT_EQ(doc.AddValueWithPath("Enum.FontStyle::string:Normal", 1), 0);
  ASSERT_EQ(doc.AddNodeWithPath("Root:Font", 0), 0);
  ASSERT_EQ(doc.AddNodeWithPath("Root.Font:Sub", 0), 0);
  Node* font = doc.Root()->SubNodes()[0];
  font->AddValue(MakeValue("Bold", "FontStyle", Value::EnumValue).get(), -1);
  font->AddValue(MakeValue("Normal", "FontStyle", Value::EnumValue).get(), -1);
  font->SubNodes()[0]->AddValue(MakeValue("Thin", "FontStyle", Value::EnumValue).get(), -1);
  font->SubNodes()[0]->AddValue(MakeValue("Thin", "FontStyle", Value::StringValue).get(), -1);
  testing::internal::CaptureStdout();
  EXPECT_EQ(doc.Check(), 0);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "Enum undefined: Root.Root.Font.Sub.Thin with enum \"FontStyle\""
            "Enum undefined: Root.Root.Font.Bold with enum \"FontStyle\"");
  testing::internal::CaptureStdout();
  EXPECT_EQ(font->Check(doc.EnumRoot(), "X"), 2);
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            "X.Font.Sub.Thin with enum \"FontStyle\"X.Font.Bold with enum \"FontStyle\"");
  EXPECT_EQ(font->Check(nullptr, "X"), 0);
  // Defined values only: one and nothing printed.
  font->DeleteSubNode(0);
  font->DeleteValue(0);
  testing::internal::CaptureStdout();
  EXPECT_EQ(doc.Check(), 1);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST_F(Tree, InstanceCounter_CountsNodesAndValuesInDevelopmentModeOnly) {
  long before = ZOLQelInstCountGet("ZOLAnnStandardXMLClass");
  ZOLSetDevelopmentStage(1);
  {
    NodeRef n = MakeNode("N");
    n->AddValue(MakeValue("1").get(), -1);
    EXPECT_EQ(ZOLQelInstCountGet("ZOLAnnStandardXMLClass"), before + 2);
  }
  EXPECT_EQ(ZOLQelInstCountGet("ZOLAnnStandardXMLClass"), before);
  ZOLSetDevelopmentStage(0);
  NodeRef quiet = MakeNode("Q");
  EXPECT_EQ(ZOLQelInstCountGet("ZOLAnnStandardXMLClass"), before);
  quiet = NodeRef();
}

// Copy, check, lookup and release must not use the stack per level.
TEST_F(Tree, Deep_ChainOfHundredThousandNodesIsClonedCheckedFoundAndReleased) {
  constexpr int kDepth = 100000;
  auto doc = std::make_unique<ZOLAnnStandardXMLParser>();
  Node* deepest = doc->Root();
  for (int i = 0; i < kDepth; ++i) {
    AddChild(deepest, "n");
    deepest = deepest->SubNodes()[0];
  }
  deepest->AddValue(MakeValue("Bold", "FontStyle", Value::EnumValue).get(), -1);  // undefined

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
}
