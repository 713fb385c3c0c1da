// The class dictionary: classes by name, and for each implementation class the creators of its
// attachments by interface. Filled by static registrars at load; the interface query asks it for
// an attachment that an object does not hold yet.
#pragma once
#include "ZOLMetaClass.h"

class ZOLBaseUnknown;

/// Makes (or finds) the attachment of one interface on an object; a new reference on it, or null.
using ZOLAttachmentCreator = void* (*)(ZOLBaseUnknown* object);

namespace ZOLClassDictionary {

/// Registers a class under its name; a second registration of the name is ignored.
void RegisterClass(const ZOLMetaClass* classMeta);
/// The meta object of a registered class, or null.
const ZOLMetaClass* FindClass(const char* className);
/// Registers how an implementation class gets an interface (TIE or BOA).
void RegisterAttachment(const ZOLMetaClass* implementation, const ZOLMetaClass* interfaceMeta,
                        ZOLAttachmentCreator creator);
/// The creator of iid for the class or its nearest base that has one, or null.
ZOLAttachmentCreator FindCreator(const ZOLMetaClass* implementation, const IID& iid);
/// Marks an extension class as extending one more late type than the one its meta object names.
void RegisterExtendedType(const ZOLMetaClass* extension, const char* lateType);
/// 1 when the extension class extends the late type, by its meta object or a registration.
int Extends(const ZOLMetaClass* extension, const char* lateType);
/// The creator of iid of an extension of the late type, or null.
ZOLAttachmentCreator FindExtensionCreator(const char* lateType, const IID& iid);

}  // namespace ZOLClassDictionary

/// Registers a class at load: `static ZOLClassRegistrar r(Class::MetaObject());`
struct ZOLClassRegistrar {
  explicit ZOLClassRegistrar(const ZOLMetaClass* classMeta) { ZOLClassDictionary::RegisterClass(classMeta); }
};

/// Registers an attachment at load.
struct ZOLAttachmentRegistrar {
  ZOLAttachmentRegistrar(const ZOLMetaClass* implementation, const ZOLMetaClass* interfaceMeta, ZOLAttachmentCreator creator) {
    ZOLClassDictionary::RegisterAttachment(implementation, interfaceMeta, creator);
  }
};
