// The built-in standard texts, copied from the generated constants into static strings at load.
#include "ZOLDftBuiltinStandards.h"

#include <array>

#include "catalogue/ZOLDftBuiltinStandardsData.h"

namespace {

struct BuiltinTexts {
  std::array<ZOLUnicodeString, 3> texts;
  ZOLListValZOLUnicodeString names;

  BuiltinTexts() {
    for (size_t i = 0; i < texts.size(); ++i) {
      const ZOLDftBuiltinStandardPieces& source = kZOLDftBuiltinStandardPieces[i];
      std::string& text = texts[i].str();
      text.reserve(source.length);
      for (size_t p = 0; p < source.pieceCount; ++p) text += source.pieces[p];
      names.Append(ZOLUnicodeString(source.name));
    }
  }
};

// Made on first use, so that other static initialisers may ask for a text too.
const BuiltinTexts& Builtin() {
  static const BuiltinTexts builtin;
  return builtin;
}

// Filled at library load, as the other tables of the library are.
[[maybe_unused]] const BuiltinTexts& gLoaded = Builtin();

}  // namespace

namespace ZOLDftBuiltinStandards {

const ZOLUnicodeString* GetText(std::string_view name) {
  const BuiltinTexts& builtin = Builtin();
  for (size_t i = 0; i < builtin.texts.size(); ++i)
    if (name == kZOLDftBuiltinStandardPieces[i].name) return &builtin.texts[i];
  return nullptr;
}

const ZOLListValZOLUnicodeString& GetNames() { return Builtin().names; }

}  // namespace ZOLDftBuiltinStandards
