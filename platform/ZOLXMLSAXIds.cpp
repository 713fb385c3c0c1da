#include "ZOLXMLSAXIds.h"

#include "ZOLBaseUnknown.h"

const IID IID_ZOLISAXContentHandler = {0x5d6a1c20, 0x3b7e, 0x4f0a, {0x9a, 0x51, 0x2e, 0x10, 0x6c, 0x3d, 0x81, 0x01}};
const IID IID_ZOLISAXErrorHandler = {0x5d6a1c20, 0x3b7e, 0x4f0a, {0x9a, 0x51, 0x2e, 0x10, 0x6c, 0x3d, 0x81, 0x02}};

const ZOLMetaClass* ZOLISAXContentHandlerMetaObject() {
  static const ZOLMetaClass meta("ZOLISAXContentHandler", ZOLMetaClass::Interface, ZOLBaseUnknown::MetaObject(),
                                 "ZOLXMLParser", &IID_ZOLISAXContentHandler);
  return &meta;
}

const ZOLMetaClass* ZOLISAXErrorHandlerMetaObject() {
  static const ZOLMetaClass meta("ZOLISAXErrorHandler", ZOLMetaClass::Interface, ZOLBaseUnknown::MetaObject(),
                                 "ZOLXMLParser", &IID_ZOLISAXErrorHandler);
  return &meta;
}
