// The edit-string language of the parser: cutting, start words, positions, types and forms.
#include <gtest/gtest.h>

#include <string>

#include "DocumentTestHelpers.h"
#include "ZOLAnnStandardXMLNode.h"
#include "ZOLAnnStandardXMLParser.h"
#include "ZOLAnnStandardXMLValue.h"
#include "ZOLRefCounted.h"
#include "ZOLEditLines.h"
#include "ZOLReportCountTest.h"

namespace {

using Node = ZOLAnnStandardXMLNode;
using Value = ZOLAnnStandardXMLValue;

// The node at a path, borrowed from the document (which keeps it alive).
Node* At(ZOLAnnStandardXMLParser& doc, const char* path) {
  auto ref = ZOLRef<Node>::Adopt(doc.GetNodeWithPath(path));
  return ref.get();
}

class EditString : public ZOLReportCountTest {
protected:
  // Set-up edits, each of which must succeed (see ZOLEditLines).
  void Edit(const std::vector<std::string>& lines) { ZOLEditLines(doc, lines); }
  ZOLAnnStandardXMLParser doc;
};

}  // namespace

TEST_F(EditString, UnknownStartWordOrNoColonReturnsOneAndChangesNothing) {
  EXPECT_EQ(doc.AddNodeWithPath("Roots:Frames", 0), 1);
  EXPECT_EQ(doc.AddNodeWithPath("root:Frames", 0), 1);  // with case
  EXPECT_EQ(doc.AddNodeWithPath("Root", 0), 1);          // no ":": empty path
  EXPECT_EQ(doc.AddNodeWithPath("", 0), 1);
  EXPECT_EQ(doc.AddValueWithPath("Styles.Sheet:Scale:float:1.0", 1), 1);
  EXPECT_EQ(doc.AddValueWithPath("Root", 1), 1);
  EXPECT_EQ(doc.AddValueWithPath("Root.Missing:Flag:bool:true", 1), 1);  // an unknown place: no type report
  EXPECT_EQ(doc.AddValueWithPath("Root.Missing.Deeper:Flag:int:1", 1), 1);
  EXPECT_EQ(doc.AddValueWithPath("Enum.Missing::string:x", 1), 1);
  EXPECT_EQ(doc.ChangeValueWithPath("Root.Version"), 1);
  EXPECT_EQ(doc.ChangeValueWithPath("Foo.Version:3"), 1);
  EXPECT_EQ(doc.DeleteNodeWithPath("Foo.Version"), 1);
  EXPECT_EQ(doc.GetNodeWithPath("Foo"), nullptr);
  EXPECT_EQ(doc.GetValueWithPath("Foo.Bar"), "");
  EXPECT_EQ(doc.Root()->GetNumOfNode() + doc.EnumRoot()->GetNumOfNode() + doc.TypeDefRoot()->GetNumOfNode(), 0);
}

TEST_F(EditString, AddNodeTypeComesFromTheWholePathField) {
  EXPECT_EQ(doc.AddNodeWithPath("Enum:Frame", 1), 0);
  EXPECT_EQ(doc.AddNodeWithPath("TypeDef:FrameDef:0", 0), 0);
  EXPECT_EQ(doc.AddNodeWithPath("Enum.Frame:Inner", 0), 0);
  EXPECT_EQ(doc.AddNodeWithPath("Enum.Frame:Record", 1), 0);
  EXPECT_EQ(doc.AddNodeWithPath("Root:SheetFormat", 0), 0);
  EXPECT_EQ(doc.AddNodeWithPath("Root.SheetFormat:Formats:0", 1), 0);
  EXPECT_EQ(doc.AddNodeWithPath("Root.:Top", 0), 0);  // an empty rest is the root itself
  EXPECT_EQ(At(doc, "Enum.Frame")->GetNodeType(), Node::EnumDefNode);
  EXPECT_EQ(At(doc, "TypeDef.FrameDef")->GetNodeType(), Node::TypeDefNode);
  EXPECT_EQ(At(doc, "Enum.Frame.Inner")->GetNodeType(), Node::PlainNode);
  EXPECT_EQ(At(doc, "Enum.Frame.Record")->GetNodeType(), Node::TypeValNode);
  EXPECT_EQ(At(doc, "Root.SheetFormat")->GetNodeType(), Node::PlainNode);
  EXPECT_EQ(At(doc, "Root.SheetFormat.Formats")->GetNodeType(), Node::TypeValNode);
  EXPECT_EQ(Names(doc.Root()), "SheetFormat,Top");
  EXPECT_EQ(At(doc, "Root"), doc.Root());
  EXPECT_EQ(doc.AddNodeWithPath("Root.Missing:X", 0), 1);
}

