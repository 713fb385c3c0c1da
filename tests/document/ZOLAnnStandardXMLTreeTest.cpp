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

class Tree : public ZOLReportCountTest {
protected:
  NodeRef n = MakeNode("N");
};

}  // namespace

TEST_F(Tree, AddNode_ExplicitPositionNeverAppendsButNegativeDoes) {
  AddChild(n.get(), "a", 0);  // position 0 on an empty node is beyond the size
  EXPECT_EQ(n->GetNumOfNode(), 0);
  EXPECT_EQ(r.Count(), 1);
  AddChild(n.get(), "a", -1);
  AddChild(n.get(), "b", -5);
  AddChild(n.get(), "c", 2);  // equal to the size: refused
  EXPECT_EQ(Names(n.get()), "a,b");
  EXPECT_EQ(r.Count(), 2);
  AddChild(n.get(), "c", 0);
  AddChild(n.get(), "d", 1);
  EXPECT_EQ(Names(n.get()), "c,d,a,b");
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 2);
  reports = 2;
}

TEST_F(Tree, AddValue_FollowsTheSamePositionRule) {
  n->AddValue(MakeValue("x").get(), 0);
  n->AddValue(MakeValue("a").get(), -1);
  n->AddValue(MakeValue("b").get(), 1);
  n->AddValue(MakeValue("c").get(), 0);
  EXPECT_EQ(Texts(n.get()), "c,a");
  reports = 2;
}

TEST_F(Tree, AddNodeAndAddValue_NullIsReportedOnPointerAndAddsNothing) {
  n->AddNode(nullptr, -1);
  n->AddValue(nullptr, -1);
  EXPECT_EQ(n->GetNumOfNode() + n->GetNumOfValue(), 0);
  EXPECT_EQ(r.CountContaining("ON POINTER "), 2);
  reports = 2;
}

TEST_F(Tree, AddNode_TakesAReferenceOfItsOwn) {
  NodeRef parent = MakeNode("P");
  NodeRef child = MakeNode("C");
  parent->AddNode(child.get(), -1);
  EXPECT_EQ(child->RefCount(), 2u);
  NodeRef got = NodeRef::Adopt(parent->GetNode(0));
  EXPECT_EQ(child->RefCount(), 3u);
}

TEST_F(Tree, AddNodeWithValue_ChecksNamesAndPosition) {
  EXPECT_EQ(n->AddNodeWithValue("Mode", Value::EnumValue, "Yes", "", -1), 0);      // enum without its name
  EXPECT_EQ(n->AddNodeWithValue("Mode", Value::EnumValue, "", "YesNo", -1), 0);    // enum without text
  EXPECT_EQ(n->AddNodeWithValue("Size", Value::FloatValue, "1.0", "0.0", -1), 0);  // a name on a plain value
  EXPECT_EQ(n->AddNodeWithValue("", Value::IntValue, "1", "", -1), 0);
  EXPECT_EQ(n->AddNodeWithValue("Size", Value::IntValue, "1", "", -2), 0);
  EXPECT_EQ(n->AddNodeWithValue("Size", Value::IntValue, "1", "", 1), 0);
  EXPECT_EQ(n->GetNumOfNode(), 0);
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 6);
  r.Clear();
  EXPECT_EQ(n->AddNodeWithValue("Mode", Value::EnumValue, "Yes", "YesNo", -1), 1);
  EXPECT_EQ(n->AddNodeWithValue("Size", Value::IntValue, "3", "", 0), 1);
  EXPECT_EQ(Names(n.get()), "Size,Mode");
  EXPECT_EQ(r.Count(), 0);
  NodeRef size = NodeRef::Adopt(n->GetNode(0));
  EXPECT_EQ(size->GetNodeType(), Node::PlainNode);
  ValueRef v = ValueRef::Adopt(size->GetValue(0));
  EXPECT_EQ(v->GetType(), Value::IntValue);
  EXPECT_EQ(v->GetValue(), "3");
  EXPECT_EQ(v->GetRangeVal(), 0);
}

TEST_F(Tree, AddNodeWithValue_PositionEqualToSizeLosesTheNodeButReturnsOne) {
  AddChild(n.get(), "a");
  EXPECT_EQ(n->AddNodeWithValue("Size", Value::IntValue, "3", "", 1), 1);
  EXPECT_EQ(Names(n.get()), "a");
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
  reports = 1;
}

