#include <gtest/gtest.h>

#include <clocale>
#include <stdexcept>
#include <string>

#include "ZOLDftStandardServices.h"
#include "ZOLIDftStandard.h"
#include "ZOLIDrwStandard.h"
#include "ZOLIQelStandard.h"
#include "ZOLTestReports.h"
#include "ZOLTransientLanes.h"
#include "standard/ZOLVotTransientStandard.h"

namespace {

const std::string kOpen = "<std:node xmlns:std=\"http://www.qelstandardinfra.org/std\" name=\"drafting\">";
const std::string kClose = "</std:node>";

ZOLIDrwStandard_var FromBody(const std::string& body) {
  ZOLUnicodeString text(kOpen + body + kClose);
  return ZOLDftStandardServices::GetStandardFromBuffer(&text, "T");
}

ZOLVotTransientStandard* Impl(ZOLIDrwStandard* s) { return dynamic_cast<ZOLVotTransientStandard*>(s->GetImpl()); }

// "key kind value" lines of every filed value under a prefix.
std::vector<std::string> Filed(ZOLIDrwStandard* s, const char* prefix = "") {
  ZOLListValZOLUnicodeString keys, kinds, values;
  EXPECT_EQ(ZOLDftStandardServices::ListFiledValues(s, prefix, keys, kinds, values), S_OK);
  std::vector<std::string> lines;
  for (int i = 1; i <= keys.Size(); ++i) lines.push_back(keys[i].str() + " " + kinds[i].str() + " " + values[i].str());
  return lines;
}

std::string Node(const std::string& name, const std::string& inner) { return "<std:node name=\"" + name + "\">" + inner + "</std:node>"; }
std::string Int(const std::string& v) { return "<std:intval>" + v + "</std:intval>"; }
std::string Real(const std::string& v) { return "<std:floatval>" + v + "</std:floatval>"; }
std::string Str(const std::string& v) { return "<std:strval>" + v + "</std:strval>"; }
std::string Field(const char* tag, const std::string& name, const std::string& v) {
  return std::string("<std:") + tag + " name=\"" + name + "\">" + v + "</std:" + tag + ">";
}
std::string Entry(const std::string& name, const std::string& fields) { return "<std:typeval name=\"" + name + "\">" + fields + "</std:typeval>"; }

}  // namespace

// --- Load: paths, indexes, filing -----------------------------------------------------------

