// The chain of upgrade stages, oldest first. A stage runs when the start level is at most its
// From level and the target is the current level or at least its To level.
#include "upgrade/migration/ZOLDrwMigration.h"
#include "upgrade/migration/ZOLDrwMigrateR21ToR28.h"
#include "upgrade/migration/ZOLDrwMigrateR29ToR36.h"
#include "upgrade/migration/ZOLDrwStyleBuilders.h"

namespace {

void EncodeFlatText(ZOLDrwMigrationContext& context) { context.EncodeLegacyTree(); }

using S = ZOLDrwMigrationStage;

// A null step is not built yet; its entry waits for the step of that release.
constexpr ZOLDrwMigrationStage kStages[] = {
    {0, 1, S::BuildsTreeFromFlatText, "EncodeFlatText", &EncodeFlatText},
    {1, 2, S::EditsTree, "Upgrade9To10", &Upgrade9To10},
    {2, 30, S::EditsTree, "Upgrade10To11", &Upgrade10To11},
    {30, 40, S::EditsTree, "Upgrade11To12", &Upgrade11To12},
    {40, 50, S::EditsTree, "Upgrade12To13", &Upgrade12To13},
    {50, 60, S::EditsTree, "Upgrade13To14", &Upgrade13To14},
    {60, 70, S::EditsTree, "Migrate14To15", &Migrate14To15},
    {70, 80, S::EditsTree, "Migrate15To16n201", &Migrate15To16n201},
    {80, 90, S::EditsTree, "Migrate16To17n1X", &Migrate16To17n1X},
    {90, 100, S::EditsTree, "Migrate17To18n1X1", &Migrate17To18n1X1},
    {100, 110, S::EditsTree, "Migrate18To20n208", &Migrate18To20n208},
    {110, 120, S::EditsTree, "Migrate20To21n209", &Migrate20To21n209},
    {120, 130, S::EditsTree, "Migrate209To21n210", &Migrate209To21n210},
    {130, 140, S::EditsTree, "Migrate210To21n211", &Migrate210To21n211},
    {140, 150, S::EditsTree, "Migrate211To23n213", &Migrate211To23n213},
    {150, 160, S::EditsTree, "Migrate213To23n214", &Migrate213To23n214},
    {160, 170, S::EditsTree, "Migrate214To24n215", &Migrate214To24n215},
    {170, 180, S::EditsTree, "Migrate215To24n216", &Migrate215To24n216},
    {180, 190, S::EditsTree, "Migrate216To25n417", &Migrate216To25n417},
    {190, 200, S::EditsTree, "Migrate417To27n419", &Migrate417To27n419},
    {200, 210, S::EditsTree, "Migrate419To28n420", &Migrate419To28n420},
    {210, 220, S::EditsTree, "Migrate420To29n421", &Migrate420To29n421},
    {220, 230, S::EditsTree, "Migrate421To30n422", &Migrate421To30n422},
    {230, 240, S::EditsTree, "Migrate422To31n423", &Migrate422To31n423},
    {240, 250, S::EditsTree, "Migrate423To32n424", &Migrate423To32n424},
    {250, 260, S::EditsTree, "Migrate424To33n425", &Migrate424To33n425},
    {260, 270, S::EditsTree, "Migrate425To34n426", &Migrate425To34n426},
    {270, 280, S::EditsTree, "Migrate426To35n427", &Migrate426To35n427},
    {280, 290, S::EditsTree, "Migrate427To36n428", &Migrate427To36n428},
};

static_assert(std::size(kStages) == 29);

}  // namespace

std::span<const ZOLDrwMigrationStage> ZOLDrwShippedStages() { return kStages; }
