#include "plugin/vendor_requests.h"

#include "plugin/band_address.h"
#include "plugin/band_value_requests.h"
#include "plugin/parameter_queries.h"

namespace {

// Requests about one parameter: they need a result buffer in ptr.
intptr_t parameterRequest(EqInstance* instance, uint32_t index, int32_t p, void* ptr, float opt,
                          bool* handled) {
    *handled = true;
    switch (index) {
        case kParameterRangeRequest:
            return describeParameterRange(instance, p, static_cast<double*>(ptr));
        case kDisplayTextOfValueRequest:
            return displayTextOfValue(instance, p, opt, static_cast<char*>(ptr));
        case kValueOfDisplayTextRequest:
            return valueOfDisplayText(instance, p, static_cast<char*>(ptr));
        default: *handled = false; return 0;
    }
}

intptr_t setValueRequest(EqInstance* instance, int32_t* address, float opt) {
    BandAddress a = decodeBandAddress(*address);
    setBandValue(instance, a.type, a.ordinal, a.parameter, a.normalized, opt);
    return 1;
}

intptr_t setEnabledRequest(EqInstance* instance, int32_t* address, float opt) {
    BandAddress a = decodeBandAddress(*address);
    if (!a.outputGain) setBandEnabled(instance, a.type, a.ordinal, opt >= 0.5f);
    return 1;
}

intptr_t getEnabledRequest(EqInstance* instance, int32_t* address, void* ptr) {
    BandAddress a = decodeBandAddress(*address);
    float enabled = a.outputGain ? 0.0f : bandEnabledValue(instance, a.type, a.ordinal);
    if (ptr) *static_cast<float*>(ptr) = enabled;
    return 1;
}

intptr_t describeRequest(EqInstance* instance, int32_t* parameterInAddressOut, void* ptr) {
    *parameterInAddressOut =
        describeParameter(instance, *parameterInAddressOut, static_cast<float*>(ptr));
    return 1;
}

// Requests about bands addressed by kind and rank: value points at an int32.
intptr_t bandRequest(EqInstance* instance, uint32_t index, int32_t* address, void* ptr,
                     float opt) {
    switch (index) {
        case kSetBandValueRequest: return setValueRequest(instance, address, opt);
        case kDescribeParameterRequest: return describeRequest(instance, address, ptr);
        case kSetBandEnabledRequest: return setEnabledRequest(instance, address, opt);
        case kGetBandEnabledRequest: return getEnabledRequest(instance, address, ptr);
        default: return 0;
    }
}

}  // namespace

intptr_t vendorSpecific(EqInstance* instance, int32_t index, intptr_t value, void* ptr,
                        float opt) {
    auto request = static_cast<uint32_t>(index);
    if (instance && ptr) {
        bool handled = false;
        intptr_t result =
            parameterRequest(instance, request, static_cast<int32_t>(value), ptr, opt, &handled);
        if (handled) return result;
    }
    auto* address = reinterpret_cast<int32_t*>(value);
    if (!instance || !address) return 0;
    return bandRequest(instance, request, address, ptr, opt);
}
