// Typed values of an object of the application's generic standard service; a standard object
// offers it through a value object (ZOLIDrwStandard::GetStandardValue).
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLUnicodeString.h"
#include "ZOLVar.h"

/// Interface id of ZOLIStandardValue.
extern const IID IID_ZOLIStandardValue;

class ZOLIStandardValue : public ZOLBaseUnknown {
public:
  /// IID_ZOLIStandardValue.
  static const IID& ClassId() { return IID_ZOLIStandardValue; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved1() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved2() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved3() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved4() = 0;
  /// The standard's string read of iPath without its first character, at *iIndex; E_UNEXPECTED
  /// for a null output or index.
  virtual HRESULT GetValue(const char* iPath, int* iIndex, ZOLUnicodeString* oValue) = 0;
  /// The standard's string array read of iPath without its first character.
  virtual HRESULT GetValue(const char* iPath, ZOLUnicodeString** oValues, int* oCount) = 0;
  /// The standard's real read of iPath without its first character, at *iIndex; E_UNEXPECTED for
  /// a null output or index.
  virtual HRESULT GetValue(const char* iPath, int* iIndex, double* oValue) = 0;
  /// The standard's real array read of iPath without its first character.
  virtual HRESULT GetValue(const char* iPath, double* oValues, int* oCount) = 0;
  /// The standard's integer read of iPath without its first character, at *iIndex; E_UNEXPECTED
  /// for a null output or index.
  virtual HRESULT GetValue(const char* iPath, int* iIndex, int* oValue) = 0;
  /// E_NOTIMPL, with a report, in the place of the integer array read.
  virtual HRESULT Reserved10() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved11() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved12() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved13() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved14() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved15() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved16() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved17() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved18() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved19() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved20() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved21() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved22() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved23() = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved24() = 0;
};

using ZOLIStandardValue_var = ZOLVar<ZOLIStandardValue>;
