// The steps from release 21 to release 28 and the engineering symbol rows that they add.
#pragma once
#include <span>
#include <string>
#include <string_view>

#include "upgrade/migration/ZOLDrwMigration.h"

// A symbol as releases 21 to 25 delivered it: name, character code in the Unicode form, and base64
// icons of 16 and 22 pixels in the heavy look (KVISO1.otf), the thin look (SYM2.font) and the
// slanted look (SYM1.font).
struct ZOLDrwRelease21Symbol {
  const char* name;
  int charcode;
  const char* heavy16;
  const char* heavy22;
  const char* thin16;
  const char* thin22;
  const char* slanted16;
  const char* slanted22;
};
// The 64 symbols of the table of release 24, in their positions, then the seven rows of releases 24 and 25.
std::span<const ZOLDrwRelease21Symbol> ZOLDrwRelease21Symbols();
// The symbol of that name, or null.
const ZOLDrwRelease21Symbol* ZOLDrwFindRelease21Symbol(std::string_view name);
// The symbol of that name in a frozen list, or null.
const ZOLDrwRelease21Symbol* ZOLDrwFindSymbol(std::span<const ZOLDrwRelease21Symbol> symbols, std::string_view name);

// Appends a row to "Root.EngineeringSymbols": Name, Position, Font, Charcode, Icon16x16, Icon22x22,
// and from level 170 ToleranceValue, DatumReference, Notes. A row of another length is reported
// and not added.
void AddEngineeringSymbol(ZOLAnnStandardXMLParser* parser, std::span<const std::string> row);

// The steps from level 110 to level 210.
void Migrate20To21n209(ZOLDrwMigrationContext& context);
void Migrate209To21n210(ZOLDrwMigrationContext& context);
void Migrate210To21n211(ZOLDrwMigrationContext& context);
void Migrate211To23n213(ZOLDrwMigrationContext& context);
void Migrate213To23n214(ZOLDrwMigrationContext& context);
void Migrate214To24n215(ZOLDrwMigrationContext& context);
void Migrate215To24n216(ZOLDrwMigrationContext& context);
void Migrate216To25n417(ZOLDrwMigrationContext& context);
void Migrate417To27n419(ZOLDrwMigrationContext& context);
void Migrate419To28n420(ZOLDrwMigrationContext& context);
