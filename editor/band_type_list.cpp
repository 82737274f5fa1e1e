#include "editor/band_type_list.h"

#include "engine/eq_band.h"

namespace {

struct ListSwap {
    int index;
    int32_t code;
};

// Positions that do not show the type of the same number.
constexpr ListSwap kListSwaps[] = {{2, Band}, {8, BandAlt}, {9, BandAlt2}};

constexpr int kNoSelection = -1;

}  // namespace

int32_t bandTypeOfListIndex(int index) {
    if (index == kNoSelection) return Band;
    for (const ListSwap& swap : kListSwaps)
        if (swap.index == index) return swap.code;
    return index;
}

int listIndexOfBandType(int32_t code) {
    for (const ListSwap& swap : kListSwaps)
        if (swap.code == code) return swap.index;
    return code;
}
