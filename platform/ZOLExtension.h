// Extensions: a class declared as an extension of a late type of the data model is made beside an
// object of that type the first time one of its interfaces is asked of the object, kept by it, and
// found again by the same query. It shares the object's reference count, and GetImpl gives the object.
#pragma once
#include <initializer_list>

#include "ZOLClassDictionary.h"
#include "ZOLISpecObject.h"
#include "ZOLTIE.h"

/// The base of an extension that derives from its interface: queries, counts and GetImpl go to
/// the extended object, as those of a TIE go to its implementation.
template <class Interface>
class ZOLExtensionBase : public ZOLTIEBase<Interface, ZOLBaseUnknown> {
public:
  using ZOLTIEBase<Interface, ZOLBaseUnknown>::ZOLTIEBase;
};

/// The extension Ext of the object as Interface, made beside the object on first use: a new
/// reference, or null when the object is null, of a late type that Ext does not extend, or holds
/// another class's extension for Interface.
template <class Interface, class Ext>
Interface* ZOLAttachExtension(ZOLBaseUnknown* object) {
  ZOLBaseUnknown* impl = object ? object->GetImpl() : nullptr;
  if (!impl) return nullptr;
  auto* found = static_cast<Interface*>(impl->FindAttachment(Interface::ClassId()));
  if (found && !dynamic_cast<Ext*>(found)) return nullptr;
  if (!found) {
    ZOLISpecObject_var modelObject(impl);
    if (modelObject.IsNull() || !ZOLClassDictionary::Extends(Ext::MetaObject(), modelObject->GetType())) return nullptr;
    found = new Ext(impl);
    impl->AddAttachment(Interface::ClassId(), found, [](void* p) { delete static_cast<Interface*>(p); });
  }
  impl->AddRef();
  return found;
}

/// The class dictionary's creator made from a typed creator of an interface.
template <class Interface, Interface* (*Create)(ZOLBaseUnknown*)>
void* ZOLCreatorOf(ZOLBaseUnknown* object) {
  return Create(object);
}

/// Registers an extension class at load: the class, its interface and creator, and the late types it
/// extends besides the one its meta object names (literals).
struct ZOLExtensionRegistrar {
  ZOLExtensionRegistrar(const ZOLMetaClass* extension, const ZOLMetaClass* interfaceMeta, ZOLAttachmentCreator creator,
                        std::initializer_list<const char*> alsoExtends = {}) {
    ZOLClassDictionary::RegisterClass(extension);
    ZOLClassDictionary::RegisterAttachment(extension, interfaceMeta, creator);
    for (const char* lateType : alsoExtends) ZOLClassDictionary::RegisterExtendedType(extension, lateType);
  }
};
