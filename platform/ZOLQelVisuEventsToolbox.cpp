// Ids of the element and visualization interfaces, and the dispatch of visualization events.
#include "ZOLQelVisuEventsToolbox.h"

#include <utility>

#include "ZOLIDftElementWithStandard.h"
#include "ZOLIDftElementWithStyle.h"
#include "ZOLIVisProperties.h"

const IID IID_ZOLIDftElementWithStandard = {0x2b8e4f13, 0x55a0, 0x4e6c, {0xa3, 0x1d, 0x08, 0x7c, 0x91, 0xe2, 0x44, 0x01}};
const IID IID_ZOLIDftElementWithStyle = {0x2b8e4f13, 0x55a0, 0x4e6c, {0xa3, 0x1d, 0x08, 0x7c, 0x91, 0xe2, 0x44, 0x02}};
const IID IID_ZOLIVisProperties = {0x2b8e4f13, 0x55a0, 0x4e6c, {0xa3, 0x1d, 0x08, 0x7c, 0x91, 0xe2, 0x44, 0x03}};

ZOLImplementMetaObject(ZOLIDftElementWithStandard, Interface, ZOLBaseUnknown::MetaObject(), "ZOLSystem",
                       &IID_ZOLIDftElementWithStandard, "ZOLNull")
ZOLImplementMetaObject(ZOLIDftElementWithStyle, Interface, ZOLBaseUnknown::MetaObject(), "ZOLSystem",
                       &IID_ZOLIDftElementWithStyle, "ZOLNull")
ZOLImplementMetaObject(ZOLIVisProperties, Interface, ZOLBaseUnknown::MetaObject(), "ZOLSystem", &IID_ZOLIVisProperties, "ZOLNull")

namespace {

ZOLQelVisuEventsToolbox::Dispatcher& Installed() {
  static ZOLQelVisuEventsToolbox::Dispatcher dispatcher;
  return dispatcher;
}

}  // namespace

HRESULT ZOLQelVisuEventsToolbox::DispatchModifyVisProperties(ZOLBaseUnknown* iObject, int iGeometryKind,
                                                             ZOLVisPropertyType iType, const ZOLVisPropertiesValues& iValues) {
  const Dispatcher& dispatcher = Installed();
  return dispatcher ? dispatcher(iObject, iGeometryKind, iType, iValues) : S_OK;
}

ZOLQelVisuEventsToolbox::Dispatcher ZOLQelVisuEventsToolbox::SetDispatcher(Dispatcher iDispatcher) {
  return std::exchange(Installed(), std::move(iDispatcher));
}