TEST(TransientLoad, NamelessNodeAddsNothingToThePath) {
  ZOLTestReports r;
  auto s = FromBody(Node("Foo", "<std:node>" + Int("7") + "</std:node>" + Node("Bar", Int("8"))));
  EXPECT_EQ(Filed(s), (std::vector<std::string>{"Foo.1 integer 7", "Foo.Bar.1 integer 8"}));
  int v = 0;
  EXPECT_EQ(s->GetValue("Foo", 1, v), S_OK);
  EXPECT_EQ(v, 7);
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, RepeatedValuesAtOnePathBecomeAnArrayAndLeaveTheScalarMap) {
  ZOLTestReports r;
  auto s = FromBody(Node("Seg", Int("3") + Int("4") + Int("5")) + Node("F", Real("1.5") + Real("2.5")) +
                    Node("S", Str("a") + Str("b")));
  EXPECT_EQ(Filed(s), (std::vector<std::string>{"F reals 1.5 2.5", "S strings a b", "Seg integers 3 4 5"}));
  int ints[3] = {};
  int count = 0;
  EXPECT_EQ(s->GetValue("Seg", ints, &count), S_OK);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(ints[2], 5);
  ZOLUnicodeString a, b;
  ZOLUnicodeString* strings[2] = {&a, &b};
  EXPECT_EQ(s->GetValue("S", strings, &count), S_OK);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(b, "b");
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, TypevalEntriesFileFieldsByOccurrence) {
  ZOLTestReports r;
  std::string list;
  for (int i = 1; i <= 3; ++i)
    list += Entry("Fmt", Field("strval", "Name", "N" + std::to_string(i)) + Field("intval", "Size", std::to_string(10 * i)));
  auto s = FromBody(Node("Formats", list));
  EXPECT_EQ(Filed(s), (std::vector<std::string>{"Formats.Name.1 string N1", "Formats.Name.2 string N2",
                                                "Formats.Name.3 string N3", "Formats.Size.1 integer 10",
                                                "Formats.Size.2 integer 20", "Formats.Size.3 integer 30"}));
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, OneFieldTypevalListPutsLaterEntriesInTheArrayMapButIndexReadsStillAnswer) {
  ZOLTestReports r;
  auto s = FromBody(Node("Angles", Entry("AngleValue", Field("floatval", "Angle", "15")) +
                                       Entry("AngleValue", Field("floatval", "Angle", "30")) +
                                       Entry("AngleValue", Field("floatval", "Angle", "45"))));
  // Kept: the field path repeats, so entries 2 and 3 form an array that does not hold entry 1.
  EXPECT_EQ(Filed(s), (std::vector<std::string>{"Angles.Angle reals 30 45", "Angles.Angle.1 real 15"}));
  double d = 0;
  EXPECT_EQ(s->GetValue("Angles.Angle", 3, d), S_OK);
  EXPECT_EQ(d, 45.0);
  EXPECT_EQ(s->GetValue("Angles.Angle", 4, d), E_FAIL);
  EXPECT_EQ(d, 45.0);
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, TypevalIndexRestartsWithANewRunName) {
  ZOLTestReports r;
  auto s = FromBody(Node("L", Entry("A", Field("intval", "X", "1") + Field("intval", "Y", "0")) +
                                  Entry("A", Field("intval", "X", "2") + Field("intval", "Y", "0")) +
                                  Entry("B", Field("intval", "Z", "3"))) +
                    Node("M", Entry("A", Field("intval", "W", "4"))));
  auto filed = Filed(s, "L.Z");
  EXPECT_EQ(filed, (std::vector<std::string>{"L.Z.1 integer 3"}));
  // A new element between two runs of the same name ends the first run.
  EXPECT_EQ(Filed(s, "M"), (std::vector<std::string>{"M.W.1 integer 4"}));
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, EnumValueIsFiledUnderItsParentNodeAndAnswersAtAnyLastComponent) {
  ZOLTestReports r;
  auto s = FromBody(Node("Foo", Node("Bar", "<std:enumval name=\"E\">Yes</std:enumval>")));
  EXPECT_EQ(Filed(s), (std::vector<std::string>{"Foo.Bar.1 enum Yes"}));
  ZOLUnicodeString v;
  EXPECT_EQ(s->GetValue("Foo.Bar", 1, v), S_OK);
  EXPECT_EQ(v, "Yes");
  v = "";
  EXPECT_EQ(s->GetValue("Foo.Bar.E", 1, v), S_OK);
  EXPECT_EQ(v, "Yes");
  v = "";
  EXPECT_EQ(s->GetValue("Foo.Bar.Anything", 1, v), S_OK);  // kept: the parent lookup answers
  EXPECT_EQ(v, "Yes");
  EXPECT_EQ(s->GetValue("Foo.Baz", 1, v), E_FAIL);
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, ColourIsKeyedByTheBarePathSoTheLastEntryOfAListWins) {
  ZOLTestReports r;
  auto s = FromBody(Node("Curve", Node("Default", Node("Color", "<std:colorval>10 20 30</std:colorval>"))) +
                    Node("Hatch", Entry("H", Field("colorval", "Color", "1 2 3") + Field("intval", "N", "0")) +
                                      Entry("H", Field("colorval", "Color", "4 5 6") + Field("intval", "N", "0"))));
  EXPECT_EQ(Filed(s, "Curve"), (std::vector<std::string>{"Curve.Default.Color integers 10 20 30"}));
  EXPECT_EQ(Filed(s, "Hatch.Color"), (std::vector<std::string>{"Hatch.Color integers 4 5 6"}));
  int rgb[3] = {};
  int count = 0;
  EXPECT_EQ(s->GetValue("Curve.Default.Color", rgb, &count), S_OK);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(rgb[1], 20);
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, DefinitionsAreNotFiledAndTypedefEndDropsAPathComponent) {
  ZOLTestReports r;
  auto s = FromBody("<std:enumdef name=\"YesNo\"><std:strval>No</std:strval><std:strval>Yes</std:strval></std:enumdef>"
                    "<std:typedef name=\"T\">" + Field("intval", "F", "5") + "</std:typedef>" + Node("A", Int("1")));
  EXPECT_EQ(Filed(s), (std::vector<std::string>{"A.1 integer 1"}));
  const auto* literals = Impl(s)->EnumDefinition("YesNo");
  ASSERT_NE(literals, nullptr);
  EXPECT_EQ(literals->size(), 2u);
  int v = 0;
  EXPECT_EQ(s->GetValue("YesNo", 1, v), E_FAIL);   // a literal is reached only by naming it
  EXPECT_EQ(s->GetValue("T.F", 1, v), S_OK);       // the typedef lives in the tree
  EXPECT_EQ(v, 5);
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, NestedStylesNodeLeavesWhatFollowsOneLevelShort) {
  ZOLTestReports r;
  auto s = FromBody(Node("A", Node("B", Node("Styles", Node("S", Int("1"))) + Node("C", Int("2")))));
  // "Styles" added nothing but its end removed "B": C is filed as A.C.
  EXPECT_EQ(Filed(s), (std::vector<std::string>{"A.B.S.1 integer 1", "A.C.1 integer 2"}));
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, RealsReadWithAPointWhateverTheLocale) {
  ZOLTestReports r;
  std::string saved = std::setlocale(LC_NUMERIC, nullptr);
  std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
  auto s = FromBody(Node("Gap", Real("2.032")));
  double d = 0;
  EXPECT_EQ(s->GetValue("Gap", 1, d), S_OK);
  EXPECT_EQ(d, 2.032);
  EXPECT_EQ(std::string(std::setlocale(LC_NUMERIC, nullptr)), std::string(std::setlocale(LC_NUMERIC, nullptr)));
  std::setlocale(LC_NUMERIC, saved.c_str());
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, NumbersReadAsTheGeneralReaderReadsThem) {
  ZOLTestReports r;
  // Plain decimals take a short way at load; signs, blanks, exponents, long mantissas and trailing
  // text must come out as the general reader gives them.
  const char* reals[] = {"0.13", "-2.5", "+3", " 7", "1e3", "2.5E-2", "0.1234567890123456789", "1189", "-0", "3.5mm", "abc", ""};
  const char* ints[] = {"42", "-7", "+3", " 12", "22,", "2147483647", "-2147483648", "2147483648", "x1", ""};
  std::string body;
  for (size_t i = 0; i < std::size(reals); ++i) body += Node("R" + std::to_string(i), Real(reals[i]));
  for (size_t i = 0; i < std::size(ints); ++i) body += Node("I" + std::to_string(i), Int(ints[i]));
  auto s = FromBody(body);
  for (size_t i = 0; i < std::size(reals); ++i) {
    double expected = 0.0, got = -1.0;
    ZOLUnicodeString(reals[i]).ConvertToNum(&expected, "%le");
    EXPECT_EQ(s->GetValue(("R" + std::to_string(i)).c_str(), 1, got), S_OK) << reals[i];
    EXPECT_EQ(got, expected) << reals[i];
  }
  for (size_t i = 0; i < std::size(ints); ++i) {
    int expected = 0, got = -1;
    ZOLUnicodeString(ints[i]).ConvertToNum(&expected, "%d");
    EXPECT_EQ(s->GetValue(("I" + std::to_string(i)).c_str(), 1, got), S_OK) << ints[i];
    EXPECT_EQ(got, expected) << ints[i];
  }
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, BrokenDocumentAnswersFromTheCachesWhileTreeLookupsFail) {
  ZOLTestReports r;
  ZOLUnicodeString text(kOpen + Node("Version", Int("230")) + Node("Gap", Real("0.5")) + "<std:node name=\"Cut\"><std:intv");
  auto s = ZOLDftStandardServices::GetStandardFromBuffer(&text, "Broken");
  ASSERT_FALSE(s.IsNull());
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
  int v = 0;
  EXPECT_EQ(s->GetValue("Version", 1, v), S_OK);
  EXPECT_EQ(v, 230);
  EXPECT_EQ(s->HasNode("Version"), 0);
  double d = 0;
  EXPECT_EQ(s->GetValue("Gap", 2, d), E_FAIL);
  EXPECT_EQ(Impl(s)->Root(), nullptr);
  EXPECT_EQ(r.Count(), 1);
}

