#include "view/response_curve.h"

#include <cmath>
#include <numbers>

#include "editor/gain_scale.h"
#include "engine/eq_band.h"
#include "plugin/eq_instance.h"

namespace {

// Types whose peak, notch or pass band can fall between two columns: their
// centre column shows the designed value instead of the evaluated one.
bool hasCentreColumn(int32_t type) {
    return type == BandAlt2 || (type >= Notch && type <= BandAlt);
}

double centreColumnDb(const EqBand& band) {
    switch (band.type) {
        case Notch: return -120.0;
        case BandPass: return 0.0;
        default: return displayDb(band.gain);
    }
}

struct MagnitudeTerms {
    double numeratorAtDc;
    double denominatorAtDc;
};

double magnitudeDb(const EqBand& b, const MagnitudeTerms& terms, double p) {
    const double numerator =
        terms.numeratorAtDc + p * (b.b0 * b.b2 * p - (b.b1 * (b.b0 + b.b2) + 4.0 * b.b0 * b.b2));
    const double denominator =
        terms.denominatorAtDc + p * (b.a2 * p - (b.a1 * (1.0 + b.a2) + 4.0 * b.a2));
    return 10.0 * std::log10(numerator) - 10.0 * std::log10(denominator);
}

// The argument of the band's response at angular frequency w, in (-3pi/2, pi/2].
double phaseAt(const EqBand& b, double w) {
    const double cosW = std::cos(w);
    const double sinW = std::sin(w);
    const double cos2W = std::cos(2.0 * w);
    const double denominator = 1.0 + b.a1 * b.a1 + b.a2 * b.a2 +
                               2.0 * b.a1 * (1.0 + b.a2) * cosW + 2.0 * b.a2 * cos2W;
    const double real = (b.b0 + b.a1 * b.b1 + b.a2 * b.b2 +
                         ((1.0 + b.a2) * b.b1 + b.a1 * (b.b0 + b.b2)) * cosW +
                         (b.a2 * b.b0 + b.b2) * cos2W) /
                        denominator;
    const double imaginary = sinW *
                             ((b.b1 - b.a1 * b.b0 + b.a1 * b.b2 - b.a2 * b.b1) +
                              2.0 * (b.b2 - b.a2 * b.b0) * cosW) /
                             denominator;
    return std::atan2(real, imaginary) - std::numbers::pi / 2.0;
}

}  // namespace

void addBandResponse(const EqBand& band, const GraphAxes& axes, const ResponseColumns& columns,
                     int& drawnWidth) {
    const double gainSum = band.b0 + band.b1 + band.b2;
    const double poleSum = 1.0 + band.a1 + band.a2;
    const MagnitudeTerms terms{gainSum * gainSum, poleSum * poleSum};
    const int centre = hasCentreColumn(band.type) ? frequencyToColumn(band.frequency, axes.width)
                                                  : -1;
    const double nyquist = 0.5 * band.sampleRate;
    for (int x = 0; x < axes.width; ++x) {
        const double frequency = paintedColumnFrequency(x, axes.width);
        if (frequency > nyquist) {
            drawnWidth = x;
            return;
        }
        const double w = frequency * (std::numbers::pi / band.sampleRate) * 2.0;
        const double s = std::sin(0.5 * w);
        const double db =
            x == centre ? centreColumnDb(band) : magnitudeDb(band, terms, 4.0 * s * s);
        columns.magnitude[x] += (db + axes.gainRange / 2.0) / axes.gainRange - 0.5;
        if (columns.phase) columns.phase[x] += phaseAt(band, w);
    }
}

int sumBandResponses(const EqInstance& instance, const GraphAxes& axes,
                     const ResponseColumns& columns) {
    int drawnWidth = axes.width;
    for (int32_t i = 0; i < instance.bandCount(); ++i) {
        const EqBand* band = instance.band(i);
        if (band && band->enabled) addBandResponse(*band, axes, columns, drawnWidth);
    }
    return drawnWidth;
}
