// The class dictionary, filled by static registrars at load and emptied at unload.
#include "ZOLClassDictionary.h"

#include <cstring>
#include <vector>

namespace {

struct AttachmentEntry {
  const ZOLMetaClass* implementation;
  const ZOLMetaClass* interfaceMeta;
  ZOLAttachmentCreator creator;
};

// Function statics, so that registrars of any translation unit find them made.
std::vector<const ZOLMetaClass*>& Classes() {
  static std::vector<const ZOLMetaClass*> classes;
  return classes;
}

std::vector<AttachmentEntry>& Attachments() {
  static std::vector<AttachmentEntry> entries;
  return entries;
}

struct ExtendedType {
  const ZOLMetaClass* extension;
  const char* lateType;
};

std::vector<ExtendedType>& ExtendedTypes() {
  static std::vector<ExtendedType> types;
  return types;
}

}  // namespace

void ZOLClassDictionary::RegisterClass(const ZOLMetaClass* classMeta) {
  if (classMeta && !FindClass(classMeta->GetClassName())) Classes().push_back(classMeta);
}

const ZOLMetaClass* ZOLClassDictionary::FindClass(const char* className) {
  if (!className) return nullptr;
  for (const ZOLMetaClass* m : Classes())
    if (std::strcmp(m->GetClassName(), className) == 0) return m;
  return nullptr;
}

void ZOLClassDictionary::RegisterAttachment(const ZOLMetaClass* implementation, const ZOLMetaClass* interfaceMeta,
                                            ZOLAttachmentCreator creator) {
  if (implementation && interfaceMeta && interfaceMeta->GetIID() && creator)
    Attachments().push_back({implementation, interfaceMeta, creator});
}

ZOLAttachmentCreator ZOLClassDictionary::FindCreator(const ZOLMetaClass* implementation, const IID& iid) {
  for (const ZOLMetaClass* m = implementation; m; m = m->GetBase())
    for (const auto& e : Attachments())
      if (e.implementation == m && *e.interfaceMeta->GetIID() == iid) return e.creator;
  return nullptr;
}

void ZOLClassDictionary::RegisterExtendedType(const ZOLMetaClass* extension, const char* lateType) {
  if (extension && lateType) ExtendedTypes().push_back({extension, lateType});
}

int ZOLClassDictionary::Extends(const ZOLMetaClass* extension, const char* lateType) {
  if (!extension || !lateType || extension->GetKind() != ZOLMetaClass::Extension) return 0;
  if (std::strcmp(extension->GetExtendedClassName(), lateType) == 0) return 1;
  for (const auto& t : ExtendedTypes())
    if (t.extension == extension && std::strcmp(t.lateType, lateType) == 0) return 1;
  return 0;
}

ZOLAttachmentCreator ZOLClassDictionary::FindExtensionCreator(const char* lateType, const IID& iid) {
  for (const auto& e : Attachments())
    if (*e.interfaceMeta->GetIID() == iid && Extends(e.implementation, lateType)) return e.creator;
  return nullptr;
}
