#include <gtest/gtest.h>

#include <type_traits>
#include <string>
#include <vector>

#include "ZOLDftStandardServices.h"
#include "ZOLIDftStyle.h"
#include "ZOLIDftStyleManager.h"
#include "ZOLIUnknownList.h"
#include "ZOLReportCountTest.h"
#include "ZOLStandardObjectTestSupport.h"
#include "ZOLVotDftStyle.h"

namespace {

using qeltest::Builtin;
using qeltest::FromBody;
using qeltest::Impl;
using qeltest::Narrow;

std::string N(const std::string& name, const std::string& inner) { return qeltest::Node(name, inner); }

// Styles of type A (X, Y), a nameless node, a value beside the styles of B, and C with a style Z
// but no Default.
const std::string kSmall =
    N("Version", "<std:intval>280</std:intval>") +
    N("Styles", N("B", N("Default", N("Color", "<std:colorval>1 2 3</std:colorval>")) + "<std:intval>9</std:intval>" +
                           N("Thin", N("Thickness", "<std:intval>1</std:intval>"))) +
                    "<std:node>" + N("Q", "") + "</std:node>" +
                    N("A", N("X", N("Size", "<std:floatval>2.5</std:floatval>")) + N("Y", "")) +
                    N("C", N("Z", N("Font", N("Name", "<std:strval>Mono</std:strval>")))));

std::vector<std::string> Strings(const ZOLListValZOLUnicodeString& list) {
  std::vector<std::string> out;
  for (const ZOLUnicodeString& s : list) out.push_back(s.str());
  return out;
}

// "type.name" of every style in a list.
std::vector<std::string> Listed(ZOLIUnknownList* list) {
  std::vector<std::string> out;
  int count = -1;
  EXPECT_EQ(list->Count(&count), S_OK);
  for (int i = 0; i < count; ++i) {
    ZOLBaseUnknown* item = nullptr;
    EXPECT_EQ(list->Item(i, &item), S_OK);
    ZOLIDftStyle_var style(item);
    item->Release();
    wchar_t *type = nullptr, *name = nullptr;
    style->GetType(&type);
    style->GetName(&name);
    out.push_back(Narrow(type) + "." + Narrow(name));
  }
  return out;
}

// The small standard and its style manager, the reports counted.
class Styles : public ZOLReportCountTest {
protected:
  ZOLIDrwStandard_var s = FromBody(kSmall);
  ZOLIDftStyleManager_var m{s.Get()};
};

}  // namespace

TEST_F(Styles, TypesAndNamesComeInDocumentOrderAndSkipWhatIsNoStyle) {
  ZOLListValZOLUnicodeString list;
  list.Append("stale");
  EXPECT_EQ(Impl(s)->GetStyleTypes(&list), S_OK);
  EXPECT_EQ(Strings(list), (std::vector<std::string>{"B", "A", "C"}));
  EXPECT_EQ(s->GetStyleNames("B", &list), S_OK);
  EXPECT_EQ(Strings(list), (std::vector<std::string>{"Default", "Thin"}));
  reports = 1;  // the integer beside the styles of B
  EXPECT_EQ(s->GetStyleNames("D", &list), E_UNEXPECTED);
  EXPECT_EQ(list.Size(), 0);
  EXPECT_EQ(Impl(s)->GetStyleTypes(nullptr), E_INVALIDARG);
  reports += 2;
  ZOLIDrwStandard_var none = FromBody(N("Dimension", "<std:intval>1</std:intval>"));
  list.Append("stale");
  EXPECT_EQ(Impl(none)->GetStyleTypes(&list), E_UNEXPECTED);
  EXPECT_EQ(list.Size(), 0);
  reports += 1;
}

TEST_F(Styles, GetStylesListsTypeByTypeAndFiltersByType) {
  ASSERT_FALSE(m.IsNull());
  const std::pair<const wchar_t*, std::vector<std::string>> cases[] = {
      {nullptr, {"B.Default", "B.Thin", "A.X", "A.Y", "C.Z"}},
      {L"", {"B.Default", "B.Thin", "A.X", "A.Y", "C.Z"}},
      {L"A", {"A.X", "A.Y"}},
      {L"Nothing", {}},
  };
  for (const auto& [type, expected] : cases) {
    ZOLIUnknownList* list = nullptr;
    ASSERT_EQ(m->GetStyles(type, &list, nullptr), S_OK);
    EXPECT_EQ(Listed(list), expected) << (type ? "typed" : "null");
    list->Release();
  }
  reports = 2;  // the integer beside the styles of B, once per listing of B
  EXPECT_EQ(m->GetStyles(L"A", nullptr, nullptr), E_INVALIDARG);
  ++reports;
  // No "Styles": an empty list, and the missing node reported.
  ZOLIDftStyleManager_var none(FromBody(N("Dimension", "")).Get());
  ZOLIUnknownList* list = nullptr;
  ASSERT_EQ(none->GetStyles(nullptr, &list, nullptr), S_OK);
  EXPECT_TRUE(Listed(list).empty());
  list->Release();
  ++reports;
}