TEST_F(Tree, GetNode_NegativeIndexGivesTheLastAndBeyondIsNullWithReport) {
  EXPECT_EQ(n->GetNode(0), nullptr);  // empty
  EXPECT_EQ(n->GetValue(-1), nullptr);
  EXPECT_EQ(r.Count(), 2);
  r.Clear();
  for (const char* name : {"a", "b", "c"}) AddChild(n.get(), name);
  for (const char* text : {"1", "2", "3"}) n->AddValue(MakeValue(text).get(), -1);
  EXPECT_EQ(NodeRef::Adopt(n->GetNode(-1))->Name(), "c");
  EXPECT_EQ(NodeRef::Adopt(n->GetNode(-7))->Name(), "c");
  EXPECT_EQ(NodeRef::Adopt(n->GetNode(1))->Name(), "b");
  EXPECT_EQ(ValueRef::Adopt(n->GetValue(-7))->Value(), "3");
  EXPECT_EQ(r.Count(), 0);
  EXPECT_EQ(n->GetNode(3), nullptr);
  EXPECT_EQ(n->GetValue(3), nullptr);
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 2);
  reports = 2;
}

TEST_F(Tree, GetByName_FirstExactMatchWithoutReport) {
  EXPECT_EQ(n->GetNodeByName("a"), nullptr);
  AddChild(n.get(), "a");
  AddChild(n.get(), "b");
  AddChild(n.get(), "b");
  n->AddValue(MakeValue("1", "Width").get(), -1);
  n->AddValue(MakeValue("2", "Width").get(), -1);
  NodeRef b = NodeRef::Adopt(n->GetNodeByName("b"));
  EXPECT_EQ(b.get(), n->SubNodes()[1]);
  EXPECT_EQ(n->GetNodeByName("B"), nullptr);
  EXPECT_EQ(ValueRef::Adopt(n->GetValueByName("Width"))->Value(), "1");
  EXPECT_EQ(n->GetValueByName("1"), nullptr);  // by name, not by text
}

TEST_F(Tree, GetDefaultNode_PrefersDefaultElseTheFirst) {
  NodeRef n = MakeNode("Curve");
  EXPECT_EQ(n->GetDefaultNode(), nullptr);
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
  AddChild(n.get(), "Thin");
  EXPECT_EQ(NodeRef::Adopt(n->GetDefaultNode())->Name(), "Thin");
  AddChild(n.get(), "Default");
  EXPECT_EQ(NodeRef::Adopt(n->GetDefaultNode())->Name(), "Default");
  reports = 1;
}

TEST_F(Tree, GetNodeWithPath_OccurrenceTakesTheRankOnTheLastStepWhateverTheName) {
  NodeRef top = MakeNode("Root", Node::RootNode);
  AddChild(top.get(), "A");
  Node* a = top->SubNodes()[0];
  for (const char* name : {"B", "X", "B"}) AddChild(a, name);
  EXPECT_EQ(NodeRef::Adopt(top->GetNodeWithPath("A.B", 1)).get(), a->SubNodes()[0]);
  EXPECT_EQ(NodeRef::Adopt(top->GetNodeWithPath("A.B", 2)).get(), a->SubNodes()[1]);
  EXPECT_EQ(NodeRef::Adopt(top->GetNodeWithPath("A.Nothing", 3)).get(), a->SubNodes()[2]);
  EXPECT_EQ(NodeRef::Adopt(top->GetNodeWithPath("A.B", 0)).get(), a->SubNodes()[2]);
  EXPECT_EQ(NodeRef::Adopt(top->GetNodeWithPath("A.B", -1)).get(), a->SubNodes()[2]);
  EXPECT_EQ(NodeRef::Adopt(top->GetNodeWithPath("A", 1)).get(), a);
  EXPECT_EQ(top->GetNodeWithPath("A.Q", 1), nullptr);
  EXPECT_EQ(top->GetNodeWithPath("Q.B", 2), nullptr);
  EXPECT_EQ(top->GetNodeWithPath("", 1), nullptr);
  EXPECT_EQ(r.Count(), 0);
  EXPECT_EQ(top->GetNodeWithPath("A.B", 4), nullptr);  // beyond: GetNode's report
  reports = 1;
}

TEST_F(Tree, GetValueWithPath_FindsAValueByItsText) {
  NodeRef enums = MakeNode("Enum", Node::RootNode);
  enums->AddNode(MakeNode("Frame", Node::EnumDefNode).get(), -1);
  Node* frame = enums->SubNodes()[0];
  frame->AddValue(MakeValue("Square").get(), -1);
  frame->AddValue(MakeValue("Circle").get(), -1);
  frame->AddValue(MakeValue("1.5", "Circle").get(), -1);
  EXPECT_EQ(ValueRef::Adopt(enums->GetValueWithPath("Frame.Circle")).get(), frame->Values()[1]);
  EXPECT_EQ(enums->GetValueWithPath("Frame.1.5"), nullptr);  // a text with a dot cannot be reached
  EXPECT_EQ(enums->GetValueWithPath("Frame.Oval"), nullptr);
  EXPECT_EQ(enums->GetValueWithPath("Arrow.Circle"), nullptr);
}

