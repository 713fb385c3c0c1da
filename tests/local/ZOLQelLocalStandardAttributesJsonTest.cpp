// The stored text of overriding values: its exact bytes, reading it back, and what bad text gives.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

#include "ZOLReportCountTest.h"
#include "local/ZOLQelLocalStandardAttributesJson.h"

using namespace ZOLQelLocalStandardAttributes;

namespace {

// None of these operations raises a report.
class OverloadedValues : public ZOLReportCountTest {};

LocalValue Strings(std::vector<const char*> texts) {
  std::vector<ZOLUnicodeString> values(texts.begin(), texts.end());
  return LocalValue(std::move(values));
}

OverloadedValueMap Parsed(const std::string& text) {
  OverloadedValueMap map{{"left.over", LocalValue(7)}};
  EXPECT_NO_THROW(ParseOverloadedValues(text, map)) << text;
  return map;
}

}  // namespace

TEST_F(OverloadedValues, EachKindIsWrittenByteForByte) {
  LocalValue noKind(1);
  noKind.kind = static_cast<LocalValueKind>(9);
  struct Case {
    LocalValue value;
    const char* text;
  } cases[] = {
      {LocalValue(255), R"({"k":{"type":"int", "value":255}})"},
      {LocalValue(-7), R"({"k":{"type":"int", "value":-7}})"},
      {LocalValue(INT32_MIN), R"({"k":{"type":"int", "value":-2147483648}})"},
      {LocalValue(2.5), R"({"k":{"type":"double", "value":2.500000}})"},
      {LocalValue(0.0000004), R"({"k":{"type":"double", "value":0.000000}})"},
      {LocalValue(-0.0000006), R"({"k":{"type":"double", "value":-0.000001}})"},
      {LocalValue(12345678.9), R"({"k":{"type":"double", "value":12345678.900000}})"},
      {LocalValue(ZOLUnicodeString("SSS4")), R"({"k":{"type":"string", "value":"SSS4"}})"},
      {LocalValue(ZOLUnicodeString("")), R"({"k":{"type":"string", "value":""}})"},
      // Nothing is escaped.
      {LocalValue(ZOLUnicodeString("a\"b\\c")), R"({"k":{"type":"string", "value":"a"b\c"}})"},
      {LocalValue(ZOLUnicodeString("50 \xC2\xB0")), "{\"k\":{\"type\":\"string\", \"value\":\"50 \xC2\xB0\"}}"},
      {LocalValue(std::vector<int32_t>{1, -2, 30}), R"({"k":{"type":"int_vector", "value":[1,-2,30]}})"},
      {LocalValue(std::vector<int32_t>{}), R"({"k":{"type":"int_vector", "value":[]}})"},
      {LocalValue(std::vector<double>{0.5, 2, -1e-7}),
       R"({"k":{"type":"double_vector", "value":[0.500000,2.000000,-0.000000]}})"},
      {Strings({"A0 ISO", "B"}), R"({"k":{"type":"string_vector", "value":["A0 ISO","B"]}})"},
      {noKind, R"({"k":{"type":"invalid", "value":}})"},
  };
  for (const Case& c : cases) EXPECT_EQ(SerializeOverloadedValues({{"k", c.value}}), c.text);
  EXPECT_EQ(SerializeOverloadedValues({}), "{}");
}

// The order of entries is the map's; whatever it is, the text joins the entries' own texts.
TEST_F(OverloadedValues, SeveralEntriesAreJoinedInTheMapsOrder) {
  const OverloadedValueMap map{{"Annotation.Text.LeaderGap", LocalValue(2.5)},
                               {"Patterns.coloring.color.1", LocalValue(255)},
                               {"Text.Default.Font.Name", LocalValue(ZOLUnicodeString("SSS4"))}};
  std::vector<std::string> entries = {R"("Annotation.Text.LeaderGap":{"type":"double", "value":2.500000})",
                                      R"("Patterns.coloring.color.1":{"type":"int", "value":255})",
                                      R"("Text.Default.Font.Name":{"type":"string", "value":"SSS4"})"};
  const std::string text = SerializeOverloadedValues(map);
  bool matched = false;
  std::sort(entries.begin(), entries.end());
  do {
    matched |= text == "{" + entries[0] + "," + entries[1] + "," + entries[2] + "}";
  } while (std::next_permutation(entries.begin(), entries.end()));
  EXPECT_TRUE(matched) << text;
  EXPECT_EQ(Parsed(text), map);
}

