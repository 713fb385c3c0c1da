// The local standard of a document element: overriding values of the parameters that
// ZOLQelLocalStandardAttributes::GetLocalStandardMap admits, kept in the data model.
#pragma once
#include "ZOLQelLocalValueSlots.h"
#include "ZOLVar.h"

/// Interface id of ZOLIQelLocalStandard.
extern const IID IID_ZOLIQelLocalStandard;

class ZOLIQelLocalStandard : public ZOLQelLocalValueSlots<ZOLIQelLocalStandard> {
public:
  /// IID_ZOLIQelLocalStandard.
  static const IID& ClassId() { return IID_ZOLIQelLocalStandard; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();
};

using ZOLIQelLocalStandard_var = ZOLVar<ZOLIQelLocalStandard>;