TEST(TransientLoad, ValueTextIsWhatFollowsTheLastStartTagOrValue) {
  ZOLTestReports r;
  auto s = FromBody(Node("A", "<std:strval>ab" + Node("n", "x") + "cd</std:strval>") +
                    Node("B", "<std:strval>ab<std:enumdef name=\"E\">x</std:enumdef>cd</std:strval>") +
                    Node("C", "<std:intval>7<std:intval>8</std:intval>9</std:intval>") +
                    Node("D", Str("a&amp;b<![CDATA[<c>]]>")) + Node("E", "\n  " + Str("") + "\n"));
  EXPECT_EQ(Filed(s), (std::vector<std::string>{"A.1 string xcd", "B.1 string xcd", "C integers 8 9",
                                                "D.1 string a&b<c>", "E.1 string "}));
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, ElementsCountByTheirNamespaceAndNamesOnlyUnprefixed) {
  ZOLTestReports r;
  auto s = FromBody("<x:node xmlns:x=\"http://www.qelstandardinfra.org/std\" name=\"X\"><x:intval>1</x:intval></x:node>" +
                    std::string("<std:node std:name=\"P\"><std:intval>2</std:intval></std:node>") +
                    "<std:node id=\"3\" name=\"Q\"><std:intval>3</std:intval></std:node>" +
                    "<std:node xmlns:std=\"urn:other\" name=\"O\"><std:intval>4</std:intval></std:node>");
  // Another prefix of the dialect's namespace counts; the node with a prefixed name is nameless,
  // so its value lies at the empty path; the dialect's prefix bound to another namespace is no value.
  EXPECT_EQ(Filed(s), (std::vector<std::string>{".1 integer 2", "Q.1 integer 3", "X.1 integer 1"}));
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, ValuesOfSeveralKindsAtOnePathShareTheArraysOfTheirMaps) {
  ZOLTestReports r;
  auto s = FromBody(Node("P", "<std:colorval>1 2 3</std:colorval>" + Int("4")) + Node("F", Int("1") + Real("2.5") + Int("3")) +
                    Node("A", Int("1")) + Node("B", Int("2")) + Node("A", Int("3")));
  // The colour's array takes the integer after it; a real between two integers starts no array
  // of its own; a path found again files over its first value.
  EXPECT_EQ(Filed(s), (std::vector<std::string>{"A.1 integer 3", "B.1 integer 2", "F integers 1 3", "F reals 2.5",
                                                "P integers 1 2 3 4"}));
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, TheLoadsOwnLaneGivesWhatTheContentHandlerGives) {
  const std::string docs[] = {
      kOpen + Node("A", Int("1") + Int("2")) + Node("S", "<std:typeval name=\"T\">" + Field("strval", "N", "a") +
                                                              "</std:typeval><std:typeval name=\"T\">" +
                                                              Field("strval", "N", "b") + "</std:typeval>") + kClose,
      kOpen + "<x:node xmlns:x=\"http://www.qelstandardinfra.org/std\" name=\"X\"><x:intval>1</x:intval><std:foo name=\"F\"/></x:node>" + kClose,
      kOpen + "<std:node std:name=\"P\" id=\"2\" name=\"R&amp;D\"><std:enumval name=\"E\">On</std:enumval></std:node>" + kClose,
      kOpen + Node("Styles", Node("Curve", Node("Default", "<std:colorval>1 2 3</std:colorval>"))) + kClose,
      kOpen + "<std:enumdef name=\"YesNo\">" + Str("No") + Str("Yes") + "</std:enumdef>" +
          "<std:typedef name=\"T\">" + Field("intval", "I", "4") + "</std:typedef>" + Node("V", Int("5")) + kClose,
      kOpen + Node("A", "<std:strval>ab<std:enumdef name=\"E\">x</std:enumdef>cd</std:strval>") + "\n  " + kClose,
      "<plain><node name=\"A\"><intval>1</intval></node></plain>",
      // Values of several kinds at one path, and one path left and found again.
      kOpen + Node("P", "<std:colorval>1 2 3</std:colorval>" + Int("4") + Int("5")) +
          Node("Q", Int("4") + Int("5") + "<std:colorval>7 8 9</std:colorval>") +
          Node("S", Str("a") + "<std:enumval>E</std:enumval>") + Node("T", "<std:enumval>E</std:enumval>" + Str("b")) +
          Node("F", Int("1") + Real("2.5") + Int("3")) + Node("A", Int("1")) + Node("B", Int("2")) + Node("A", Int("3")) + kClose,
      kOpen + Node("Cut", "<std:intv"),
  };
  for (const std::string& doc : docs) {
    ZOLTestReports r;
    ZOLUnicodeString text(doc);
    auto lean = ZOLDftStandardServices::GetStandardFromBuffer(&text, "T");
    auto general = ZOLLoadThroughContentHandler(doc);
    EXPECT_EQ(ZOLDescribeTransient(*Impl(lean)), ZOLDescribeTransient(*Impl(general))) << doc;
  }
}

