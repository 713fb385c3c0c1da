// Intrusive, atomic reference count, and a handle that holds one reference.
#pragma once
#include <atomic>
#include <utility>

class ZOLRefCounted {
public:
  /// The creator holds the first reference.
  ZOLRefCounted() = default;
  ZOLRefCounted(const ZOLRefCounted&) = delete;
  ZOLRefCounted& operator=(const ZOLRefCounted&) = delete;
  /// Takes one more reference; returns the new count.
  unsigned long AddRef() const { return _refCount.fetch_add(1, std::memory_order_relaxed) + 1; }
  /// Drops one reference and destroys the object at zero; returns the new count.
  unsigned long Release() const {
    unsigned long left = _refCount.fetch_sub(1, std::memory_order_acq_rel) - 1;
    if (left == 0) Destroy();
    return left;
  }
  /// The current count, for tests and diagnostics.
  unsigned long RefCount() const { return _refCount.load(std::memory_order_relaxed); }

protected:
  virtual ~ZOLRefCounted() = default;
  /// Called when the count reaches zero; deletes by default.
  virtual void Destroy() const { delete this; }

private:
  mutable std::atomic<unsigned long> _refCount{1};
};

/// Holds one reference on a ZOLRefCounted object (or on anything with AddRef and Release).
template <typename T>
class ZOLRef {
public:
  ZOLRef() = default;
  /// Adopts a reference that the caller owned (a new object, a getter's result).
  static ZOLRef Adopt(T* p) { ZOLRef r; r._p = p; return r; }
  /// Takes a reference of its own.
  static ZOLRef Share(T* p) { if (p) p->AddRef(); return Adopt(p); }
  ZOLRef(const ZOLRef& o) : _p(o._p) { if (_p) _p->AddRef(); }
  ZOLRef(ZOLRef&& o) noexcept : _p(std::exchange(o._p, nullptr)) {}
  ZOLRef& operator=(ZOLRef o) noexcept { std::swap(_p, o._p); return *this; }
  ~ZOLRef() { if (_p) _p->Release(); }
  T* get() const { return _p; }
  T* operator->() const { return _p; }
  T& operator*() const { return *_p; }
  explicit operator bool() const { return _p != nullptr; }
  /// Gives up the reference to the caller.
  T* Detach() { return std::exchange(_p, nullptr); }

private:
  T* _p = nullptr;
};
