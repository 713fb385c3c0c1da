// A narrower read interface of a standard object, whose value type query refuses every call.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLDftStandardValueType.h"
#include "ZOLUnicodeString.h"
#include "ZOLVar.h"

/// Interface id of ZOLIQelStandard.
extern const IID IID_ZOLIQelStandard;

class ZOLIQelStandard : public ZOLBaseUnknown {
public:
  /// IID_ZOLIQelStandard.
  static const IID& ClassId() { return IID_ZOLIQelStandard; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// S_OK and a new[] wide copy of the name for the caller; E_INVALIDARG for a null output.
  virtual HRESULT GetName(wchar_t** oName) = 0;
  /// S_OK and a new[] wide copy of the parent standard, empty when absent; E_INVALIDARG for a null output.
  virtual HRESULT GetParentStandard(wchar_t** oName) = 0;
  /// E_INVALIDARG with a report, on every call: the type is not handed on.
  virtual HRESULT GetValueType(const char* iPath, ZOLDftStandardValueType* oType, int* oCount) = 0;
  /// S_OK and one string or enum value; E_FAIL with the output untouched.
  virtual HRESULT GetValue(const char* iPath, int iIndex, ZOLUnicodeString& oValue) = 0;
  /// S_OK and the strings written through the caller's pointers, with their count; E_FAIL when none.
  virtual HRESULT GetValue(const char* iPath, ZOLUnicodeString** oValues, int* oCount) = 0;
  /// S_OK and one real; E_FAIL with the output untouched.
  virtual HRESULT GetValue(const char* iPath, int iIndex, double& oValue) = 0;
  /// S_OK and the reals written to the caller's buffer, with their count; E_FAIL when none.
  virtual HRESULT GetValue(const char* iPath, double* oValues, int* oCount) = 0;
  /// S_OK and one integer; E_FAIL with the output untouched.
  virtual HRESULT GetValue(const char* iPath, int iIndex, int& oValue) = 0;
  /// S_OK and the integers or the colour written to the caller's buffer, with their count; E_FAIL when none.
  virtual HRESULT GetValue(const char* iPath, int* oValues, int* oCount) = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved12() = 0;
};

using ZOLIQelStandard_var = ZOLVar<ZOLIQelStandard>;
