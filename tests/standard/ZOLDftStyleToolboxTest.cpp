#include <gtest/gtest.h>

#include <map>
#include <string>
#include <tuple>
#include <vector>

#include "ZOLDftStandardServices.h"
#include "ZOLDftStyleToolbox.h"
#include "ZOLIDftElementWithStandard.h"
#include "ZOLIDftElementWithStyle.h"
#include "ZOLIDftStyle.h"
#include "ZOLIDftStyleManager.h"
#include "ZOLIVisProperties.h"
#include "ZOLQelVisuEventsToolbox.h"
#include "ZOLTIE.h"
#include "ZOLReportCountTest.h"
#include "ZOLStandardObjectTestSupport.h"

namespace {

using qeltest::Narrow;

std::string N(const std::string& name, const std::string& inner) { return qeltest::Node(name, inner); }
std::string I(const std::string& name, const std::string& v) { return N(name, "<std:intval>" + v + "</std:intval>"); }
std::string C(const std::string& v) { return N("Color", "<std:colorval>" + v + "</std:colorval>"); }
std::string P(const std::string& v) { return N("PointType", "<std:enumval name=\"PointType\">" + v + "</std:enumval>"); }

ZOLIDrwStandard_var Standard(bool withVersion = true) {
  return qeltest::FromBody(
      (withVersion ? I("Version", "280") : std::string()) +
      N("Styles",
        N("Curve", N("Default", I("Thickness", "0") + I("LineType", "8") + C("10 20 30") + P("Cross") +
                                    N("Arrow", I("Thickness", "4") + I("LineType", "3") + C("7 8 9") + P("Star"))) +
                       N("Lower", I("Thickness", "5") + I("Linetype", "3") + C("1 2")) +
                       N("Negative", I("LineType", "0") + C("-1 2 3") + P("Triangle")) + N("Empty", "") +
                       N("Ints", I("Thickness", "3") + N("Color", "<std:intval>4</std:intval><std:intval>5</std:intval>"))) +
        N("Point", N("Other", P("Smalldot") + C("0 0 255")))));
}

ZOLIDftStyle_var StyleOf(ZOLIDrwStandard* s, const wchar_t* name, const wchar_t* type = L"Curve") {
  ZOLIDftStyleManager_var m(s);
  ZOLIDftStyle* style = nullptr;
  EXPECT_EQ(m->GetStyle(name, type, &style), S_OK);
  return ZOLIDftStyle_var::Adopt(style);
}

// What is set in the values: "w2 l1 c0,0,0 s8", a "-" for what is not set.
std::string Describe(const ZOLVisPropertiesValues& v) {
  int w = 0, l = 0, r = 0, g = 0, b = 0;
  ZOLSymbolType s = ZOLSymbolNone;
  std::string out = v.GetWidth(w) ? "w" + std::to_string(w) : "w-";
  out += v.GetLineType(l) ? " l" + std::to_string(l) : " l-";
  out += v.GetColor(r, g, b) ? " c" + std::to_string(r) + "," + std::to_string(g) + "," + std::to_string(b) : " c-";
  out += v.GetSymbolType(s) ? " s" + std::to_string(s) : " s-";
  return out;
}

// A drafting element of the application: its standard and the styles it was given, through the
// two element interfaces attached as TIEs.
class Element : public ZOLBaseUnknown {
public:
  HRESULT QueryInterface(const IID& iid, void** o) override;
  ZOLVar<ZOLBaseUnknown> standard;
  HRESULT standardResult = S_OK;
  bool takesStyles = true;
  HRESULT applyResult = S_OK;
  std::vector<std::string> applied;  // "type.name mode context"
};

class ElementStandard : public ZOLTIEBase<ZOLIDftElementWithStandard, Element> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  // A failure may leave a pointer behind, but never a reference: the caller releases only on success.
  HRESULT GetStandard(ZOLBaseUnknown** o) override {
    *o = _impl->standard.Get();
    if (*o && SUCCEEDED(_impl->standardResult)) (*o)->AddRef();
    return _impl->standardResult;
  }
};

class ElementStyle : public ZOLTIEBase<ZOLIDftElementWithStyle, Element> {
public:
  using ZOLTIEBase::ZOLTIEBase;
  HRESULT ApplyStyle(ZOLIDftStyle* style, DftStyleApplyMode mode, DftStyleApplyContext context) override {
    wchar_t *type = nullptr, *name = nullptr;
    style->GetType(&type);
    style->GetName(&name);
    _impl->applied.push_back(Narrow(type) + "." + Narrow(name) + " " + std::to_string(mode) + " " + std::to_string(context));
    return _impl->applyResult;
  }
};