TEST(TransientLoad, MalformedColourThrowsOutOfTheLoadWithItsText) {
  ZOLTestReports r;
  ZOLUnicodeString bad(kOpen + Node("C", "<std:colorval>1 x 3</std:colorval>") + kClose);
  try {
    ZOLDftStandardServices::GetStandardFromBuffer(&bad, "T");
    FAIL() << "no exception";
  } catch (const std::invalid_argument& e) {
    EXPECT_STREQ(e.what(), "invalid stoi argument");
  }
  ZOLUnicodeString big(kOpen + Node("C", "<std:colorval>1 99999999999 3</std:colorval>") + kClose);
  try {
    ZOLDftStandardServices::GetStandardFromBuffer(&big, "T");
    FAIL() << "no exception";
  } catch (const std::out_of_range& e) {
    EXPECT_STREQ(e.what(), "stoi argument out of range");
  }
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientLoad, ColourSplitReadsEachPieceAsStoiDoes) {
  std::vector<int> v;
  ZOLVotTransientStandard::SplitColor("  12abc  -3 +4\t ", v);
  EXPECT_EQ(v, (std::vector<int>{12, -3, 4}));
  v.clear();
  ZOLVotTransientStandard::SplitColor("-2147483648 2147483647", v);
  EXPECT_EQ(v, (std::vector<int>{INT32_MIN, INT32_MAX}));
  EXPECT_THROW(ZOLVotTransientStandard::SplitColor("2147483648", v), std::out_of_range);
  EXPECT_THROW(ZOLVotTransientStandard::SplitColor("1 - 2", v), std::invalid_argument);
}