TEST_F(EditString, NamesKeepBlanksCommasAndDots) {
  Edit({"N Root:Styles", "N Root.Styles:Sheet", "N Root.Styles.Sheet:A0 ISO:0"});
  EXPECT_EQ(doc.AddValueWithPath("Root.Styles.Sheet:Title:string:Lines, corners and arrows. Done", 1), 0);
  EXPECT_EQ(Names(At(doc, "Root.Styles.Sheet")), "A0 ISO,Title");
  EXPECT_EQ(doc.GetValueWithPath("Root.Styles.Sheet.Title"), "Lines, corners and arrows. Done");
}

TEST_F(EditString, PositionIsOneBasedAndReadsALeadingInteger) {
  Edit({"N Root:a", "N Root:b", "N Root:c"});
  EXPECT_EQ(doc.AddNodeWithPath("Root:first:1", 0), 0);
  EXPECT_EQ(doc.AddNodeWithPath("Root:second:2,", 0), 0);  // "2," is 2
  EXPECT_EQ(doc.AddNodeWithPath("Root:third: 3", 0), 0);
  EXPECT_EQ(doc.AddNodeWithPath("Root:zero:0,", 0), 0);    // 0 appends
  EXPECT_EQ(doc.AddNodeWithPath("Root:minus:-4", 0), 0);
  EXPECT_EQ(doc.AddNodeWithPath("Root:empty:", 0), 0);
  EXPECT_EQ(Names(doc.Root()), "first,second,third,a,b,c,zero,minus,empty");
}

TEST_F(EditString, PositionBeyondSizeIsRefusedButReturnsZero) {
  Edit({"N Root:a", "N Root:b"});
  EXPECT_EQ(doc.AddNodeWithPath("Root:x:3", 0), 0);  // size + 1 does not append
  EXPECT_EQ(doc.AddNodeWithPath("Root:y:22,", 0), 0);
  EXPECT_EQ(Names(doc.Root()), "a,b");
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 2);
  reports = 2;
}

TEST_F(EditString, PositionWithoutLeadingIntegerReturnsTwoAndChangesNothing) {
  Edit({"N Root:a", "N Root.a:p"});
  EXPECT_EQ(doc.AddNodeWithPath("Root:x:x1", 0), 2);
  EXPECT_EQ(doc.AddNodeWithPath("Root:x:,", 0), 2);
  EXPECT_EQ(doc.AddValueWithPath("Root.a:Size:int:3:x1", 1), 2);
  EXPECT_EQ(doc.AddValueWithPath("Root.a.p:Size:int:3:x1", -1), 2);
  EXPECT_EQ(Names(doc.Root()), "a");
  EXPECT_EQ(Names(At(doc, "Root.a")), "p");
  EXPECT_EQ(At(doc, "Root.a")->GetNumOfValue(), 0);
}

TEST_F(EditString, LastKnownFieldTakesWhatRemainsColonsIncluded) {
  Edit({"N Root:a"});
  EXPECT_EQ(doc.AddNodeWithPath("Root:x:1:junk", 0), 0);  // position "1:junk" reads as 1
  EXPECT_EQ(Names(doc.Root()), "x,a");
  EXPECT_EQ(doc.AddNodeWithPath("Root:y:junk:1", 0), 2);
  EXPECT_EQ(r.Count(), 0);
  // A value holds a ":" only when nothing the form needs follows it: "30" is a position here.
  EXPECT_EQ(doc.AddValueWithPath("Root.a:Time:string:12:30", 1), 0);
  EXPECT_EQ(r.Count(), 1);
  EXPECT_EQ(doc.AddValueWithPath("Root.a:Time:string:12:0:30", 1), 0);
  EXPECT_EQ(doc.GetValueWithPath("Root.a.Time"), "12");
  reports = 1;
}