HRESULT Element::QueryInterface(const IID& iid, void** o) {
  if (iid == IID_ZOLIDftElementWithStandard) {
    *o = ZOLAttachTIE<ZOLIDftElementWithStandard, ElementStandard, Element>(this, iid);
    return S_OK;
  }
  if (iid == IID_ZOLIDftElementWithStyle && takesStyles) {
    *o = ZOLAttachTIE<ZOLIDftElementWithStyle, ElementStyle, Element>(this, iid);
    return S_OK;
  }
  return ZOLBaseUnknown::QueryInterface(iid, o);
}

// The visual side of the application: properties by geometry kind, and every call in a log.
class Vis : public ZOLIVisProperties {
public:
  HRESULT IsGeometryKindDefined(int* kind) override {
    log.push_back("defined " + std::to_string(*kind));
    return defined.count(*kind) ? defined[*kind] : E_FAIL;
  }
  HRESULT GetProperties(ZOLVisPropertiesValues& v, ZOLVisPropertyType type, int kind, unsigned int inheritance, int flag) override {
    log.push_back("get " + std::to_string(kind) + " " + std::to_string(type) + " " + std::to_string(inheritance) + " " +
                  std::to_string(flag));
    if (FAILED(getResult)) return getResult;
    v = current[kind];
    return S_OK;
  }
  HRESULT SetProperties(const ZOLVisPropertiesValues& v, ZOLVisPropertyType type, int kind, unsigned int inheritance, int flag) override {
    log.push_back("set " + std::to_string(kind) + " " + std::to_string(type) + " " + std::to_string(inheritance) + " " +
                  std::to_string(flag) + " " + Describe(v));
    if (FAILED(setResult)) return setResult;
    current[kind] = v;
    return S_OK;
  }
  std::map<int, HRESULT> defined{{3, S_OK}, {4, S_OK}};
  std::map<int, ZOLVisPropertiesValues> current;
  HRESULT getResult = S_OK, setResult = S_OK;
  std::vector<std::string> log;
};

class StyleToolbox : public ZOLReportCountTest {
protected:
  void SetUp() override {
    previous = ZOLQelVisuEventsToolbox::SetDispatcher(
        [this](ZOLBaseUnknown* object, int kind, ZOLVisPropertyType type, const ZOLVisPropertiesValues& v) {
          vis->log.push_back("dispatch " + std::to_string(kind) + " " + std::to_string(type) + " " + Describe(v) +
                             (object == vis ? "" : " (another object)"));
          return dispatchResult;
        });
  }
  void TearDown() override {
    ZOLQelVisuEventsToolbox::SetDispatcher(previous);
    vis->Release();
    ZOLReportCountTest::TearDown();
  }
  Vis* vis = new Vis;
  HRESULT dispatchResult = S_OK;
  ZOLQelVisuEventsToolbox::Dispatcher previous;
};

}  // namespace

TEST_F(StyleToolbox, GraphicValuesOfAStyleFollowTheWidthLineTypeColourAndPointRules) {
  ZOLIDrwStandard_var s = Standard();
  struct Case {
    const wchar_t* style;
    const char* prefix;
    int kind;
    int useDefaults;
    const char* expected;
  };
  const Case cases[] = {
      // Thickness 0 gives 2, line type 8 gives 0, a colour of three values is taken.
      {L"Default", nullptr, 3, 0, "w2 l0 c10,20,30 s-"},
      {L"Default", "", 3, 0, "w2 l0 c10,20,30 s-"},
      {L"Default", "Arrow", 3, 0, "w4 l3 c7,8,9 s-"},
      {L"Default", nullptr, 4, 0, "w- l- c10,20,30 s1"},
      {L"Default", "Arrow", 4, 0, "w- l- c7,8,9 s7"},
      // The lower-case spelling of the line type; a colour of two values is black.
      {L"Lower", nullptr, 3, 0, "w5 l3 c0,0,0 s-"},
      // Line type 0 gives 1; a negative colour value is black; an unknown point type sets nothing.
      {L"Negative", nullptr, 3, 0, "w- l1 c0,0,0 s-"},
      {L"Negative", nullptr, 4, 0, "w- l- c0,0,0 s-"},
      // Nothing in the style: nothing set.
      {L"Empty", nullptr, 3, 0, "w- l- c- s-"},
      {L"Empty", nullptr, 4, 0, "w- l- c- s-"},
      // Two integers for a colour count 2: black.
      {L"Ints", nullptr, 3, 0, "w3 l- c0,0,0 s-"},
      // Defaults read nothing.
      {L"Default", nullptr, 3, 1, "w2 l1 c0,0,0 s-"},
      {L"Default", nullptr, 4, 1, "w- l- c0,0,0 s-"},
  };
  for (const Case& c : cases) {
    ZOLVisPropertiesValues values;
    EXPECT_EQ(ZOLDftStyleToolbox::GetPropertiesValueFromStyle(StyleOf(s, c.style), c.prefix, c.kind, c.useDefaults, values), S_OK);
    EXPECT_EQ(Describe(values), c.expected) << c.kind << " " << (c.prefix ? c.prefix : "null") << " " << c.useDefaults;
  }
  ZOLVisPropertiesValues values;
  EXPECT_EQ(ZOLDftStyleToolbox::GetPropertiesValueFromStyle(StyleOf(s, L"Other", L"Point"), nullptr, 4, 0, values), S_OK);
  EXPECT_EQ(Describe(values), "w- l- c0,0,255 s9");
  EXPECT_EQ(ZOLDftStyleToolbox::GetPropertiesValueFromStyle(StyleOf(s, L"Default"), nullptr, 5, 0, values), E_INVALIDARG);
  EXPECT_EQ(ZOLDftStyleToolbox::GetPropertiesValueFromStyle(nullptr, nullptr, 3, 0, values), E_UNEXPECTED);
  EXPECT_EQ(Describe(values), "w- l- c0,0,255 s9");
  reports = 1;
}