TEST_F(Styles, DefaultStyleIsDefaultUntilSetOnThatObject) {
  ZOLIDrwStandard_var other = FromBody(kSmall);
  ZOLIDftStyleManager_var o(other.Get());
  // The result of the wide read and the name it gave, "<null>" for none.
  auto defaultOf = [](ZOLIDftStyleManager* manager, const wchar_t* type, const wchar_t* context) {
    wchar_t* name = nullptr;
    HRESULT hr = manager->GetDefaultStyle(type, &name, context);
    return std::pair(hr, name ? Narrow(name) : std::string("<null>"));
  };
  EXPECT_EQ(defaultOf(m, L"C", nullptr), std::pair(S_OK, std::string("Default")));  // whether the type has one or not
  ASSERT_EQ(m->SetDefaultStyle(L"C", L"Z", L"ctx"), S_OK);
  EXPECT_EQ(defaultOf(m, L"C", L"ctx"), std::pair(S_OK, std::string("Z")));
  EXPECT_EQ(defaultOf(o, L"C", nullptr), std::pair(S_OK, std::string("Default")));
  EXPECT_EQ(defaultOf(m, L"A", nullptr), std::pair(S_OK, std::string("Default")));
  // The inner form keeps an empty name, which the wide form then refuses to give.
  ZOLUnicodeString inner;
  ASSERT_EQ(Impl(s)->SetDefaultStyle(ZOLUnicodeString("A"), ZOLUnicodeString(""), ZOLUnicodeString()), S_OK);
  EXPECT_EQ(Impl(s)->GetDefaultStyle(ZOLUnicodeString("A"), inner, ZOLUnicodeString()), E_UNEXPECTED);
  EXPECT_EQ(defaultOf(m, L"A", nullptr), std::pair(E_UNEXPECTED, std::string("<null>")));
  reports = 3;
}

TEST_F(Styles, WideFormsRefuseTheirArgumentsAndUnfinishedSlotsReport) {
  wchar_t set[] = L"x";
  wchar_t* taken = set;
  ZOLIDftStyle* occupied = nullptr;
  ASSERT_EQ(m->GetStyle(L"X", L"A", &occupied), S_OK);
  ZOLIDftStyle* out = nullptr;
  wchar_t* fresh = nullptr;
  struct Case {
    const char* what;
    HRESULT got;
    HRESULT expected;
    int reports;
  };
  const Case cases[] = {
      {"GetStyle, output set", m->GetStyle(L"X", L"A", &occupied), E_INVALIDARG, 1},
      {"GetStyle, null output", m->GetStyle(L"X", L"A", nullptr), E_INVALIDARG, 1},
      {"GetStyle, empty name", m->GetStyle(L"", L"A", &out), E_INVALIDARG, 0},
      {"GetStyle, null name", m->GetStyle(nullptr, L"A", &out), E_INVALIDARG, 0},
      {"GetStyle, empty type", m->GetStyle(L"X", L"", &out), E_INVALIDARG, 1},
      {"GetDefaultStyle, output set", m->GetDefaultStyle(L"A", &taken, nullptr), E_INVALIDARG, 1},
      {"GetDefaultStyle, null output", m->GetDefaultStyle(L"A", nullptr, nullptr), E_INVALIDARG, 1},
      {"GetDefaultStyle, empty type", m->GetDefaultStyle(L"", &fresh, nullptr), E_INVALIDARG, 1},
      {"SetDefaultStyle, empty name", m->SetDefaultStyle(L"A", L"", nullptr), E_INVALIDARG, 1},
      {"SetDefaultStyle, null type", m->SetDefaultStyle(nullptr, L"X", nullptr), E_INVALIDARG, 1},
      {"GetStdVersion, null output", m->GetStdVersion(nullptr), E_INVALIDARG, 1},
      {"unfinished slot 3", m->Reserved3(), E_NOTIMPL, 1},
      {"unfinished slot 7", m->Reserved7(), E_NOTIMPL, 1},
  };
  for (const Case& c : cases) {
    EXPECT_EQ(c.got, c.expected) << c.what;
    reports += c.reports;
  }
  EXPECT_EQ(out, nullptr);
  EXPECT_EQ(fresh, nullptr);
  EXPECT_EQ(taken, set);
  occupied->Release();
  EXPECT_EQ(r.Count(), reports);
  EXPECT_EQ(r.CountContaining("TO_BE_IMPLEMENTED..."), 2);
  wchar_t* name = nullptr;
  ASSERT_EQ(m->GetDefaultStyle(L"A", &name, nullptr), S_OK);
  EXPECT_EQ(Narrow(name), "Default");  // the refused set changed nothing
}

