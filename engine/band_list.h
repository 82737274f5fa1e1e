// The instance's ordered band list. The list owns its records; every change
// of the count rewrites the host parameter count.
#pragma once

#include <cstdint>

struct EqInstance;
struct EqBand;

// Appends `band` (taking ownership). False, with the band deleted, when the
// list cannot grow.
bool appendBand(EqInstance* instance, EqBand* band);
// Deletes every band from the last to the first; the storage is kept.
void deleteAllBands(EqInstance* instance);
