#include "view/response_curve.h"

#include <cmath>
#include <numbers>

#include "editor/gain_scale.h"
#include "engine/eq_band.h"
#include "engine/heap_buffer.h"
#include "view/graph_snapshot.h"

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

// Per-column values of one sample rate: p = 4 sin²(w/2) for the magnitude
// and, with the phase, cos w, sin w and cos 2w. Columns from `end` on lie
// above half the sample rate.
struct RateColumns {
    double sampleRate;
    int end;
    double* p;
    double* cosW;
    double* sinW;
    double* cos2W;
};

// The column frequencies and the terms of the rate last asked for, in one
// buffer reused by every paint (painting runs on the UI thread).
class ColumnTerms {
public:
    // False when the buffer cannot grow.
    bool prepare(int width, bool withPhase) {
        const int32_t arrays = withPhase ? 5 : 2;
        const int32_t bytes = arrays * width * static_cast<int32_t>(sizeof(double));
        buffer_.resize(bytes, false);
        if (width <= 0 || buffer_.size != bytes) return false;
        width_ = width;
        withPhase_ = withPhase;
        double* frequency = array(0);
        for (int x = 0; x < width; ++x) frequency[x] = paintedColumnFrequency(x, width);
        rate_ = RateColumns{0.0, -1, array(1), nullptr, nullptr, nullptr};
        if (withPhase) {
            rate_.cosW = array(2);
            rate_.sinW = array(3);
            rate_.cos2W = array(4);
        }
        return true;
    }

    const RateColumns& forRate(double sampleRate) {
        if (rate_.end < 0 || rate_.sampleRate != sampleRate) fill(sampleRate);
        return rate_;
    }

private:
    double* array(int index) { return buffer_.as<double>() + index * width_; }

    void fill(double sampleRate) {
        const double* frequency = array(0);
        const double nyquist = 0.5 * sampleRate;
        double* p = rate_.p;
        int x = 0;
        for (; x < width_ && !(frequency[x] > nyquist); ++x) {
            const double w = frequency[x] * (std::numbers::pi / sampleRate) * 2.0;
            const double s = std::sin(0.5 * w);
            p[x] = 4.0 * s * s;
            if (withPhase_) fillPhaseTerms(x, w);
        }
        rate_.sampleRate = sampleRate;
        rate_.end = x;
    }

    void fillPhaseTerms(int x, double w) {
        rate_.cosW[x] = std::cos(w);
        rate_.sinW[x] = std::sin(w);
        rate_.cos2W[x] = std::cos(2.0 * w);
    }

    HeapBuffer buffer_;
    int width_ = 0;
    bool withPhase_ = false;
    RateColumns rate_{};
};

ColumnTerms columnTerms;

double magnitudeDb(const EqBand& b, double numeratorAtDc, double denominatorAtDc, double p) {
    const double numerator =
        numeratorAtDc + p * (b.b0 * b.b2 * p - (b.b1 * (b.b0 + b.b2) + 4.0 * b.b0 * b.b2));
    const double denominator =
        denominatorAtDc + p * (b.a2 * p - (b.a1 * (1.0 + b.a2) + 4.0 * b.a2));
    return 10.0 * std::log10(numerator) - 10.0 * std::log10(denominator);
}

// The argument of the band's response at column x, in (-3pi/2, pi/2].
double phaseAt(const EqBand& b, const RateColumns& terms, int x) {
    const double cosW = terms.cosW[x];
    const double sinW = terms.sinW[x];
    const double cos2W = terms.cos2W[x];
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

// One band's contribution; `drawnWidth` is lowered when the band stops early.
void addBandResponse(const EqBand& band, const GraphAxes& axes, const ResponseColumns& columns,
                     const RateColumns& terms, int& drawnWidth) {
    const double gainSum = band.b0 + band.b1 + band.b2;
    const double poleSum = 1.0 + band.a1 + band.a2;
    const double numeratorAtDc = gainSum * gainSum;
    const double denominatorAtDc = poleSum * poleSum;
    const int centre = hasCentreColumn(band.type) ? frequencyToColumn(band.frequency, axes.width)
                                                  : -1;
    for (int x = 0; x < terms.end; ++x) {
        const double db = x == centre ? centreColumnDb(band)
                                      : magnitudeDb(band, numeratorAtDc, denominatorAtDc,
                                                    terms.p[x]);
        columns.magnitude[x] += (db + axes.gainRange / 2.0) / axes.gainRange - 0.5;
        if (columns.phase) columns.phase[x] += phaseAt(band, terms, x);
    }
    if (terms.end < axes.width) drawnWidth = terms.end;
}

}  // namespace

int sumBandResponses(const GraphSnapshot& snapshot, const GraphAxes& axes,
                     const ResponseColumns& columns) {
    if (!columnTerms.prepare(axes.width, columns.phase != nullptr)) return 0;
    int drawnWidth = axes.width;
    for (int32_t i = 0; i < snapshot.count; ++i) {
        const EqBand* band = snapshot.band(i);
        if (band && band->enabled)
            addBandResponse(*band, axes, columns, columnTerms.forRate(band->sampleRate),
                            drawnWidth);
    }
    return drawnWidth;
}

bool prepareBandResponses(int width, bool withPhase) {
    return columnTerms.prepare(width, withPhase);
}

int bandResponse(const EqBand& band, const GraphAxes& axes, const ResponseColumns& columns) {
    int drawnWidth = axes.width;
    addBandResponse(band, axes, columns, columnTerms.forRate(band.sampleRate), drawnWidth);
    return drawnWidth;
}