TEST_F(Styles, GetStyleMakesANewBoundStyleOnEachCallWithoutLookingItUp) {
  ZOLIDftStyle *first = nullptr, *second = nullptr, *absent = nullptr;
  ASSERT_EQ(m->GetStyle(L"Default", L"B", &first), S_OK);
  ASSERT_EQ(m->GetStyle(L"Default", L"B", &second), S_OK);
  EXPECT_NE(first, second);
  EXPECT_EQ(first->RefCount(), 1u);
  EXPECT_TRUE(first->IsA("ZOLVotDftStyle"));
  EXPECT_TRUE(first->IsAKindOf("ZOLIDftStyle"));
  ASSERT_EQ(m->GetStyle(L"Nothing", L"B", &absent), S_OK);
  EXPECT_EQ(absent->HasNode("Color"), 0);
  int rgb[3] = {7, 7, 7}, count = 9;
  EXPECT_EQ(absent->GetValue("Color", rgb, &count), E_FAIL);
  EXPECT_EQ(count, 0);
  EXPECT_EQ(first->GetValue("Color", rgb, &count), S_OK);
  EXPECT_EQ(std::vector<int>(rgb, rgb + count), (std::vector<int>{1, 2, 3}));
  EXPECT_EQ(first->HasNode("Color"), 1);
  int version = 0;
  EXPECT_EQ(m->GetStdVersion(&version), S_OK);
  EXPECT_EQ(version, 280);
  EXPECT_EQ(first->GetStdVersion(), 280);
  ZOLIDftStyleManager* back = nullptr;
  ASSERT_EQ(first->GetStyleManager(&back), S_OK);
  EXPECT_EQ(back, m.Get());
  EXPECT_EQ(first->GetStyleManager(&back), E_INVALIDARG);
  EXPECT_EQ(first->GetStyleManager(nullptr), E_INVALIDARG);
  reports = 2;
  back->Release();
  for (ZOLIDftStyle* style : {first, second, absent}) style->Release();
}

TEST_F(Styles, AStyleKeepsItsStandardAliveAfterTheCallerReleasedIt) {
  ZOLIDftStyle* style = nullptr;
  ZOLVotTransientStandard* impl = nullptr;
  {
    ZOLIDrwStandard_var s = FromBody(kSmall);
    impl = Impl(s);
    ZOLIDftStyleManager_var m(s.Get());
    ASSERT_EQ(m->GetStyle(L"X", L"A", &style), S_OK);
  }
  EXPECT_EQ(impl->RefCount(), 1u);  // the style's reference alone
  double size = 0;
  EXPECT_EQ(style->GetValue("Size", 1, size), S_OK);
  EXPECT_EQ(size, 2.5);
  EXPECT_EQ(style->Release(), 0u);
}

TEST_F(Styles, InitializeBindsOnceAndAnUnboundStyleAnswersNothing) {
  auto* style = new ZOLVotDftStyle;
  wchar_t* text = nullptr;
  ASSERT_EQ(style->GetName(&text), S_OK);
  EXPECT_EQ(Narrow(text), "");
  int i = 5, count = 5;
  int buffer[3] = {};
  double d = 5;
  ZOLUnicodeString t("kept");
  ZOLDftStandardValueType type = ZOLDftStandardValueTypeReal;
  EXPECT_EQ(style->GetValue("Color", 1, i), E_FAIL);
  EXPECT_EQ(style->GetValue("Color", 1, d), E_FAIL);
  EXPECT_EQ(style->GetValue("Color", 1, t), E_FAIL);
  EXPECT_EQ(style->GetValue("Color", buffer, &count), E_FAIL);
  EXPECT_EQ(style->GetValueType("Color", &type, &count), E_FAIL);
  EXPECT_EQ(style->HasNode(""), 0);
  EXPECT_EQ(style->GetStdVersion(), 0);
  EXPECT_EQ(i + d + count, 15);
  EXPECT_EQ(t.str(), "kept");
  ZOLIDrwStandard_var null;
  EXPECT_EQ(style->Initialize(null, "Default", "B"), E_INVALIDARG);
  ZOLIDrwStandard_var other = FromBody(kSmall);
  ASSERT_EQ(style->Initialize(s, "Default", "B"), S_OK);
  EXPECT_EQ(style->Initialize(other, "Thin", "B"), E_FAIL);
  EXPECT_EQ(other->RefCount(), 1u);
  text = nullptr;
  ASSERT_EQ(style->GetType(&text), S_OK);
  EXPECT_EQ(Narrow(text), "B");
  EXPECT_EQ(style->GetValue("Color", buffer, &count), S_OK);
  reports = 2;
  style->Release();
}