TEST_F(OverloadedValues, EveryKindReadsBackIntegersExactlyRealsToSixDecimals) {
  const OverloadedValueMap map{
      {"i", LocalValue(INT32_MAX)},
      {"d", LocalValue(-3.1415926535)},
      {"s", LocalValue(ZOLUnicodeString("Sheet.A0 ISO"))},
      {"iv", LocalValue(std::vector<int32_t>{INT32_MIN, 0, 5})},
      {"dv", LocalValue(std::vector<double>{1.0000004, 250})},
      {"sv", Strings({"", "x y", "\xC2\xB0"})},
      {"Patterns.hatching.angle1.3", LocalValue(std::vector<int32_t>{})},
      {"tiny", LocalValue(0.0000004)},
  };
  OverloadedValueMap expected = map;
  expected["d"] = LocalValue(-3.141593);
  expected["dv"] = LocalValue(std::vector<double>{1.0, 250.0});
  expected["tiny"] = LocalValue(0.0);
  EXPECT_EQ(Parsed(SerializeOverloadedValues(map)), expected);
}

// Bad text empties the map; a bad member is dropped or read as zero, and the others are kept.
TEST_F(OverloadedValues, BadTextAndBadMembers) {
  struct Case {
    const char* text;
    OverloadedValueMap map;
  } cases[] = {
      {"", {}},
      {"{}", {}},
      {"not json", {}},
      {"[1,2]", {}},
      {"null", {}},
      {R"({"a":{"type":"int", "value":1})", {}},  // cut short
      {R"({"a":{"type":"invalid", "value":}})", {}},  // what an entry of no kind writes
      {R"({"a":{"type":"string", "value":"x"y"}})", {}},  // an unescaped quotation mark
      {"{\"a\":{\"type\":\"string\", \"value\":\"line\nbreak\"}}", {}},
      {"{\"a\":{\"type\":\"string\", \"value\":\"\xB0\"}}", {}},  // no UTF-8
      {R"({"a":{"type":"invalid", "value":1},"b":{"type":"int", "value":2}})", {{"b", LocalValue(2)}}},
      {R"({"a":{"type":"INT", "value":1},"b":{"type":"double", "value":2}})", {{"b", LocalValue(2.0)}}},
      {R"({"a":1,"b":{"value":1},"c":{"type":3, "value":1},"d":{"type":"string", "value":"v"}})",
       {{"d", LocalValue(ZOLUnicodeString("v"))}}},
      // A value of another shape reads as the getter's untouched zero or empty text.
      {R"({"a":{"type":"int", "value":"12"},"b":{"type":"int", "value":2.5},"c":{"type":"int"},
          "d":{"type":"int", "value":2147483648},"e":{"type":"string", "value":5},"f":{"type":"double", "value":null}})",
       {{"a", LocalValue(0)}, {"b", LocalValue(0)}, {"c", LocalValue(0)}, {"d", LocalValue(0)},
        {"e", LocalValue(ZOLUnicodeString(""))}, {"f", LocalValue(0.0)}}},
      {R"({"a":{"type":"int_vector", "value":5},"b":{"type":"double_vector", "value":[1,"x",true,2.5]},
          "c":{"type":"string_vector", "value":["p",1,"q"]},"d":{"type":"int_vector", "value":[-1,2e3,3]}})",
       {{"a", LocalValue(std::vector<int32_t>{})},
        {"b", LocalValue(std::vector<double>{1, 0, 0, 2.5})},
        {"c", Strings({"p", "", "q"})},
        {"d", LocalValue(std::vector<int32_t>{-1, 0, 3})}}},
      // The reader decodes escapes that the writer never writes; a repeated key keeps the last value.
      {R"({"a":{"type":"string", "value":"x\"y\u00b0"},"b":{"type":"int", "value":1},"b":{"type":"int", "value":3}})",
       {{"a", LocalValue(ZOLUnicodeString("x\"y\xC2\xB0"))}, {"b", LocalValue(3)}}},
      {R"({"a":{"type":"double", "value":-4},"b":{"type":"double", "value":1e308},"c":{"type":"int", "value":-0}})",
       {{"a", LocalValue(-4.0)}, {"b", LocalValue(1e308)}, {"c", LocalValue(0)}}},
  };
  for (const Case& c : cases) EXPECT_EQ(Parsed(c.text), c.map) << c.text;
}

TEST_F(OverloadedValues, UnescapedStringsDoNotReadBackAsWritten) {
  const OverloadedValueMap map{{"a", LocalValue(ZOLUnicodeString("say \"hi\""))}, {"b", LocalValue(1)}};
  EXPECT_TRUE(Parsed(SerializeOverloadedValues(map)).empty());
  // A backslash goes out bare and reads back as the start of an escape.
  const OverloadedValueMap slash{{"a", LocalValue(ZOLUnicodeString("C:\\temp"))}};
  EXPECT_EQ(Parsed(SerializeOverloadedValues(slash)), (OverloadedValueMap{{"a", LocalValue(ZOLUnicodeString("C:\temp"))}}));
}
