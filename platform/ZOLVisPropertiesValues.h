// Visual properties of a geometry, as the visualization layer reads and writes them: width, line
// type, colour and point symbol, each either set or left as it was.
#pragma once

/// Kinds of visual properties; the style toolbox reads and writes the graphic ones, the others
/// belong to the application's visualization layer.
enum ZOLVisPropertyType : int {
  /// Width, line type, colour and point symbol of a geometry.
  ZOLVisPropertyTypeGraphic = 12,
};

/// Point symbols.
enum ZOLSymbolType : int {
  ZOLSymbolNone = 0,
  ZOLSymbolCross = 1,
  ZOLSymbolPlus = 2,
  ZOLSymbolConcentric = 3,
  ZOLSymbolCoincident = 4,
  ZOLSymbolFullCircle = 5,
  ZOLSymbolFullSquare = 6,
  ZOLSymbolStar = 7,
  ZOLSymbolDot = 8,
  ZOLSymbolSmallDot = 9,
};

class ZOLVisPropertiesValues {
public:
  /// Nothing set.
  ZOLVisPropertiesValues() = default;

  /// Sets the width (an index of the line thickness table); iFlag is kept for the visualization layer.
  void SetWidth(int iWidth, int iFlag) { _width = iWidth, _widthFlag = iFlag, _has |= kWidth; }
  /// Sets the line type; iFlag is kept for the visualization layer.
  void SetLineType(int iLineType, int iFlag) { _lineType = iLineType, _lineTypeFlag = iFlag, _has |= kLineType; }
  /// Sets the colour; iFlag is kept for the visualization layer.
  void SetColor(int iRed, int iGreen, int iBlue, int iFlag) {
    _red = iRed, _green = iGreen, _blue = iBlue, _colorFlag = iFlag, _has |= kColor;
  }
  /// Sets the point symbol.
  void SetSymbolType(ZOLSymbolType iSymbol) { _symbol = iSymbol, _has |= kSymbol; }

  /// 1 and the width and its flag when a width was set, else 0 with the outputs untouched.
  int GetWidth(int& oWidth, int* oFlag = nullptr) const { return Give(kWidth, oWidth, _width, oFlag, _widthFlag); }
  /// 1 and the line type and its flag when one was set, else 0 with the outputs untouched.
  int GetLineType(int& oLineType, int* oFlag = nullptr) const { return Give(kLineType, oLineType, _lineType, oFlag, _lineTypeFlag); }
  /// 1 and the colour and its flag when one was set, else 0 with the outputs untouched.
  int GetColor(int& oRed, int& oGreen, int& oBlue, int* oFlag = nullptr) const {
    if (!(_has & kColor)) return 0;
    oRed = _red, oGreen = _green, oBlue = _blue;
    if (oFlag) *oFlag = _colorFlag;
    return 1;
  }
  /// 1 and the point symbol when one was set, else 0 with the output untouched.
  int GetSymbolType(ZOLSymbolType& oSymbol) const {
    if (!(_has & kSymbol)) return 0;
    oSymbol = _symbol;
    return 1;
  }

private:
  enum : unsigned { kWidth = 1, kLineType = 2, kColor = 4, kSymbol = 8 };
  int Give(unsigned bit, int& out, int value, int* flagOut, int flag) const {
    if (!(_has & bit)) return 0;
    out = value;
    if (flagOut) *flagOut = flag;
    return 1;
  }
  unsigned _has = 0;
  int _width = 0, _widthFlag = 0;
  int _lineType = 0, _lineTypeFlag = 0;
  int _red = 0, _green = 0, _blue = 0, _colorFlag = 0;
  ZOLSymbolType _symbol = ZOLSymbolNone;
};
