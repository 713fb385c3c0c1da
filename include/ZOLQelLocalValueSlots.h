// The operations that a local standard and a local style share, slot for slot: one base template
// per interface, so that each keeps its own type, id and meta object.
#pragma once
#include <vector>

#include "ZOLBaseUnknown.h"
#include "ZOLUnicodeString.h"

/// The value operations of ZOLIQelLocalStandard and ZOLIQelLocalStyle. A name is a dotted
/// parameter path; an indexed form addresses element iIndex of a sequence as "name.iIndex".
/// A getter answers S_OK with the local value, or S_FALSE (1) when there is none of its kind,
/// and then the caller reads the standard.
template <class Interface>
class ZOLQelLocalValueSlots : public ZOLBaseUnknown {
public:
  /// E_NOTIMPL.
  virtual HRESULT Reserved() = 0;
  /// S_OK when stored and saved; E_INVALIDARG for an empty vector, E_FAIL for a name not admitted,
  /// E_UNEXPECTED without the data model's object.
  virtual HRESULT SetOverloadedValue(ZOLUnicodeString iName, const std::vector<ZOLUnicodeString>& iValues) = 0;
  /// S_OK when stored under "name.iIndex" and saved; E_FAIL for a name not admitted, E_UNEXPECTED without the object.
  virtual HRESULT SetOverloadedValue(ZOLUnicodeString iName, int iIndex, ZOLUnicodeString iValue) = 0;
  /// S_OK when stored and saved; E_FAIL for a name not admitted, E_UNEXPECTED without the object.
  virtual HRESULT SetOverloadedValue(ZOLUnicodeString iName, ZOLUnicodeString iValue) = 0;
  /// As the string vector form, for reals.
  virtual HRESULT SetOverloadedValue(ZOLUnicodeString iName, const std::vector<double>& iValues) = 0;
  /// As the indexed string form, for a real.
  virtual HRESULT SetOverloadedValue(ZOLUnicodeString iName, int iIndex, double iValue) = 0;
  /// As the string form, for a real.
  virtual HRESULT SetOverloadedValue(ZOLUnicodeString iName, double iValue) = 0;
  /// As the string vector form, for integers.
  virtual HRESULT SetOverloadedValue(ZOLUnicodeString iName, const std::vector<int>& iValues) = 0;
  /// As the indexed string form, for an integer.
  virtual HRESULT SetOverloadedValue(ZOLUnicodeString iName, int iIndex, int iValue) = 0;
  /// As the string form, for an integer.
  virtual HRESULT SetOverloadedValue(ZOLUnicodeString iName, int iValue) = 0;
  /// S_OK with a string vector in place of oValues, or one string appended to it; S_FALSE otherwise.
  virtual HRESULT GetOverloadedValue(ZOLUnicodeString iName, std::vector<ZOLUnicodeString>& oValues) = 0;
  /// S_OK and the string of "name.iIndex" (or of the bare name for index 1); S_FALSE with oValue unchanged.
  virtual HRESULT GetOverloadedValue(ZOLUnicodeString iName, int iIndex, ZOLUnicodeString& oValue) = 0;
  /// S_OK and the string of the name (or of "name.1"); S_FALSE with oValue unchanged.
  virtual HRESULT GetOverloadedValue(ZOLUnicodeString iName, ZOLUnicodeString& oValue) = 0;
  /// As the string vector form, for reals.
  virtual HRESULT GetOverloadedValue(ZOLUnicodeString iName, std::vector<double>& oValues) = 0;
  /// As the indexed string form, for a real.
  virtual HRESULT GetOverloadedValue(ZOLUnicodeString iName, int iIndex, double& oValue) = 0;
  /// As the string form, for a real.
  virtual HRESULT GetOverloadedValue(ZOLUnicodeString iName, double& oValue) = 0;
  /// As the string vector form, for integers.
  virtual HRESULT GetOverloadedValue(ZOLUnicodeString iName, std::vector<int>& oValues) = 0;
  /// As the indexed string form, for an integer.
  virtual HRESULT GetOverloadedValue(ZOLUnicodeString iName, int iIndex, int& oValue) = 0;
  /// As the string form, for an integer.
  virtual HRESULT GetOverloadedValue(ZOLUnicodeString iName, int& oValue) = 0;
};