TEST_F(EditString, EmptyFieldsAreAllowedAnywhere) {
  Edit({"N Enum:Frame", "N Root:Font"});
  EXPECT_EQ(doc.AddValueWithPath("Enum.Frame::string:Circle:0", 1), 0);
  EXPECT_EQ(doc.AddValueWithPath("Root.Font:Name:string::0", 1), 0);
  EXPECT_EQ(Describe(At(doc, "Enum.Frame")), "3//Circle/0");
  EXPECT_EQ(Describe(At(doc, "Root.Font.Name")), "3///0");
}

TEST_F(EditString, TooFewColonsLeaveNameTypeAndValueEmpty) {
  Edit({"N Root:a"});
  // Name, type and value stay empty: the empty type raises the type report.
  EXPECT_EQ(doc.AddValueWithPath("Root.a:Size", 1), 0);
  EXPECT_EQ(Names(At(doc, "Root.a")), "");
  EXPECT_EQ(Describe(At(doc, "Root.a")->SubNodes()[0]), "3///0");
  EXPECT_EQ(r.CountContaining("Failed to find value type"), 1);
  reports = 1;
}

TEST_F(EditString, TypeFieldKindsInTheDirectForm) {
  Edit({"N Root:S", "T Root.S:R"});
  for (const char* s : {"Root.S.R:I:int:1", "Root.S.R:F:float:1.5", "Root.S.R:T:string:x", "Root.S.R:C:color:0 39 64",
                        "Root.S.R:E:enum.YesNo:Yes", "Root.S.R:B:float.m.0.0:1.0", "Root.S.R:M:float.m:2.0",
                        "Root.S.R:O:other.thing:z"})
    EXPECT_EQ(doc.AddValueWithPath(s, 1), 0) << s;
  // On a record the side text (enumeration, bound) is dropped; the range flag stays.
  EXPECT_EQ(Describe(At(doc, "Root.S.R")),
            "1/I/1/0;2/F/1.5/0;3/T/x/0;5/C/0 39 64/0;4/E/Yes/0;2/B/1.0/1;2/M/2.0/1;3/O/z/0");
}

TEST_F(EditString, TypeFieldSideTextInTheParameterForm) {
  Edit({"N Root:Styles", "N Root.Styles:Sheet", "N Root.Styles.Sheet:Default"});
  EXPECT_EQ(doc.AddValueWithPath("Root.Styles.Sheet.Default:GlobalScale:float.m.0.0:1.0:0", 1), 0);
  EXPECT_EQ(doc.AddValueWithPath("Root.Styles.Sheet.Default:ViewScaleDependant:enum.YesNo:Yes:0", 1), 0);
  EXPECT_EQ(doc.AddValueWithPath("Root.Styles.Sheet.Default:Bound:float.m:2.0", 1), 0);
  Node* def = At(doc, "Root.Styles.Sheet.Default");
  EXPECT_EQ(Names(def), "GlobalScale,ViewScaleDependant,Bound");
  EXPECT_EQ(def->GetNumOfValue(), 0);
  EXPECT_EQ(def->SubNodes()[0]->GetNodeType(), Node::PlainNode);
  EXPECT_EQ(Describe(def->SubNodes()[0]), "2/0.0/1.0/1");
  EXPECT_EQ(Describe(def->SubNodes()[1]), "4/YesNo/Yes/0");
  EXPECT_EQ(Describe(def->SubNodes()[2]), "2/float.m/2.0/1");  // no further ".": the whole field
}

TEST_F(EditString, UnknownTypeWithoutDotIsReportedAndStoredAsString) {
  Edit({"N Root:S"});
  EXPECT_EQ(doc.AddValueWithPath("Root.S:Flag:bool:true", 1), 0);
  EXPECT_EQ(Describe(At(doc, "Root.S.Flag")), "3//true/0");
  EXPECT_EQ(r.CountContaining(">> ASSERTION FAILED : Failed to find value type, str has been  [File: ZOLAnnStandardXMLParser.cpp:"), 1);
  EXPECT_EQ(r.Count(), 1);
  // The type is read before the position: the report comes even when the position then fails.
  r.Clear();
  EXPECT_EQ(doc.AddValueWithPath("Root.S:Flag2:bool:true:x", 1), 2);
  EXPECT_EQ(Names(At(doc, "Root.S")), "Flag");
  reports = 1;
}

