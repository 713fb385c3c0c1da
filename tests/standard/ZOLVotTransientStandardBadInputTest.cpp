// Hostile and oversized texts given to a standard object: reads stay within the caller's buffer,
// the load's cost stays bounded, and a text that is not a standard is refused as one.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ZOLDftStandardServices.h"
#include "ZOLIDrwStandard.h"
#include "ZOLReportCountTest.h"
#include "ZOLStandardObjectTestSupport.h"
#include "ZOLTransientLanes.h"
#include "standard/ZOLVotKeyMap.h"

namespace {

using qeltest::Impl;
const std::string& kOpen = qeltest::kStdOpen;
const std::string& kClose = qeltest::kStdClose;
ZOLIDrwStandard_var Load(const std::string& text) { return qeltest::LoadText(text); }

std::string Repeat(const std::string& piece, int n) {
  std::string out;
  out.reserve(piece.size() * static_cast<size_t>(n));
  for (int i = 0; i < n; ++i) out += piece;
  return out;
}

std::string Colour(int components) {
  std::string text;
  for (int i = 0; i < components; ++i) text += (i ? " " : "") + std::to_string(i + 1);
  return "<std:node name=\"C\"><std:colorval>" + text + "</std:colorval></std:node>";
}

using BadInput = ZOLReportCountTest;

}  // namespace

// 500 consecutive nodes of one name file one array of 1,000 values under the bare path, while the
// first node alone has two children: a caller must size from the sized read, never from the type.
TEST_F(BadInput, SizedArrayReadsWriteNoMoreThanTheCapacityAndTellTheWholeCount) {
  ZOLIDrwStandard_var s =
      Load(kOpen + Repeat("<std:node name=\"X\"><std:intval>1</std:intval><std:intval>2</std:intval></std:node>", 500) + kClose);
  ZOLDftStandardValueType type;
  int count = 0;
  ASSERT_EQ(s->GetValueType("X", &type, &count), S_OK);
  EXPECT_EQ(count, 2);

  std::vector<int> buffer(4, -7);
  ASSERT_EQ(s->GetValue("X", buffer.data(), 2, &count), S_FALSE);
  EXPECT_EQ(count, 1000);
  EXPECT_EQ(buffer, (std::vector<int>{1, 2, -7, -7}));
  ASSERT_EQ(s->GetValue("X", static_cast<int*>(nullptr), 0, &count), S_FALSE);
  EXPECT_EQ(count, 1000);
  buffer.assign(1000, 0);
  ASSERT_EQ(s->GetValue("X", buffer.data(), 1000, &count), S_OK);
  EXPECT_EQ(buffer[998], 1);
  EXPECT_EQ(buffer[999], 2);

  EXPECT_EQ(s->GetValue("X", buffer.data(), -1, &count), E_INVALIDARG);
  EXPECT_EQ(s->GetValue("X", static_cast<int*>(nullptr), 3, &count), E_INVALIDARG);
  EXPECT_EQ(s->GetValue("Absent", buffer.data(), 3, &count), E_FAIL);
  EXPECT_EQ(count, 0);
  reports = 1;  // the null buffer with a capacity
}

// A colour counts 3 in the forms without capacity whatever its text holds; the sized form tells
// what it holds, so that a long colour cannot overrun and a short one gives no made-up third value.
TEST_F(BadInput, SizedColourReadsCountWhatTheTextHolds) {
  struct Case {
    int components;
    HRESULT withThree;
  } cases[] = {{2, S_OK}, {3, S_OK}, {33, S_FALSE}, {4000, S_FALSE}};
  for (const Case& c : cases) {
    ZOLIDrwStandard_var s = Load(kOpen + Colour(c.components) + kClose);
    int three[3] = {0, 0, 0};
    int count = 0;
    EXPECT_EQ(s->GetValue("C", three, 3, &count), c.withThree) << c.components;
    EXPECT_EQ(count, c.components);
    std::vector<int> all(static_cast<size_t>(count));
    ASSERT_EQ(s->GetValue("C", all.data(), count, &count), S_OK);
    EXPECT_EQ(all.back(), c.components);
  }
}

