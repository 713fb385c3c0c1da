// Making a local standard or style: an object of the catalog's startup in the owner's container,
// hung from the owner's attribute. A failure after the making leaves the object in the container,
// unattached.
#include "ZOLQelLocalStandardFactory.h"

#include "ZOLIDrwStandard.h"
#include "ZOLISpecAttrAccess.h"
#include "ZOLOsmSUHandler.h"
#include "ZOLSysLog.h"

namespace {

// iAttribute null: "LocalStandard" for a standard object, else "LocalAnnStandard".
template <class Local>
HRESULT CreateLocal(ZOLBaseUnknown* iOwner, const ZOLQelLocalStandardFactory& iFactory, const ZOLUnicodeString& iStartup,
                    const char* iAttribute, ZOLVar<Local>& oResult) {
  ZOLISpecObject_var owner(iOwner);
  if (owner.IsNull()) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  ZOLVar<ZOLBaseUnknown> container = owner->GetContainer();
  if (container.IsNull()) {
    ZOLAssertPointer("NULL handler");
    return E_UNEXPECTED;
  }
  ZOLOsmSUHandler startup(iStartup, iFactory.clientId, iFactory.catalogName);
  if (startup.IsValid() < 0) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  ZOLISpecObject_var made;
  if (FAILED(startup.Instanciate(made, container, ZOLUnicodeString()))) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  if (made.IsNull()) {
    ZOLAssertPointer("NULL handler");
    return E_UNEXPECTED;
  }
  ZOLISpecAttrAccess_var access(iOwner);
  if (access.IsNull()) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  if (!iAttribute) iAttribute = ZOLIDrwStandard_var(iOwner).IsNull() ? "LocalAnnStandard" : "LocalStandard";
  // The attribute is the owner's model's to declare; only "overloadedValues" is ever added.
  ZOLSpecAttrKey_var key = access->GetAttrKey(iAttribute);
  if (!key) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  if (FAILED(access->SetSpecObject(key.get(), made, 0, 0))) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  oResult = ZOLVar<Local>(made);
  if (oResult.IsNull()) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  return S_OK;
}

}  // namespace

ZOLQelLocalStandardFactory::ZOLQelLocalStandardFactory()
    : localStandardStartup("QelLocalStandard"), localStyleStartup("QelLocalStyle"), catalogName("VotStandardCatalog.feat") {}

ZOLQelLocalStandardFactory::~ZOLQelLocalStandardFactory() = default;

HRESULT ZOLQelLocalStandardFactory::CreateLocalStandard(ZOLBaseUnknown* iOwner, ZOLIQelLocalStandard_var& oResult) {
  return CreateLocal(iOwner, *this, localStandardStartup, nullptr, oResult);
}

HRESULT ZOLQelLocalStandardFactory::CreateLocalStyle(ZOLBaseUnknown* iOwner, ZOLIQelLocalStyle_var& oResult) {
  return CreateLocal(iOwner, *this, localStyleStartup, "LocalStyle", oResult);
}