TEST_F(EditString, ParameterFormOnlyUnderRootOnNonRecordsWithoutOccurrenceMinusOne) {
  Edit({"N Root:StandardMode", "N Root:P", "N Enum:Frame", "N TypeDef:FrameDef"});
  EXPECT_EQ(doc.AddValueWithPath("Root:Mode:string:Default:2", 1), 0);  // the root itself, parameter form
  EXPECT_EQ(Names(doc.Root()), "StandardMode,Mode,P");
  EXPECT_EQ(doc.AddValueWithPath("Root.P:Size:int:3", -1), 0);  // -1: last sub-node of Root, direct form
  EXPECT_EQ(Describe(At(doc, "Root.P")), "1/Size/3/0");
  EXPECT_EQ(doc.AddValueWithPath("Enum.Frame:Ignored:string:Circle", 1), 0);
  EXPECT_EQ(doc.AddValueWithPath("TypeDef.FrameDef:Type:int:0:0", 1), 0);
  EXPECT_EQ(Describe(At(doc, "Enum.Frame")), "3/Ignored/Circle/0");
  EXPECT_EQ(Describe(At(doc, "TypeDef.FrameDef")), "1/Type/0/0");
  EXPECT_EQ(doc.AddValueWithPath("Enum:Lonely:string:x", 1), 0);  // the Enum root itself: direct
  EXPECT_EQ(Describe(doc.EnumRoot()), "3/Lonely/x/0");
}

TEST_F(EditString, EnumerationStringPositionIsRefusedBeyondItsSize) {
  Edit({"N Enum:Frame", "V Enum.Frame::string:Circle", "V Enum.Frame::string:Square"});
  EXPECT_EQ(doc.AddValueWithPath("Enum.Frame::string:Parallelogram:22,", 1), 0);
  EXPECT_EQ(r.Count(), 1);
  EXPECT_EQ(doc.AddValueWithPath("Enum.Frame::string:Oval:2,", 1), 0);
  EXPECT_EQ(Describe(At(doc, "Enum.Frame")), "3//Circle/0;3//Oval/0;3//Square/0");
  reports = 1;
}

TEST_F(EditString, OccurrenceReachesTheRecordJustAppended) {
  Edit({"N Root:SheetFormat"});
  for (int i = 0; i < 2; ++i) {
    ASSERT_EQ(doc.AddNodeWithPath("Root.SheetFormat:Formats:0", 1), 0);
    EXPECT_EQ(doc.AddValueWithPath("Root.SheetFormat.Formats:Width:float:" + std::to_string(1189 - i) + ":0,", -1), 0);
  }
  ASSERT_EQ(doc.AddNodeWithPath("Root.SheetFormat:Other", 0), 0);
  EXPECT_EQ(doc.AddValueWithPath("Root.SheetFormat.Formats:Height:int:841", 2), 0);  // the 2nd sub-node
  EXPECT_EQ(doc.AddValueWithPath("Root.SheetFormat.Formats:Name:string:A0", 1), 0);  // the first by name
  EXPECT_EQ(doc.AddValueWithPath("Root.SheetFormat.Formats:Last:int:1", 0), 0);      // the last, whatever its name
  Node* sheet = At(doc, "Root.SheetFormat");
  EXPECT_EQ(Describe(sheet->SubNodes()[0]), "2/Width/1189/0;3/Name/A0/0");
  EXPECT_EQ(Describe(sheet->SubNodes()[1]), "2/Width/1188/0;1/Height/841/0");
  EXPECT_EQ(Names(sheet->SubNodes()[2]), "Last");  // a plain node: parameter form
}

