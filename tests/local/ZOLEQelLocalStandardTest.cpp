// The local standard and the local style on objects of the stand-in model: which names they admit,
// what the getters answer and where the caller then reads, and the attribute that keeps the values.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "LocalTestModel.h"
#include "ZOLIDftElementWithStandard.h"
#include "ZOLIQelLocalStdManager.h"

using localtest::Attribute;
using localtest::LocalModel;
using localtest::Stored;

namespace {

constexpr const char* kLeaderGap = "Annotation.Text.LeaderGap";
constexpr const char* kColor = "Patterns.coloring.color";

// How a drafting module reads a real: the element's local value, and on 1 its standard's.
double ReadReal(ZOLBaseUnknown* element, const char* path) {
  double value = -1;
  ZOLIQelLocalStandard_var local = ZOLIQelLocalStdManager_var(element)->GetLocalStandard(0);
  if (local.IsNull() || local->GetOverloadedValue(path, value) == S_FALSE) {
    ZOLBaseUnknown* standard = nullptr;
    if (SUCCEEDED(ZOLIDftElementWithStandard_var(element)->GetStandard(&standard)))
      ZOLIDrwStandard_var(ZOLVar<ZOLBaseUnknown>::Adopt(standard))->GetValue(path, 1, value);
  }
  return value;
}

std::string Show(int v) { return std::to_string(v); }
std::string Show(double v) { return std::to_string(v); }
std::string Show(const ZOLUnicodeString& v) { return v.str(); }
template <class T>
std::string Show(const std::vector<T>& v) {
  return std::to_string(v.size()) + " " + Show(v.back());
}

// A getter's result and what its out argument, which starts as out, then shows.
template <class Local, class Out, class... Index>
std::string Ask(Local& local, const char* name, Out out, Index... index) {
  HRESULT hr = local->GetOverloadedValue(name, index..., out);
  return std::to_string(hr) + " " + Show(out);
}

class LocalStandard : public LocalModel {
protected:
  ZOLIQelLocalStandard_var standard = NewLocal<ZOLIQelLocalStandard>("QelLocalStandard");
  ZOLIQelLocalStyle_var style = NewLocal<ZOLIQelLocalStyle>("QelLocalStyle");
};

}  // namespace

TEST_F(LocalStandard, SettersAdmitTheirOwnListAndStoreUnderTheMatchedKey) {
  struct Case {
    bool onStyle;
    const char* name;
    int index;  // 0: the plain setter
    HRESULT expected;
    const char* key;
  } cases[] = {
      {false, kLeaderGap, 0, S_OK, kLeaderGap},
      {false, kColor, 0, S_OK, "Patterns.coloring.color.1"},
      {false, "Patterns.coloring.color.15", 0, S_OK, "Patterns.coloring.color.15"},
      {false, kColor, 5, S_OK, "Patterns.coloring.color.5"},
      {false, kColor, -3, S_OK, "Patterns.coloring.color.-3"},
      {false, kLeaderGap, 2, E_FAIL, nullptr},  // indexed: only a ".1" key admits
      {false, "Text.Default.Font.Size", 0, E_FAIL, nullptr},
      {false, "Annotation.Text", 0, E_FAIL, nullptr},
      {false, "annotation.text.leadergap", 0, E_FAIL, nullptr},
      {true, "Text.Default.Font.Size", 0, S_OK, "Text.Default.Font.Size"},
      {true, "Text.Default.Font.Size", 2, S_OK, "Text.Default.Font.Size.2"},
      {true, "Sheet.ViewMode", 0, S_OK, "Sheet.ViewMode"},
      {true, kLeaderGap, 0, E_FAIL, nullptr},
      {true, kColor, 1, E_FAIL, nullptr},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(std::string(c.onStyle ? "style " : "standard ") + c.name + " " + std::to_string(c.index));
    ZOLBaseUnknown* local = c.onStyle ? static_cast<ZOLBaseUnknown*>(NewLocal<ZOLIQelLocalStyle>("QelLocalStyle").Detach())
                                      : NewLocal<ZOLIQelLocalStandard>("QelLocalStandard").Detach();
    HRESULT hr = c.onStyle ? (c.index ? ZOLIQelLocalStyle_var(local)->SetOverloadedValue(c.name, c.index, 1.5)
                                      : ZOLIQelLocalStyle_var(local)->SetOverloadedValue(c.name, 1.5))
                           : (c.index ? ZOLIQelLocalStandard_var(local)->SetOverloadedValue(c.name, c.index, 1.5)
                                      : ZOLIQelLocalStandard_var(local)->SetOverloadedValue(c.name, 1.5));
    EXPECT_EQ(hr, c.expected);
    EXPECT_EQ(Attribute(local),
              c.key ? std::string("{\"") + c.key + "\":{\"type\":\"double\", \"value\":1.500000}}" : "(none)");
    local->Release();
  }
}

