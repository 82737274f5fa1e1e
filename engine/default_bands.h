// The four-band layout every new instance and "Reset defaults" start from.
#pragma once

struct EqInstance;

// Replaces the band list by the default layout; false when out of memory
// (the bands made so far stay in the list).
bool loadDefaultBands(EqInstance* instance);
