// Object runtime: meta objects, the base object and its attachments, handles.
#include "ZOLBaseUnknown.h"

#include <cstring>
#include <string>

#include "ZOLClassDictionary.h"
#include "ZOLVar.h"

const IID IID_ZOLBaseUnknown = {0x00000000, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};

int ZOLMetaClass::IsA(const char* className) const {
  return className && std::strcmp(_name, className) == 0;
}

int ZOLMetaClass::IsAKindOf(const char* className) const {
  for (const ZOLMetaClass* m = this; m; m = m->_base)
    if (m->IsA(className)) return 1;
  return 0;
}

int ZOLMetaClass::IsAKindOf(const ZOLMetaClass* other) const {
  for (const ZOLMetaClass* m = this; m; m = m->_base)
    if (m == other) return 1;
  return 0;
}

ZOLImplementMetaObject(ZOLBaseUnknown, Interface, nullptr, "ZOLSystem", &IID_ZOLBaseUnknown, "ZOLNull")
static ZOLClassRegistrar s_baseUnknownClass(ZOLBaseUnknown::MetaObject());

ZOLBaseUnknown::~ZOLBaseUnknown() {
  if (!_attachments) return;
  for (auto& a : *_attachments) a.destroy(a.iface);
}

HRESULT ZOLBaseUnknown::QueryInterface(const IID& iid, void** oObject) {
  if (!oObject) return E_INVALIDARG;
  *oObject = nullptr;
  ZOLBaseUnknown* impl = GetImpl();
  if (iid == IID_ZOLBaseUnknown) {
    impl->AddRef();
    *oObject = impl;
    return S_OK;
  }
  if (void* found = impl->FindAttachment(iid)) {
    impl->AddRef();
    *oObject = found;
    return S_OK;
  }
  if (ZOLAttachmentCreator create = ZOLClassDictionary::FindCreator(impl->GetMetaObject(), iid)) {
    *oObject = create(impl);
    return *oObject ? S_OK : E_FAIL;
  }
  return E_FAIL;
}

unsigned long ZOLBaseUnknown::AddRef() { return _refCount.fetch_add(1, std::memory_order_relaxed) + 1; }

unsigned long ZOLBaseUnknown::Release() {
  unsigned long left = _refCount.fetch_sub(1, std::memory_order_acq_rel) - 1;
  if (left == 0) delete this;
  return left;
}

int ZOLBaseUnknown::IsA(const char* className) const { return GetMetaObject()->IsA(className); }

int ZOLBaseUnknown::IsAKindOf(const char* className) const { return GetMetaObject()->IsAKindOf(className); }

ZOLBaseUnknown* ZOLBaseUnknown::GetImpl(int) { return this; }

void* ZOLBaseUnknown::FindAttachment(const IID& iid) const {
  if (!_attachments) return nullptr;
  for (const auto& a : *_attachments)
    if (*a.iid == iid) return a.iface;
  return nullptr;
}

void ZOLBaseUnknown::AddAttachment(const IID& iid, void* iface, void (*destroy)(void*)) {
  if (!_attachments) _attachments = std::make_unique<std::vector<Attachment>>();
  _attachments->push_back({&iid, iface, destroy});
}

void ThrowErrorNullVar(const char* interfaceName) {
  throw ZOLNullVarError(std::string("use of a null handle of ") + (interfaceName ? interfaceName : "an interface"));
}
