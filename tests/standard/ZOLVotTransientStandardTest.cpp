#include <gtest/gtest.h>

#include <clocale>
#include <stdexcept>
#include <string>

#include "ZOLDftStandardServices.h"
#include "ZOLIDftStandard.h"
#include "ZOLIDrwStandard.h"
#include "ZOLIQelStandard.h"
#include "ZOLReportCountTest.h"
#include "ZOLStandardObjectTestSupport.h"
#include "ZOLTestReports.h"
#include "ZOLTransientLanes.h"
#include "standard/ZOLVotTransientStandard.h"

namespace {

using qeltest::FromBody;
using qeltest::Impl;
using qeltest::Node;
const std::string& kOpen = qeltest::kStdOpen;
const std::string& kClose = qeltest::kStdClose;

// "key kind value" lines of every filed value under a prefix.
std::vector<std::string> Filed(ZOLIDrwStandard* s, const char* prefix = "") {
  ZOLListValZOLUnicodeString keys, kinds, values;
  EXPECT_EQ(ZOLDftStandardServices::ListFiledValues(s, prefix, keys, kinds, values), S_OK);
  std::vector<std::string> lines;
  for (int i = 1; i <= keys.Size(); ++i) lines.push_back(keys[i].str() + " " + kinds[i].str() + " " + values[i].str());
  return lines;
}

template <typename T>
using Got = std::pair<HRESULT, T>;

// The result of a read at path and index, and what it left in an output that held start.
template <typename T>
Got<T> Get(ZOLIDrwStandard* s, const char* path, int index, T start) {
  HRESULT hr = s->GetValue(path, index, start);
  return {hr, start};
}
Got<std::string> Get(ZOLIDrwStandard* s, const char* path, int index, const char* start) {
  ZOLUnicodeString v(start);
  HRESULT hr = s->GetValue(path, index, v);
  return {hr, v.str()};
}

// The result of an array read and the first count elements of a buffer that held start.
template <typename T>
Got<std::vector<T>> Array(ZOLIDrwStandard* s, const char* path, std::vector<T> buffer) {
  int count = 9;  // never the answer: a read that leaves it shows
  HRESULT hr = s->GetValue(path, buffer.data(), &count);
  buffer.resize(static_cast<size_t>(count));
  return {hr, buffer};
}
Got<std::vector<std::string>> Array(ZOLIDrwStandard* s, const char* path, std::vector<std::string> start) {
  std::vector<ZOLUnicodeString> texts(start.begin(), start.end());
  std::vector<ZOLUnicodeString*> pointers;
  for (auto& t : texts) pointers.push_back(&t);
  int count = 9;
  HRESULT hr = s->GetValue(path, pointers.data(), &count);
  std::vector<std::string> out;
  for (int i = 0; i < count; ++i) out.push_back(texts[static_cast<size_t>(i)].str());
  return {hr, out};
}

using Ints = std::vector<int>;
using Lines = std::vector<std::string>;

std::string Int(const std::string& v) { return "<std:intval>" + v + "</std:intval>"; }
std::string Real(const std::string& v) { return "<std:floatval>" + v + "</std:floatval>"; }
std::string Str(const std::string& v) { return "<std:strval>" + v + "</std:strval>"; }
std::string Field(const char* tag, const std::string& name, const std::string& v) {
  return std::string("<std:") + tag + " name=\"" + name + "\">" + v + "</std:" + tag + ">";
}
std::string Entry(const std::string& name, const std::string& fields) { return "<std:typeval name=\"" + name + "\">" + fields + "</std:typeval>"; }

using TransientLoad = ZOLReportCountTest;
using TransientFindNode = ZOLReportCountTest;
using TransientGetters = ZOLReportCountTest;
using TransientObject = ZOLReportCountTest;

}  // namespace

// --- Load: paths, indexes, filing -----------------------------------------------------------

