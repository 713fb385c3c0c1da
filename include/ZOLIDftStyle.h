// A style: a named group of values of one type in a standard, read through the standard by a path
// below the style ("Color", "Font.Size").
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLDftStandardValueType.h"
#include "ZOLIDrwStandard.h"
#include "ZOLUnicodeString.h"
#include "ZOLVar.h"

class ZOLIDftStyleManager;

/// Interface id of ZOLIDftStyle.
extern const IID IID_ZOLIDftStyle;

class ZOLIDftStyle : public ZOLBaseUnknown {
public:
  /// IID_ZOLIDftStyle.
  static const IID& ClassId() { return IID_ZOLIDftStyle; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// S_OK and a new[] wide copy of the style name in *oName; E_INVALIDARG for an output that is null or set.
  virtual HRESULT GetName(wchar_t** oName) = 0;
  /// S_OK and a new[] wide copy of the style type in *oType; E_INVALIDARG for an output that is null or set.
  virtual HRESULT GetType(wchar_t** oType) = 0;
  /// 1 when the standard has a node at the path below the style, else 0 (also for an unbound style).
  virtual unsigned char HasNode(const char* iPath) = 0;
  /// The standard's GetValueType below the style; E_FAIL for an unbound style.
  virtual HRESULT GetValueType(const char* iPath, ZOLDftStandardValueType* oType, int* oCount) = 0;
  /// S_OK and one string or enum value below the style; E_FAIL with the output untouched.
  virtual HRESULT GetValue(const char* iPath, int iIndex, ZOLUnicodeString& oValue) = 0;
  /// S_OK and the strings written through the caller's pointers, with their count; E_FAIL when none.
  virtual HRESULT GetValue(const char* iPath, ZOLUnicodeString** oValues, int* oCount) = 0;
  /// S_OK and one real below the style; E_FAIL with the output untouched.
  virtual HRESULT GetValue(const char* iPath, int iIndex, double& oValue) = 0;
  /// S_OK and the reals written to the caller's buffer, with their count; E_FAIL when none.
  virtual HRESULT GetValue(const char* iPath, double* oValues, int* oCount) = 0;
  /// S_OK and one integer below the style; E_FAIL with the output untouched.
  virtual HRESULT GetValue(const char* iPath, int iIndex, int& oValue) = 0;
  /// S_OK and the integers or the colour written to the caller's buffer, with their count (3 for a
  /// colour); E_FAIL when none.
  virtual HRESULT GetValue(const char* iPath, int* oValues, int* oCount) = 0;
  /// S_OK and a new reference on the standard as style manager; E_INVALIDARG for an output that is
  /// null or set; E_UNEXPECTED for an unbound style.
  virtual HRESULT GetStyleManager(ZOLIDftStyleManager** oManager) = 0;
  /// The data version of the standard; 0 for an unbound style.
  virtual int GetStdVersion() = 0;
  /// S_OK once the style reads that standard under that name and type; E_FAIL when it is bound
  /// already, E_INVALIDARG for a null standard.
  virtual HRESULT Initialize(ZOLIDrwStandard_var& iStandard, ZOLUnicodeString iName, ZOLUnicodeString iType) = 0;

  // The array reads with a capacity, after the slots above, as on ZOLIDrwStandard.
  /// At most iCapacity integers below the style; *oCount gets how many the value has. S_OK when all
  /// were written, S_FALSE when they were more, E_FAIL when there is none (or unbound), E_INVALIDARG
  /// for a null buffer with a capacity or a negative capacity.
  virtual HRESULT GetValue(const char* iPath, int* oValues, int iCapacity, int* oCount) = 0;
  /// The same for the reals of an array.
  virtual HRESULT GetValue(const char* iPath, double* oValues, int iCapacity, int* oCount) = 0;
  /// The same for the strings of an array, through the caller's pointers.
  virtual HRESULT GetValue(const char* iPath, ZOLUnicodeString** oValues, int iCapacity, int* oCount) = 0;
};

using ZOLIDftStyle_var = ZOLVar<ZOLIDftStyle>;
