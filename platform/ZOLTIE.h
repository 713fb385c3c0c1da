// Attachment of interfaces to implementation classes. A TIE is a small forwarding object of the
// interface's shape that shares the implementation's reference count; a BOA class derives from
// its interface and hands itself out.
#pragma once
#include "ZOLBaseUnknown.h"

/// Base operations of a TIE on an interface derived from ZOLBaseUnknown: all go to the implementation.
template <class Interface, class Impl>
class ZOLTIEBase : public Interface {
public:
  explicit ZOLTIEBase(Impl* impl) : _impl(impl) {}
  HRESULT QueryInterface(const IID& iid, void** oObject) override { return _impl->QueryInterface(iid, oObject); }
  unsigned long AddRef() override { return _impl->AddRef(); }
  unsigned long Release() override { return _impl->Release(); }
  ZOLBaseUnknown* GetImpl(int) override { return _impl; }

protected:
  Impl* _impl;
};

/// The TIE of iid on object, made on first use and kept by the object; a new reference, or null
/// when object is null or not of class Impl.
template <class Interface, class TIEClass, class Impl>
Interface* ZOLAttachTIE(ZOLBaseUnknown* object, const IID& iid) {
  Impl* impl = object ? dynamic_cast<Impl*>(object->GetImpl()) : nullptr;
  if (!impl) return nullptr;
  auto* found = static_cast<Interface*>(impl->FindAttachment(iid));
  if (!found) {
    found = new TIEClass(impl);
    impl->AddAttachment(iid, found, [](void* p) { delete static_cast<Interface*>(p); });
  }
  impl->AddRef();
  return found;
}

/// The object itself as Interface; a new reference, or null when object is null or not of class Impl.
template <class Interface, class Impl>
Interface* ZOLAttachBOA(ZOLBaseUnknown* object) {
  Impl* impl = object ? dynamic_cast<Impl*>(object->GetImpl()) : nullptr;
  if (!impl) return nullptr;
  impl->AddRef();
  return static_cast<Interface*>(impl);
}
