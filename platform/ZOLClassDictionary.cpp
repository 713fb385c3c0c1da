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
