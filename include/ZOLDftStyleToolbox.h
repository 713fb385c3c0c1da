// Between drafting elements, the styles of their standard and the visualization layer: finds the
// style an element should use, has the element apply it, and turns a style's graphic values into
// visual properties. Static functions only; no state.
#pragma once
#include "ZOLBaseUnknown.h"
#include "ZOLIDftElementWithStyle.h"
#include "ZOLUnicodeString.h"
#include "ZOLVisPropertiesValues.h"

class ZOLIDftStyle;
class ZOLIVisProperties;

class ZOLDftStyleToolbox {
public:
  /// The result of the element's ApplyStyle with the style that GetStyle finds for it; E_FAIL for a
  /// null element, an empty type, an element that takes no style, or no style found.
  static HRESULT ApplyStyle(ZOLBaseUnknown* iElement, const ZOLUnicodeString& iStyleType, const ZOLUnicodeString& iStyleName,
                            DftStyleApplyMode iMode, DftStyleApplyContext iContext, const ZOLUnicodeString& iStyleContext);
  /// The style manager's GetStyle on the element's standard: iStyleName, or the default style of the
  /// type when it is empty; *oStyle must be null. E_FAIL for a null element, an empty type, an
  /// element without standard, a standard without styles or without a version above 0.
  static HRESULT GetStyle(ZOLBaseUnknown* iElement, const ZOLUnicodeString& iStyleType, ZOLIDftStyle** oStyle,
                          const ZOLUnicodeString& iStyleName, const ZOLUnicodeString& iStyleContext);
  /// S_OK with the style's graphic values at iPrefix (none: at the style itself) set into ioValues:
  /// width, line type and colour for geometry kind 3, point symbol and colour for kind 4; a value
  /// that does not read is left as it was. With iUseDefaults not 0 nothing is read: width 2, line
  /// type 1, black. E_INVALIDARG for another kind, E_UNEXPECTED for a null style.
  static HRESULT GetPropertiesValueFromStyle(ZOLIDftStyle* iStyle, const char* iPrefix, int iGeometryKind, int iUseDefaults,
                                             ZOLVisPropertiesValues& ioValues);
  /// S_OK once the style's values overlay the visual properties of kinds 3 and 4 (a kind the object
  /// lacks is skipped), each change dispatched as an event when iDispatch is not 0; E_FAIL when a
  /// kind failed (the other is still done); E_UNEXPECTED for a null style or object. iContext is unused.
  static HRESULT SetGraphicProperties(ZOLIDftStyle* iStyle, const char* iPrefix, ZOLIVisProperties* iVisProperties,
                                      int iUseDefaults, unsigned int iInheritance, DftStyleApplyContext iContext,
                                      unsigned char iDispatch);
};
