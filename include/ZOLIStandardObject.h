// An object of the application's generic standard service, with its sub-objects.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLVar.h"

class ZOLListValZOLIStandardObject_var;

/// Interface id of ZOLIStandardObject.
extern const IID IID_ZOLIStandardObject;

class ZOLIStandardObject : public ZOLBaseUnknown {
public:
  /// IID_ZOLIStandardObject.
  static const IID& ClassId() { return IID_ZOLIStandardObject; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// S_OK with the sub-objects appended to the list; E_UNEXPECTED for a null list.
  virtual HRESULT GetSubObjects(ZOLListValZOLIStandardObject_var* oList) = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved2() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved3() = 0;
};

using ZOLIStandardObject_var = ZOLVar<ZOLIStandardObject>;