// A colour inside a typed definition is never filed: only the walk reaches it, and there the
// form without capacity counts 3 for two components, where the sized form counts 2.
TEST_F(BadInput, WalkedShortColourCountsThreeOnlyWithoutCapacity) {
  const std::string text = kOpen + "<std:typedef name=\"T\"><std:colorval name=\"C\">1 2</std:colorval></std:typedef>" +
                           "<std:node name=\"N\"><std:colorval>1 2</std:colorval></std:node>" + kClose;
  for (const char* path : {"T", "N"}) {
    ZOLIDrwStandard_var seeded = Load(text), sized = Load(text);
    int values[4] = {0, 0, 0, 0};
    int count = 0;
    ASSERT_EQ(sized->GetValue(path, values, 4, &count), S_OK) << path;
    EXPECT_EQ(count, 2) << path;
    ASSERT_EQ(seeded->GetValue(path, values, &count), S_OK) << path;
    EXPECT_EQ(count, std::string(path) == "T" ? 3 : 2) << path;
  }
}

TEST_F(BadInput, SizedRealAndStringReadsKeepTheCapacity) {
  ZOLIDrwStandard_var s = Load(kOpen + Repeat("<std:node name=\"R\"><std:floatval>0.5</std:floatval></std:node>", 40) +
                               Repeat("<std:node name=\"S\"><std:strval>ab</std:strval></std:node>", 40) + kClose);
  double reals[4] = {9, 9, 9, 9};
  int count = 0;
  ASSERT_EQ(s->GetValue("R", reals, 3, &count), S_FALSE);
  EXPECT_EQ(count, 40);
  EXPECT_EQ(reals[2], 0.5);
  EXPECT_EQ(reals[3], 9);
  ZOLUnicodeString a, b, untouched("keep");
  ZOLUnicodeString* texts[3] = {&a, &b, &untouched};
  ASSERT_EQ(s->GetValue("S", texts, 2, &count), S_FALSE);
  EXPECT_EQ(count, 40);
  EXPECT_EQ(b, "ab");
  EXPECT_EQ(untouched, "keep");
}

// Nesting costs a copy of the path per value, so depth is bounded: the load stops at the bound
// with one report and keeps what it read, in both of the object's reading lanes.
TEST_F(BadInput, NestingDeeperThanTheBoundIsRefusedAndWhatCameBeforeStays) {
  auto nested = [](int levels) {
    std::string open, close;
    for (int i = 0; i < levels; ++i) {
      open += "<std:node name=\"n\"><std:intval>" + std::to_string(i) + "</std:intval>";
      close += "</std:node>";
    }
    return kOpen + open + close + kClose;
  };
  std::string path = "n";
  for (int i = 1; i < 509; ++i) path += ".n";
  ZOLIDrwStandard_var fits = Load(nested(510));
  int v = -1;
  EXPECT_EQ(fits->GetValue(path.c_str(), 1, v), S_OK);
  EXPECT_EQ(v, 508);
  const std::string deep = nested(600);
  ZOLIDrwStandard_var refused = Load(deep);
  path = "n";
  for (int i = 1; i < 400; ++i) path += ".n";
  ASSERT_EQ(refused->GetValue(path.c_str(), 1, v), S_OK);
  EXPECT_EQ(v, 399);
  EXPECT_EQ(r.CountContaining("Refused: nests deeper than 512 levels"), 1);
  EXPECT_EQ(r.CountContaining("Load of the standard failed"), 1);
  EXPECT_EQ(ZOLDescribeTransient(*Impl(refused)), ZOLDescribeTransient(*Impl(ZOLLoadThroughContentHandler(deep))));
  reports = 5;  // refusal and failed load, twice, and the missing text of the second lane's empty start
}