TEST_F(StyleToolbox, SetGraphicPropertiesReadsOverlaysWritesAndDispatchesPerKindInOrder) {
  ZOLIDrwStandard_var s = Standard();
  vis->current[3].SetWidth(9, 0);
  vis->current[3].SetSymbolType(ZOLSymbolStar);
  vis->current[4].SetWidth(6, 0);
  EXPECT_EQ(ZOLDftStyleToolbox::SetGraphicProperties(StyleOf(s, L"Default"), "Arrow", vis, 0, 5, DftStyleApplyContext(3), 1), S_OK);
  EXPECT_EQ(vis->log, (std::vector<std::string>{
                          "defined 3", "get 3 12 5 0", "set 3 12 5 0 w4 l3 c7,8,9 s7", "get 3 12 5 0", "dispatch 3 12 w4 l3 c7,8,9 s7",
                          "defined 4", "get 4 12 5 0", "set 4 12 5 0 w6 l- c7,8,9 s7", "get 4 12 5 0", "dispatch 4 12 w6 l- c7,8,9 s7"}));
  // Without dispatch: no second read, no event.
  vis->log.clear();
  EXPECT_EQ(ZOLDftStyleToolbox::SetGraphicProperties(StyleOf(s, L"Empty"), "", vis, 0, 0, DftStyleApplyContext(0), 0), S_OK);
  EXPECT_EQ(vis->log, (std::vector<std::string>{"defined 3", "get 3 12 0 0", "set 3 12 0 0 w4 l3 c7,8,9 s7", "defined 4",
                                                 "get 4 12 0 0", "set 4 12 0 0 w6 l- c7,8,9 s7"}));
}

TEST_F(StyleToolbox, AKindTheObjectLacksIsSkippedAndFailuresOfTheVisualSideAreReported) {
  ZOLIDrwStandard_var s = Standard();
  ZOLIDftStyle_var style = StyleOf(s, L"Default");
  struct Case {
    const char* what;
    std::map<int, HRESULT> defined;
    HRESULT get, set, dispatch;
    const char* prefix;
    HRESULT expected;
    int reports;
    size_t calls;
  };
  const Case cases[] = {
      {"kind 4 not defined", {{3, S_OK}}, S_OK, S_OK, S_OK, "", S_OK, 0, 6},
      {"neither defined", {}, S_OK, S_OK, S_OK, "", S_OK, 0, 2},
      {"a positive answer", {{3, S_FALSE}, {4, S_OK}}, S_OK, S_OK, S_OK, "", E_FAIL, 2, 6},
      {"read fails", {{3, S_OK}, {4, S_OK}}, E_FAIL, S_OK, S_OK, "", E_FAIL, 4, 4},
      {"write fails", {{3, S_OK}, {4, S_OK}}, S_OK, E_FAIL, S_OK, "", E_FAIL, 4, 6},
      {"dispatch fails", {{3, S_OK}, {4, S_OK}}, S_OK, S_OK, E_FAIL, "", S_OK, 2, 10},
      {"null prefix", {{3, S_OK}, {4, S_OK}}, S_OK, S_OK, S_OK, nullptr, E_FAIL, 4, 0},
  };
  for (const Case& c : cases) {
    vis->log.clear();
    vis->defined = c.defined;
    vis->getResult = c.get;
    vis->setResult = c.set;
    dispatchResult = c.dispatch;
    r.Clear();
    EXPECT_EQ(ZOLDftStyleToolbox::SetGraphicProperties(style, c.prefix, vis, 0, 0, DftStyleApplyContext(0), 1), c.expected) << c.what;
    EXPECT_EQ(r.Count(), c.reports) << c.what;
    EXPECT_EQ(vis->log.size(), c.calls) << c.what;
  }
  EXPECT_EQ(r.CountContaining("Failed to set graphic properties!"), 2);
  r.Clear();
  EXPECT_EQ(ZOLDftStyleToolbox::SetGraphicProperties(nullptr, "", vis, 0, 0, DftStyleApplyContext(0), 1), E_UNEXPECTED);
  EXPECT_EQ(ZOLDftStyleToolbox::SetGraphicProperties(style, "", nullptr, 0, 0, DftStyleApplyContext(0), 1), E_UNEXPECTED);
  reports = 2;
}

