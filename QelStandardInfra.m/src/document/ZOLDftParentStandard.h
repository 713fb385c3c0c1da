// The parent standards, one vocabulary for the whole library: the texts a file holds, the bit
// flags of the upgrade chain, the classes of the catalogue, and the built-in standard whose column
// of a per-parent table a parent reads. Header-only, so that the generator of the built-in data
// shares it.
#pragma once
#include <cstdint>
#include <string_view>

/// A parent standard as a file names it in "Dimension.ParentStandard"; Other for any other text.
enum class ZOLDftParent : uint8_t { ISO, ANSI, ASME, JIS, Other };

/// The parent of a text, exactly and with case; Other for any other text.
constexpr ZOLDftParent ZOLDftParentOf(std::string_view text) {
  if (text == "ISO") return ZOLDftParent::ISO;
  if (text == "ANSI") return ZOLDftParent::ANSI;
  if (text == "ASME") return ZOLDftParent::ASME;
  if (text == "JIS") return ZOLDftParent::JIS;
  return ZOLDftParent::Other;
}

/// "ISO", "ANSI", "ASME", "JIS"; empty for Other.
constexpr std::string_view ZOLDftParentText(ZOLDftParent parent) {
  constexpr std::string_view texts[] = {"ISO", "ANSI", "ASME", "JIS", ""};
  return texts[static_cast<int>(parent)];
}

/// The flag of the upgrade chain, ANSI 1, ASME 2, ISO 4, JIS 8, so that a mask such as 12 means
/// ISO or JIS; 0 for Other.
constexpr int ZOLDftParentFlag(ZOLDftParent parent) {
  constexpr int flags[] = {4, 1, 2, 8, 0};
  return flags[static_cast<int>(parent)];
}

/// The class of a standard file in the catalogue's listings: ISO 0, JIS 1, ASME 2, ANSI 3, other 4.
constexpr int ZOLDftParentClass(ZOLDftParent parent) {
  constexpr int classes[] = {0, 3, 2, 1, 4};
  return classes[static_cast<int>(parent)];
}

/// The built-in standards, in their order; each parent reads its own column of a per-parent table.
enum class ZOLDftBuiltin : uint8_t { ISO, AnsiAsme, JIS };
inline constexpr int kZOLDftBuiltinCount = 3;

/// "ISO", "ANSI-ASME", "JIS".
constexpr std::string_view ZOLDftBuiltinName(ZOLDftBuiltin builtin) {
  constexpr std::string_view names[] = {"ISO", "ANSI-ASME", "JIS"};
  return names[static_cast<int>(builtin)];
}

/// The parent text that the built-in standard stores: "ISO", "ANSI" (ASME is ANSI with datum mode 1), "JIS".
constexpr ZOLDftParent ZOLDftBuiltinParent(ZOLDftBuiltin builtin) {
  constexpr ZOLDftParent parents[] = {ZOLDftParent::ISO, ZOLDftParent::ANSI, ZOLDftParent::JIS};
  return parents[static_cast<int>(builtin)];
}

/// The built-in standard whose column a parent reads: ANSI and ASME share one; Other reads ISO's.
constexpr ZOLDftBuiltin ZOLDftBuiltinOf(ZOLDftParent parent) {
  constexpr ZOLDftBuiltin columns[] = {ZOLDftBuiltin::ISO, ZOLDftBuiltin::AnsiAsme, ZOLDftBuiltin::AnsiAsme,
                                       ZOLDftBuiltin::JIS, ZOLDftBuiltin::ISO};
  return columns[static_cast<int>(parent)];
}
