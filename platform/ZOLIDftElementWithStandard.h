// A drafting element that knows the standard it is drawn by. The application implements it.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLVar.h"

/// Interface id of ZOLIDftElementWithStandard.
extern const IID IID_ZOLIDftElementWithStandard;

class ZOLIDftElementWithStandard : public ZOLBaseUnknown {
public:
  /// IID_ZOLIDftElementWithStandard.
  static const IID& ClassId() { return IID_ZOLIDftElementWithStandard; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// S_OK and a new reference on the element's standard object in *oStandard; a failure code when
  /// the element has none.
  virtual HRESULT GetStandard(ZOLBaseUnknown** oStandard) = 0;
};

using ZOLIDftElementWithStandard_var = ZOLVar<ZOLIDftElementWithStandard>;
