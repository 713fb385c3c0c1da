// The style toolbox: the style of an element, its application, and the graphic values of a style
// as visual properties.
#include "ZOLDftStyleToolbox.h"

#include <string>

#include "ZOLIDftElementWithStandard.h"
#include "ZOLIDftStyle.h"
#include "ZOLIDftStyleManager.h"
#include "ZOLIVisProperties.h"
#include "ZOLQelVisuEventsToolbox.h"
#include "ZOLSysLog.h"

namespace {

struct WideText {
  wchar_t* text = nullptr;
  WideText() = default;
  explicit WideText(const ZOLUnicodeString& s) : text(s.ConvertToWChar()) {}
  WideText(const WideText&) = delete;
  WideText& operator=(const WideText&) = delete;
  ~WideText() { delete[] text; }
};

ZOLSymbolType SymbolOf(const ZOLUnicodeString& name) {
  static const struct {
    const char* name;
    ZOLSymbolType symbol;
  } kSymbols[] = {{"Cross", ZOLSymbolCross},           {"Plus", ZOLSymbolPlus},           {"Concentric", ZOLSymbolConcentric},
                  {"Coincident", ZOLSymbolCoincident}, {"Fullcircle", ZOLSymbolFullCircle}, {"Fullsquare", ZOLSymbolFullSquare},
                  {"Star", ZOLSymbolStar},             {"Dot", ZOLSymbolDot},             {"Smalldot", ZOLSymbolSmallDot}};
  for (const auto& s : kSymbols)
    if (name == s.name) return s.symbol;
  return ZOLSymbolNone;
}

// Colour: three values of 0 or more, else black; a colour that does not read leaves the colour.
void ReadColor(ZOLIDftStyle* style, const std::string& prefix, int useDefaults, ZOLVisPropertiesValues& values) {
  int rgb[3] = {0, 0, 0};
  int count = 0;
  if (!useDefaults && FAILED(style->GetValue((prefix + "Color").c_str(), rgb, 3, &count))) return;
  if (count == 3 && rgb[0] >= 0 && rgb[1] >= 0 && rgb[2] >= 0) values.SetColor(rgb[0], rgb[1], rgb[2], 0);
  else values.SetColor(0, 0, 0, 0);
}

HRESULT SetKind(ZOLIDftStyle* style, const char* prefix, ZOLIVisProperties* vis, int useDefaults, unsigned int inheritance,
                unsigned char dispatch, int kind) {
  if (!prefix) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  const HRESULT defined = vis->IsGeometryKindDefined(&kind);
  if (FAILED(defined)) return S_FALSE;  // the object has no geometry of this kind
  if (defined != S_OK) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  ZOLVisPropertiesValues values;
  if (FAILED(vis->GetProperties(values, ZOLVisPropertyTypeGraphic, kind, inheritance, 0))) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  // Read first, then overlaid: a property the style has no value for stays as it was.
  if (FAILED(ZOLDftStyleToolbox::GetPropertiesValueFromStyle(style, prefix, kind, useDefaults, values))) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  if (FAILED(vis->SetProperties(values, ZOLVisPropertyTypeGraphic, kind, inheritance, 0))) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  if (!dispatch) return S_OK;
  ZOLVisPropertiesValues current;
  if (FAILED(vis->GetProperties(current, ZOLVisPropertyTypeGraphic, kind, inheritance, 0))) {
    ZOLAssertBool("");
    return E_UNEXPECTED;
  }
  if (FAILED(ZOLQelVisuEventsToolbox::DispatchModifyVisProperties(vis, kind, ZOLVisPropertyTypeGraphic, current)))
    ZOLAssertMessage("Failed to dispatch the visualization event");
  return S_OK;
}

}  // namespace

