// Development-only instance counters by class name; they change nothing in behaviour.
#pragma once

/// Adds delta to the counter of name, only in development mode.
void ZOLQelInstCount(const char* name, int delta);
/// The counter of name (0 if never counted).
long ZOLQelInstCountGet(const char* name);
