// A document of the stand-in data model with drafting elements, as the application would hold it:
// standard objects of the late type "DrwStandard" that answer ZOLIDrwStandard with the built-in ISO
// standard, and views, sheets and annotations that point at one of them.
#pragma once
#include <string>

#include "ZOLDftBuiltinStandards.h"
#include "ZOLDftStandardServices.h"
#include "ZOLExtension.h"
#include "ZOLIDrwStandard.h"
#include "ZOLISpecAttrAccess.h"
#include "ZOLOsmDocument.h"
#include "ZOLQelLocalStandardFactory.h"
#include "ZOLReportCountTest.h"
#include "local/ZOLQelLocalStandardAttributesJson.h"

namespace localtest {

inline ZOLIDrwStandard* Iso() {
  static ZOLIDrwStandard_var iso = ZOLDftStandardServices::GetStandardFromBuffer(ZOLDftBuiltinStandards::GetText("ISO"), "ISO");
  return iso;
}

// The application's extension of its standard objects; every read goes to the ISO standard.
class DrwStandardFeature : public ZOLExtensionBase<ZOLIDrwStandard> {
public:
  using ZOLExtensionBase::ZOLExtensionBase;
  static const ZOLMetaClass* MetaObject() {
    static const ZOLMetaClass meta("DrwStandardFeature", ZOLMetaClass::Extension, ZOLIDrwStandard::MetaObject(), "Test",
                                   nullptr, "DrwStandard");
    return &meta;
  }
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
#define LOCALTEST_FORWARD(Ret, Name, Params, Args) \
  Ret Name Params override { return Iso()->Name Args; }
  LOCALTEST_FORWARD(HRESULT, GetName, (wchar_t** o), (o))
  LOCALTEST_FORWARD(HRESULT, GetName, (ZOLUnicodeString& o), (o))
  LOCALTEST_FORWARD(HRESULT, GetParentStandard, (wchar_t** o), (o))
  LOCALTEST_FORWARD(HRESULT, GetParentStandard, (ZOLUnicodeString& o), (o))
  LOCALTEST_FORWARD(unsigned char, HasNode, (const char* p), (p))
  LOCALTEST_FORWARD(HRESULT, GetValue, (const char* p, int i, ZOLUnicodeString& o), (p, i, o))
  LOCALTEST_FORWARD(HRESULT, GetValue, (const char* p, ZOLUnicodeString** o, int* n), (p, o, n))
  LOCALTEST_FORWARD(HRESULT, GetValue, (const char* p, int i, double& o), (p, i, o))
  LOCALTEST_FORWARD(HRESULT, GetValue, (const char* p, double* o, int* n), (p, o, n))
  LOCALTEST_FORWARD(HRESULT, GetValue, (const char* p, int i, int& o), (p, i, o))
  LOCALTEST_FORWARD(HRESULT, GetValue, (const char* p, int* o, int* n), (p, o, n))
  LOCALTEST_FORWARD(HRESULT, GetValueType, (const char* p, ZOLDftStandardValueType* t, int* n), (p, t, n))
  LOCALTEST_FORWARD(HRESULT, GetThicknessIndex, (double mm, int* o), (mm, o))
  LOCALTEST_FORWARD(int, GetStdVersion, (), ())
  LOCALTEST_FORWARD(HRESULT, GetReserved19, (int u, int* o), (u, o))
  LOCALTEST_FORWARD(HRESULT, GetStandardValue, (ZOLIStandardValue** o), (o))
  LOCALTEST_FORWARD(HRESULT, GetStyleNames, (const char* t, ZOLListValZOLUnicodeString* o), (t, o))
  LOCALTEST_FORWARD(HRESULT, GetStandardValue, (ZOLIStandardValue** o, char** a, char** b), (o, a, b))
  LOCALTEST_FORWARD(HRESULT, GetValue, (const char* p, int* o, int c, int* n), (p, o, c, n))
  LOCALTEST_FORWARD(HRESULT, GetValue, (const char* p, double* o, int c, int* n), (p, o, c, n))
  LOCALTEST_FORWARD(HRESULT, GetValue, (const char* p, ZOLUnicodeString** o, int c, int* n), (p, o, c, n))
#undef LOCALTEST_FORWARD
  HRESULT Reserved12() override { return E_NOTIMPL; }
  HRESULT Reserved15() override { return E_NOTIMPL; }
  HRESULT Reserved16() override { return E_NOTIMPL; }
  HRESULT Reserved17() override { return E_NOTIMPL; }
  HRESULT Reserved20() override { return E_NOTIMPL; }
  HRESULT Reserved21() override { return E_NOTIMPL; }
  HRESULT Reserved22() override { return E_NOTIMPL; }
  HRESULT Reserved24() override { return E_NOTIMPL; }
  HRESULT Reserved25() override { return E_NOTIMPL; }
  HRESULT Reserved26() override { return E_NOTIMPL; }
  void Reserved27() override {}
  HRESULT Reserved28() override { return E_NOTIMPL; }
};

inline ZOLExtensionRegistrar s_drwStandardFeature(DrwStandardFeature::MetaObject(), ZOLIDrwStandard::MetaObject(),
                                                  &ZOLCreatorOf<ZOLIDrwStandard, &ZOLAttachExtension<ZOLIDrwStandard, DrwStandardFeature>>);

// The text of a string attribute; "(none)" when the object has no such attribute.
inline std::string Attribute(ZOLBaseUnknown* object, const char* name = "overloadedValues") {
  ZOLISpecAttrAccess_var access(object);
  ZOLSpecAttrKey_var key = access->GetAttrKey(name);
  ZOLUnicodeString text("(none)");
  if (key) access->GetString(key.get(), text);
  return text.str();
}

// The overriding values an object keeps in its attribute, as read back.
inline OverloadedValueMap Stored(ZOLBaseUnknown* local) {
  OverloadedValueMap map;
  ZOLQelLocalStandardAttributes::ParseOverloadedValues(Attribute(local), map);
  return map;
}

// A fresh document for each test, with the reports counted.
class LocalModel : public ZOLReportCountTest {
protected:
  // A standard object as the application's model declares it, with both attributes of local objects.
  ZOLISpecObject_var Standard(const char* name, std::initializer_list<const char*> attributes = {"LocalStandard", "LocalStyle"}) {
    return doc->CreateObject("DrwStandard", name, attributes);
  }
  // A view, sheet or annotation drawn by standard (none when null).
  ZOLISpecObject_var Element(const char* lateType, const char* name, ZOLISpecObject* standard) {
    ZOLISpecObject_var element = doc->CreateObject(lateType, name, {"Standard", "LocalAnnStandard"});
    ZOLISpecAttrAccess_var access(element);
    access->SetSpecObject(access->GetAttrKey("Standard").get(), standard, 0, 0);
    return element;
  }
  template <class Local>
  ZOLVar<Local> NewLocal(const char* lateType, const char* name = "") {
    return ZOLVar<Local>(doc->CreateObject(lateType, name));
  }
  ZOLRef<ZOLOsmDocument> doc = ZOLRef<ZOLOsmDocument>::Adopt(new ZOLOsmDocument);
};

}  // namespace localtest
