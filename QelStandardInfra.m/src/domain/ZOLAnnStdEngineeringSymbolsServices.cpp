// Engineering symbols: a linear search of one constant table, then of its sibling.
#include "ZOLAnnStdEngineeringSymbolsServices.h"

#include "domain/ZOLAnnStdEngineeringSymbolsData.h"

namespace {

const ZOLAnnStdEngSymbolRow* Find(const ZOLAnnStdEngSymbolTable& table, const ZOLUnicodeString& name) {
  for (int i = 0; i < table.count; ++i)
    if (name == table.rows[i].symbolName) return &table.rows[i];
  return nullptr;
}

void Copy(const ZOLAnnStdEngSymbolRow& row, ZOLUnicodeString& font, ZOLUnicodeString& code, ZOLUnicodeString& icon16,
          ZOLUnicodeString& icon22) {
  font = row.fontName;
  code = row.charCode;
  icon16 = row.icon16;
  icon22 = row.icon22;
}

}  // namespace

HRESULT ZOLAnnStdEngineeringSymbolsServices::GetEngSymbolDefinitionAndImage(
    const ZOLUnicodeString& iSymbolName, SymbolContext iContext, ParentStandard iParent, ZOLUnicodeString& oFontName,
    ZOLUnicodeString& oCharCode, ZOLUnicodeString& oIcon16, ZOLUnicodeString& oIcon22, int32_t) {
  if (iSymbolName.GetLengthInChar() < 1) return E_INVALIDARG;
  const int context = static_cast<int>(iContext), parent = static_cast<int>(iParent);
  const ZOLAnnStdEngSymbolTable* table = nullptr;
  if (parent <= 1) {
    if (context == 1) table = &kEngSymbolTableA;
    else if (context == 0) table = &kEngSymbolTableB;
  } else if (parent == 2) {
    table = &kEngSymbolTableC;
  }
  if (!table) return E_FAIL;
  if (const ZOLAnnStdEngSymbolRow* row = Find(*table, iSymbolName)) {
    Copy(*row, oFontName, oCharCode, oIcon16, oIcon22);
    return S_OK;
  }
  if (parent > 1) return E_FAIL;
  // Parents 0 and 1 fall back on the set of the other context; 1 tells the caller the font is that set's.
  if (const ZOLAnnStdEngSymbolRow* row = Find(context == 1 ? kEngSymbolTableB : kEngSymbolTableA, iSymbolName)) {
    Copy(*row, oFontName, oCharCode, oIcon16, oIcon22);
    return S_FALSE;
  }
  return E_FAIL;
}