TEST_F(LocalStandard, AnEmptyVectorIsRefusedBeforeTheNameIsLookedAt) {
  EXPECT_EQ(standard->SetOverloadedValue("No.Such.Name", std::vector<int>{}), E_INVALIDARG);
  EXPECT_EQ(standard->SetOverloadedValue(kLeaderGap, std::vector<double>{}), E_INVALIDARG);
  EXPECT_EQ(style->SetOverloadedValue("Text.Default.Font.Name", std::vector<ZOLUnicodeString>{}), E_INVALIDARG);
  EXPECT_EQ(standard->SetOverloadedValue("No.Such.Name", std::vector<int>{1}), E_FAIL);
  EXPECT_EQ(Attribute(standard), "(none)");
  EXPECT_EQ(standard->Reserved(), E_NOTIMPL);
}

TEST_F(LocalStandard, AFreshObjectAnswersOneToEveryGetterAndLeavesItsArgument) {
  for (const char* name : {kLeaderGap, kColor, "Text.Default.Font.Name", "No.Such.Name"}) {
    for (const std::string& asked : {Ask(standard, name, 7), Ask(standard, name, 7, 1), Ask(standard, name, std::vector<int>{7}),
                                     Ask(style, name, 7.0), Ask(style, name, 7.0, 1), Ask(style, name, std::vector<double>{7}),
                                     Ask(standard, name, ZOLUnicodeString("kept")), Ask(style, name, ZOLUnicodeString("kept"), 1),
                                     Ask(style, name, std::vector<ZOLUnicodeString>{"kept"})})
      EXPECT_TRUE(asked == "1 7" || asked == "1 7.000000" || asked == "1 1 7" || asked == "1 1 7.000000" ||
                  asked == "1 kept" || asked == "1 1 kept")
          << name << ": " << asked;
  }
}

TEST_F(LocalStandard, ACallerReadsTheLocalValueAndOnOneTheElementsStandard) {
  ZOLISpecObject_var view = Element("PCCMemMBDView", "view", Standard("ISO"));
  double gap = -1, roughnessGap = -1;
  ASSERT_EQ(localtest::Iso()->GetValue(kLeaderGap, 1, gap), S_OK);
  ASSERT_EQ(localtest::Iso()->GetValue("Annotation.Roughness.LeaderGap", 1, roughnessGap), S_OK);
  EXPECT_EQ(ReadReal(view, kLeaderGap), gap) << "no local standard yet";
  ASSERT_EQ(ZOLIQelLocalStdManager_var(view)->GetLocalStandard(1)->SetOverloadedValue(kLeaderGap, gap + 3.0), S_OK);
  EXPECT_EQ(ReadReal(view, kLeaderGap), gap + 3.0);
  EXPECT_EQ(ReadReal(view, "Annotation.Roughness.LeaderGap"), roughnessGap);
}

TEST_F(LocalStandard, GettersAnswerOnlyTheirKindAndTheirIndex) {
  ASSERT_EQ(standard->SetOverloadedValue(kLeaderGap, 3.0), S_OK);
  ASSERT_EQ(standard->SetOverloadedValue(kColor, 255), S_OK);        // as ".1"
  ASSERT_EQ(standard->SetOverloadedValue(kColor, 5, 127), S_OK);     // as ".5"
  ASSERT_EQ(style->SetOverloadedValue("Text.Default.Font.Name", ZOLUnicodeString("SSS4")), S_OK);
  ASSERT_EQ(style->SetOverloadedValue("Text.Default.Font.Name", 1, 3), S_OK);  // as ".1", an Int
  ASSERT_EQ(style->SetOverloadedValue("Sheet.ViewMode", std::vector<int>{1, 2}), S_OK);
  struct Case {
    std::string asked;  // the result, and what the out argument then shows
    const char* expected;
  } cases[] = {
      {Ask(standard, kLeaderGap, -1.0), "0 3.000000"},
      {Ask(standard, kLeaderGap, -1), "1 -1"},
      {Ask(standard, kColor, -1), "0 255"},  // the bare name through ".1"
      {Ask(standard, kColor, -1, 1), "0 255"},
      {Ask(standard, kColor, -1, 5), "0 127"},
      {Ask(standard, kColor, -1, 6), "1 -1"},
      {Ask(standard, kLeaderGap, -1.0, 1), "0 3.000000"},  // the bare name at index 1 only
      {Ask(standard, kLeaderGap, -1.0, 2), "1 -1.000000"},
      {Ask(standard, kLeaderGap, std::vector<double>{9}), "0 2 3.000000"},  // a scalar is appended
      {Ask(style, "Sheet.ViewMode", std::vector<int>{9, 9, 9}), "0 2 2"},  // a vector replaces
      {Ask(style, "Sheet.ViewMode", -1), "1 -1"},
      // The bare entry is a String: its kind decides, and ".1" is not tried.
      {Ask(style, "Text.Default.Font.Name", -1), "1 -1"},
      {Ask(style, "Text.Default.Font.Name", ZOLUnicodeString("none")), "0 SSS4"},
      {Ask(style, "Text.Default.Font.Name", -1, 1), "0 3"},
  };
  for (size_t i = 0; i < std::size(cases); ++i) EXPECT_EQ(cases[i].asked, cases[i].expected) << "case " << i;
}

