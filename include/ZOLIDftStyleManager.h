// The style face of a standard object: style types and names, the default style of a type, and
// style objects that read their values from the standard.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLVar.h"

class ZOLIDftStyle;
class ZOLIUnknownList;

/// Interface id of ZOLIDftStyleManager.
extern const IID IID_ZOLIDftStyleManager;

class ZOLIDftStyleManager : public ZOLBaseUnknown {
public:
  /// IID_ZOLIDftStyleManager.
  static const IID& ClassId() { return IID_ZOLIDftStyleManager; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// S_OK and a new style object of that name and type in *oStyle, whether the standard holds the
  /// style or not (ask HasNode); E_INVALIDARG for an empty name or type or an output that is null
  /// or set; E_UNEXPECTED when no style could be made.
  virtual HRESULT GetStyle(const wchar_t* iName, const wchar_t* iType, ZOLIDftStyle** oStyle) = 0;
  /// S_OK and a new list of style objects in *oList: every style of the type, or of every type
  /// when iType is null or empty, type by type in document order; E_INVALIDARG for a null output;
  /// E_UNEXPECTED when a type cannot be listed (the list then holds what came before). iContext is unused.
  virtual HRESULT GetStyles(const wchar_t* iType, ZOLIUnknownList** oList, const wchar_t* iContext) = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved3() = 0;
  /// S_OK and the data version of the standard; E_INVALIDARG for a null output.
  virtual HRESULT GetStdVersion(int* oVersion) = 0;
  /// S_OK and a new[] wide copy of the default style name of a type in *oName: "Default" unless
  /// SetDefaultStyle named another on this object; E_INVALIDARG for an empty type or an output
  /// that is null or set. iContext is unused.
  virtual HRESULT GetDefaultStyle(const wchar_t* iType, wchar_t** oName, const wchar_t* iContext) = 0;
  /// S_OK once the name is the default style of the type on this object (not saved, not checked
  /// against the standard); E_INVALIDARG for an empty type or name. iContext is unused.
  virtual HRESULT SetDefaultStyle(const wchar_t* iType, const wchar_t* iName, const wchar_t* iContext) = 0;
  /// E_NOTIMPL, with a report.
  virtual HRESULT Reserved7() = 0;
};

using ZOLIDftStyleManager_var = ZOLVar<ZOLIDftStyleManager>;