// Each case: a body and what is filed from it.
TEST_F(TransientLoad, FilingOfPathsRepeatsEntriesAndDefinitions) {
  std::string formats, angles;
  for (int i = 1; i <= 3; ++i) {
    formats += Entry("Fmt", Field("strval", "Name", "N" + std::to_string(i)) + Field("intval", "Size", std::to_string(10 * i)));
    angles += Entry("AngleValue", Field("floatval", "Angle", std::to_string(15 * i)));
  }
  const std::pair<std::string, Lines> cases[] = {
      // A nameless node adds nothing to the path.
      {Node("Foo", "<std:node>" + Int("7") + "</std:node>" + Node("Bar", Int("8"))), {"Foo.1 integer 7", "Foo.Bar.1 integer 8"}},
      // Repeated values at one path become an array and leave the scalar map.
      {Node("Seg", Int("3") + Int("4") + Int("5")) + Node("F", Real("1.5") + Real("2.5")) + Node("S", Str("a") + Str("b")),
       {"F reals 1.5 2.5", "S strings a b", "Seg integers 3 4 5"}},
      // Typed entries file their fields by occurrence.
      {Node("Formats", formats), {"Formats.Name.1 string N1", "Formats.Name.2 string N2", "Formats.Name.3 string N3",
                                  "Formats.Size.1 integer 10", "Formats.Size.2 integer 20", "Formats.Size.3 integer 30"}},
      // Kept: the field path of a one-field list repeats, so entries 2 and 3 form an array without entry 1.
      {Node("Angles", angles), {"Angles.Angle reals 30 45", "Angles.Angle.1 real 15"}},
      // An enum value is filed under its parent node.
      {Node("Foo", Node("Bar", "<std:enumval name=\"E\">Yes</std:enumval>")), {"Foo.Bar.1 enum Yes"}},
      // Definitions are not filed.
      {"<std:enumdef name=\"YesNo\">" + Str("No") + Str("Yes") + "</std:enumdef><std:typedef name=\"T\">" +
           Field("intval", "F", "5") + "</std:typedef>" + Node("A", Int("1")), {"A.1 integer 1"}},
      // "Styles" added nothing but its end removed "B": C is filed as A.C.
      {Node("A", Node("B", Node("Styles", Node("S", Int("1"))) + Node("C", Int("2")))), {"A.B.S.1 integer 1", "A.C.1 integer 2"}},
      // The text of a value is what follows its last start tag or value.
      {Node("A", "<std:strval>ab" + Node("n", "x") + "cd</std:strval>") +
           Node("B", "<std:strval>ab<std:enumdef name=\"E\">x</std:enumdef>cd</std:strval>") +
           Node("C", "<std:intval>7<std:intval>8</std:intval>9</std:intval>") + Node("D", Str("a&amp;b<![CDATA[<c>]]>")) +
           Node("E", "\n  " + Str("") + "\n"),
       {"A.1 string xcd", "B.1 string xcd", "C integers 8 9", "D.1 string a&b<c>", "E.1 string "}},
      // Elements count by their namespace, whatever the prefix; names only unprefixed. The nameless
      // node's value lies at the empty path; the std prefix bound elsewhere gives no value.
      {"<x:node xmlns:x=\"http://www.qelstandardinfra.org/std\" name=\"X\"><x:intval>1</x:intval></x:node>"
       "<std:node std:name=\"P\"><std:intval>2</std:intval></std:node><std:node id=\"3\" name=\"Q\"><std:intval>3</std:intval></std:node>"
       "<std:node xmlns:std=\"urn:other\" name=\"O\"><std:intval>4</std:intval></std:node>",
       {".1 integer 2", "Q.1 integer 3", "X.1 integer 1"}},
      // The nameless node's value first: the empty path counts as the path of the value before the first.
      {"<std:node std:name=\"P\"><std:intval>2</std:intval></std:node>", {" integers 2"}},
      // A colour's array takes the integer after it; a real between two integers starts no array
      // of its own; a path found again files over its first value.
      {Node("P", "<std:colorval>1 2 3</std:colorval>" + Int("4")) + Node("F", Int("1") + Real("2.5") + Int("3")) +
           Node("A", Int("1")) + Node("B", Int("2")) + Node("A", Int("3")),
       {"A.1 integer 3", "B.1 integer 2", "F integers 1 3", "F reals 2.5", "P integers 1 2 3 4"}},
      // The index of typed entries restarts with a new run name, and a new element between two runs
      // of one name ends the first run.
      {Node("L", Entry("A", Field("intval", "X", "1") + Field("intval", "Y", "0")) + Entry("A", Field("intval", "X", "2") + Field("intval", "Y", "0")) +
                     Entry("B", Field("intval", "Z", "3"))) + Node("M", Entry("A", Field("intval", "W", "4"))),
       {"L.X.1 integer 1", "L.X.2 integer 2", "L.Y.1 integer 0", "L.Y.2 integer 0", "L.Z.1 integer 3", "M.W.1 integer 4"}},
      // Kept: a colour is keyed by the bare path, so the last entry of a list wins.
      {Node("Curve", Node("Default", Node("Color", "<std:colorval>10 20 30</std:colorval>"))) +
           Node("Hatch", Entry("H", Field("colorval", "Color", "1 2 3") + Field("intval", "N", "0")) +
                             Entry("H", Field("colorval", "Color", "4 5 6") + Field("intval", "N", "0"))),
       {"Curve.Default.Color integers 10 20 30", "Hatch.Color integers 4 5 6", "Hatch.N.1 integer 0", "Hatch.N.2 integer 0"}},
  };
  for (const auto& [body, filed] : cases) {
    auto lean = FromBody(body);
    EXPECT_EQ(Filed(lean), filed) << body;
    // The load's own lane gives what the content handler gives.
    ZOLTestReports quiet;
    EXPECT_EQ(ZOLDescribeTransient(*Impl(lean)), ZOLDescribeTransient(*Impl(ZOLLoadThroughContentHandler(kOpen + body + kClose))))
        << body;
  }
}

