// The manager of the application's generic standard service: the root object of a standard.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLVar.h"

class ZOLIStandardObject;

/// Interface id of ZOLIStandardManager.
extern const IID IID_ZOLIStandardManager;

class ZOLIStandardManager : public ZOLBaseUnknown {
public:
  /// IID_ZOLIStandardManager.
  static const IID& ClassId() { return IID_ZOLIStandardManager; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved1() = 0;
  /// S_OK and a new reference on the root object in *oObject (null when there is none); the
  /// first argument is unused. E_INVALIDARG for a null output.
  virtual HRESULT GetRootObject(int iUnused, ZOLIStandardObject** oObject) = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved3() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved4() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved5() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved6() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved7() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved8() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved9() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved10() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved11() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved12() = 0;
};

using ZOLIStandardManager_var = ZOLVar<ZOLIStandardManager>;
