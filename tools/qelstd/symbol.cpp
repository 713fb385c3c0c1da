// qelstd symbol TAG: the font, character code and icons of an engineering symbol.
#include <cstdio>
#include <memory>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "QelstdIcon.h"
#include "QelstdVerb.h"
#include "ZOLAnnStdEngineeringSymbolsServices.h"

namespace {

using Services = ZOLAnnStdEngineeringSymbolsServices;

// Rows of pixels of the icons of one icon text ("#" ink, "." paper), drawings end to end side by
// side; empty when the text is no base64 of whole bitmaps of that size.
std::vector<std::string> Drawing(const std::string& text, int size) {
  const auto icons = qelstd::DecodeIcons(text, size);
  if (icons.empty()) return {};
  std::vector<std::string> rows(static_cast<size_t>(size));
  for (size_t i = 0; i < icons.size(); ++i)
    for (int y = 0; y < size; ++y) {
      if (i) rows[y] += "  ";
      for (int x = 0; x < size; ++x) rows[y] += icons[i][static_cast<size_t>(y * size + x)] ? "##" : "..";
    }
  return rows;
}

int RunSymbol(const std::string& tag, int context, int parent, bool json) {
  ZOLUnicodeString font, code, icon16, icon22;
  const HRESULT hr = Services::GetEngSymbolDefinitionAndImage(
      ZOLUnicodeString(tag), static_cast<Services::SymbolContext>(context), static_cast<Services::ParentStandard>(parent),
      font, code, icon16, icon22, 0);
  if (FAILED(hr)) {
    qelstd::Error(tag, hr == E_INVALIDARG ? "an empty tag" : "no such symbol in the tables of this context and parent");
    return qelstd::kNotFound;
  }
  const bool sibling = hr == S_FALSE;
  if (json) {
    nlohmann::ordered_json out;
    out["tag"] = tag;
    out["context"] = context;
    out["parent"] = parent;
    out["fromSiblingTable"] = sibling;
    out["font"] = font.str();
    out["charCode"] = code.str();
    out["icon16"] = icon16.str();
    out["icon22"] = icon22.str();
    std::printf("%s\n", out.dump(2).c_str());
    return qelstd::kDone;
  }
  std::printf("symbol:  %s\n", tag.c_str());
  std::printf("font:    %s%s\n", font.ConvertToChar(), sibling ? " (from the set of the other context)" : "");
  std::printf("code:    %s\n", code.ConvertToChar());
  for (int size : {16, 22}) {
    std::printf("icon %dx%d:\n", size, size);
    for (const std::string& row : Drawing((size == 16 ? icon16 : icon22).str(), size))
      std::printf("  %s\n", row.c_str());
  }
  return qelstd::kDone;
}

void SetupSymbol(CLI::App& app, int* status) {
  auto tag = std::make_shared<std::string>();
  auto context = std::make_shared<int>(1);
  auto parent = std::make_shared<int>(0);
  auto json = std::make_shared<bool>(false);
  CLI::App* verb = app.add_subcommand("symbol", "Show the font, character code and icons of an engineering symbol");
  verb->add_option("TAG", *tag, "Symbol tag with its angle brackets, as <DIAMETER>; names compare with case")
      ->required();
  verb->add_option("--context", *context, "Symbol set: 1 the KVISO1 font (default), 0 the SYM2 font")
      ->check(CLI::Range(0, 1));
  verb->add_option("--parent", *parent, "Standard family: 0 or 1 (default 0), 2 the ANSI family and its SYM1 font")
      ->check(CLI::Range(0, 2));
  verb->add_flag("--json", *json, "Print {tag, context, parent, fromSiblingTable, font, charCode, icon16, icon22}");
  verb->footer(
      "Icons are drawn with ## for ink; a symbol found only in the set of the other context says so.\n"
      "Exit status 1 when no table holds the tag.\n"
      "\nExample:\n"
      "  $ qelstd symbol '<DEGREE>' --context 0\n"
      "  symbol:  <DEGREE>\n"
      "  font:    KVISO1.otf (from the set of the other context)\n"
      "  code:    176\n"
      "  icon 16x16:\n"
      "  ...\n");
  verb->callback([=] { *status = RunSymbol(*tag, *context, *parent, *json); });
}

const qelstd::VerbRegistrar registrar("symbol", SetupSymbol);

}  // namespace
