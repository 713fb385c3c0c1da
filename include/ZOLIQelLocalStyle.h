// The local style of a document element: overriding values of the parameters that
// ZOLQelLocalStandardAttributes::GetLocalStyleMap admits, kept in the data model.
#pragma once
#include "ZOLQelLocalValueSlots.h"
#include "ZOLVar.h"

/// Interface id of ZOLIQelLocalStyle.
extern const IID IID_ZOLIQelLocalStyle;

class ZOLIQelLocalStyle : public ZOLQelLocalValueSlots<ZOLIQelLocalStyle> {
public:
  /// IID_ZOLIQelLocalStyle.
  static const IID& ClassId() { return IID_ZOLIQelLocalStyle; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();
};

using ZOLIQelLocalStyle_var = ZOLVar<ZOLIQelLocalStyle>;