TEST_F(EditString, ArrayOfUnnamedValuesWithOccurrenceMinusOne) {
  Edit({"N Root:LineTypes", "N Root.LineTypes:LineType16", "N Root.LineTypes.LineType16:Segment"});
  for (const char* s : {"1.0", "0.5", "2.0"})
    EXPECT_EQ(doc.AddValueWithPath(std::string("Root.LineTypes.LineType16.Segment::float:") + s + ":0,", -1), 0);
  EXPECT_EQ(Describe(At(doc, "Root.LineTypes.LineType16.Segment")), "2//1.0/0;2//0.5/0;2//2.0/0");
}

TEST_F(EditString, ForAllOccurrenceVisitsEveryNamesakeAndSwitchesToDirectFormForGood) {
  Edit({"N Root:Styles", "N Root.Styles:Sheet", "T Root.Styles:Sheet", "N Root.Styles:Other", "N Root.Styles:Sheet"});
  EXPECT_EQ(doc.AddValueWithPathForAllOccurence("Root.Styles.Sheet:Scale:float:1.0", 1), 0);
  Node* styles = At(doc, "Root.Styles");
  EXPECT_EQ(Names(styles->SubNodes()[0]), "Scale");  // plain: parameter form
  EXPECT_EQ(Describe(styles->SubNodes()[1]), "2/Scale/1.0/0");  // record: direct form
  EXPECT_EQ(styles->GetNumOfValue() + styles->SubNodes()[2]->GetNumOfValue() + styles->SubNodes()[2]->GetNumOfNode(), 0);
  EXPECT_EQ(Describe(styles->SubNodes()[3]), "2/Scale/1.0/0");  // plain, but after a record
  EXPECT_EQ(r.Count(), 0);
  // The type is read once per matching node.
  EXPECT_EQ(doc.AddValueWithPathForAllOccurence("Root.Styles.Sheet:Flag:bool:1", 1), 0);
  reports = 3;
}

TEST_F(EditString, ForAllOccurrenceResults) {
  Edit({"N Root:Styles", "N Root.Styles:Sheet", "N Root:Other"});
  EXPECT_EQ(doc.AddValueWithPathForAllOccurence("Root.Styles.Nothing:Scale:float:1.0", 1), 1);
  EXPECT_EQ(doc.AddValueWithPathForAllOccurence("Root.Missing.Sheet:Scale:float:1.0", 1), 1);
  EXPECT_EQ(doc.AddValueWithPathForAllOccurence("Enum.Styles.Sheet:Scale:float:1.0", 1), 1);
  EXPECT_EQ(doc.AddValueWithPathForAllOccurence("Root:Scale:float:1.0", 1), 1);
  EXPECT_EQ(doc.AddValueWithPathForAllOccurence("Root.Styles.Sheet:Scale:float:1.0:x", 1), 2);
  EXPECT_EQ(At(doc, "Root.Styles.Sheet")->GetNumOfNode(), 0);
  EXPECT_EQ(doc.AddValueWithPathForAllOccurence("Root.Styles.Sheet:Scale:float:1.0", -1), 1);  // -1: last sub-node of Root
}

TEST_F(EditString, ForAllOccurrenceParentPathFallsShortBelowTwoLevels) {
  Edit({"N Root:A", "N Root.A:X", "N Root.A:B", "N Root.A.B:C", "N Root.A.B:C"});
  // "A.B.C" looks the parent up as "A.": with occurrence 1 it finds no node named "".
  EXPECT_EQ(doc.AddValueWithPathForAllOccurence("Root.A.B.C:v:int:1", 1), 1);
  EXPECT_EQ(At(doc, "Root.A.B.C")->GetNumOfNode(), 0);
  // With occurrence 2 the short path takes the second sub-node of A, which happens to be B.
  EXPECT_EQ(doc.AddValueWithPathForAllOccurence("Root.A.B.C:v:int:1", 2), 0);
  Node* b = At(doc, "Root.A.B");
  EXPECT_EQ(Names(b->SubNodes()[0]), "v");
  EXPECT_EQ(Names(b->SubNodes()[1]), "v");
}

