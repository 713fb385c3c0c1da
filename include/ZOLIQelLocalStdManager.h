// How a view, a sheet or an annotation gives its local standard and local style.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLIQelLocalStandard.h"
#include "ZOLIQelLocalStyle.h"
#include "ZOLVar.h"

/// Interface id of ZOLIQelLocalStdManager.
extern const IID IID_ZOLIQelLocalStdManager;

class ZOLIQelLocalStdManager : public ZOLBaseUnknown {
public:
  /// IID_ZOLIQelLocalStdManager.
  static const IID& ClassId() { return IID_ZOLIQelLocalStdManager; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// The element's local standard; with iCreate not 0 one is made when there is none. Null when
  /// there is none or it cannot be had (with a report).
  virtual ZOLIQelLocalStandard_var GetLocalStandard(int iCreate) = 0;
  /// The element's local style, as GetLocalStandard; always null on an annotation.
  virtual ZOLIQelLocalStyle_var GetLocalStyle(int iCreate) = 0;
};

using ZOLIQelLocalStdManager_var = ZOLVar<ZOLIQelLocalStdManager>;
