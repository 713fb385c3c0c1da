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
  // Edits, each of which must give 0 or the result it names (see ZOLEditLines).
  void Edit(const std::vector<std::string>& lines) { ZOLEditLines(doc, lines); }
  ZOLAnnStandardXMLParser doc;
};

}  // namespace

TEST_F(EditString, UnknownStartWordOrNoColonReturnsOneAndChangesNothing) {
  // Start words go with case; without ":" the path is empty; an unknown place raises no type report.
  Edit({"N Roots:Frames => 1", "N root:Frames => 1", "N Root => 1", "N  => 1", "V Styles.Sheet:Scale:float:1.0 => 1",
        "V Root => 1", "V Root.Missing:Flag:bool:true => 1", "V Root.Missing.Deeper:Flag:int:1 => 1",
        "V Enum.Missing::string:x => 1", "C Root.Version => 1", "C Foo.Version:3 => 1", "D Foo.Version => 1"});
  EXPECT_EQ(doc.GetNodeWithPath("Foo"), nullptr);
  EXPECT_EQ(doc.GetValueWithPath("Foo.Bar"), "");
  EXPECT_EQ(doc.Root()->GetNumOfNode() + doc.EnumRoot()->GetNumOfNode() + doc.TypeDefRoot()->GetNumOfNode(), 0);
}

TEST_F(EditString, AddNodeTypeComesFromTheWholePathField) {
  // "Root.:Top": an empty rest is the root itself.
  Edit({"T Enum:Frame", "N TypeDef:FrameDef:0", "N Enum.Frame:Inner", "T Enum.Frame:Record", "N Root:SheetFormat",
        "T Root.SheetFormat:Formats:0", "N Root.:Top", "N Root.Missing:X => 1"});
  EXPECT_EQ(At(doc, "Enum.Frame")->GetNodeType(), Node::EnumDefNode);
  EXPECT_EQ(At(doc, "TypeDef.FrameDef")->GetNodeType(), Node::TypeDefNode);
  EXPECT_EQ(At(doc, "Enum.Frame.Inner")->GetNodeType(), Node::PlainNode);
  EXPECT_EQ(At(doc, "Enum.Frame.Record")->GetNodeType(), Node::TypeValNode);
  EXPECT_EQ(At(doc, "Root.SheetFormat")->GetNodeType(), Node::PlainNode);
  EXPECT_EQ(At(doc, "Root.SheetFormat.Formats")->GetNodeType(), Node::TypeValNode);
  EXPECT_EQ(Names(doc.Root()), "SheetFormat,Top");
  EXPECT_EQ(At(doc, "Root"), doc.Root());
}

TEST_F(EditString, NamesKeepBlanksCommasAndDots) {
  Edit({"N Root:Styles", "N Root.Styles:Sheet", "N Root.Styles.Sheet:A0 ISO:0",
        "V Root.Styles.Sheet:Title:string:Lines, corners and arrows. Done"});
  EXPECT_EQ(Names(At(doc, "Root.Styles.Sheet")), "A0 ISO,Title");
  EXPECT_EQ(doc.GetValueWithPath("Root.Styles.Sheet.Title"), "Lines, corners and arrows. Done");
}

TEST_F(EditString, PositionIsOneBasedAndReadsALeadingInteger) {
  // "2," is 2; 0 appends.
  Edit({"N Root:a", "N Root:b", "N Root:c", "N Root:first:1", "N Root:second:2,", "N Root:third: 3", "N Root:zero:0,",
        "N Root:minus:-4", "N Root:empty:"});
  EXPECT_EQ(Names(doc.Root()), "first,second,third,a,b,c,zero,minus,empty");
}

TEST_F(EditString, PositionBeyondSizeIsRefusedButReturnsZero) {
  Edit({"N Root:a", "N Root:b", "N Root:x:3", "N Root:y:22,"});  // size + 1 does not append
  EXPECT_EQ(Names(doc.Root()), "a,b");
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 2);
  reports = 2;
}

TEST_F(EditString, PositionWithoutLeadingIntegerReturnsTwoAndChangesNothing) {
  Edit({"N Root:a", "N Root.a:p", "N Root:x:x1 => 2", "N Root:x:, => 2", "V Root.a:Size:int:3:x1 => 2",
        "L Root.a.p:Size:int:3:x1 => 2"});
  EXPECT_EQ(Names(doc.Root()), "a");
  EXPECT_EQ(Names(At(doc, "Root.a")), "p");
  EXPECT_EQ(At(doc, "Root.a")->GetNumOfValue(), 0);
}

