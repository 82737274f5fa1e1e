// What a paint needs of the instance, copied under the instance mutex: the
// band records (coefficients, values, enabled flags), the selection and the
// hovered band. The response is then evaluated and drawn with the lock
// released, so the audio thread never waits on a window or raster call.
#pragma once

#include <cstdint>

#include "engine/eq_band.h"

struct EqInstance;

struct BandCopy {
    EqBand values;
    bool present;  // false where the list held no record
};

struct GraphSnapshot {
    const BandCopy* bands;
    int32_t count;
    int32_t selectedBand;
    int32_t hoverBand;

    // The copy of band `index`; null when out of range or missing.
    const EqBand* band(int32_t index) const {
        return index >= 0 && index < count && bands[index].present ? &bands[index].values
                                                                   : nullptr;
    }
};

// Takes the mutex only for the copy. The copies live in one buffer reused by
// every paint (painting runs on the UI thread); when it cannot grow the
// snapshot has no bands.
GraphSnapshot takeGraphSnapshot(EqInstance& instance);