TEST_F(TransientLoad, ValuesAnswerAtTheirFiledPaths) {
  auto s = FromBody(Node("Foo", "<std:node>" + Int("7") + "</std:node>") + Node("Seg", Int("3") + Int("4") + Int("5")) +
                    Node("S", Str("a") + Str("b")) + Node("E", Node("Bar", "<std:enumval name=\"E\">Yes</std:enumval>")) +
                    Node("Angles", Entry("A", Field("floatval", "Angle", "15")) + Entry("A", Field("floatval", "Angle", "30")) +
                                       Entry("A", Field("floatval", "Angle", "45"))));
  EXPECT_EQ(Get(s, "Foo", 1, 0), Got<int>(S_OK, 7));
  EXPECT_EQ(Array(s, "Seg", Ints(3)), Got<Ints>(S_OK, {3, 4, 5}));
  EXPECT_EQ(Array(s, "S", Lines(2)), Got<Lines>(S_OK, {"a", "b"}));
  EXPECT_EQ(Get(s, "Angles.Angle", 3, 0.0), Got<double>(S_OK, 45.0));  // the index read still answers
  EXPECT_EQ(Get(s, "Angles.Angle", 4, 1.0), Got<double>(E_FAIL, 1.0));
  EXPECT_EQ(Get(s, "E.Bar", 1, ""), Got<std::string>(S_OK, "Yes"));
  EXPECT_EQ(Get(s, "E.Bar.E", 1, ""), Got<std::string>(S_OK, "Yes"));
  EXPECT_EQ(Get(s, "E.Bar.Anything", 1, ""), Got<std::string>(S_OK, "Yes"));  // kept: the parent lookup answers
  EXPECT_EQ(Get(s, "E.Baz", 1, "").first, E_FAIL);
  auto colour = FromBody(Node("Curve", Node("Default", Node("Color", "<std:colorval>10 20 30</std:colorval>"))));
  EXPECT_EQ(Array(colour, "Curve.Default.Color", Ints(3)), Got<Ints>(S_OK, {10, 20, 30}));
}