TEST_F(EditString, LastKnownFieldTakesWhatRemainsColonsIncluded) {
  Edit({"N Root:a", "N Root:x:1:junk", "N Root:y:junk:1 => 2"});  // position "1:junk" reads as 1
  EXPECT_EQ(Names(doc.Root()), "x,a");
  EXPECT_EQ(r.Count(), 0);
  // A value holds a ":" only when nothing the form needs follows it: "30" is a position here.
  Edit({"V Root.a:Time:string:12:30"});
  EXPECT_EQ(r.Count(), 1);
  Edit({"V Root.a:Time:string:12:0:30"});
  EXPECT_EQ(doc.GetValueWithPath("Root.a.Time"), "12");
  reports = 1;
}

TEST_F(EditString, EmptyFieldsAreAllowedAnywhere) {
  Edit({"N Enum:Frame", "N Root:Font", "V Enum.Frame::string:Circle:0", "V Root.Font:Name:string::0"});
  EXPECT_EQ(Describe(At(doc, "Enum.Frame")), "3//Circle/0");
  EXPECT_EQ(Describe(At(doc, "Root.Font.Name")), "3///0");
}

TEST_F(EditString, TooFewColonsLeaveNameTypeAndValueEmpty) {
  // Name, type and value stay empty: the empty type raises the type report.
  Edit({"N Root:a", "V Root.a:Size"});
  EXPECT_EQ(Names(At(doc, "Root.a")), "");
  EXPECT_EQ(Describe(At(doc, "Root.a")->SubNodes()[0]), "3///0");
  EXPECT_EQ(r.CountContaining("Failed to find value type"), 1);
  reports = 1;
}

TEST_F(EditString, TypeFieldKindsInTheDirectForm) {
  Edit({"N Root:S", "T Root.S:R", "V Root.S.R:I:int:1", "V Root.S.R:F:float:1.5", "V Root.S.R:T:string:x",
        "V Root.S.R:C:color:0 39 64", "V Root.S.R:E:enum.YesNo:Yes", "V Root.S.R:B:float.m.0.0:1.0",
        "V Root.S.R:M:float.m:2.0", "V Root.S.R:O:other.thing:z"});
  // On a record the side text (enumeration, bound) is dropped; the range flag stays.
  EXPECT_EQ(Describe(At(doc, "Root.S.R")),
            "1/I/1/0;2/F/1.5/0;3/T/x/0;5/C/0 39 64/0;4/E/Yes/0;2/B/1.0/1;2/M/2.0/1;3/O/z/0");
}

TEST_F(EditString, TypeFieldSideTextInTheParameterForm) {
  Edit({"N Root:Styles", "N Root.Styles:Sheet", "N Root.Styles.Sheet:Default",
        "V Root.Styles.Sheet.Default:GlobalScale:float.m.0.0:1.0:0",
        "V Root.Styles.Sheet.Default:ViewScaleDependant:enum.YesNo:Yes:0", "V Root.Styles.Sheet.Default:Bound:float.m:2.0"});
  Node* def = At(doc, "Root.Styles.Sheet.Default");
  EXPECT_EQ(Names(def), "GlobalScale,ViewScaleDependant,Bound");
  EXPECT_EQ(def->GetNumOfValue(), 0);
  EXPECT_EQ(def->SubNodes()[0]->GetNodeType(), Node::PlainNode);
  EXPECT_EQ(Describe(def->SubNodes()[0]), "2/0.0/1.0/1");
  EXPECT_EQ(Describe(def->SubNodes()[1]), "4/YesNo/Yes/0");
  EXPECT_EQ(Describe(def->SubNodes()[2]), "2/float.m/2.0/1");  // no further ".": the whole field
}

TEST_F(EditString, UnknownTypeWithoutDotIsReportedAndStoredAsString) {
  Edit({"N Root:S", "V Root.S:Flag:bool:true"});
  EXPECT_EQ(Describe(At(doc, "Root.S.Flag")), "3//true/0");
  EXPECT_EQ(r.CountContaining(">> ASSERTION FAILED : Failed to find value type, str has been  [File: ZOLAnnStandardXMLParser.cpp:"), 1);
  EXPECT_EQ(r.Count(), 1);
  // The type is read before the position: the report comes even when the position then fails.
  r.Clear();
  Edit({"V Root.S:Flag2:bool:true:x => 2"});
  EXPECT_EQ(Names(At(doc, "Root.S")), "Flag");
  reports = 1;
}

