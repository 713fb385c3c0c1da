// A drafting element that takes a style and applies its values to itself. The application
// implements it.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLVar.h"

class ZOLIDftStyle;

/// How an element applies a style; the values are the application's, handed on unchanged.
enum DftStyleApplyMode : int {};
/// Why an element applies a style; the values are the application's, handed on unchanged.
enum DftStyleApplyContext : int {};

/// Interface id of ZOLIDftElementWithStyle.
extern const IID IID_ZOLIDftElementWithStyle;

class ZOLIDftElementWithStyle : public ZOLBaseUnknown {
public:
  /// IID_ZOLIDftElementWithStyle.
  static const IID& ClassId() { return IID_ZOLIDftElementWithStyle; }
  /// The meta object of the interface.
  static const ZOLMetaClass* MetaObject();

  /// The element takes the style and applies it; the result of the application.
  virtual HRESULT ApplyStyle(ZOLIDftStyle* iStyle, DftStyleApplyMode iMode, DftStyleApplyContext iContext) = 0;
};

using ZOLIDftElementWithStyle_var = ZOLVar<ZOLIDftElementWithStyle>;