TEST_F(TransientLoad, DefinitionsAreKeptApartAndTypedefsLiveInTheTree) {
  auto s = FromBody("<std:enumdef name=\"YesNo\"><std:strval>No</std:strval><std:strval>Yes</std:strval></std:enumdef>"
                    "<std:typedef name=\"T\">" + Field("intval", "F", "5") + "</std:typedef>");
  const auto* literals = Impl(s)->EnumDefinition("YesNo");
  ASSERT_NE(literals, nullptr);
  EXPECT_EQ(literals->size(), 2u);
  EXPECT_EQ(Get(s, "YesNo", 1, 0).first, E_FAIL);  // a literal is reached only by naming it
  EXPECT_EQ(Get(s, "T.F", 1, 0), Got<int>(S_OK, 5));
}

TEST_F(TransientLoad, NumbersReadAsTheGeneralReaderReadsThemWithAPointWhateverTheLocale) {
  // Plain decimals take a short way at load; signs, blanks, exponents, long mantissas and trailing
  // text must come out as the general reader gives them, which reads a point in any locale.
  std::string saved = std::setlocale(LC_NUMERIC, nullptr);
  std::setlocale(LC_NUMERIC, "de_DE.UTF-8");
  const char* reals[] = {"2.032", "-2.5", "+3", " 7", "1e3", "2.5E-2", "0.1234567890123456789", "1189", "-0", "3.5mm", "abc", ""};
  const char* ints[] = {"42", "-7", "+3", " 12", "22,", "2147483647", "-2147483648", "2147483648", "x1", ""};
  std::string body;
  for (size_t i = 0; i < std::size(reals); ++i) body += Node("R" + std::to_string(i), Real(reals[i]));
  for (size_t i = 0; i < std::size(ints); ++i) body += Node("I" + std::to_string(i), Int(ints[i]));
  auto s = FromBody(body);
  for (size_t i = 0; i < std::size(reals); ++i) {
    double expected = 0.0;
    ZOLUnicodeString(reals[i]).ConvertToNum(&expected, "%le");
    EXPECT_EQ(Get(s, ("R" + std::to_string(i)).c_str(), 1, -1.0), Got<double>(S_OK, expected)) << reals[i];
  }
  for (size_t i = 0; i < std::size(ints); ++i) {
    int expected = 0;
    ZOLUnicodeString(ints[i]).ConvertToNum(&expected, "%d");
    EXPECT_EQ(Get(s, ("I" + std::to_string(i)).c_str(), 1, -1), Got<int>(S_OK, expected)) << ints[i];
  }
  EXPECT_EQ(Get(s, "R0", 1, 0.0), Got<double>(S_OK, 2.032));
  std::setlocale(LC_NUMERIC, saved.c_str());
}

TEST_F(TransientLoad, BrokenDocumentAnswersFromTheCachesWhileTreeLookupsFail) {
  ZOLUnicodeString text(kOpen + Node("Version", Int("230")) + Node("Gap", Real("0.5")) + "<std:node name=\"Cut\"><std:intv");
  auto s = ZOLDftStandardServices::GetStandardFromBuffer(&text, "Broken");
  ASSERT_FALSE(s.IsNull());
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 1);
  EXPECT_EQ(Get(s, "Version", 1, 0), Got<int>(S_OK, 230));
  EXPECT_EQ(s->HasNode("Version"), 0);
  EXPECT_EQ(Get(s, "Gap", 2, 0.0).first, E_FAIL);
  EXPECT_EQ(Impl(s)->Root(), nullptr);
  reports = 1;
}