TEST_F(EditString, ParameterFormOnlyUnderRootOnNonRecordsWithoutOccurrenceMinusOne) {
  // The root itself takes the parameter form; -1 takes the last sub-node of Root in the direct
  // form, and so does the Enum root itself.
  Edit({"N Root:StandardMode", "N Root:P", "N Enum:Frame", "N TypeDef:FrameDef", "V Root:Mode:string:Default:2",
        "L Root.P:Size:int:3", "V Enum.Frame:Ignored:string:Circle", "V TypeDef.FrameDef:Type:int:0:0",
        "V Enum:Lonely:string:x"});
  EXPECT_EQ(Names(doc.Root()), "StandardMode,Mode,P");
  EXPECT_EQ(Describe(At(doc, "Root.P")), "1/Size/3/0");
  EXPECT_EQ(Describe(At(doc, "Enum.Frame")), "3/Ignored/Circle/0");
  EXPECT_EQ(Describe(At(doc, "TypeDef.FrameDef")), "1/Type/0/0");
  EXPECT_EQ(Describe(doc.EnumRoot()), "3/Lonely/x/0");
}

TEST_F(EditString, EnumerationStringPositionIsRefusedBeyondItsSize) {
  Edit({"N Enum:Frame", "V Enum.Frame::string:Circle", "V Enum.Frame::string:Square", "V Enum.Frame::string:Parallelogram:22,"});
  EXPECT_EQ(r.Count(), 1);
  Edit({"V Enum.Frame::string:Oval:2,"});
  EXPECT_EQ(Describe(At(doc, "Enum.Frame")), "3//Circle/0;3//Oval/0;3//Square/0");
  reports = 1;
}

TEST_F(EditString, OccurrenceReachesTheRecordJustAppended) {
  Edit({"N Root:SheetFormat"});
  for (int i = 0; i < 2; ++i) {
    ASSERT_EQ(doc.AddNodeWithPath("Root.SheetFormat:Formats:0", 1), 0);
    EXPECT_EQ(doc.AddValueWithPath("Root.SheetFormat.Formats:Width:float:" + std::to_string(1189 - i) + ":0,", -1), 0);
  }
  // Occurrence 2 takes the 2nd sub-node, 1 the first by name, 0 the last whatever its name.
  Edit({"N Root.SheetFormat:Other", "V@2 Root.SheetFormat.Formats:Height:int:841", "V Root.SheetFormat.Formats:Name:string:A0",
        "V@0 Root.SheetFormat.Formats:Last:int:1"});
  Node* sheet = At(doc, "Root.SheetFormat");
  EXPECT_EQ(Describe(sheet->SubNodes()[0]), "2/Width/1189/0;3/Name/A0/0");
  EXPECT_EQ(Describe(sheet->SubNodes()[1]), "2/Width/1188/0;1/Height/841/0");
  EXPECT_EQ(Names(sheet->SubNodes()[2]), "Last");  // a plain node: parameter form
}

TEST_F(EditString, ArrayOfUnnamedValuesWithOccurrenceMinusOne) {
  Edit({"N Root:LineTypes", "N Root.LineTypes:LineType16", "N Root.LineTypes.LineType16:Segment",
        "L Root.LineTypes.LineType16.Segment::float:1.0:0,", "L Root.LineTypes.LineType16.Segment::float:0.5:0,",
        "L Root.LineTypes.LineType16.Segment::float:2.0:0,"});
  EXPECT_EQ(Describe(At(doc, "Root.LineTypes.LineType16.Segment")), "2//1.0/0;2//0.5/0;2//2.0/0");
}

