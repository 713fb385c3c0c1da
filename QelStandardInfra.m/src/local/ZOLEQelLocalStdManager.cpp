// The managers of local standards and styles: on a view or a sheet they live on the standard
// object that the element reports, so that elements of one standard share them; an annotation
// holds a local standard of its own and no local style.
#include "ZOLIDftElementWithStandard.h"
#include "ZOLIDrwStandard.h"
#include "ZOLISpecAttrAccess.h"
#include "ZOLQelLocalStandardFactory.h"
#include "ZOLSysLog.h"
#include "local/ZOLEQelLocalStandard.h"

const IID IID_ZOLIQelLocalStdManager = {0x7e3a51c4, 0x2d19, 0x4f0b, {0x8a, 0x47, 0x6c, 0x15, 0xe9, 0x02, 0xb3, 0x03}};

ZOLImplementMetaObject(ZOLIQelLocalStdManager, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra",
                       &IID_ZOLIQelLocalStdManager, "ZOLNull")

namespace {

template <class Local>
using FactoryCreator = HRESULT (ZOLQelLocalStandardFactory::*)(ZOLBaseUnknown*, ZOLVar<Local>&);

// The object that the holder's attribute holds, else with iCreate a new one made for iOwner and
// kept in oCache. An object found in the model is not kept: the model stays its owner.
template <class Local>
ZOLVar<Local> FindOrCreate(ZOLISpecAttrAccess* iHolder, const char* iAttribute, int iCreate, ZOLBaseUnknown* iOwner,
                           FactoryCreator<Local> iMake, ZOLVar<Local>& oCache) {
  ZOLSpecAttrKey_var key = iHolder ? iHolder->GetAttrKey(iAttribute) : ZOLSpecAttrKey_var();
  if (!key) {
    ZOLAssertPointer("NULL handler");
    return {};
  }
  ZOLVar<Local> found(iHolder->GetSpecObject(key.get()));
  if (!found.IsNull() || !iCreate) return found;
  ZOLQelLocalStandardFactory factory;
  ZOLVar<Local> made;
  if (FAILED((factory.*iMake)(iOwner, made))) {
    ZOLAssertBool("");
    return {};
  }
  oCache = made;
  return made;
}

}  // namespace

class ZOLEQelLocalStdManager final : public ZOLExtensionBase<ZOLIQelLocalStdManager> {
public:
  using ZOLExtensionBase::ZOLExtensionBase;
  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }

  ZOLIQelLocalStandard_var GetLocalStandard(int iCreate) override {
    return localStandard.IsNull() ? OnStandard("LocalStandard", iCreate, &ZOLQelLocalStandardFactory::CreateLocalStandard, localStandard)
                                  : localStandard;
  }
  ZOLIQelLocalStyle_var GetLocalStyle(int iCreate) override {
    return localStyle.IsNull() ? OnStandard("LocalStyle", iCreate, &ZOLQelLocalStandardFactory::CreateLocalStyle, localStyle)
                               : localStyle;
  }

private:
  template <class Local>
  ZOLVar<Local> OnStandard(const char* iAttribute, int iCreate, FactoryCreator<Local> iMake, ZOLVar<Local>& oCache) {
    ZOLIDftElementWithStandard_var element(GetImpl(0));
    if (element.IsNull()) {
      ZOLAssertPointer("");
      return {};
    }
    ZOLBaseUnknown* reported = nullptr;
    ZOLVar<ZOLBaseUnknown> standardObject;
    if (SUCCEEDED(element->GetStandard(&reported))) standardObject = ZOLVar<ZOLBaseUnknown>::Adopt(reported);
    ZOLIDrwStandard_var standard(standardObject);
    ZOLISpecAttrAccess_var holder(standard);
    return FindOrCreate(holder.Get(), iAttribute, iCreate, standard, iMake, oCache);
  }

  ZOLIQelLocalStandard_var localStandard;
  ZOLIQelLocalStyle_var localStyle;
};

class ZOLEAnnLocalStdManager final : public ZOLExtensionBase<ZOLIQelLocalStdManager> {
public:
  using ZOLExtensionBase::ZOLExtensionBase;
  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }

  ZOLIQelLocalStandard_var GetLocalStandard(int iCreate) override {
    if (!localStandard.IsNull()) return localStandard;
    ZOLISpecAttrAccess_var holder(GetImpl(0));
    return FindOrCreate(holder.Get(), "LocalAnnStandard", iCreate, GetImpl(0), &ZOLQelLocalStandardFactory::CreateLocalStandard,
                        localStandard);
  }
  ZOLIQelLocalStyle_var GetLocalStyle(int) override { return {}; }

private:
  ZOLIQelLocalStandard_var localStandard;
};

ZOLImplementMetaObject(ZOLEQelLocalStdManager, Extension, ZOLIQelLocalStdManager::MetaObject(), "QelStandardInfra", nullptr,
                       "PCCMemMBDView")
ZOLImplementMetaObject(ZOLEAnnLocalStdManager, Extension, ZOLIQelLocalStdManager::MetaObject(), "QelStandardInfra", nullptr,
                       "DrwAnnotation")

ZOLIQelLocalStdManager* CreateBOAZOLIQelLocalStdManagerZOLEQelLocalStdManager(ZOLBaseUnknown* iObject) {
  return ZOLAttachExtension<ZOLIQelLocalStdManager, ZOLEQelLocalStdManager>(iObject);
}

ZOLIQelLocalStdManager* CreateBOAZOLIQelLocalStdManagerZOLEAnnLocalStdManager(ZOLBaseUnknown* iObject) {
  return ZOLAttachExtension<ZOLIQelLocalStdManager, ZOLEAnnLocalStdManager>(iObject);
}

namespace {

ZOLExtensionRegistrar s_viewManager(ZOLEQelLocalStdManager::MetaObject(), ZOLIQelLocalStdManager::MetaObject(),
                                    &ZOLCreatorOf<ZOLIQelLocalStdManager, &CreateBOAZOLIQelLocalStdManagerZOLEQelLocalStdManager>, {"PCCMemVOTSheet"});
ZOLExtensionRegistrar s_annotationManager(ZOLEAnnLocalStdManager::MetaObject(), ZOLIQelLocalStdManager::MetaObject(),
                                          &ZOLCreatorOf<ZOLIQelLocalStdManager, &CreateBOAZOLIQelLocalStdManagerZOLEAnnLocalStdManager>);

}  // namespace
