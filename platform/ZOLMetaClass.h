// Class meta objects: name, kind, base, module and the extended class, for IsA and IsAKindOf.
#pragma once
#include "ZOLGUID.h"

class ZOLMetaClass {
public:
  enum Kind { Implementation, Interface, TIE, Extension };

  /// A meta object; the texts must outlive it (literals). iid is set for interfaces only.
  ZOLMetaClass(const char* className, Kind kind, const ZOLMetaClass* base, const char* moduleName,
               const IID* iid = nullptr, const char* extendedClass = "ZOLNull")
      : _name(className), _kind(kind), _base(base), _module(moduleName), _iid(iid), _extended(extendedClass) {}
  ZOLMetaClass(const ZOLMetaClass&) = delete;
  ZOLMetaClass& operator=(const ZOLMetaClass&) = delete;

  /// The class name.
  const char* GetClassName() const { return _name; }
  /// Implementation, Interface, TIE or Extension.
  Kind GetKind() const { return _kind; }
  /// The meta object of the base class, or null at the top.
  const ZOLMetaClass* GetBase() const { return _base; }
  /// The module that defines the class.
  const char* GetModuleName() const { return _module; }
  /// The interface id of an interface, else null.
  const IID* GetIID() const { return _iid; }
  /// The class that an extension extends, or "ZOLNull".
  const char* GetExtendedClassName() const { return _extended; }

  /// 1 when this class is named className.
  int IsA(const char* className) const;
  /// 1 when this class or one of its bases is named className.
  int IsAKindOf(const char* className) const;
  /// 1 when this class is other or derives from it.
  int IsAKindOf(const ZOLMetaClass* other) const;

private:
  const char* _name;
  Kind _kind;
  const ZOLMetaClass* _base;
  const char* _module;
  const IID* _iid;
  const char* _extended;
};
