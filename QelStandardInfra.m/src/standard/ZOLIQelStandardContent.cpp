// Ids and meta objects of the content and communication interfaces of a standard object. The
// content interface is this library's own, so its class is registered here at load.
#include "ZOLClassDictionary.h"
#include "ZOLIQelStandardCommunication.h"
#include "ZOLIQelStandardContent.h"

const IID IID_ZOLIQelStandardContent = {0x7a3e51c0, 0x21d4, 0x4c5b, {0x8e, 0x02, 0x5f, 0x61, 0x0b, 0x9d, 0x3c, 0x06}};
const IID IID_ZOLIQelStandardCommunication = {0x7a3e51c0, 0x21d4, 0x4c5b, {0x8e, 0x02, 0x5f, 0x61, 0x0b, 0x9d, 0x3c, 0x07}};

ZOLImplementMetaObject(ZOLIQelStandardContent, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra",
                       &IID_ZOLIQelStandardContent, "ZOLNull")
ZOLImplementMetaObject(ZOLIQelStandardCommunication, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra",
                       &IID_ZOLIQelStandardCommunication, "ZOLNull")

namespace {
const ZOLClassRegistrar s_contentInterface(ZOLIQelStandardContent::MetaObject());
}  // namespace
