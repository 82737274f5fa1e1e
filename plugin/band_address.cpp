#include "plugin/band_address.h"

#include "engine/eq_band.h"
#include "plugin/eq_instance.h"

namespace {

// BandType addressed by each kind code; kinds 6..15 stand for Band too.
constexpr int32_t kTypeOfKind[] = {HighPass, LowShelf, Band, Notch, HighShelf, LowPass};
constexpr int32_t kKindCount = sizeof kTypeOfKind / sizeof kTypeOfKind[0];
constexpr int32_t kGenericBandKind = 2;

}  // namespace

BandAddress decodeBandAddress(int32_t address) {
    BandAddress decoded{};
    decoded.normalized = (address >> 16) & 1;
    if ((address & 0xFFFF) == kOutputGainAddress) {
        decoded.outputGain = true;
        decoded.type = -1;
        decoded.parameter = -1;
        return decoded;
    }
    int32_t kind = address & 15;
    decoded.type = kind < kKindCount ? kTypeOfKind[kind] : Band;
    decoded.ordinal = (address >> 4) & 15;
    decoded.parameter = (address >> 8) & 15;
    return decoded;
}

int32_t bandKindOf(int32_t type) {
    for (int32_t kind = 0; kind < kKindCount; ++kind) {
        if (kTypeOfKind[kind] == type) return kind;
    }
    return kGenericBandKind;
}

int32_t encodeBandAddress(int32_t type, int32_t ordinal, int32_t parameter) {
    return ((parameter * 256) & 0xF00) | ((ordinal * 16) & 0xFF) | bandKindOf(type);
}

int32_t findBandOfType(const EqInstance* instance, int32_t type, int32_t ordinal,
                       int32_t* found) {
    int32_t seen = 0;
    for (int32_t i = 0; i < instance->bandCount(); ++i) {
        const EqBand* band = instance->band(i);
        if (!band || band->type != type) continue;
        if (seen == ordinal) {
            if (found) *found = seen + 1;
            return i;
        }
        ++seen;
    }
    if (found) *found = seen;
    return -1;
}

int32_t rankOfBand(const EqInstance* instance, int32_t bandIndex) {
    int32_t type = instance->band(bandIndex)->type;
    int32_t rank = 0;
    for (int32_t i = 0; i < bandIndex; ++i) {
        const EqBand* band = instance->band(i);
        if (band && band->type == type) ++rank;
    }
    return rank;
}