TEST_F(StyleToolbox, GetStyleFindsTheNamedOrTheDefaultStyleOfTheElementsStandard) {
  auto* element = new Element;
  auto* plain = new Element;
  element->standard = Standard();
  ZOLIDrwStandard_var failing = Standard();
  // The result, and the thickness and line type of the style found: -2 for what it lacks, -1 for no style.
  auto get = [&](const char* type, const char* name, const char* context = "") {
    ZOLIDftStyle* style = nullptr;
    const HRESULT hr = ZOLDftStyleToolbox::GetStyle(element, type, &style, name, context);
    int width = style ? -2 : -1, line = width;
    if (style) {
      style->GetValue("Thickness", 1, width);
      style->GetValue("LineType", 1, line);
      style->Release();
    }
    return std::tuple(hr, width, line);
  };
  EXPECT_EQ(get("Curve", ""), std::tuple(S_OK, 0, 8));  // the Default style
  EXPECT_EQ(get("Curve", "Negative"), std::tuple(S_OK, -2, 0));
  ZOLIDftStyleManager_var(element->standard.Get())->SetDefaultStyle(L"Curve", L"Lower", nullptr);
  EXPECT_EQ(get("Curve", "", "ctx"), std::tuple(S_OK, 5, -2));
  // Refusals without report: no element, no type, no version.
  ZOLIDftStyle* style = nullptr;
  EXPECT_EQ(ZOLDftStyleToolbox::GetStyle(nullptr, "Curve", &style, "", ""), E_FAIL);
  EXPECT_EQ(get("", ""), std::tuple(E_FAIL, -1, -1));
  element->standard = Standard(false);
  EXPECT_EQ(get("Curve", ""), std::tuple(E_FAIL, -1, -1));
  EXPECT_EQ(r.Count(), 0);
  // Reported: an element without standard or whose standard fails, and a standard that is no style manager.
  for (auto [standard, result, report] : {std::tuple<ZOLBaseUnknown*, HRESULT, const char*>(nullptr, S_OK, "KO: No Standard Found"),
                                          {failing.Get(), E_FAIL, "KO: No Standard Found"},
                                          {plain, S_OK, "KO: Standard is not ZOLIDftStyleManager"}}) {
    element->standard = standard;
    element->standardResult = result;
    r.Clear();
    EXPECT_EQ(get("Curve", ""), std::tuple(E_FAIL, -1, -1)) << report;
    EXPECT_EQ(r.CountContaining(report), 1) << report;
  }
  r.Clear();
  element->standard = nullptr;
  plain->Release();
  element->Release();
}

TEST_F(StyleToolbox, ApplyStyleHandsTheStyleToTheElementAndGivesItsResult) {
  auto* element = new Element;
  element->standard = Standard();
  EXPECT_EQ(ZOLDftStyleToolbox::ApplyStyle(element, "Curve", "", DftStyleApplyMode(2), DftStyleApplyContext(7), ""), S_OK);
  EXPECT_EQ(ZOLDftStyleToolbox::ApplyStyle(element, "Curve", "Lower", DftStyleApplyMode(0), DftStyleApplyContext(1), ""), S_OK);
  element->applyResult = S_FALSE;
  EXPECT_EQ(ZOLDftStyleToolbox::ApplyStyle(element, "Point", "Other", DftStyleApplyMode(1), DftStyleApplyContext(1), ""), S_FALSE);
  EXPECT_EQ(element->applied, (std::vector<std::string>{"Curve.Default 2 7", "Curve.Lower 0 1", "Point.Other 1 1"}));
  EXPECT_EQ(ZOLDftStyleToolbox::ApplyStyle(nullptr, "Curve", "", DftStyleApplyMode(0), DftStyleApplyContext(0), ""), E_FAIL);
  EXPECT_EQ(ZOLDftStyleToolbox::ApplyStyle(element, "", "", DftStyleApplyMode(0), DftStyleApplyContext(0), ""), E_FAIL);
  EXPECT_EQ(r.Count(), 0);
  element->Release();
  auto* noStyles = new Element;
  noStyles->standard = Standard();
  noStyles->takesStyles = false;
  EXPECT_EQ(ZOLDftStyleToolbox::ApplyStyle(noStyles, "Curve", "", DftStyleApplyMode(0), DftStyleApplyContext(0), ""), E_FAIL);
  EXPECT_TRUE(noStyles->applied.empty());
  noStyles->Release();
}
