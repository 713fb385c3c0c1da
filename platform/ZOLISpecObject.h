// An object of the application's data model: its late type, its container, and attributes added
// to it. This library holds a stand-in of the model (ZOLOsmDocument); the application brings its own.
#pragma once
#include <utility>

#include "ZOLBaseUnknown.h"
#include "ZOLRefCounted.h"
#include "ZOLUnicodeString.h"
#include "ZOLVar.h"

/// Kind codes of attributes.
enum ZOLSpecAttrKind : int {
  ZOLSpecAttrComponent = 9,
  ZOLSpecAttrString = 18,
};

/// The key of one attribute of one object; reference counted, released after use.
class ZOLSpecAttrKey : public ZOLRefCounted {
public:
  /// The key of the attribute at position index of the object owner.
  ZOLSpecAttrKey(const void* owner, ZOLUnicodeString name, ZOLSpecAttrKind kind, int index)
      : _owner(owner), _name(std::move(name)), _kind(kind), _index(index) {}
  /// The object whose attribute this is (no reference), to refuse keys of other objects.
  const void* GetOwner() const { return _owner; }
  /// The attribute's name.
  const ZOLUnicodeString& GetName() const { return _name; }
  /// The attribute's kind code.
  ZOLSpecAttrKind GetKind() const { return _kind; }
  /// The attribute's position on its object, from 0.
  int GetIndex() const { return _index; }

private:
  const void* _owner;
  ZOLUnicodeString _name;
  ZOLSpecAttrKind _kind;
  int _index;
};

/// A held attribute key; null when an object has no such attribute.
using ZOLSpecAttrKey_var = ZOLRef<ZOLSpecAttrKey>;

/// Interface id of ZOLISpecObject.
extern const IID IID_ZOLISpecObject;

class ZOLISpecObject : public ZOLBaseUnknown {
public:
  /// IID_ZOLISpecObject.
  static const IID& ClassId() { return IID_ZOLISpecObject; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// The late type of the object, such as "QelLocalStandard".
  virtual const char* GetType() = 0;
  /// The object's name; empty when it was made without one.
  virtual const ZOLUnicodeString& GetName() = 0;
  /// The container that holds the object, or null when it holds it no more.
  virtual ZOLVar<ZOLBaseUnknown> GetContainer() = 0;
  /// Adds an attribute of that name and kind code (quality is unused, 0); its key, or null when
  /// the object has an attribute of that name already or the kind is unknown.
  virtual ZOLSpecAttrKey_var AddAttribute(const ZOLUnicodeString& iName, int iKind, int iQuality) = 0;
};

using ZOLISpecObject_var = ZOLVar<ZOLISpecObject>;