TEST(TransientLoad, MalformedColourReachedOnlyByTheWalkThrowsOutOfTheGetter) {
  ZOLTestReports r;
  auto s = FromBody("<std:typedef name=\"T\"><std:colorval name=\"C\">red</std:colorval></std:typedef>");
  int rgb[3];
  int count = 0;
  EXPECT_THROW(s->GetValue("T.C", rgb, &count), std::invalid_argument);
  EXPECT_EQ(r.Count(), 0);
}

// --- FindNode -----------------------------------------------------------------------------

TEST(TransientFindNode, StylePathsFindTheStyleWithOrWithoutStyles) {
  ZOLTestReports r;
  auto s = FromBody(Node("Dimension", Node("X", Int("1"))) +
                    Node("Styles", Node("Curve", Node("Default", Node("Color", "<std:colorval>1 2 3</std:colorval>")))));
  auto* impl = Impl(s);
  const auto* a = impl->FindNode("Curve.Default.Color", 1);
  ASSERT_NE(a, nullptr);
  EXPECT_EQ(impl->FindNode("Styles.Curve.Default.Color", 1), a);
  EXPECT_EQ(impl->FindNode("Nowhere.Default.Color", 1), nullptr);
  EXPECT_EQ(impl->FindNode("", 1), nullptr);
  EXPECT_EQ(impl->FindNode("...", 1), nullptr);
  // A value asked for by a path that spells out "Styles" walks once and then comes from the cache.
  int rgb[3] = {};
  int count = 0;
  EXPECT_EQ(s->GetValue("Styles.Curve.Default.Color", rgb, &count), S_OK);
  EXPECT_EQ(rgb[2], 3);
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientFindNode, AbsentFirstComponentIsSkippedWithoutStyles) {
  auto s = FromBody(Node("Dimension", Node("Gap", Real("0.5"))));
  auto* impl = Impl(s);
  EXPECT_EQ(impl->FindNode("Whatever.Dimension.Gap", 1), impl->FindNode("Dimension.Gap", 1));
  EXPECT_NE(impl->FindNode("Dimension.Gap", 1), nullptr);
}

TEST(TransientFindNode, TypevalListIsTransparentAndSameNamedEntriesCountFromTwo) {
  std::string list;
  for (int i = 1; i <= 3; ++i) list += Entry("Fmt", Field("strval", "Name", "N" + std::to_string(i)));
  auto s = FromBody(Node("Formats", list));
  auto* impl = Impl(s);
  const auto* third = impl->FindNode("Formats.Name", 3);
  ASSERT_NE(third, nullptr);
  EXPECT_EQ(impl->Value(*third), "N3");
  EXPECT_EQ(impl->FindNode("Formats.Name", 4), nullptr);
  EXPECT_EQ(impl->FindNode("Formats.Name", 0), nullptr);
  const auto* entry = impl->FindNode("Formats.Fmt", 2);
  ASSERT_NE(entry, nullptr);
  EXPECT_EQ(impl->Value(*impl->FirstChild(*entry)), "N2");
  EXPECT_EQ(impl->Type(*entry), "std:typeval");
}

TEST(TransientFindNode, NodeCacheKeyHasNoSeparatorSoPathAndIndexCanCollide) {
  auto s = FromBody(Node("Foo1", Int("111")) + Node("Foo", Int("5")));
  int v = 0;
  EXPECT_EQ(s->GetValue("Foo1", 3, v), S_OK);  // walks, caches the node under "Foo13"
  EXPECT_EQ(v, 111);
  EXPECT_EQ(s->GetValue("Foo", 13, v), S_OK);  // kept: the same key answers with Foo1
  EXPECT_EQ(v, 111);
}

// --- Getters ------------------------------------------------------------------------------

TEST(TransientGetters, MissingPathFailsAndLeavesTheOutput) {
  ZOLTestReports r;
  auto s = FromBody(Node("A", Int("1")));
  int i = 42;
  double d = 4.2;
  ZOLUnicodeString t("keep");
  EXPECT_EQ(s->GetValue("B", 1, i), E_FAIL);
  EXPECT_EQ(s->GetValue("B", 1, d), E_FAIL);
  EXPECT_EQ(s->GetValue("B", 1, t), E_FAIL);
  EXPECT_EQ(s->GetValue(nullptr, 1, i), E_FAIL);
  EXPECT_EQ(i, 42);
  EXPECT_EQ(d, 4.2);
  EXPECT_EQ(t, "keep");
  int values[4];
  int count = 9;
  EXPECT_EQ(s->GetValue("B", values, &count), E_FAIL);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientGetters, TypeRulesAreStrictOnLeavesAndLooseOnANodesFirstChild) {
  auto s = FromBody(Node("R", Real("2.75")) + Node("L", Entry("E", Field("floatval", "F", "3.5") + Field("intval", "I", "2"))) +
                    Node("Txt", Str("12 mm")));
  int i = -1;
  EXPECT_EQ(s->GetValue("R", 1, i), S_OK);  // std:node: its first child is read as an integer
  EXPECT_EQ(i, 2);
  EXPECT_EQ(s->GetValue("L.F", 1, i), E_FAIL);  // leaf of another type: no conversion
  double d = 0;
  EXPECT_EQ(s->GetValue("L.I", 1, d), E_FAIL);
  EXPECT_EQ(s->GetValue("Txt", 1, i), S_OK);  // the child's type is not checked
  EXPECT_EQ(i, 12);
  ZOLUnicodeString t;
  EXPECT_EQ(s->GetValue("R", 1, t), S_OK);
  EXPECT_EQ(t, "2.75");
  EXPECT_EQ(s->GetValue("L.F", 1, d), S_OK);
  EXPECT_EQ(d, 3.5);
  EXPECT_EQ(s->GetValue("L.F", 0, d), E_FAIL);  // indexes of typed entries start at 1
  EXPECT_EQ(s->GetValue("L.F", 2, d), E_FAIL);
}

