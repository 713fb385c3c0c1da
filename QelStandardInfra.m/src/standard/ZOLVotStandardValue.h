// The value object of a standard: the standard as seen by the application's generic standard
// service, which knows objects with a manager, sub-objects and typed values. It gives what a
// standard can give, five typed reads forwarded to the standard; every other slot is a stub.
// Not exported; reached through its three TIEs.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLUnicodeString.h"

class ZOLIDrwStandard;
class ZOLIStandardManager;
class ZOLIStandardObject;
class ZOLIStandardValue;
class ZOLListValZOLIStandardObject_var;
class ZOLOmxKeyString;

// Keys of the application's annotation kinds, made at start for the callers of the value object;
// nothing in the library reads them.
extern const ZOLOmxKeyString g_ZOLVotKeyText, g_ZOLVotKeyTable, g_ZOLVotKeyBalloon, g_ZOLVotKeyArrow, g_ZOLVotKeySheet;

class ZOLVotStandardValue final : public ZOLBaseUnknown {
public:
  /// A value object on a standard, holding a reference on it (null: every read refused).
  explicit ZOLVotStandardValue(ZOLIDrwStandard* iStandard);
  ~ZOLVotStandardValue() override;

  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }

  // ZOLIStandardValue, in the order of its slots.
  virtual HRESULT ValueReserved(int iSlot);
  virtual HRESULT GetValue(const char* iPath, int* iIndex, ZOLUnicodeString* oValue);
  virtual HRESULT GetValue(const char* iPath, ZOLUnicodeString** oValues, int* oCount);
  virtual HRESULT GetValue(const char* iPath, int* iIndex, double* oValue);
  virtual HRESULT GetValue(const char* iPath, double* oValues, int* oCount);
  virtual HRESULT GetValue(const char* iPath, int* iIndex, int* oValue);
  virtual HRESULT ValueReserved10();
  // ZOLIStandardManager.
  virtual HRESULT ManagerReserved(int iSlot);
  virtual HRESULT GetRootObject(int iUnused, ZOLIStandardObject** oObject);
  // ZOLIStandardObject.
  virtual HRESULT GetSubObjects(ZOLListValZOLIStandardObject_var* oList);
  virtual HRESULT ObjectReserved(int iSlot);

private:
  ZOLIDrwStandard* _Standard = nullptr;
};

/// S_OK and a new value object on iStandard as ZOLIStandardValue in *oValue; E_UNEXPECTED for a
/// null standard or output. The object keeps one reference of its own, so that it and its
/// standard live to the end of the process.
HRESULT CreateStandardValue(ZOLIDrwStandard* iStandard, ZOLIStandardValue** oValue);

/// The TIE creators: a new reference on the attachment of the interface on a value object (made on
/// first use, then the same), or null for another object.
ZOLIStandardManager* CreateTIEZOLIStandardManagerZOLVotStandardValue(ZOLBaseUnknown* iObject);
ZOLIStandardObject* CreateTIEZOLIStandardObjectZOLVotStandardValue(ZOLBaseUnknown* iObject);
ZOLIStandardValue* CreateTIEZOLIStandardValueZOLVotStandardValue(ZOLBaseUnknown* iObject);