TEST_F(EditString, ChangeValueSetsTheSingleValueOrTheNamedField) {
  Edit({"N Root:Dimension", "N Root:EngineeringSymbols", "V Root.Dimension:CUMLTxtDecalY:float:0.0",
        "T Root.EngineeringSymbols:EngineeringSymbol", "L Root.EngineeringSymbols.EngineeringSymbol:Charcode:int:40",
        "L Root.EngineeringSymbols.EngineeringSymbol:Font:string:Arial"});
  EXPECT_EQ(doc.ChangeValueWithPath("Root.Dimension.CUMLTxtDecalY:0.5"), 0);
  EXPECT_EQ(doc.GetValueWithPath("Root.Dimension.CUMLTxtDecalY"), "0.5");
  EXPECT_EQ(doc.ChangeValueWithPath("Root.Dimension.CUMLTxtDecalY:1:2"), 0);  // cut at the first ":" only
  EXPECT_EQ(doc.GetValueWithPath("Root.Dimension.CUMLTxtDecalY"), "1:2");
  EXPECT_EQ(doc.ChangeValueWithPath("Root.EngineeringSymbols.EngineeringSymbol:Charcode:42"), 0);
  EXPECT_EQ(doc.ChangeValueWithPath("Root.EngineeringSymbols.EngineeringSymbol:Font:Times:Bold"), 0);  // the rest, colons included
  EXPECT_EQ(Describe(At(doc, "Root.EngineeringSymbols.EngineeringSymbol")), "1/Charcode/42/0;3/Font/Times:Bold/0");
}

TEST_F(EditString, ChangeValueRefusalsStillReturnZero) {
  Edit({"N Root:Dimension", "N Root.Dimension:Sub", "N Root:Rec", "L Root.Rec:A:int:1", "L Root.Rec:B:int:2"});
  EXPECT_EQ(doc.ChangeValueWithPath("Root.Dimension:5"), 0);  // has sub-nodes
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
  EXPECT_EQ(doc.ChangeValueWithPath("Root.Rec:C:5"), 0);  // no such field
  EXPECT_EQ(r.CountContaining("ON POINTER "), 1);
  EXPECT_EQ(doc.ChangeValueWithPath("Root.Rec:5"), 0);  // no field named at all: nothing, no report
  EXPECT_EQ(Describe(At(doc, "Root.Rec")), "1/A/1/0;1/B/2/0");
  reports = 2;
}

TEST_F(EditString, ChangeValueFallsBackToAValueNamedByItsOldText) {
  Edit({"N Enum:Frame", "V Enum.Frame::string:Circle"});
  EXPECT_EQ(doc.ChangeValueWithPath("Enum.Frame.Circle:Ellipse"), 0);
  EXPECT_EQ(Describe(At(doc, "Enum.Frame")), "3//Ellipse/0");
  EXPECT_EQ(doc.ChangeValueWithPath("Enum.Frame.Circle:Oval"), 1);
  EXPECT_EQ(doc.ChangeValueWithPath("Enum.Arrow.Circle:Oval"), 1);
}

TEST_F(EditString, DeleteNodeWithPathRemovesNodesAndValues) {
  Edit({"N Root:Styles", "N Root.Styles:Sheet", "N Root.Styles:Sheet", "N Enum:Frame", "V Enum.Frame::string:Circle"});
  EXPECT_EQ(doc.DeleteNodeWithPath("Root.Styles.Sheet"), 0);
  EXPECT_EQ(Names(At(doc, "Root.Styles")), "Sheet");
  EXPECT_EQ(doc.DeleteNodeWithPath("Enum.Frame.Circle"), 0);
  EXPECT_EQ(At(doc, "Enum.Frame")->GetNumOfValue(), 0);
  EXPECT_EQ(doc.DeleteNodeWithPath("Enum.Frame.Circle"), 1);
  EXPECT_EQ(doc.DeleteNodeWithPath("Root.Missing.Sheet"), 1);
}

TEST_F(EditString, GetValueWithPathGivesTheFirstValueText) {
  Edit({"N Root:Empty", "V Root:Scale:float:1.5"});
  EXPECT_EQ(doc.GetValueWithPath("Root.Scale"), "1.5");
  EXPECT_EQ(doc.GetValueWithPath("Root"), "");
  EXPECT_EQ(doc.GetValueWithPath("Root.Missing"), "");
  EXPECT_EQ(r.Count(), 0);
  EXPECT_EQ(doc.GetValueWithPath("Root.Empty"), "");  // GetValue's report
  reports = 1;
}
