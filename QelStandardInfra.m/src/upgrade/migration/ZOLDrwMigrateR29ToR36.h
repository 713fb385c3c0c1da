// The steps from release 29 to release 36, the symbol rows that they add, and the record builders
// of the legacy number and tolerance formats.
#pragma once
#include <memory>
#include <span>
#include <string_view>

#include "QelStdToleranceDescription.h"
#include "QelStdUnitDescription.h"
#include "upgrade/migration/ZOLDrwMigrateR21ToR28.h"

// The symbol of that name among those that releases 29 to 35 add or redraw, or null.
const ZOLDrwRelease21Symbol* ZOLDrwFindRelease29Symbol(std::string_view name);

// Appends a record ToleranceDisplay to "Root.ToleranceFormats"; a null description is reported.
void AddToleranceDisplay(ZOLAnnStandardXMLParser* parser, const std::shared_ptr<QelStdToleranceDescription>& description);
// Appends a record NumericalDisplay to "Root.ValueFormats", the thousands and decimal separators as
// their codes; a null description is reported.
void AddNumericalDisplay(ZOLAnnStandardXMLParser* parser, const std::shared_ptr<QelStdUnitDescription>& description);

// The steps from level 210 to level 290.
void Migrate420To29n421(ZOLDrwMigrationContext& context);
void Migrate421To30n422(ZOLDrwMigrationContext& context);
void Migrate422To31n423(ZOLDrwMigrationContext& context);
void Migrate423To32n424(ZOLDrwMigrationContext& context);
void Migrate424To33n425(ZOLDrwMigrationContext& context);
void Migrate425To34n426(ZOLDrwMigrationContext& context);
void Migrate426To35n427(ZOLDrwMigrationContext& context);
void Migrate427To36n428(ZOLDrwMigrationContext& context);
