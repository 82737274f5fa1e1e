#include "engine/default_bands.h"

#include "engine/band_list.h"
#include "plugin/eq_instance.h"

namespace {

struct DefaultBand {
    BandType type;
    double frequency;  // Hz
    double gain;       // linear
    double bandwidth;  // octaves
};

// A low shelf, two bells and a high shelf, all flat.
constexpr DefaultBand kDefaultBands[] = {
    {LowShelf, 100.0, 1.0, 2.0},
    {Band, 300.0, 1.0, 2.0},
    {Band, 1000.0, 1.0, 2.0},
    {HighShelf, 5000.0, 1.0, 2.0},
};

}  // namespace

bool loadDefaultBands(EqInstance* instance) {
    MutexLock lock(instance->mutex);
    deleteAllBands(instance);
    for (const DefaultBand& row : kDefaultBands) {
        EqBand* band = createDesignedBand(row.type, row.frequency, row.gain, row.bandwidth,
                                          instance->sampleRate);
        if (!band || !appendBand(instance, band)) return false;
    }
    return true;
}
