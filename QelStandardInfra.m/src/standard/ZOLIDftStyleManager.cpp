// Ids and meta objects of the style interfaces.
#include "ZOLIDftStyle.h"
#include "ZOLIDftStyleManager.h"

const IID IID_ZOLIDftStyleManager = {0x7a3e51c0, 0x21d4, 0x4c5b, {0x8e, 0x02, 0x5f, 0x61, 0x0b, 0x9d, 0x3c, 0x04}};
const IID IID_ZOLIDftStyle = {0x7a3e51c0, 0x21d4, 0x4c5b, {0x8e, 0x02, 0x5f, 0x61, 0x0b, 0x9d, 0x3c, 0x05}};

ZOLImplementMetaObject(ZOLIDftStyleManager, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra",
                       &IID_ZOLIDftStyleManager, "ZOLNull")
ZOLImplementMetaObject(ZOLIDftStyle, Interface, ZOLBaseUnknown::MetaObject(), "QelStandardInfra", &IID_ZOLIDftStyle, "ZOLNull")
