// Handles on interfaces: a ZOLVar<I> holds one reference; made from a pointer of another
// interface it queries for I; used while null it throws.
#pragma once
#include <cstddef>
#include <stdexcept>
#include <type_traits>
#include <utility>

#include "ZOLBaseUnknown.h"

/// What the use of a null handle throws.
class ZOLNullVarError : public std::logic_error {
public:
  using std::logic_error::logic_error;
};

/// Throws ZOLNullVarError naming the interface of the handle.
[[noreturn]] void ThrowErrorNullVar(const char* interfaceName);

template <class I>
class ZOLVar {
public:
  ZOLVar() = default;
  ZOLVar(std::nullptr_t) {}
  /// Takes a reference of its own on p.
  ZOLVar(I* p) : _p(p) { if (_p) _p->AddRef(); }
  /// Queries p for I.
  template <class J, std::enable_if_t<!std::is_same_v<J, I>, int> = 0>
  ZOLVar(J* p) : _p(Query(p)) {}
  /// Queries the object of another handle for I.
  template <class J, std::enable_if_t<!std::is_same_v<J, I>, int> = 0>
  ZOLVar(const ZOLVar<J>& o) : _p(Query(o.Get())) {}
  ZOLVar(const ZOLVar& o) : _p(o._p) { if (_p) _p->AddRef(); }
  ZOLVar(ZOLVar&& o) noexcept : _p(std::exchange(o._p, nullptr)) {}
  ZOLVar& operator=(ZOLVar o) noexcept { std::swap(_p, o._p); return *this; }
  ~ZOLVar() { if (_p) _p->Release(); }

  /// Adopts a reference that the caller owned (a creator's or a getter's).
  static ZOLVar Adopt(I* p) { ZOLVar v; v._p = p; return v; }

  /// The interface; throws ZOLNullVarError when the handle is null.
  I* operator->() const { if (!_p) ThrowErrorNullVar(I::MetaObject()->GetClassName()); return _p; }
  I& operator*() const { return *operator->(); }
  /// The pointer, null for a null handle (no new reference).
  operator I*() const { return _p; }
  I* Get() const { return _p; }
  /// 1 when the handle holds nothing.
  int IsNull() const { return _p == nullptr; }
  /// Gives the reference up to the caller.
  I* Detach() { return std::exchange(_p, nullptr); }

private:
  template <class J>
  static I* Query(J* p) {
    if (!p) return nullptr;
    void* out = nullptr;
    if (FAILED(p->QueryInterface(I::ClassId(), &out))) return nullptr;
    return static_cast<I*>(out);
  }
  I* _p = nullptr;
};
