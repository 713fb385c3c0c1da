// The base of every object and interface of the object runtime: interface query by id, an atomic
// reference count shared with the object's attachments, the way back to the implementation, and
// the class meta object.
#pragma once
#include <atomic>
#include <memory>
#include <vector>

#include "ZOLGUID.h"
#include "ZOLMetaClass.h"
#include "ZOLResult.h"

/// Id of the base interface itself.
extern const IID IID_ZOLBaseUnknown;

class ZOLBaseUnknown {
public:
  /// A new object; its creator holds the first reference.
  ZOLBaseUnknown() = default;
  ZOLBaseUnknown(const ZOLBaseUnknown&) = delete;
  ZOLBaseUnknown& operator=(const ZOLBaseUnknown&) = delete;

  /// A new reference on the interface iid in *oObject: S_OK, or E_FAIL with *oObject null
  /// (E_INVALIDARG when oObject is null). Looks at the object itself, its attachments, then the
  /// class dictionary, which makes the attachment on demand.
  virtual HRESULT QueryInterface(const IID& iid, void** oObject);
  /// Takes a reference; returns the new count.
  virtual unsigned long AddRef();
  /// Drops a reference and destroys the object and its attachments at zero; returns the new count.
  virtual unsigned long Release();
  virtual ~ZOLBaseUnknown();

  /// The meta object of the object's class.
  virtual const ZOLMetaClass* GetMetaObject() const { return MetaObject(); }
  /// 1 when the object's class is named className.
  int IsA(const char* className) const;
  /// 1 when the object's class or one of its bases is named className.
  int IsAKindOf(const char* className) const;
  /// The implementation object behind any interface of it (no new reference); the argument is unused.
  virtual ZOLBaseUnknown* GetImpl(int iUnused = 0);

  /// IID_ZOLBaseUnknown.
  static const IID& ClassId() { return IID_ZOLBaseUnknown; }
  /// The meta object of ZOLBaseUnknown.
  static const ZOLMetaClass* MetaObject();

  /// The attachment registered for iid on this object (no new reference), or null.
  void* FindAttachment(const IID& iid) const;
  /// Keeps an attachment for iid; destroy(iface) runs when this object goes.
  void AddAttachment(const IID& iid, void* iface, void (*destroy)(void*));
  /// The current reference count, for tests and diagnostics.
  unsigned long RefCount() const { return _refCount.load(std::memory_order_relaxed); }

private:
  struct Attachment {
    const IID* iid;
    void* iface;
    void (*destroy)(void*);
  };
  std::atomic<unsigned long> _refCount{1};
  std::unique_ptr<std::vector<Attachment>> _attachments;
};

/// The meta object of a class, made on first use (function statics are initialised under a guard).
#define ZOLImplementMetaObject(Class, kind, baseMeta, module, iid, extended)                         \
  const ZOLMetaClass* Class::MetaObject() {                                                        \
    static const ZOLMetaClass meta(#Class, ZOLMetaClass::kind, (baseMeta), (module), (iid), (extended)); \
    return &meta;                                                                                  \
  }