TEST(TransientGetters, WalkedValueIsCachedUnderItsKey) {
  auto s = FromBody(Node("R", Real("2.75")));
  int i = 0;
  ASSERT_EQ(s->GetValue("R", 1, i), S_OK);  // filed as a real; the integer comes from the walk
  EXPECT_EQ(Filed(s, "R"), (std::vector<std::string>{"R.1 integer 2", "R.1 real 2.75"}));
}

TEST(TransientGetters, ArraysBuiltByTheWalkHaveTheRightCountButBlankRealsAndStrings) {
  ZOLTestReports r;
  auto s = FromBody(Node("P", Node("Q", Real("1.5")) + Real("2.5") + Real("3.5")) +
                    Node("W", Node("Q", Str("x")) + Str("a") + Str("b")) +
                    Node("Seg", Node("Q", Int("0")) + Int("4") + "<std:colorval>7 8</std:colorval>"));
  // Filed at load under other paths, so the arrays of these nodes come from the walk.
  double reals[4] = {9, 9, 9, 9};
  int count = 0;
  EXPECT_EQ(s->GetValue("Styles.P", reals, &count), S_OK);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(reals[0], 0.0);
  EXPECT_EQ(reals[1], 0.0);
  ZOLUnicodeString a("x"), b("y");
  ZOLUnicodeString* strings[2] = {&a, &b};
  EXPECT_EQ(s->GetValue("Styles.W", strings, &count), S_OK);
  EXPECT_EQ(count, 2);
  EXPECT_EQ(a, "");
  int ints[4] = {};
  EXPECT_EQ(s->GetValue("Styles.Seg", ints, &count), S_OK);
  EXPECT_EQ(count, 3);  // a colour child makes the count 3, however long the list
  EXPECT_EQ(ints[0], 4);
  EXPECT_EQ(ints[2], 8);
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientGetters, ShortColourStillCountsThree) {
  auto s = FromBody(Node("C", Node("Q", Int("0"))) + Node("Styles", Node("K", "<std:colorval>1 2</std:colorval>")));
  int rgb[3] = {0, 0, 77};
  int count = 0;
  auto* impl = Impl(s);
  ASSERT_NE(impl->FindNode("K", 1), nullptr);
  EXPECT_EQ(s->GetValue("Styles.K", rgb, &count), S_OK);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(rgb[1], 2);
  EXPECT_EQ(rgb[2], 77);
}

TEST(TransientGetters, NullArrayIsRefusedWithAReport) {
  ZOLTestReports r;
  auto s = FromBody(Node("A", Int("1")));
  int count = 5;
  EXPECT_EQ(s->GetValue("A", static_cast<int*>(nullptr), &count), E_INVALIDARG);
  EXPECT_EQ(s->GetValue("A", static_cast<double*>(nullptr), &count), E_INVALIDARG);
  EXPECT_EQ(s->GetValue("A", static_cast<ZOLUnicodeString**>(nullptr), &count), E_INVALIDARG);
  EXPECT_EQ(r.CountContaining("ON POINTER"), 3);
  EXPECT_EQ(r.Count(), 3);
}

