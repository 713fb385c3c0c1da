// The one-time check of the table of accepted explicit versions, open to tests with other tables.
#pragma once

/// Checks a table of accepted versions against the registry; reports each fault and returns their number.
int ZOLDftStdPersistenceSelfCheck(const int* table, int count);
