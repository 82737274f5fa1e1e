#include "editor/gain_scale.h"

#include <cmath>
#include <cstdio>

#include "editor/band_fader_scale.h"
#include "plugin/host_imports.h"
#include "plugin/parameters.h"

namespace {
constexpr double kSmallestShownGain = 2.9802322387695312e-08;  // 2^-25
constexpr double kSilentGain = 1e-6;
}  // namespace

double displayDb(double gain) { return gain < kSmallestShownGain ? -150.0 : ampToDb(gain); }

double gainOfDb(double db) { return std::exp(db * kDbToLog); }

int gainFaderPosition(double gain) {
    return truncatedPosition(hostExtensions.db2Slider(displayDb(gain)));
}

double gainOfFaderPosition(int position) {
    return gainOfDb(hostExtensions.slider2Db(position));
}

void formatGainText(double gain, const char* dbFormat, char* text, size_t size) {
    if (gain <= kSilentGain) {
        std::snprintf(text, size, "-inf");
    } else {
        std::snprintf(text, size, dbFormat, displayDb(gain));
    }
}