TEST(TransientGetters, ValueTypeIsThatOfTheChildrenWithTheirCount) {
  ZOLTestReports r;
  std::string list;
  for (int i = 0; i < 24; ++i) list += Entry("ToleranceDisplay", Field("strval", "Name", "T") + Field("intval", "TolType", "2"));
  auto s = FromBody(Node("ToleranceFormats", list) + Node("Mixed", Int("1") + Str("a")) + Node("Leaf", Real("1")) +
                    Node("Empty", ""));
  ZOLDftStandardValueType type = ZOLDftStandardValueTypeUnknown;
  int count = -1;
  EXPECT_EQ(s->GetValueType("ToleranceFormats", &type, &count), S_OK);
  EXPECT_EQ(type, ZOLDftStandardValueTypeTypedEntry);
  EXPECT_EQ(count, 24);
  EXPECT_EQ(s->GetValueType("Leaf", &type, &count), S_OK);
  EXPECT_EQ(type, ZOLDftStandardValueTypeReal);
  EXPECT_EQ(count, 1);
  EXPECT_EQ(r.Count(), 0);

  count = -1;
  EXPECT_EQ(s->GetValueType("Mixed", &type, &count), E_UNEXPECTED);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(r.CountContaining("All Nodes have not the same type"), 1);
  EXPECT_EQ(r.Count(), 2);
  r.Clear();
  EXPECT_EQ(s->GetValueType("Empty", &type, &count), E_UNEXPECTED);
  EXPECT_EQ(type, ZOLDftStandardValueTypeUnknown);
  EXPECT_EQ(r.CountContaining("Unknown standard value type!"), 1);
  EXPECT_EQ(r.Count(), 2);
  r.Clear();
  EXPECT_EQ(s->GetValueType("Nope", &type, &count), E_FAIL);
  EXPECT_EQ(s->GetValueType("Leaf", nullptr, &count), E_INVALIDARG);
  EXPECT_EQ(r.CountContaining("ON POINTER"), 1);
  EXPECT_EQ(r.Count(), 1);
}

TEST(TransientGetters, QelStandardValueTypeIsRefusedOnEveryCall) {
  ZOLTestReports r;
  auto s = FromBody(Node("Leaf", Real("1")));
  ZOLIQelStandard_var qel(s);
  ASSERT_FALSE(qel.IsNull());
  ZOLDftStandardValueType type = ZOLDftStandardValueTypeUnknown;
  int count = 0;
  EXPECT_EQ(qel->GetValueType("Leaf", &type, &count), E_INVALIDARG);
  EXPECT_EQ(r.CountContaining("ON POINTER"), 1);
  double d = 0;
  EXPECT_EQ(qel->GetValue("Leaf", 1, d), S_OK);
  EXPECT_EQ(d, 1.0);
  ZOLIDftStandard_var dft(s);
  EXPECT_EQ(dft->GetValueType("Leaf", &type, &count), S_OK);
  EXPECT_EQ(r.Count(), 1);
}

TEST(TransientGetters, ThicknessIndexTakesTheNearestRowAndTheLowerOnATie) {
  ZOLTestReports r;
  std::string rows;
  for (const char* mm : {"0.25", "0.75", "1.5"})
    rows += Entry("ZOLThickness", Field("intval", "Availability", "1") + Field("floatval", "mm", mm));
  auto s = FromBody(Node("LineThickness", rows));
  int index = -1;
  EXPECT_EQ(s->GetThicknessIndex(0.5, &index), S_OK);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(s->GetThicknessIndex(0.25, &index), S_OK);
  EXPECT_EQ(index, 1);
  EXPECT_EQ(s->GetThicknessIndex(1.2, &index), S_OK);
  EXPECT_EQ(index, 3);
  EXPECT_EQ(s->GetThicknessIndex(-1.0, &index), E_INVALIDARG);
  EXPECT_EQ(index, 3);
  auto none = FromBody(Node("A", Int("1")));
  EXPECT_EQ(none->GetThicknessIndex(0.5, &index), S_OK);
  EXPECT_EQ(index, 0);
  EXPECT_EQ(r.Count(), 0);
}

TEST(TransientGetters, NameAndParentInBothForms) {
  ZOLTestReports r;
  auto s = FromBody(Node("Dimension", Node("ParentStandard", Str("JIS"))));
  wchar_t* wide = nullptr;
  EXPECT_EQ(s->GetName(&wide), S_OK);
  EXPECT_EQ(std::wstring(wide), L"T");
  delete[] wide;
  EXPECT_EQ(s->GetParentStandard(&wide), S_OK);
  EXPECT_EQ(std::wstring(wide), L"JIS");
  delete[] wide;
  EXPECT_EQ(s->GetName(static_cast<wchar_t**>(nullptr)), E_INVALIDARG);
  EXPECT_EQ(s->GetParentStandard(static_cast<wchar_t**>(nullptr)), E_INVALIDARG);
  EXPECT_EQ(r.Count(), 1);  // the name's null output only

  r.Clear();
  auto orphan = FromBody(Node("A", Int("1")));
  ZOLUnicodeString parent("x");
  EXPECT_EQ(orphan->GetParentStandard(parent), E_UNEXPECTED);
  EXPECT_EQ(orphan->GetParentStandard(&wide), S_OK);  // the inner failure is ignored
  EXPECT_EQ(std::wstring(wide), L"");
  delete[] wide;
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 2);
  EXPECT_EQ(r.Count(), 2);
}

