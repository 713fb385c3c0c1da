// Where local standards and styles live in the model and how an element gets them: the managers of
// views, sheets and annotations, the factory, and the creators of the object runtime.
#include <gtest/gtest.h>

#include <string>

#include "LocalTestModel.h"
#include "ZOLIQelLocalStdManager.h"

using localtest::LocalModel;

namespace {

// The object that a component attribute holds, as a plain pointer for comparison.
ZOLBaseUnknown* Held(ZOLBaseUnknown* holder, const char* attribute) {
  ZOLISpecAttrAccess_var access(holder);
  ZOLSpecAttrKey_var key = access->GetAttrKey(attribute);
  return key ? access->GetSpecObject(key.get())->GetImpl() : nullptr;
}

ZOLBaseUnknown* Impl(ZOLBaseUnknown* object) { return object ? object->GetImpl() : nullptr; }

template <auto Create>
ZOLBaseUnknown* As(ZOLBaseUnknown* object) {
  return Create(object);
}

class LocalStdManager : public LocalModel {};

}  // namespace

TEST_F(LocalStdManager, EachKindFindsOrCreatesOnceAndTheSecondCallFindsTheFirst) {
  for (const char* kind : {"PCCMemMBDView", "PCCMemVOTSheet", "DrwAnnotation"}) {
    SCOPED_TRACE(kind);
    const bool annotation = std::string(kind) == "DrwAnnotation";
    ZOLISpecObject_var standardObject = Standard("ISO");
    ZOLISpecObject_var element = Element(kind, "first", standardObject);
    ZOLIQelLocalStdManager_var manager(element);
    ASSERT_FALSE(manager.IsNull());
    const int before = doc->GetObjectCount();
    EXPECT_TRUE(manager->GetLocalStandard(0).IsNull());
    EXPECT_EQ(doc->GetObjectCount(), before) << "asking without create makes nothing";

    ZOLIQelLocalStandard_var made = manager->GetLocalStandard(1);
    ASSERT_FALSE(made.IsNull());
    EXPECT_EQ(manager->GetLocalStandard(1).Get(), made.Get());
    EXPECT_EQ(manager->GetLocalStandard(0).Get(), made.Get());
    EXPECT_EQ(Held(annotation ? element.Get() : standardObject.Get(), annotation ? "LocalAnnStandard" : "LocalStandard"),
              Impl(made));

    ZOLIQelLocalStyle_var style = manager->GetLocalStyle(1);
    EXPECT_EQ(style.IsNull(), annotation);
    if (!annotation) {
      EXPECT_EQ(Held(standardObject, "LocalStyle"), Impl(style));
    }
    EXPECT_EQ(doc->GetObjectCount(), before + (annotation ? 1 : 2));

    // Another element of the same standard shares the standard's objects; an annotation does not.
    ZOLIQelLocalStdManager_var other(Element(kind, "second", standardObject));
    EXPECT_EQ(Impl(other->GetLocalStandard(0)), annotation ? nullptr : Impl(made));
    EXPECT_EQ(Impl(other->GetLocalStyle(0)), annotation ? nullptr : Impl(style));
  }
}

TEST_F(LocalStdManager, AMissingLinkOrAttributeGivesNullAndAReport) {
  struct Case {
    const char* what;
    ZOLISpecObject_var element;
  } cases[] = {
      {"standard without LocalStandard", Element("PCCMemMBDView", "v", Standard("bare", {"LocalStyle"}))},
      {"view without a standard", Element("PCCMemVOTSheet", "s", nullptr)},
      {"annotation without LocalAnnStandard", doc->CreateObject("DrwAnnotation", "a")},
  };
  for (const Case& c : cases) {
    const int before = doc->GetObjectCount();
    r.Clear();
    EXPECT_TRUE(ZOLIQelLocalStdManager_var(c.element)->GetLocalStandard(1).IsNull()) << c.what;
    EXPECT_EQ(r.CountContaining("ASSERTION FAILED ON POINTER : NULL handler"), 1) << c.what;
    EXPECT_EQ(doc->GetObjectCount(), before) << c.what;
  }
  r.Clear();
}