TEST_F(Tree, DeleteNodeWithPath_RemovesANodeOrAValueByNameOrText) {
  NodeRef top = MakeNode("Enum", Node::RootNode);
  top->AddNode(MakeNode("Frame", Node::EnumDefNode).get(), -1);
  Node* frame = top->SubNodes()[0];
  AddChild(frame, "Inner");
  frame->AddValue(MakeValue("Square").get(), -1);
  frame->AddValue(MakeValue("Circle").get(), -1);
  frame->AddValue(MakeValue("7", "Width").get(), -1);
  EXPECT_EQ(top->DeleteNodeWithPath("Frame.Circle"), 0);
  EXPECT_EQ(Texts(frame), "Square,7");
  EXPECT_EQ(top->DeleteNodeWithPath("Frame.Circle"), 1);
  EXPECT_EQ(top->DeleteNodeWithPath("Frame.Width"), 0);
  EXPECT_EQ(Texts(frame), "Square");
  EXPECT_EQ(top->DeleteNodeWithPath("Frame.Inner"), 0);
  EXPECT_EQ(frame->GetNumOfNode(), 0);
  EXPECT_EQ(top->DeleteNodeWithPath("Arrow.Square"), 1);
  EXPECT_EQ(top->DeleteNodeWithPath("Frame"), 0);
  EXPECT_EQ(top->GetNumOfNode(), 0);
}

TEST_F(Tree, DeleteSubNodeAndDeleteValue_HaveOppositeResults) {
  AddChild(n.get(), "a");
  AddChild(n.get(), "b");
  n->AddValue(MakeValue("1").get(), -1);
  n->AddValue(MakeValue("2").get(), -1);
  EXPECT_EQ(n->DeleteSubNode(0), 0);
  EXPECT_EQ(n->DeleteSubNode(1), 1);
  EXPECT_EQ(n->DeleteSubNode(-1), 1);
  EXPECT_EQ(Names(n.get()), "b");
  EXPECT_EQ(r.Count(), 0);
  EXPECT_EQ(n->DeleteValue(1), 1);
  EXPECT_EQ(n->DeleteValue(1), 0);
  EXPECT_EQ(n->DeleteValue(-1), 0);
  EXPECT_EQ(Texts(n.get()), "1");
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 2);
  reports = 2;
}

TEST_F(Tree, ChangeValue_SingleValueTakesTheWholeTextAndSeveralValuesTheNamedField) {
  NodeRef record = MakeNode("Symbol", Node::TypeValNode);
  record->AddValue(MakeValue("40", "Charcode", Value::IntValue).get(), -1);
  record->ChangeValue("Charcode:42");
  EXPECT_EQ(Texts(record.get()), "Charcode:42");  // colons included
  record->AddValue(MakeValue("Arial", "Font").get(), -1);
  record->ChangeValue("Font:Times:Bold");
  record->ChangeValue("no colon here");
  EXPECT_EQ(Texts(record.get()), "Charcode:42,Times:Bold");
  EXPECT_EQ(r.Count(), 0);
  record->ChangeValue("Size:3");
  EXPECT_EQ(Texts(record.get()), "Charcode:42,Times:Bold");
  EXPECT_EQ(r.CountContaining("ON POINTER "), 1);
  reports = 1;
}

TEST_F(Tree, ChangeValue_NodeWithSubNodesIsRefused) {
  n->AddValue(MakeValue("1").get(), -1);
  AddChild(n.get(), "a");
  n->ChangeValue("2");
  EXPECT_EQ(Texts(n.get()), "1");
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
  reports = 1;
}

TEST_F(Tree, Clone_IsDeepAndSharesNothing) {
  NodeRef src = MakeNode("Sheet", Node::TypeValNode);
  src->AddValue(MakeValue("1.0", "0.0", Value::FloatValue, 1).get(), -1);
  src->AddValue(MakeValue("Yes", "YesNo", Value::EnumValue).get(), -1);
  AddChild(src.get(), "a");
  AddChild(src.get(), "b");
  src->SubNodes()[1]->AddValue(MakeValue("deep").get(), -1);
  NodeRef copy = NodeRef::Adopt(src->Clone());
  ASSERT_TRUE(copy);
  EXPECT_EQ(copy->GetNodeType(), Node::TypeValNode);
  EXPECT_EQ(copy->Name(), "Sheet");
  EXPECT_EQ(Names(copy.get()), "a,b");
  EXPECT_EQ(Texts(copy.get()), "1.0,Yes");
  const Value* bound = copy->Values()[0];
  EXPECT_EQ(bound->GetType(), Value::FloatValue);
  EXPECT_EQ(bound->Name(), "0.0");
  EXPECT_EQ(bound->GetRangeVal(), 1);
  EXPECT_NE(bound, src->Values()[0]);
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