TEST_F(LocalStandard, EachChangeRewritesTheWholeAttributeAndNoneRemovesAValue) {
  ASSERT_EQ(standard->SetOverloadedValue(kColor, 255), S_OK);
  ASSERT_EQ(standard->SetOverloadedValue(kColor, ZOLUnicodeString("red")), S_OK);
  EXPECT_EQ(Attribute(standard), R"({"Patterns.coloring.color.1":{"type":"string", "value":"red"}})");
  ASSERT_EQ(standard->SetOverloadedValue(kColor, 1, 0.5), S_OK);
  ASSERT_EQ(standard->SetOverloadedValue(kLeaderGap, std::vector<ZOLUnicodeString>{"a", "b"}), S_OK);
  ASSERT_EQ(standard->SetOverloadedValue("General.UserPreferences.CurrentStandard", std::vector<int>{4, -1}), S_OK);
  ASSERT_EQ(standard->SetOverloadedValue(kLeaderGap, 2, 1.0), E_FAIL);
  OverloadedValueMap expected{{"Patterns.coloring.color.1", LocalValue(0.5)},
                              {kLeaderGap, LocalValue(std::vector<ZOLUnicodeString>{"a", "b"})},
                              {"General.UserPreferences.CurrentStandard", LocalValue(std::vector<int>{4, -1})}};
  EXPECT_EQ(Stored(standard), expected);
}

TEST_F(LocalStandard, AStoredTextThatDoesNotParseGivesAnEmptyObjectAndLosesNothingElse) {
  const std::string corrupt = R"({"Annotation.Text.LeaderGap":{"type":"double", "value":2.5)";
  const std::string partial = R"({"a":{"type":"invalid", "value":1},"Annotation.Text.LeaderGap":{"type":"int", "value":4}})";
  ZOLISpecObject_var broken = doc->CreateObject("QelLocalStandard", "broken");
  ZOLISpecObject_var half = doc->CreateObject("QelLocalStandard", "half");
  for (auto& [object, text] : {std::pair{broken.Get(), corrupt}, std::pair{half.Get(), partial}}) {
    object->AddAttribute("overloadedValues", ZOLSpecAttrString, 0);
    object->AddAttribute("note", ZOLSpecAttrString, 0);
    ZOLISpecAttrAccess_var access(object);
    access->SetString(access->GetAttrKey("overloadedValues").get(), ZOLUnicodeString(text));
    access->SetString(access->GetAttrKey("note").get(), "kept");
  }
  int value = -1;
  EXPECT_EQ(ZOLIQelLocalStandard_var(broken)->GetOverloadedValue(kLeaderGap, value), S_FALSE);
  EXPECT_EQ(ZOLIQelLocalStandard_var(half)->GetOverloadedValue(kLeaderGap, value), S_OK);
  EXPECT_EQ(value, 4);
  EXPECT_EQ(Attribute(broken), corrupt) << "reading does not rewrite";
  ASSERT_EQ(ZOLIQelLocalStandard_var(broken)->SetOverloadedValue(kColor, 1), S_OK);
  EXPECT_EQ(Attribute(broken), R"({"Patterns.coloring.color.1":{"type":"int", "value":1}})");
  EXPECT_EQ(Attribute(broken, "note"), "kept");
  EXPECT_EQ(Attribute(half), partial);
}
