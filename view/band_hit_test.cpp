#include "view/band_hit_test.h"

#include <algorithm>

#include "engine/eq_band.h"
#include "plugin/eq_instance.h"
#include "view/graph_axes.h"

namespace {

constexpr int kHitReach = 7;

struct HitBox {
    double lowFrequency, highFrequency;
    double lowAmplitude, highAmplitude;
};

double handleAmplitude(const EqBand& band, const GraphAxes& axes) {
    switch (band.type) {
        case Notch: return axes.bottomAmplitude;
        case LowPass:
        case HighPass: return amplitudeOfRow(axes, handleRow(axes, band.type, band.gain));
        case AllPass:
        case BandPass: return 1.0;
        default: return std::min(band.gain, kHighestBandGain);
    }
}

bool hits(const EqBand& band, const HitBox& box, const GraphAxes& axes) {
    if (band.frequency < box.lowFrequency || band.frequency > box.highFrequency) return false;
    const double a = handleAmplitude(band, axes);
    if (a >= box.lowAmplitude && a <= box.highAmplitude) return true;
    if (a >= axes.topAmplitude && box.highAmplitude >= axes.topAmplitude) return true;
    return a <= axes.bottomAmplitude && box.lowAmplitude <= axes.bottomAmplitude;
}

bool bandHits(const EqInstance& instance, int index, const HitBox& box, const GraphAxes& axes) {
    const EqBand* band = instance.band(index);
    return band && hits(*band, box, axes);
}

}  // namespace

int hitTestBand(const EqInstance& instance, HWND view, int x, int y, PointValues* values,
                bool clampLow) {
    const GraphAxes axes = viewAxes(instance, view);
    const HitBox box{columnToFrequency(x - kHitReach, axes.width),
                     columnToFrequency(x + kHitReach, axes.width),
                     amplitudeOfRow(axes, y + kHitReach), amplitudeOfRow(axes, y - kHitReach)};
    if (values) {
        values->frequency = columnToFrequency(x, axes.width);
        values->amplitude = amplitudeOfRow(axes, y);
        if (clampLow && values->amplitude < axes.bottomAmplitude)
            values->amplitude = kOffGraphGain;
    }
    if (instance.band(instance.selectedBand) &&
        bandHits(instance, instance.selectedBand, box, axes))
        return instance.selectedBand;
    for (int i = instance.bandCount() - 1; i >= 0; --i)
        if (bandHits(instance, i, box, axes)) return i;
    return -1;
}
