// Ids and meta objects of the three read interfaces of a standard object.
#include "ZOLIDftStandard.h"
#include "ZOLIDrwStandard.h"
#include "ZOLIQelStandard.h"

const IID IID_ZOLIDrwStandard = {0x7a3e51c0, 0x21d4, 0x4c5b, {0x8e, 0x02, 0x5f, 0x61, 0x0b, 0x9d, 0x3c, 0x01}};
const IID IID_ZOLIDftStandard = {0x7a3e51c0, 0x21d4, 0x4c5b, {0x8e, 0x02, 0x5f, 0x61, 0x0b, 0x9d, 0x3c, 0x02}};
const IID IID_ZOLIQelStandard = {0x7a3e51c0, 0x21d4, 0x4c5b, {0x8e, 0x02, 0x5f, 0x61, 0x0b, 0x9d, 0x3c, 0x03}};

ZOLImplementMetaObject(ZOLIDrwStandard, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra", &IID_ZOLIDrwStandard, "ZOLNull")
ZOLImplementMetaObject(ZOLIDftStandard, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra", &IID_ZOLIDftStandard, "ZOLNull")
ZOLImplementMetaObject(ZOLIQelStandard, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra", &IID_ZOLIQelStandard, "ZOLNull")