TEST_F(EditString, ForAllOccurrenceVisitsEveryNamesakeAndSwitchesToDirectFormForGood) {
  Edit({"N Root:Styles", "N Root.Styles:Sheet", "T Root.Styles:Sheet", "N Root.Styles:Other", "N Root.Styles:Sheet",
        "A Root.Styles.Sheet:Scale:float:1.0"});
  Node* styles = At(doc, "Root.Styles");
  EXPECT_EQ(Names(styles->SubNodes()[0]), "Scale");  // plain: parameter form
  EXPECT_EQ(Describe(styles->SubNodes()[1]), "2/Scale/1.0/0");  // record: direct form
  EXPECT_EQ(styles->GetNumOfValue() + styles->SubNodes()[2]->GetNumOfValue() + styles->SubNodes()[2]->GetNumOfNode(), 0);
  EXPECT_EQ(Describe(styles->SubNodes()[3]), "2/Scale/1.0/0");  // plain, but after a record
  EXPECT_EQ(r.Count(), 0);
  // The type is read once per matching node.
  Edit({"A Root.Styles.Sheet:Flag:bool:1"});
  reports = 3;
}

TEST_F(EditString, ForAllOccurrenceResults) {
  // -1 looks at the last sub-node of Root.
  Edit({"N Root:Styles", "N Root.Styles:Sheet", "N Root:Other", "A Root.Styles.Nothing:Scale:float:1.0 => 1",
        "A Root.Missing.Sheet:Scale:float:1.0 => 1", "A Enum.Styles.Sheet:Scale:float:1.0 => 1", "A Root:Scale:float:1.0 => 1",
        "A Root.Styles.Sheet:Scale:float:1.0:x => 2", "A@-1 Root.Styles.Sheet:Scale:float:1.0 => 1"});
  EXPECT_EQ(At(doc, "Root.Styles.Sheet")->GetNumOfNode(), 0);
}

TEST_F(EditString, ForAllOccurrenceParentPathFallsShortBelowTwoLevels) {
  // "A.B.C" looks the parent up as "A.": with occurrence 1 it finds no node named "".
  Edit({"N Root:A", "N Root.A:X", "N Root.A:B", "N Root.A.B:C", "N Root.A.B:C", "A Root.A.B.C:v:int:1 => 1"});
  EXPECT_EQ(At(doc, "Root.A.B.C")->GetNumOfNode(), 0);
  // With occurrence 2 the short path takes the second sub-node of A, which happens to be B.
  Edit({"A@2 Root.A.B.C:v:int:1"});
  Node* b = At(doc, "Root.A.B");
  EXPECT_EQ(Names(b->SubNodes()[0]), "v");
  EXPECT_EQ(Names(b->SubNodes()[1]), "v");
}

TEST_F(EditString, ChangeValueSetsTheSingleValueOrTheNamedField) {
  Edit({"N Root:Dimension", "N Root:EngineeringSymbols", "V Root.Dimension:CUMLTxtDecalY:float:0.0",
        "T Root.EngineeringSymbols:EngineeringSymbol", "L Root.EngineeringSymbols.EngineeringSymbol:Charcode:int:40",
        "L Root.EngineeringSymbols.EngineeringSymbol:Font:string:Arial", "C Root.Dimension.CUMLTxtDecalY:0.5"});
  EXPECT_EQ(doc.GetValueWithPath("Root.Dimension.CUMLTxtDecalY"), "0.5");
  // Cut at the first ":" only; a field takes the rest, colons included.
  Edit({"C Root.Dimension.CUMLTxtDecalY:1:2", "C Root.EngineeringSymbols.EngineeringSymbol:Charcode:42",
        "C Root.EngineeringSymbols.EngineeringSymbol:Font:Times:Bold"});
  EXPECT_EQ(doc.GetValueWithPath("Root.Dimension.CUMLTxtDecalY"), "1:2");
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
  Edit({"N Enum:Frame", "V Enum.Frame::string:Circle", "C Enum.Frame.Circle:Ellipse", "C Enum.Frame.Circle:Oval => 1",
        "C Enum.Arrow.Circle:Oval => 1"});
  EXPECT_EQ(Describe(At(doc, "Enum.Frame")), "3//Ellipse/0");
}

TEST_F(EditString, DeleteNodeWithPathRemovesNodesAndValues) {
  Edit({"N Root:Styles", "N Root.Styles:Sheet", "N Root.Styles:Sheet", "N Enum:Frame", "V Enum.Frame::string:Circle",
        "D Root.Styles.Sheet", "D Enum.Frame.Circle", "D Enum.Frame.Circle => 1", "D Root.Missing.Sheet => 1"});
  EXPECT_EQ(Names(At(doc, "Root.Styles")), "Sheet");
  EXPECT_EQ(At(doc, "Enum.Frame")->GetNumOfValue(), 0);
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
