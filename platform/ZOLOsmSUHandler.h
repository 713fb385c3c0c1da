// Objects made from a startup of a feature catalog. The stand-in knows the catalogs that the
// application installs for this library: "VotStandardCatalog.feat" with "QelLocalStandard" and
// "QelLocalStyle", each making an object of the late type of its name with no attribute.
#pragma once
#include "ZOLISpecObject.h"

class ZOLOsmSUHandler {
public:
  /// A handler of the startup of that name in the catalog; clientId is the application's, unused.
  ZOLOsmSUHandler(const ZOLUnicodeString& iStartup, const ZOLUnicodeString& iClientId, const ZOLUnicodeString& iCatalog);

  /// 0 when the catalog has the startup, negative when it cannot be had.
  int IsValid() const;
  /// S_OK and a new object of the startup, named iName, in the container (a ZOLOsmDocument);
  /// E_FAIL with oResult null for an invalid handler or a container that holds no model objects.
  HRESULT Instanciate(ZOLISpecObject_var& oResult, ZOLBaseUnknown* iContainer, const ZOLUnicodeString& iName) const;

private:
  const char* _lateType = nullptr;
};
