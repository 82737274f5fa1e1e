#include "plugin/parameter_queries.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "plugin/eq_instance.h"
#include "plugin/parameter_texts.h"
#include "plugin/parameters.h"
#include "plugin/vendor_requests.h"

namespace {

constexpr double kSilentGain = 2.9802322387695312e-08;  // 2^-25
constexpr int kParsedValueLimit = 128;

bool inRange(const EqInstance* instance, int32_t p) {
    return p >= 0 && p < instance->effect.numParams;
}

void formatValueText(const EqBand& band, int32_t field, double v, char* scratch, size_t size) {
    if (field == FrequencyField) {
        std::snprintf(scratch, size, "%.1f", frequencyFromNormalized(band, v));
    } else if (field == GainField) {
        double g = std::min(4.0 * v, 64.0);
        std::snprintf(scratch, size, "%.1f", g < kSilentGain ? -150.0 : ampToDb(g));
    } else {
        std::snprintf(scratch, size, "%.2f", std::clamp(4.0 * v, 0.0, 4.0));
    }
}

double normalizedFrequencyText(const EqInstance* instance, int32_t p, double hz) {
    if (hz <= 20.0) return 0.0;
    if (hz >= 24000.0) return 1.0;
    const EqBand* band = bandOfParameter(instance, p);
    if (band && band->logScaleAutomation) return logFrequencyToNormalized(hz);
    return hz / 24000.0;
}

double normalizedOfText(const EqInstance* instance, int32_t p, double x) {
    switch (p % kParametersPerBand) {
        case FrequencyField: return normalizedFrequencyText(instance, p, x);
        case GainField: return std::exp(kDbToLog * std::min(x, 64.0)) * 0.25;
        default: return x < 0.0 ? 0.0 : std::min(x, 4.0) * 0.25;
    }
}

}  // namespace

intptr_t describeParameterRange(EqInstance* instance, int32_t p, double* out) {
    if (!inRange(instance, p)) return 0;
    out[0] = 0.0;
    out[1] = 1.0;
    out[2] = p % kParametersPerBand == GainField ? 0.25 : 0.5;
    return kVendorRequestHandled;
}

intptr_t displayTextOfValue(EqInstance* instance, int32_t p, float value, char* text) {
    const EqBand* band = inRange(instance, p) ? bandOfParameter(instance, p) : nullptr;
    if (!band) {
        copyHostText(text, "", kParameterTextLimit);
        return 0;
    }
    char scratch[512];
    formatValueText(*band, p % kParametersPerBand, value, scratch, sizeof scratch);
    copyHostText(text, scratch, kParameterTextLimit);
    return kVendorRequestHandled;
}

intptr_t valueOfDisplayText(EqInstance* instance, int32_t p, char* text) {
    if (!inRange(instance, p)) return 0;
    if (text[0] == '\0') return kVendorRequestHandled;
    double v = normalizedOfText(instance, p, std::strtod(text, nullptr));
    std::snprintf(text, kParsedValueLimit, "%f", v);
    return kVendorRequestHandled;
}