TEST_F(LocalStdManager, TheFactoryFailsWithUnexpectedAndAReport) {
  ZOLISpecObject_var orphan;
  {
    auto other = ZOLRef<ZOLOsmDocument>::Adopt(new ZOLOsmDocument);
    orphan = other->CreateObject("DrwStandard", "orphan", {"LocalStandard"});
  }
  ZOLISpecObject_var standardObject = Standard("ISO");
  struct Case {
    const char* what;
    ZOLBaseUnknown* owner;
    const char* startup;
    const char* report;
    int made;  // objects left in the document
  } cases[] = {
      {"null owner", nullptr, "QelLocalStandard", "ON POINTER :  [", 0},
      {"owner without container", orphan, "QelLocalStandard", "ON POINTER : NULL handler", 0},
      {"unknown startup", standardObject, "QelLocalStyleSheet", "BOOL IS FALSE:  [", 0},
      {"a style's startup", standardObject, "QelLocalStyle", "ON POINTER :  [", 1},
      {"owner without the attribute", doc->CreateObject("DrwAnnotation", "a"), "QelLocalStandard", "ON POINTER :  [", 1},
  };
  for (const Case& c : cases) {
    const int before = doc->GetObjectCount();
    ZOLQelLocalStandardFactory factory;
    factory.localStandardStartup = c.startup;
    ZOLIQelLocalStandard_var local;
    r.Clear();
    EXPECT_EQ(factory.CreateLocalStandard(c.owner, local), E_UNEXPECTED) << c.what;
    EXPECT_TRUE(local.IsNull()) << c.what;
    ASSERT_EQ(r.Count(), 1) << c.what;
    EXPECT_NE(r.Lines()[0].find(c.report), std::string::npos) << c.what << ": " << r.Lines()[0];
    EXPECT_EQ(doc->GetObjectCount(), before + c.made) << c.what;
  }
  r.Clear();
}

TEST_F(LocalStdManager, TheCreatorsAttachOnlyToTheirLateTypes) {
  ZOLISpecObject_var view = Element("PCCMemMBDView", "v", nullptr), sheet = Element("PCCMemVOTSheet", "s", nullptr),
                     annotation = Element("DrwAnnotation", "a", nullptr), standard = doc->CreateObject("QelLocalStandard", ""),
                     style = doc->CreateObject("QelLocalStyle", "");
  struct Case {
    ZOLBaseUnknown* (*create)(ZOLBaseUnknown*);
    ZOLBaseUnknown* object;
    const char* className;  // null: refused
  } cases[] = {
      {As<&CreateBOAZOLIQelLocalStandardZOLEQelLocalStandard>, standard, "ZOLEQelLocalStandard"},
      {As<&CreateBOAZOLIQelLocalStandardZOLEQelLocalStandard>, style, nullptr},
      {As<&CreateBOAZOLIQelLocalStyleZOLEQelLocalStyle>, style, "ZOLEQelLocalStyle"},
      {As<&CreateBOAZOLIQelLocalStyleZOLEQelLocalStyle>, view, nullptr},
      {As<&CreateBOAZOLIQelLocalStdManagerZOLEQelLocalStdManager>, view, "ZOLEQelLocalStdManager"},
      {As<&CreateBOAZOLIQelLocalStdManagerZOLEQelLocalStdManager>, sheet, "ZOLEQelLocalStdManager"},
      {As<&CreateBOAZOLIQelLocalStdManagerZOLEQelLocalStdManager>, annotation, nullptr},
      {As<&CreateBOAZOLIQelLocalStdManagerZOLEAnnLocalStdManager>, annotation, "ZOLEAnnLocalStdManager"},
      {As<&CreateBOAZOLIQelLocalStdManagerZOLEAnnLocalStdManager>, view, nullptr},
  };
  for (size_t i = 0; i < std::size(cases); ++i) {
    const Case& c = cases[i];
    ZOLBaseUnknown* made = c.create(c.object);
    ASSERT_EQ(made != nullptr, c.className != nullptr) << "case " << i;
    if (!made) continue;
    EXPECT_TRUE(made->IsA(c.className)) << "case " << i;
    EXPECT_EQ(made->GetImpl(), c.object->GetImpl()) << "an extension leads to its object";
    EXPECT_EQ(c.create(c.object), made) << "made once, then found";
    made->Release();
    made->Release();
  }
}
