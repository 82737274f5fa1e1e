// The effect's private requests through effVendorSpecific: parameter ranges
// and text conversions, and bands addressed by kind and rank.
#pragma once

#include <cstdint>

struct EqInstance;

enum VendorRequest : uint32_t {
    kParameterRangeRequest = 0xDEADBEF0,
    kDisplayTextOfValueRequest = 7,
    kValueOfDisplayTextRequest = 27,
    kSetBandValueRequest = 0xDEADBF0F,
    kDescribeParameterRequest = 0xDEADBF10,
    kSetBandEnabledRequest = 0xDEADBF11,
    kGetBandEnabledRequest = 0xDEADBF12,
};

constexpr intptr_t kVendorRequestHandled = 0xBEEF;

intptr_t vendorSpecific(EqInstance* instance, int32_t index, intptr_t value, void* ptr, float opt);
