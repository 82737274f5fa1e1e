// The display names of the band types.
#include "engine/eq_band.h"

namespace {

// Indexed by BandType code.
constexpr const char* kBandTypeNames[] = {
    "Low Shelf", "High Shelf", "Band (alt 2)", "Low Pass", "High Pass",
    "All Pass",  "Notch",      "Band Pass",    "Band",     "Band (alt)",
};
constexpr int32_t kBandTypeCount = sizeof(kBandTypeNames) / sizeof(kBandTypeNames[0]);

}  // namespace

const char* bandTypeName(int32_t type) {
    return type >= 0 && type < kBandTypeCount ? kBandTypeNames[type] : "";
}
