// The visual properties of an object of the visualization layer, by geometry kind (3 curve-like
// geometry, 4 points). The application implements it; the style toolbox calls it.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLVar.h"
#include "ZOLVisPropertiesValues.h"

/// Interface id of ZOLIVisProperties.
extern const IID IID_ZOLIVisProperties;

class ZOLIVisProperties : public ZOLBaseUnknown {
public:
  /// ZOLIVisProperties' id.
  static const IID& ClassId() { return IID_ZOLIVisProperties; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// 0 when the object has geometry of the kind, a negative result when it has none.
  virtual HRESULT IsGeometryKindDefined(int* iGeometryKind) = 0;
  /// S_OK with the properties of a type and geometry kind set into ioValues; a failure code otherwise.
  virtual HRESULT GetProperties(ZOLVisPropertiesValues& ioValues, ZOLVisPropertyType iType, int iGeometryKind,
                                unsigned int iInheritance, int iFlag) = 0;
  /// S_OK once the properties set in iValues are the object's for that type and geometry kind.
  virtual HRESULT SetProperties(const ZOLVisPropertiesValues& iValues, ZOLVisPropertyType iType, int iGeometryKind,
                                unsigned int iInheritance, int iFlag) = 0;
};

using ZOLIVisProperties_var = ZOLVar<ZOLIVisProperties>;