// Beside the filing cases: elements outside the dialect, odd attributes, a text without the
// namespace, values of several kinds at one path, and a cut text.
TEST_F(TransientLoad, TheLoadsOwnLaneGivesWhatTheContentHandlerGives) {
  const std::string docs[] = {
      kOpen + "<x:node xmlns:x=\"http://www.qelstandardinfra.org/std\" name=\"X\"><x:intval>1</x:intval><std:foo name=\"F\"/></x:node>" + kClose,
      kOpen + "<std:node std:name=\"P\" id=\"2\" name=\"R&amp;D\"><std:enumval name=\"E\">On</std:enumval></std:node>" + kClose,
      "<plain><node name=\"A\"><intval>1</intval></node></plain>",
      kOpen + Node("P", "<std:colorval>1 2 3</std:colorval>" + Int("4") + Int("5")) +
          Node("Q", Int("4") + Int("5") + "<std:colorval>7 8 9</std:colorval>") +
          Node("S", Str("a") + "<std:enumval>E</std:enumval>") + Node("T", "<std:enumval>E</std:enumval>" + Str("b")) + kClose,
      kOpen + Node("Cut", "<std:intv"),
  };
  for (const std::string& doc : docs) {
    ZOLTestReports quiet;
    ZOLUnicodeString text(doc);
    auto lean = ZOLDftStandardServices::GetStandardFromBuffer(&text, "T");
    auto general = ZOLLoadThroughContentHandler(doc);
    EXPECT_EQ(ZOLDescribeTransient(*Impl(lean)), ZOLDescribeTransient(*Impl(general))) << doc;
  }
}

TEST_F(TransientLoad, MalformedColourThrowsOutOfTheLoadWithItsText) {
  auto thrown = [](const std::string& colour) -> std::string {
    ZOLUnicodeString text(kOpen + Node("C", "<std:colorval>" + colour + "</std:colorval>") + kClose);
    try {
      ZOLDftStandardServices::GetStandardFromBuffer(&text, "T");
    } catch (const std::invalid_argument& e) {
      return std::string("invalid argument: ") + e.what();
    } catch (const std::out_of_range& e) {
      return std::string("out of range: ") + e.what();
    }
    return "no exception";
  };
  EXPECT_EQ(thrown("1 x 3"), "invalid argument: invalid stoi argument");
  EXPECT_EQ(thrown("1 99999999999 3"), "out of range: stoi argument out of range");
  // Reached only by the walk, it throws out of the getter.
  auto s = FromBody("<std:typedef name=\"T\"><std:colorval name=\"C\">red</std:colorval></std:typedef>");
  EXPECT_THROW(Array(s, "T.C", Ints(3)), std::invalid_argument);
}

TEST_F(TransientLoad, ColourSplitReadsEachPieceAsStoiDoes) {
  std::vector<int> v;
  ZOLVotTransientStandard::SplitColor("  12abc  -3 +4\t ", v);
  EXPECT_EQ(v, (Ints{12, -3, 4}));
  v.clear();
  ZOLVotTransientStandard::SplitColor("-2147483648 2147483647", v);
  EXPECT_EQ(v, (Ints{INT32_MIN, INT32_MAX}));
  EXPECT_THROW(ZOLVotTransientStandard::SplitColor("2147483648", v), std::out_of_range);
  EXPECT_THROW(ZOLVotTransientStandard::SplitColor("1 - 2", v), std::invalid_argument);
}

// --- FindNode -----------------------------------------------------------------------------

TEST_F(TransientFindNode, StylePathsFindTheStyleWithOrWithoutStylesAndAnAbsentFirstComponentIsSkipped) {
  auto s = FromBody(Node("Dimension", Node("X", Int("1"))) +
                    Node("Styles", Node("Curve", Node("Default", Node("Color", "<std:colorval>1 2 3</std:colorval>")))));
  auto* impl = Impl(s);
  const auto* a = impl->FindNode("Curve.Default.Color", 1);
  ASSERT_NE(a, nullptr);
  EXPECT_EQ(impl->FindNode("Styles.Curve.Default.Color", 1), a);
  for (const char* none : {"Nowhere.Default.Color", "", "..."}) EXPECT_EQ(impl->FindNode(none, 1), nullptr) << none;
  auto plain = FromBody(Node("Dimension", Node("Gap", Real("0.5"))));  // without Styles
  EXPECT_NE(Impl(plain)->FindNode("Dimension.Gap", 1), nullptr);
  EXPECT_EQ(Impl(plain)->FindNode("Whatever.Dimension.Gap", 1), Impl(plain)->FindNode("Dimension.Gap", 1));
  // A value asked for by a path that spells out "Styles" walks once and then comes from the cache.
  EXPECT_EQ(Array(s, "Styles.Curve.Default.Color", Ints(3)), Got<Ints>(S_OK, {1, 2, 3}));
}

