// The attributes of an object of the application's data model, read and written through their keys.
#pragma once
#include "ZOLISpecObject.h"

/// Interface id of ZOLISpecAttrAccess.
extern const IID IID_ZOLISpecAttrAccess;

class ZOLISpecAttrAccess : public ZOLBaseUnknown {
public:
  /// IID_ZOLISpecAttrAccess.
  static const IID& ClassId() { return IID_ZOLISpecAttrAccess; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// The key of the attribute of that name, or null when the object has none.
  virtual ZOLSpecAttrKey_var GetAttrKey(const char* iName) = 0;
  /// S_OK and the text of a string attribute; E_INVALIDARG for a key of another object or kind.
  virtual HRESULT GetString(const ZOLSpecAttrKey* iKey, ZOLUnicodeString& oValue) = 0;
  /// S_OK after replacing the text of a string attribute; E_INVALIDARG for a key of another object or kind.
  virtual HRESULT SetString(const ZOLSpecAttrKey* iKey, const ZOLUnicodeString& iValue) = 0;
  /// The object that a component attribute holds, or null when it holds none or the key is not one.
  virtual ZOLISpecObject_var GetSpecObject(const ZOLSpecAttrKey* iKey) = 0;
  /// S_OK after the component attribute holds iObject (null empties it); E_INVALIDARG for a key of
  /// another object or kind, E_FAIL for an object of another container. The two flags are unused, 0.
  virtual HRESULT SetSpecObject(const ZOLSpecAttrKey* iKey, ZOLISpecObject* iObject, int iFlag1, int iFlag2) = 0;
};

using ZOLISpecAttrAccess_var = ZOLVar<ZOLISpecAttrAccess>;
