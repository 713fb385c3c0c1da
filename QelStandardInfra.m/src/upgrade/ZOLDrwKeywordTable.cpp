// The keyword table of flat legacy standards and the lookups of ZOLDftStandardServices on it.
#include "upgrade/ZOLDrwKeywordTable.h"

#include <unordered_map>

#include "ZOLDftStandardServices.h"

namespace {

constexpr const char* kSame = nullptr;

// keyword, tree name (kSame: the keyword), mandatory.
constexpr ZOLDrwKeywordRow kRows[] = {
    {"BEGIN_COMMENT_BLOCK", "", 0}, {"END_COMMENT_BLOCK", "", 0}, {"ParentStandard", "", 1},
    {"DIMLUnderline", kSame, 1}, {"DIMLOverrun", kSame, 0}, {"DIMLFlippedOverrun", kSame, 1},
    {"DIMLNoFlippedOverrun", kSame, 1}, {"DIMLShowReverse", kSame, 1}, {"DIMLShowNoReverse", kSame, 1},
    {"DIMLRadiusIntReachCenter", kSame, 1}, {"DIMLDiameterIntReachCenter", kSame, 1},
    {"DIMLRadiusExtReachCenter", kSame, 1}, {"DIMLDiameterExtReachCenter", kSame, 1}, {"DIMTYPos", kSame, 1},
    {"DIMTxtJustif", kSame, 1}, {"DIMLTail", kSame, 1}, {"DIMLConstantLength", kSame, 1}, {"DIMLTextGap", kSame, 1},
    {"DIMLFrameGap", kSame, 1}, {"DIMLDiameterIntOverrun", kSame, 1}, {"DIMLRadiusExtLength", kSame, 1},
    {"DIMLDiameterExtLength", kSame, 1}, {"SYMBArrowSide", kSame, 1}, {"SYMBArrowAngle", kSame, 1},
    {"SYMBClosedArrowSide", kSame, 1}, {"SYMBClosedArrowAngle", kSame, 1}, {"SYMBFilledArrowSide", kSame, 1},
    {"SYMBFilledArrowAngle", kSame, 1}, {"SYMBSymetricArrowSide", kSame, 1}, {"SYMBSymetricArrowAngle", kSame, 1},
    {"SYMBSlashLength", kSame, 1}, {"SYMBCircleDiameter", kSame, 1}, {"SYMBFilledCircleDiameter", kSame, 1},
    {"SYMBSymetricCircleDiameter", kSame, 1}, {"SYMBCrossCircleDiameter", kSame, 1}, {"SYMBTriangleSide", kSame, 1},
    {"SYMBFilledTriangleSide", kSame, 1}, {"SYMBPlusHeight", kSame, 1}, {"SYMBCrossSide", kSame, 1},
    {"SYMBReverseMode", kSame, 0}, {"SYMBReverseLimit", kSame, 1}, {"SCORLeftTail", kSame, 1},
    {"SCORRightTail", kSame, 1}, {"SCORVertSpace", kSame, 1}, {"CHFMeasureMode", kSame, 0},
    {"CHFRepModeDist", kSame, 0}, {"CHFRepModeDistDist", kSame, 0}, {"CHFRepModeDistAngle", kSame, 0},
    {"CHFRepModeAngleDist", kSame, 0}, {"CHFSepHeight", kSame, 1}, {"CHFFrameGroup", kSame, 1},
    {"HLFIntOverrunMode", kSame, 1}, {"HLFExtOverrunMode", kSame, 0}, {"HLFIntOverrun", kSame, 1},
    {"HLFExtOverrun", kSame, 0}, {"ASTBeforePosReference", kSame, 1}, {"ASTAfterPosReference", kSame, 1},
    {"ASTInsertPosReference", kSame, 1}, {"ASTUpperPosReference", kSame, 1}, {"ASTLowerPosReference", kSame, 1},
    {"ASTBeforeXDist", kSame, 1}, {"ASTAfterXDist", kSame, 1}, {"ASTInsertXDist", kSame, 1},
    {"ASTUpperXDist", kSame, 1}, {"ASTLowerXDist", kSame, 1}, {"ASTBeforeYDist", kSame, 1},
    {"ASTAfterYDist", kSame, 1}, {"ASTInsertYDist", kSame, 1}, {"ASTUpperYDist", kSame, 1},
    {"ASTLowerYDist", kSame, 1}, {"TXTAngleAllowed", kSame, 1}, {"TXTLeaderLeftTail", kSame, 1},
    {"TXTLeaderRightTail", kSame, 1}, {"TXTLeaderVertSpace", kSame, 1}, {"TXTLeaderGap", kSame, 1},
    {"TXTDatumMode", kSame, 1}, {"TXTThickness", "STDTxThickText", 1}, {"FAKIdentifyMode", kSame, 1},
    {"FAKUnderlineTail", kSame, 1}, {"FAKVerticalOffset", kSame, 1}, {"DUASideSepHeight", kSame, 1},
    {"DUAAboveOffset", kSame, 1}, {"DUAAboveSpace", kSame, 1}, {"DUAPosReference", kSame, 1},
    {"DUAJustification", kSame, 1}, {"CUMLSignDisplay", "CUMLSign", 1}, {"CUMLOriginSymbol", "CUMLSymbol", 1},
    {"CUMLSymbolScale", "CUMLScale", 1}, {"CUMLExtLDisplay", "CUMLExtLin", 1}, {"CUMLZeroDisplay", "CUML0Disp", 1},
    {"CUMLTxtReference", "CUMLTxtOrRefer", 1}, {"CUMLTxtOrient", kSame, 1}, {"CUMLTxtAngle", kSame, 1},
    {"CUMLDimLDisplay", "CUMLDimLinVis", 1}, {"CUMLDimLLength", "CUMLDimLinLeng", 1},
    {"CUMLExtLMode", "CUMLExtLinMode", 1}, {"CUMLExtLOver", "CUMLExtLinTail", 1},
    {"CUMLExtLLength", "CUMLExtLinLeng", 1}, {"CUMLDimLTxtVPos", "CUMLTxtDecalY1", 1},
    {"CUMLExtLTxtVPos", "CUMLTxtDecalY2", 1}, {"CUMLExtLTxtHPos", "CUMLTxtDecalX", 1},
    {"CUMLExtLTxtRef", "CUMLTxtPosRefer", 1}, {"CUMLTxtVJusti1", kSame, 1}, {"CUMLTxtVJusti2", kSame, 1},
    {"CUMLTxtHJusti", kSame, 1}, {"CUMLDimLinMode", kSame, 1}, {"CUMLTxtDecalY", kSame, 1},
    {"CUMLTxtVJusti", kSame, 1}, {"CUMLDimLinTail", kSame, 1}, {"FAKLeftSymb", kSame, 0}, {"FAKRightSymb", kSame, 0},
    {"FAKSymbHeight", kSame, 0}, {"STDDimDisplayArcSymbol", kSame, 1}, {"STDDimHeightArcSymbol", kSame, 1},
    {"STDDimOffsetArcSymbol", kSame, 1}, {"STDDimUnderlineModeArcSymbol", kSame, 1},
    {"STDDimLengthArcSymbol", kSame, 1}, {"STDDimMinLengthArcSymbol", kSame, 1},
    {"STDDimMaxLengthArcSymbol", kSame, 1}, {"BEGIN_TOLERANCE", "", 0}, {"END_TOLERANCE", "", 0},
    {"TolName", kSame, 1}, {"TolType", kSame, 1}, {"TolTrailing", kSame, 1}, {"TolSepar_1", kSame, 1},
    {"TolSepar_2", kSame, 1}, {"TolSymbolH", kSame, 1}, {"TolSepTo_1", kSame, 1}, {"TolSepTo_2", kSame, 1},
    {"TolSepTo_3", kSame, 1}, {"TolFractLine", kSame, 1}, {"TolPtOnValue", kSame, 1}, {"TolAnchorPt", kSame, 1},
    {"TolIntX", kSame, 1}, {"TolIntY", kSame, 1}, {"TolExtX", kSame, 1}, {"TolExtY", kSame, 1},
    {"TolMergeSame", kSame, 1}, {"TolShowNull", kSame, 1}, {"TolScale", kSame, 1},
    {"BEGIN_NUMERICAL_DISPLAY", "", 0}, {"END_NUMERICAL_DISPLAY", "", 0}, {"NDName", "FNMVAL", 1},
    {"NDType", "FTYFOR", 1}, {"NDUnit", "FUNITE", 1}, {"NDFact", "FNBFAC", 1}, {"NDExise", "FEXISE", 1},
    {"NDNulFac_1", "FACNUL_1", 1}, {"NDNulFac_2", "FACNUL_2", 1}, {"NDNulFac_3", "FACNUL_3", 1},
    {"NDSepar_1", "FSEPAR_1", 1}, {"NDSepar_2", "FSEPAR_2", 1}, {"NDSepar_3", "FSEPAR_3", 1},
    {"NDNulOther", "FRESNV", 1}, {"NDAlignFrac", "", 1}, {"NDTypFrac", "FTYFRA", 1}, {"NDFinZer", "FZERFI", 1},
    {"NDSepNum", "FSENUM", 1}, {"NDSep1000", "FSEMIL", 1}, {"NDGlobFact", "FAMUAS", 1}, {"NDFact_1", "FFACTR_1", 1},
    {"NDFact_2", "FFACTR_2", 1}, {"NDFact_3", "FFACTR_3", 1}, {"NDValPos_1", "FPOVAL_1", 1},
    {"NDValPos_2", "FPOVAL_2", 1}, {"NDValPos_3", "FPOVAL_3", 1}, {"NDSepPos_1", "FPOSEP_1", 1},
    {"NDSepPos_2", "FPOSEP_2", 1}, {"NDSepPos_3", "FPOSEP_3", 1}, {"NDSepScl_1", "FECSEP_1", 1},
    {"NDSepScl_2", "FECSEP_2", 1}, {"NDSepScl_3", "FECSEP_3", 1}, {"NDResScl", "FEPRES", 1},
    {"NDRestX", "FAYOTS", 1}, {"NDRestY", "FPORES", 1}, {"NDOperY", "FDENUM", 1}, {"NDSepDen", "FEPDEN", 1},
};
static_assert(std::size(kRows) == 177);

using Index = std::unordered_map<std::string_view, int>;

// The first row of each word wins, as a search from the top would find it.
template <class Column>
Index BuildIndex(Column column) {
  Index index;
  int i = 0;
  for (const ZOLDrwKeywordRow& row : kRows) index.emplace(column(row), i++);
  return index;
}

int Find(const Index& index, std::string_view word) {
  if (word.empty()) return -1;
  auto it = index.find(word);
  return it == index.end() ? -1 : it->second;
}

}  // namespace