TEST_F(TransientFindNode, TypevalListIsTransparentAndSameNamedEntriesCountFromTwo) {
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

TEST_F(TransientFindNode, NodeCacheKeyHasNoSeparatorSoPathAndIndexCanCollide) {
  auto s = FromBody(Node("Foo1", Int("111")) + Node("Foo", Int("5")));
  EXPECT_EQ(Get(s, "Foo1", 3, 0), Got<int>(S_OK, 111));  // walks, caches the node under "Foo13"
  EXPECT_EQ(Get(s, "Foo", 13, 0), Got<int>(S_OK, 111));  // kept: the same key answers with Foo1
}

// --- Getters ------------------------------------------------------------------------------

TEST_F(TransientGetters, MissingPathFailsAndLeavesTheOutput) {
  auto s = FromBody(Node("A", Int("1")));
  EXPECT_EQ(Get(s, "B", 1, 42), Got<int>(E_FAIL, 42));
  EXPECT_EQ(Get(s, "B", 1, 4.2), Got<double>(E_FAIL, 4.2));
  EXPECT_EQ(Get(s, "B", 1, "keep"), Got<std::string>(E_FAIL, "keep"));
  EXPECT_EQ(Get(s, nullptr, 1, 42), Got<int>(E_FAIL, 42));
  EXPECT_EQ(Array(s, "B", Ints(4)), Got<Ints>(E_FAIL, {}));  // the count is set to 0
}

TEST_F(TransientGetters, TypeRulesAreStrictOnLeavesAndLooseOnANodesFirstChild) {
  auto s = FromBody(Node("R", Real("2.75")) + Node("L", Entry("E", Field("floatval", "F", "3.5") + Field("intval", "I", "2"))) +
                    Node("Txt", Str("12 mm")));
  // std:node: its first child is read as an integer, and the value is cached under its key.
  EXPECT_EQ(Get(s, "R", 1, -1), Got<int>(S_OK, 2));
  EXPECT_EQ(Filed(s, "R"), (Lines{"R.1 integer 2", "R.1 real 2.75"}));
  EXPECT_EQ(Get(s, "L.F", 1, -1), Got<int>(E_FAIL, -1));  // leaf of another type: no conversion
  EXPECT_EQ(Get(s, "L.I", 1, 0.0).first, E_FAIL);
  EXPECT_EQ(Get(s, "Txt", 1, -1), Got<int>(S_OK, 12));  // a node's child: its type is not checked
  EXPECT_EQ(Get(s, "R", 1, ""), Got<std::string>(S_OK, "2.75"));
  EXPECT_EQ(Get(s, "L.F", 1, 0.0), Got<double>(S_OK, 3.5));
  EXPECT_EQ(Get(s, "L.F", 0, 0.0).first, E_FAIL);  // indexes of typed entries start at 1
  EXPECT_EQ(Get(s, "L.F", 2, 0.0).first, E_FAIL);
}

// Filed at load under other paths, so the arrays of these nodes come from the walk.
TEST_F(TransientGetters, ArraysBuiltByTheWalkHaveTheRightCountButBlankRealsAndStrings) {
  auto s = FromBody(Node("P", Node("Q", Real("1.5")) + Real("2.5") + Real("3.5")) +
                    Node("W", Node("Q", Str("x")) + Str("a") + Str("b")) +
                    Node("Seg", Node("Q", Int("0")) + Int("4") + "<std:colorval>7 8</std:colorval>"));
  auto k = FromBody(Node("C", Node("Q", Int("0"))) + Node("Styles", Node("K", "<std:colorval>1 2</std:colorval>")));
  ASSERT_NE(Impl(k)->FindNode("K", 1), nullptr);
  EXPECT_EQ(Array(s, "Styles.P", std::vector<double>(4, 9.0)), Got<std::vector<double>>(S_OK, {0.0, 0.0}));
  EXPECT_EQ(Array(s, "Styles.W", Lines{"x", "y"}), Got<Lines>(S_OK, {"", ""}));
  // A colour child makes the count 3, however long or short the list.
  EXPECT_EQ(Array(s, "Styles.Seg", Ints(4)), Got<Ints>(S_OK, {4, 7, 8}));
  EXPECT_EQ(Array(k, "Styles.K", Ints{0, 0, 77}), Got<Ints>(S_OK, {1, 2, 77}));
}

TEST_F(TransientGetters, NullArrayIsRefusedWithAReport) {
  auto s = FromBody(Node("A", Int("1")));
  int count = 5;
  EXPECT_EQ(s->GetValue("A", static_cast<int*>(nullptr), &count), E_INVALIDARG);
  EXPECT_EQ(s->GetValue("A", static_cast<double*>(nullptr), &count), E_INVALIDARG);
  EXPECT_EQ(s->GetValue("A", static_cast<ZOLUnicodeString**>(nullptr), &count), E_INVALIDARG);
  EXPECT_EQ(r.CountContaining("ON POINTER"), 3);
  reports = 3;
}

TEST_F(TransientGetters, ValueTypeIsThatOfTheChildrenWithTheirCount) {
  std::string list;
  for (int i = 0; i < 24; ++i) list += Entry("ToleranceDisplay", Field("strval", "Name", "T") + Field("intval", "TolType", "2"));
  auto s = FromBody(Node("ToleranceFormats", list) + Node("Mixed", Int("1") + Str("a")) + Node("Leaf", Real("1")) +
                    Node("Empty", ""));
  auto type = [&](const char* path) {
    ZOLDftStandardValueType t = ZOLDftStandardValueTypeUnknown;
    int count = -1;
    HRESULT hr = s->GetValueType(path, &t, &count);
    return std::tuple(hr, t, count);
  };
  EXPECT_EQ(type("ToleranceFormats"), std::tuple(S_OK, ZOLDftStandardValueTypeTypedEntry, 24));
  EXPECT_EQ(type("Leaf"), std::tuple(S_OK, ZOLDftStandardValueTypeReal, 1));
  EXPECT_EQ(r.Count(), 0);
  EXPECT_EQ(std::get<0>(type("Mixed")), E_UNEXPECTED);
  EXPECT_EQ(std::get<2>(type("Mixed")), 0);
  EXPECT_EQ(r.CountContaining("All Nodes have not the same type"), 2);
  EXPECT_EQ(r.Count(), 4);
  r.Clear();
  EXPECT_EQ(type("Empty"), std::tuple(E_UNEXPECTED, ZOLDftStandardValueTypeUnknown, 0));
  EXPECT_EQ(r.CountContaining("Unknown standard value type!"), 1);
  EXPECT_EQ(r.Count(), 2);
  r.Clear();
  EXPECT_EQ(std::get<0>(type("Nope")), E_FAIL);
  int count = 0;
  EXPECT_EQ(s->GetValueType("Leaf", nullptr, &count), E_INVALIDARG);
  EXPECT_EQ(r.CountContaining("ON POINTER"), 1);
  reports = 1;
}

TEST_F(TransientGetters, QelStandardValueTypeIsRefusedOnEveryCall) {
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
  EXPECT_EQ(ZOLIDftStandard_var(s)->GetValueType("Leaf", &type, &count), S_OK);
  reports = 1;
}

TEST_F(TransientGetters, ThicknessIndexTakesTheNearestRowAndTheLowerOnATie) {
  std::string rows;
  for (const char* mm : {"0.25", "0.75", "1.5"})
    rows += Entry("ZOLThickness", Field("intval", "Availability", "1") + Field("floatval", "mm", mm));
  auto s = FromBody(Node("LineThickness", rows));
  auto none = FromBody(Node("A", Int("1")));
  int index = -1;
  for (auto [standard, mm, hr, expected] : {std::tuple(s.Get(), 0.5, S_OK, 1), {s.Get(), 0.25, S_OK, 1},
                                            {s.Get(), 1.2, S_OK, 3}, {s.Get(), -1.0, E_INVALIDARG, 3}, {none.Get(), 0.5, S_OK, 0}}) {
    EXPECT_EQ(standard->GetThicknessIndex(mm, &index), hr) << mm;
    EXPECT_EQ(index, expected) << mm;
  }
}

TEST_F(TransientGetters, NameAndParentInBothForms) {
  auto s = FromBody(Node("Dimension", Node("ParentStandard", Str("JIS"))));
  auto wide = [](ZOLIDrwStandard* standard, HRESULT (ZOLIDrwStandard::*get)(wchar_t**)) {
    wchar_t* w = nullptr;
    HRESULT hr = (standard->*get)(&w);
    std::wstring out = w ? w : L"<null>";
    delete[] w;
    return std::pair(hr, out);
  };
  EXPECT_EQ(wide(s, &ZOLIDrwStandard::GetName), std::pair(S_OK, std::wstring(L"T")));
  EXPECT_EQ(wide(s, &ZOLIDrwStandard::GetParentStandard), std::pair(S_OK, std::wstring(L"JIS")));
  EXPECT_EQ(s->GetName(static_cast<wchar_t**>(nullptr)), E_INVALIDARG);
  EXPECT_EQ(s->GetParentStandard(static_cast<wchar_t**>(nullptr)), E_INVALIDARG);
  EXPECT_EQ(r.Count(), 1);  // the name's null output only
  r.Clear();
  auto orphan = FromBody(Node("A", Int("1")));
  ZOLUnicodeString parent("x");
  EXPECT_EQ(orphan->GetParentStandard(parent), E_UNEXPECTED);
  EXPECT_EQ(wide(orphan, &ZOLIDrwStandard::GetParentStandard), std::pair(S_OK, std::wstring()));  // the inner failure is ignored
  EXPECT_EQ(r.CountContaining("BOOL IS FALSE"), 2);
  reports = 2;
}

TEST_F(TransientGetters, StubSlotsReportAndRefuse) {
  auto s = FromBody(Node("A", Int("1")));
  EXPECT_EQ(s->Reserved12(), E_NOTIMPL);
  EXPECT_EQ(s->Reserved28(), E_NOTIMPL);
  s->Reserved27();
  EXPECT_EQ(r.CountContaining("TO_BE_IMPLEMENTED..."), 3);
  EXPECT_EQ(s->Reserved24(), E_NOTIMPL);
  int zero = 5;
  EXPECT_EQ(s->GetReserved19(0, &zero), S_OK);
  EXPECT_EQ(zero, 0);
  reports = 3;
}

// --- Object and attachments ----------------------------------------------------------------

TEST_F(TransientObject, InterfacesAreTIEsOfOneObjectSharingItsCount) {
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

TEST_F(TransientObject, NullTextAndMissingFileGiveEmptyStandardsWithAReport) {
  auto s = ZOLDftStandardServices::GetStandardFromBuffer(nullptr, "T");
  auto f = ZOLDftStandardServices::GetStandardFromFile("/nonexistent/dir/ISO.xml", "ISO");
  ASSERT_FALSE(s.IsNull() || f.IsNull());
  EXPECT_EQ(s->HasNode("A") + f->HasNode("Dimension"), 0);
  EXPECT_EQ(r.CountContaining("Load of the standard failed"), 2);
  EXPECT_EQ(r.CountContaining("No input source"), 1);
  reports = 3;
}

TEST(PathHelpers, SingleNameAndFatherNodeSplitAtTheLastDot) {
  using namespace ZOLDftStandardServices;
  for (auto [path, name, father] : {std::tuple("Root.Styles.Text", "Text", "Root.Styles"), {"Text", "", ""}, {"Styles.", "", "Styles"},
                                    {"A.B.", "", "A.B"}}) {
    EXPECT_EQ(GetAttributeSingleName(path), name) << path;
    EXPECT_EQ(GetFatherNode(path), father) << path;
  }
}