TEST(TransientGetters, VersionComesFromTheVersionNodeAndIsKept) {
  auto s = FromBody(Node("Version", Int("230")));
  EXPECT_EQ(s->GetStdVersion(), 230);
  EXPECT_EQ(s->GetStdVersion(), 230);
}

TEST(TransientGetters, StyleNamesListTheStylesOfAType) {
  ZOLTestReports r;
  auto s = FromBody(Node("Styles", Node("Dim", Node("Default", Int("1")) + Node("TED", Int("2")) + Int("3"))));
  ZOLListValZOLUnicodeString names;
  EXPECT_EQ(s->GetStyleNames("Dim", &names), S_OK);
  ASSERT_EQ(names.Size(), 2);
  EXPECT_EQ(names[2], "TED");
  EXPECT_EQ(r.Count(), 1);  // the value among the styles
  EXPECT_EQ(s->GetStyleNames("Curve", &names), E_UNEXPECTED);
  EXPECT_EQ(names.Size(), 0);
  EXPECT_EQ(r.Count(), 2);
}

TEST(TransientGetters, StubSlotsReportAndRefuse) {
  ZOLTestReports r;
  auto s = FromBody(Node("A", Int("1")));
  EXPECT_EQ(s->Reserved12(), E_NOTIMPL);
  EXPECT_EQ(s->Reserved28(), E_NOTIMPL);
  s->Reserved27();
  EXPECT_EQ(r.CountContaining("TO_BE_IMPLEMENTED..."), 3);
  EXPECT_EQ(s->Reserved24(), E_NOTIMPL);
  int zero = 5;
  EXPECT_EQ(s->GetReserved19(0, &zero), S_OK);
  EXPECT_EQ(zero, 0);
  EXPECT_EQ(r.Count(), 3);
}

// --- Object and attachments ----------------------------------------------------------------

TEST(TransientObject, InterfacesAreTIEsOfOneObjectSharingItsCount) {
  auto s = FromBody(Node("A", Int("1")));
  auto* impl = Impl(s);
  ASSERT_NE(impl, nullptr);
  unsigned long before = impl->RefCount();
  {
    ZOLIDftStandard_var dft(s);
    ZOLIQelStandard_var qel(dft);
    ASSERT_FALSE(dft.IsNull());
    ASSERT_FALSE(qel.IsNull());
    EXPECT_EQ(dft->GetImpl(), impl);
    EXPECT_EQ(impl->RefCount(), before + 2);
    EXPECT_TRUE(dft->IsAKindOf("ZOLIDftStandard"));
    EXPECT_TRUE(impl->IsA("ZOLVotTransientStandard"));
  }
  EXPECT_EQ(impl->RefCount(), before);
  ZOLIDrwStandard_var again(static_cast<ZOLBaseUnknown*>(impl));
  EXPECT_EQ(again.Get(), s.Get());  // the same TIE, made once
}

TEST(TransientObject, TwoLoadsOfOneTextAreTwoObjects) {
  ZOLUnicodeString text(kOpen + Node("A", Int("1")) + kClose);
  auto a = ZOLDftStandardServices::GetStandardFromBuffer(&text, "A");
  auto b = ZOLDftStandardServices::GetStandardFromBuffer(&text, "B");
  EXPECT_NE(a->GetImpl(), b->GetImpl());
  ZOLUnicodeString name;
  EXPECT_EQ(b->GetName(name), S_OK);
  EXPECT_EQ(name, "B");
}

TEST(TransientObject, NullTextAndMissingFileGiveEmptyStandardsWithAReport) {
  ZOLTestReports r;
  auto s = ZOLDftStandardServices::GetStandardFromBuffer(nullptr, "T");
  ASSERT_FALSE(s.IsNull());
  EXPECT_EQ(s->HasNode("A"), 0);
  auto f = ZOLDftStandardServices::GetStandardFromFile("/nonexistent/dir/ISO.xml", "ISO");
  ASSERT_FALSE(f.IsNull());
  EXPECT_EQ(f->HasNode("Dimension"), 0);
  EXPECT_EQ(r.CountContaining("Load of the standard failed"), 2);
  EXPECT_EQ(r.CountContaining("No input source"), 1);
  EXPECT_EQ(r.Count(), 3);
}

// --- Path helpers -------------------------------------------------------------------------

TEST(PathHelpers, SingleNameAndFatherNodeSplitAtTheLastDot) {
  using namespace ZOLDftStandardServices;
  EXPECT_EQ(GetAttributeSingleName("Root.Styles.Text"), "Text");
  EXPECT_EQ(GetAttributeSingleName("Text"), "");
  EXPECT_EQ(GetAttributeSingleName("Styles."), "");
  EXPECT_EQ(GetFatherNode("Root.Styles.Text"), "Root.Styles");
  EXPECT_EQ(GetFatherNode("Text"), "");
  EXPECT_EQ(GetFatherNode("A.B."), "A.B");
}