std::span<const ZOLDrwKeywordRow> ZOLDrwKeywordTable() { return kRows; }

int ZOLDrwKeywordIndex(std::string_view word) {
  static const Index index = BuildIndex([](const ZOLDrwKeywordRow& r) { return r.Keyword(); });
  return Find(index, word);
}

int ZOLDrwParamIndex(std::string_view word) {
  static const Index index = BuildIndex([](const ZOLDrwKeywordRow& r) { return r.Param(); });
  return Find(index, word);
}

int ZOLDftStandardServices::GetIndexFromKeyword(const ZOLUnicodeString& keyword) { return ZOLDrwKeywordIndex(keyword); }

int ZOLDftStandardServices::GetIndexFromParam(const ZOLUnicodeString& param) { return ZOLDrwParamIndex(param); }

ZOLUnicodeString ZOLDftStandardServices::GetKeywordFromParam(const ZOLUnicodeString& param) {
  const int i = ZOLDrwParamIndex(param);
  return i < 0 ? ZOLUnicodeString() : ZOLUnicodeString(kRows[i].Keyword());
}

ZOLUnicodeString ZOLDftStandardServices::GetParamFromKeyword(const ZOLUnicodeString& keyword) {
  const int i = ZOLDrwKeywordIndex(keyword);
  return i < 0 ? ZOLUnicodeString() : ZOLUnicodeString(kRows[i].Param());
}
