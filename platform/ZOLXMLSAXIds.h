// Interface ids and meta objects of the SAX handler interfaces, so that an object can offer them
// through the interface query.
#pragma once
#include "ZOLGUID.h"
#include "ZOLMetaClass.h"

/// Interface id of ZOLISAXContentHandler.
extern const IID IID_ZOLISAXContentHandler;
/// Interface id of ZOLISAXErrorHandler.
extern const IID IID_ZOLISAXErrorHandler;

/// The meta object of ZOLISAXContentHandler.
const ZOLMetaClass* ZOLISAXContentHandlerMetaObject();
/// The meta object of ZOLISAXErrorHandler.
const ZOLMetaClass* ZOLISAXErrorHandlerMetaObject();