HRESULT ZOLDftStyleToolbox::GetStyle(ZOLBaseUnknown* iElement, const ZOLUnicodeString& iStyleType, ZOLIDftStyle** oStyle,
                                     const ZOLUnicodeString& iStyleName, const ZOLUnicodeString& iStyleContext) {
  if (!iElement || iStyleType.IsEmpty()) return E_FAIL;
  ZOLIDftElementWithStandard_var element(iElement);
  if (element.IsNull()) return E_FAIL;
  ZOLBaseUnknown* rawStandard = nullptr;
  if (FAILED(element->GetStandard(&rawStandard)) || !rawStandard) {
    ZOLAssertMessage("KO: No Standard Found");
    return E_FAIL;
  }
  ZOLVar<ZOLBaseUnknown> standard = ZOLVar<ZOLBaseUnknown>::Adopt(rawStandard);
  ZOLIDftStyleManager_var manager(standard.Get());
  if (manager.IsNull()) {
    ZOLAssertMessage("KO: Standard is not ZOLIDftStyleManager");
    return E_FAIL;
  }
  int version = 0;
  if (FAILED(manager->GetStdVersion(&version)) || version <= 0) return E_FAIL;
  WideText type(iStyleType);
  WideText name;
  if (iStyleName.GetLengthInChar() >= 1) {
    name.text = iStyleName.ConvertToWChar();
  } else {
    WideText context;
    if (!iStyleContext.IsEmpty()) context.text = iStyleContext.ConvertToWChar();
    if (FAILED(manager->GetDefaultStyle(type.text, &name.text, context.text))) return E_FAIL;
  }
  return manager->GetStyle(name.text, type.text, oStyle);
}

HRESULT ZOLDftStyleToolbox::ApplyStyle(ZOLBaseUnknown* iElement, const ZOLUnicodeString& iStyleType,
                                       const ZOLUnicodeString& iStyleName, DftStyleApplyMode iMode,
                                       DftStyleApplyContext iContext, const ZOLUnicodeString& iStyleContext) {
  if (!iElement || iStyleType.IsEmpty()) return E_FAIL;
  ZOLIDftElementWithStyle_var element(iElement);
  if (element.IsNull()) return E_FAIL;
  ZOLIDftStyle* raw = nullptr;
  const HRESULT found = GetStyle(iElement, iStyleType, &raw, iStyleName, iStyleContext);
  ZOLIDftStyle_var style = ZOLIDftStyle_var::Adopt(raw);
  if (FAILED(found) || style.IsNull()) return E_FAIL;
  return element->ApplyStyle(style, iMode, iContext);
}

HRESULT ZOLDftStyleToolbox::GetPropertiesValueFromStyle(ZOLIDftStyle* iStyle, const char* iPrefix, int iGeometryKind,
                                                        int iUseDefaults, ZOLVisPropertiesValues& ioValues) {
  if (!iStyle) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  if (iGeometryKind != 3 && iGeometryKind != 4) return E_INVALIDARG;
  std::string prefix = iPrefix && *iPrefix ? std::string(iPrefix) + "." : std::string();
  if (iGeometryKind == 3) {
    int width = 2;
    if (iUseDefaults || SUCCEEDED(iStyle->GetValue((prefix + "Thickness").c_str(), 1, width)))
      ioValues.SetWidth(width < 1 ? 2 : width, 0);
    int lineType = 1;
    // Standards hold both spellings; only the line type has this fallback.
    if (iUseDefaults || SUCCEEDED(iStyle->GetValue((prefix + "LineType").c_str(), 1, lineType)) ||
        SUCCEEDED(iStyle->GetValue((prefix + "Linetype").c_str(), 1, lineType)))
      ioValues.SetLineType(lineType < 1 ? 1 : lineType == 8 ? 0 : lineType, 0);
  } else {
    ZOLUnicodeString pointType;
    if (!iUseDefaults && SUCCEEDED(iStyle->GetValue((prefix + "PointType").c_str(), 1, pointType))) {
      const ZOLSymbolType symbol = SymbolOf(pointType);
      if (symbol != ZOLSymbolNone) ioValues.SetSymbolType(symbol);
    }
  }
  ReadColor(iStyle, prefix, iUseDefaults, ioValues);
  return S_OK;
}

HRESULT ZOLDftStyleToolbox::SetGraphicProperties(ZOLIDftStyle* iStyle, const char* iPrefix, ZOLIVisProperties* iVisProperties,
                                                 int iUseDefaults, unsigned int iInheritance, DftStyleApplyContext,
                                                 unsigned char iDispatch) {
  if (!iStyle || !iVisProperties) {
    ZOLAssertPointer("");
    return E_UNEXPECTED;
  }
  HRESULT result = S_OK;
  for (int kind : {3, 4}) {
    if (FAILED(SetKind(iStyle, iPrefix, iVisProperties, iUseDefaults, iInheritance, iDispatch, kind))) {
      ZOLAssertMessage("Failed to set graphic properties!");
      result = E_FAIL;
    }
  }
  return result;
}
