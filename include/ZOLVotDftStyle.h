// The style object of a standard: a name, a type and a reference on the standard, with every read
// made on the standard at "type.name.path". It holds no values of its own and keeps its standard alive.
#pragma once
#include <string>

#include "ZOLIDftStyle.h"
#include "ZOLIDrwStandard.h"
#include "ZOLUnicodeString.h"

class ZOLVotTransientStandard;

class ZOLVotDftStyle : public ZOLIDftStyle {
public:
  /// An unbound style (reads fail until Initialize); its creator holds the first reference.
  ZOLVotDftStyle() = default;
  /// Releases the standard.
  ~ZOLVotDftStyle() override;

  /// The meta object of the class: "ZOLVotDftStyle", based on ZOLIDftStyle.
  static const ZOLMetaClass* MetaObject();
  const ZOLMetaClass* GetMetaObject() const override { return MetaObject(); }
  /// Null: a style is made by a style manager, not through the class dictionary.
  static ZOLBaseUnknown* CreateItself() { return nullptr; }

  // The operations of ZOLIDftStyle, as told there; each read goes to the standard at "type.name.iPath".
  HRESULT GetName(wchar_t** oName) override;
  HRESULT GetType(wchar_t** oType) override;
  unsigned char HasNode(const char* iPath) override;
  HRESULT GetValueType(const char* iPath, ZOLDftStandardValueType* oType, int* oCount) override;
  HRESULT GetValue(const char* iPath, int iIndex, ZOLUnicodeString& oValue) override;
  HRESULT GetValue(const char* iPath, ZOLUnicodeString** oValues, int* oCount) override;
  HRESULT GetValue(const char* iPath, int iIndex, double& oValue) override;
  HRESULT GetValue(const char* iPath, double* oValues, int* oCount) override;
  HRESULT GetValue(const char* iPath, int iIndex, int& oValue) override;
  HRESULT GetValue(const char* iPath, int* oValues, int* oCount) override;
  HRESULT GetStyleManager(ZOLIDftStyleManager** oManager) override;
  int GetStdVersion() override;
  HRESULT Initialize(ZOLIDrwStandard_var& iStandard, ZOLUnicodeString iName, ZOLUnicodeString iType) override;
  HRESULT GetValue(const char* iPath, int* oValues, int iCapacity, int* oCount) override;
  HRESULT GetValue(const char* iPath, double* oValues, int iCapacity, int* oCount) override;
  HRESULT GetValue(const char* iPath, ZOLUnicodeString** oValues, int iCapacity, int* oCount) override;

private:
  // Reads at "type.name." followed by iPath, built in a buffer kept across reads so that a read
  // allocates nothing; iNone without a standard.
  template <class R, class Read>
  R Forward(const char* iPath, R iNone, Read read);

  ZOLIDrwStandard* _Standard = nullptr;
  // The standard object behind _Standard when it is this library's own, else null.
  ZOLVotTransientStandard* _Transient = nullptr;
  ZOLUnicodeString _Name;
  ZOLUnicodeString _Type;
  std::string _Path;
  size_t _PrefixLength = 0;
};

/// The style object itself as ZOLIDftStyle: a new reference, or null for another object.
ZOLIDftStyle* CreateBOAZOLIDftStyleZOLVotDftStyle(ZOLBaseUnknown* iObject);
