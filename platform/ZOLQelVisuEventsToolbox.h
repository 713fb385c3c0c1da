// Events of the visualization layer. The application's layer installs its dispatcher; without
// one an event reaches no listener and counts as handled.
#pragma once
#include <functional>

#include "ZOLBaseUnknown.h"
#include "ZOLVisPropertiesValues.h"

class ZOLQelVisuEventsToolbox {
public:
  /// What delivers a change of visual properties: the object, the geometry kind, the property type
  /// and the new values; returns the result of the delivery.
  using Dispatcher = std::function<HRESULT(ZOLBaseUnknown* iObject, int iGeometryKind, ZOLVisPropertyType iType,
                                           const ZOLVisPropertiesValues& iValues)>;

  /// Tells the listeners that an object's visual properties changed; S_OK without a dispatcher,
  /// else what the dispatcher returns.
  static HRESULT DispatchModifyVisProperties(ZOLBaseUnknown* iObject, int iGeometryKind, ZOLVisPropertyType iType,
                                             const ZOLVisPropertiesValues& iValues);
  /// Installs the dispatcher (an empty one removes it); returns the previous one.
  static Dispatcher SetDispatcher(Dispatcher iDispatcher);
};