// Long names repeated over many values make keys grow with names times values; their total is bounded.
TEST_F(BadInput, KeysBeyondTheirBoundAreRefused) {
  const std::string name(60000, 'k');
  std::string values;
  for (int i = 0; i < 1500; ++i) values += "<std:node name=\"v" + std::to_string(i) + "\"><std:intval>1</std:intval></std:node>";
  const std::string text = kOpen + "<std:node name=\"" + name + "\">" + values + "</std:node>" + kClose;
  ZOLIDrwStandard_var s = Load(text);
  int v = 0;
  EXPECT_EQ(s->GetValue((name + ".v1000").c_str(), 1, v), S_OK);
  EXPECT_EQ(s->GetValue((name + ".v1499").c_str(), 1, v), E_FAIL);
  // The content handler's lane stops at the same value.
  ZOLIDrwStandard_var general = ZOLLoadThroughContentHandler(text);
  int filed = 0;
  for (int i = 0; i < 1500; ++i) {
    const std::string path = name + ".v" + std::to_string(i);
    const bool here = s->GetValue(path.c_str(), 1, v) == S_OK;
    filed += here;
    ASSERT_EQ(here, general->GetValue(path.c_str(), 1, v) == S_OK) << i;
  }
  EXPECT_GT(filed, 1000);
  EXPECT_EQ(r.CountContaining("Refused: keys of values too large"), 2);
  reports = 5;  // as in the nesting test
}

// One rule for what a standard is, the dialect's: its namespace, whatever the prefix, and a root
// that is a node of it.
TEST_F(BadInput, ADocumentWhoseRootIsNoNodeOfTheDialectIsRefused) {
  const std::string body = "<std:node name=\"A\"><std:intval>1</std:intval></std:node>";
  const std::string ns = "\"http://www.qelstandardinfra.org/std\"";
  struct Case {
    std::string text;
    bool read;
  } cases[] = {
      {"<s:node xmlns:s=" + ns + " xmlns:std=" + ns + " name=\"drafting\">" + body + "</s:node>", true},
      {"<root xmlns:std=" + ns + ">" + body + "</root>", false},
      {"<std:typeval xmlns:std=" + ns + ">" + body + "</std:typeval>", false},
      {"<std:node xmlns:std=\"urn:other\" name=\"drafting\"><x:node xmlns:x=" + ns + " name=\"A\"><x:intval>1</x:intval></x:node></std:node>", false},
  };
  for (const Case& c : cases) {
    ZOLIDrwStandard_var s = Load(c.text);
    int v = 0;
    EXPECT_EQ(s->GetValue("A", 1, v) == S_OK, c.read) << c.text;
    EXPECT_EQ(s->HasNode("A"), c.read ? 1 : 0) << c.text;
  }
  EXPECT_EQ(r.CountContaining("Refused: root is not a dialect node"), 3);
  reports = 6;
}

// Names chosen so that the hash without a secret sends all their keys to one slot of a table of
// 4,096: under the process's secret they spread, and no key lies far from its home slot.
TEST_F(BadInput, KeysCollidingWithoutTheSecretSpreadUnderIt) {
  std::vector<std::string> keys;
  std::string body;
  for (uint64_t i = 0; keys.size() < 2000; ++i) {
    std::string key = "N" + std::to_string(i) + ".1";
    if ((ZOLVotHashWithSecret(key, 0) & 4095) != 0) continue;
    keys.push_back(key);
    body += "<std:node name=\"N" + std::to_string(i) + "\"><std:intval>" + std::to_string(keys.size()) + "</std:intval></std:node>";
  }
  ZOLVotChars chars;
  ZOLVotKeyMap<int> unseeded(chars), seeded(chars);
  unseeded.Reserve(keys.size());
  seeded.Reserve(keys.size());
  for (const std::string& k : keys) {
    unseeded.Get(k, ZOLVotHashWithSecret(k, 0)) = 1;
    seeded[k] = 1;
  }
  EXPECT_GT(unseeded.LongestProbe(), 1000u);
  EXPECT_LT(seeded.LongestProbe(), 64u);

  ZOLIDrwStandard_var s = Load(kOpen + body + kClose);
  int v = 0;
  ASSERT_EQ(s->GetValue(keys[1999].substr(0, keys[1999].size() - 2).c_str(), 1, v), S_OK);
  EXPECT_EQ(v, 2000);
}

// "LineThickness.mm" answers at every index when "mm" is a value right in the node: the nearest
// row is then looked for among as many rows as the standard has elements, not for ever.
TEST_F(BadInput, ThicknessIndexEndsOnAPathThatAnswersAtEveryIndex) {
  ZOLIDrwStandard_var s = Load(kOpen + "<std:node name=\"LineThickness\"><std:floatval name=\"mm\">0.5</std:floatval></std:node>" + kClose);
  int index = -1;
  EXPECT_EQ(s->GetThicknessIndex(0.5, &index), S_OK);
  EXPECT_EQ(index, 1);
}
