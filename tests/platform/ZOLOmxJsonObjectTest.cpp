#include <gtest/gtest.h>

#include <string>

#include "ZOLOmxJsonObject.h"

namespace {

ZOLOmxJsonObject Parse(const std::string& text) { return ZOLOmxJsonObject(ZOLUnicodeString(text)); }

TEST(OmxJson, TextThatIsNoObjectGivesAnInvalidObjectWithoutMembers) {
  const std::string deep = std::string(600, '[') + std::string(600, ']');
  for (const std::string& text : {std::string(), std::string("[]"), std::string("{"), std::string("42"),
                                  std::string("{\"a\":1,}"), std::string("{\"a\":") + deep + "}"}) {
    const ZOLOmxJsonObject o = Parse(text);
    EXPECT_FALSE(o.IsValidJsonObject()) << text;
    EXPECT_EQ(o.Length(), 0) << text;
    EXPECT_EQ(o.ToString(), "{}") << text;
  }
  EXPECT_TRUE(Parse("{}").IsValidJsonObject());
  EXPECT_TRUE(ZOLOmxJsonObject().IsValidJsonObject());
}

TEST(OmxJson, PutKeepsThePlaceOfAnExistingKeyAndAppendsANewOne) {
  ZOLOmxJsonObject o = Parse(R"({"b":1,"a":2})");
  o.PutString(ZOLOmxKeyString("b"), std::string_view("x"));
  o.PutDouble(ZOLOmxKeyString("c"), 0.5);
  ZOLOmxJsonArray array;
  array.PutString(std::string_view("s"));
  array.PutJsonObject(Parse(R"({"k":true})"));
  o.PutArray(ZOLOmxKeyString("d"), array);
  EXPECT_EQ(o.ToString(), R"({"b":"x","a":2,"c":0.5,"d":["s",{"k":true}]})");
}

TEST(OmxJson, CopiesAndViewsShareUntilOneIsChanged) {
  const ZOLOmxJsonObject original = Parse(R"({"n":{"v":1},"s":"t"})");
  ZOLOmxJsonObject copy = original;
  ZOLOmxJsonObject view = original.OptJsonObject("n");
  const std::string_view text = original.OptString("s");
  copy.PutInteger(ZOLOmxKeyString("s"), 2);
  view.PutInteger(ZOLOmxKeyString("v"), 3);
  EXPECT_EQ(original.ToString(), R"({"n":{"v":1},"s":"t"})");
  EXPECT_EQ(text, "t");
  EXPECT_EQ(copy.ToString(), R"({"n":{"v":1},"s":2})");
  EXPECT_EQ(view.ToString(), R"({"v":3})");

  // An object put by value is copied; one given away is taken whole, and its giver is emptied.
  ZOLOmxJsonObject parent, child = Parse(R"({"x":1})");
  parent.PutObject(ZOLOmxKeyString("c"), child);
  child.PutInteger(ZOLOmxKeyString("x"), 9);
  parent.PutObject(ZOLOmxKeyString("d"), std::move(child));
  EXPECT_EQ(parent.ToString(), R"({"c":{"x":1},"d":{"x":9}})");
}

TEST(OmxJson, TextOutReplacesBytesThatAreNoUtf8) {
  ZOLOmxJsonObject o;
  o.PutString(ZOLOmxKeyString("k"), std::string_view("a\xB0z"));
  EXPECT_EQ(o.ToString(), "{\"k\":\"a\xEF\xBF\xBDz\"}");
}

}  // namespace