// Every style of the three built-in standards is listed once under its type, and every value filed
// under it reads the same through the style as through the standard at its full path, in each form.
TEST_F(Styles, BuiltinStylesAreListedOnceAndReadAsTheStandardAtTheirFullPath) {
  for (const char* name : {"ISO", "ANSI-ASME", "JIS"}) {
    ZOLIDrwStandard_var s = Builtin(name);
    ZOLIDftStyleManager_var m(s.Get());
    ZOLListValZOLUnicodeString types, names, keys, kinds, values;
    ASSERT_EQ(Impl(s)->GetStyleTypes(&types), S_OK);
    std::vector<std::string> expected;
    for (const ZOLUnicodeString& type : types) {
      ASSERT_EQ(s->GetStyleNames(type.ConvertToChar(), &names), S_OK) << type.str();
      EXPECT_GE(names.Size(), 1) << name << " " << type.str();
      for (const ZOLUnicodeString& n : names) expected.push_back(type.str() + "." + n.str());
    }
    ZOLIUnknownList* list = nullptr;
    ASSERT_EQ(m->GetStyles(nullptr, &list, nullptr), S_OK);
    ASSERT_EQ(Listed(list), expected) << name;
    ASSERT_EQ(ZOLDftStandardServices::ListFiledValues(s, "", keys, kinds, values), S_OK);
    int reads = 0;
    for (size_t k = 0; k < expected.size(); ++k) {
      ZOLBaseUnknown* item = nullptr;
      list->Item(static_cast<int>(k), &item);
      ZOLIDftStyle_var style(item);
      item->Release();
      const std::string prefix = expected[k] + ".";
      for (int i = 1; i <= keys.Size(); ++i) {
        const std::string& key = keys[i].str();
        if (key.compare(0, prefix.size(), prefix) != 0) continue;
        const std::string& kind = kinds[i].str();
        std::string path = key.substr(prefix.size());
        const bool single = kind == "integer" || kind == "real" || kind == "string" || kind == "enum";
        int index = 1;
        if (single) {
          index = std::stoi(path.substr(path.rfind('.') + 1));
          path.erase(path.rfind('.'));
        }
        const std::string full = prefix + path;
        SCOPED_TRACE(std::string(name) + " " + key);
        ++reads;
        auto same = [&]<typename T>(T a, T b) {
          ASSERT_EQ(style->GetValue(path.c_str(), index, a), S_OK);
          ASSERT_EQ(s->GetValue(full.c_str(), index, b), S_OK);
          EXPECT_EQ(a, b);
          if constexpr (std::is_same_v<T, ZOLUnicodeString>) {
            EXPECT_EQ(a.str(), values[i].str());
          }
        };
        if (kind == "integer") {
          same(-1, -2);
        } else if (kind == "real") {
          same(-1.0, -2.0);
        } else if (kind == "string" || kind == "enum") {
          same(ZOLUnicodeString("a"), ZOLUnicodeString("b"));
        } else if (kind == "integers") {
          int a[64], b[64], na = -1, nb = -2;
          ASSERT_EQ(style->GetValue(path.c_str(), a, 64, &na), S_OK);
          ASSERT_EQ(s->GetValue(full.c_str(), b, &nb), S_OK);
          ASSERT_LE(na, nb);
          EXPECT_EQ(std::vector<int>(a, a + na), std::vector<int>(b, b + na));
        } else {
          ADD_FAILURE() << "no style of a built-in standard holds " << kind;  // lists of reals or texts
        }
      }
    }
    list->Release();
    EXPECT_GT(reads, 100) << name;
    // The road of a drafting module: the default Curve style's colour, three integers.
    ZOLIDftStyle* curve = nullptr;
    wchar_t* def = nullptr;
    ASSERT_EQ(m->GetDefaultStyle(L"Curve", &def, nullptr), S_OK);
    ASSERT_EQ(m->GetStyle(def, L"Curve", &curve), S_OK);
    delete[] def;
    int rgb[3] = {-1, -1, -1}, count = 0;
    EXPECT_EQ(curve->GetValue("Color", rgb, &count), S_OK);
    EXPECT_EQ(count, 3);
    ZOLDftStandardValueType type = ZOLDftStandardValueTypeUnknown;
    EXPECT_EQ(curve->GetValueType("ControlPoints", &type, &count), E_UNEXPECTED);  // nodes have no value type
    curve->Release();
    reports += 2;
  }
}
