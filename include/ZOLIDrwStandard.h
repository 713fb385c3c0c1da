// The full read interface of a standard object: values by dotted path and one-based index.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLDftStandardValueType.h"
#include "ZOLListValZOLUnicodeString.h"
#include "ZOLUnicodeString.h"
#include "ZOLVar.h"

class ZOLIStandardValue;

/// Interface id of ZOLIDrwStandard.
extern const IID IID_ZOLIDrwStandard;

class ZOLIDrwStandard : public ZOLBaseUnknown {
public:
  /// IID_ZOLIDrwStandard.
  static const IID& ClassId() { return IID_ZOLIDrwStandard; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// S_OK and a new[] wide copy of the name for the caller; E_INVALIDARG for a null output.
  virtual HRESULT GetName(wchar_t** oName) = 0;
  /// S_OK and the name.
  virtual HRESULT GetName(ZOLUnicodeString& oName) = 0;
  /// S_OK and a new[] wide copy of the parent standard, empty when absent; E_INVALIDARG for a null output.
  virtual HRESULT GetParentStandard(wchar_t** oName) = 0;
  /// S_OK and "Dimension.ParentStandard"; E_UNEXPECTED when absent.
  virtual HRESULT GetParentStandard(ZOLUnicodeString& oName) = 0;
  /// 1 when a node stands at the path, else 0.
  virtual unsigned char HasNode(const char* iPath) = 0;
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
  /// S_OK and the type and number of the entries under the node; E_FAIL without node, E_UNEXPECTED for mixed or unknown types.
  virtual HRESULT GetValueType(const char* iPath, ZOLDftStandardValueType* oType, int* oCount) = 0;
  /// S_OK and the 1-based row of "LineThickness" nearest to the millimetres (0 without table); E_INVALIDARG below 0.
  virtual HRESULT GetThicknessIndex(double iMillimetres, int* oIndex) = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved15() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved16() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved17() = 0;
  /// The data version: "Version", else the version decoded from the file.
  virtual int GetStdVersion() = 0;
  /// S_OK, and 0 in the output.
  virtual HRESULT GetReserved19(int iUnused, int* oValue) = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved20() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved21() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved22() = 0;
  /// S_OK and a new value object on this standard.
  virtual HRESULT GetStandardValue(ZOLIStandardValue** oValue) = 0;
  /// E_NOTIMPL, without report.
  virtual HRESULT Reserved24() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved25() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved26() = 0;
  /// Nothing, after a report.
  virtual void Reserved27() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved28() = 0;
  /// S_OK and the names of the styles of a type, in document order; E_UNEXPECTED when the type is absent.
  virtual HRESULT GetStyleNames(const char* iType, ZOLListValZOLUnicodeString* oNames) = 0;
  /// As the one-argument form, with two new[] empty narrow texts for the caller; E_INVALIDARG for a null output.
  virtual HRESULT GetStandardValue(ZOLIStandardValue** oValue, char** oFirst, char** oSecond) = 0;

  // The array reads with a capacity, after the slots above: the forms without one write as many
  // elements as the value has, which a caller cannot know beforehand.
  /// At most iCapacity integers of an array or a colour; *oCount gets how many the value has.
  /// S_OK when all were written, S_FALSE when they were more (the first iCapacity written; ask
  /// again with *oCount), E_FAIL when there is none, E_INVALIDARG for a null buffer with a
  /// capacity or a negative capacity. A null buffer of capacity 0 asks for the count alone.
  virtual HRESULT GetValue(const char* iPath, int* oValues, int iCapacity, int* oCount) = 0;
  /// The same for the reals of an array.
  virtual HRESULT GetValue(const char* iPath, double* oValues, int iCapacity, int* oCount) = 0;
  /// The same for the strings of an array, through the caller's pointers (a null pointer is skipped).
  virtual HRESULT GetValue(const char* iPath, ZOLUnicodeString** oValues, int iCapacity, int* oCount) = 0;
};

using ZOLIDrwStandard_var = ZOLVar<ZOLIDrwStandard>;
