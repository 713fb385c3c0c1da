// Hostile and oversized texts given to a standard object: reads stay within the caller's buffer,
// the load's cost stays bounded, and a text that is not a standard is refused as one.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "ZOLDftStandardServices.h"
#include "ZOLIDrwStandard.h"
#include "ZOLReportCountTest.h"

namespace {

const std::string kOpen = "<std:node xmlns:std=\"http://www.qelstandardinfra.org/std\" name=\"drafting\">";
const std::string kClose = "</std:node>";

ZOLIDrwStandard_var Load(const std::string& text) {
  ZOLUnicodeString t(text);
  return ZOLDftStandardServices::GetStandardFromBuffer(&t, "T");
}

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
