// A band value named by the kind of band and its rank among bands of that
// kind, as a host that treats the effect as a generic EQ addresses it.
//
// bits 0-3 kind, 4-7 ordinal, 8-11 parameter (0 frequency, 1 gain,
// 2 bandwidth), 16 "value is normalized"; low 16 bits all set: the output gain.
#pragma once

#include <cstdint>

struct EqInstance;

constexpr int32_t kOutputGainAddress = 0xFFFF;
constexpr int32_t kOutputGainAddressAnswer = 0xFFFFFF;

struct BandAddress {
    bool outputGain;
    int32_t type;  // the BandType the kind stands for
    int32_t ordinal;
    int32_t parameter;
    bool normalized;
};

BandAddress decodeBandAddress(int32_t address);
// The kind a band type is reported as.
int32_t bandKindOf(int32_t type);
// Writes the address of `parameter` of the `ordinal`-th band of `type`'s kind.
int32_t encodeBandAddress(int32_t type, int32_t ordinal, int32_t parameter);

// Index of the ordinal-th band whose type is exactly `type`, or -1; `found`
// receives how many such bands there are up to that rank.
int32_t findBandOfType(const EqInstance* instance, int32_t type, int32_t ordinal,
                       int32_t* found = nullptr);
// How many bands before `bandIndex` share its type.
int32_t rankOfBand(const EqInstance* instance, int32_t bandIndex);
