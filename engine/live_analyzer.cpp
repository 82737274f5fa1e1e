#include "engine/live_analyzer.h"

#include <cmath>

#include "engine/analysis_window.h"
#include "plugin/host_imports.h"
#include "plugin/ui_layer.h"

namespace {

constexpr auto kRelaxed = std::memory_order_relaxed;
constexpr uint32_t kSmoothingPauseMs = 3000;  // after a longer pause the levels jump
constexpr double kTickScale = 0.00011;
constexpr double kRiseRate = 400.0;  // about 22.7 ms
constexpr double kFallRate = 40.0;   // about 227 ms
constexpr double kPowerFloor = 8.88e-16;
constexpr double kTenOverLn10 = 8.685889638065037;  // 10 / ln 10, twice over for power

struct Smoothing {
    double rise;
    double fall;
};

// Advances the analyzer's clock and returns the weights of the old levels.
Smoothing smoothingSince(SpectrumAnalyzer& analyzer, uint32_t now) {
    uint64_t last = analyzer.lastUpdateTick;
    analyzer.lastUpdateTick = now;
    if (now < last || now >= last + kSmoothingPauseMs) return {0.0, 0.0};
    double u = (now - last) * kTickScale;
    return {std::exp(-kRiseRate * u), std::exp(-kFallRate * u)};
}

// The ring, oldest sample first, under the symmetric window.
void windowRing(const SpectrumAnalyzer& analyzer, int32_t oldest, double* buffer) {
    const double* window = spectrumWindow();
    for (int k = 0; k < kSpectrumRingSize; ++k) {
        double weight = k < kSpectrumWindowHalf ? window[k] : window[kSpectrumRingSize - 1 - k];
        buffer[k] = analyzer.samples[(oldest + k) % kSpectrumRingSize].load(kRelaxed) * weight;
    }
}

// Power of bin 1..1024 of the packed transform; the Nyquist term is real.
double binPower(const double* spectrum, int bin) {
    if (bin == kSpectrumBins) return spectrum[1] * spectrum[1];
    int pair = hostExtensions.fftPermute(kSpectrumRingSize / 2, bin);
    double re = spectrum[2 * pair], im = spectrum[2 * pair + 1];
    return re * re + im * im;
}

double powerToDb(double power) {
    return power < kPowerFloor ? kSpectrumFloorDb : 0.5 * std::log(power) * kTenOverLn10;
}

void smoothLevels(double* levelsDb, const double* spectrum, Smoothing smoothing) {
    for (int bin = 1; bin <= kSpectrumBins; ++bin) {
        double level = powerToDb(binPower(spectrum, bin));
        double old = levelsDb[bin - 1];
        double keep = level > old ? smoothing.rise : smoothing.fall;
        levelsDb[bin - 1] = old * keep + level * (1 - keep);
    }
}

}  // namespace

void clearSpectrumAnalyzer(SpectrumAnalyzer& analyzer) {
    analyzer.writeIndex.store(0, kRelaxed);
    analyzer.hasNewData.store(0, kRelaxed);
    resetSpectrumAnalyzer(analyzer);
}

void resetSpectrumAnalyzer(SpectrumAnalyzer& analyzer) {
    for (auto& sample : analyzer.samples) sample.store(0.0, kRelaxed);
    for (double& level : analyzer.levelsDb) level = kSpectrumFloorDb;
    analyzer.lastUpdateTick = 0;
}

void captureSpectrum(SpectrumAnalyzer& analyzer, const double* left, const double* right,
                     int32_t frames) {
    int32_t index = analyzer.writeIndex.load(kRelaxed);
    for (int32_t i = 0; i < frames; ++i) {
        analyzer.samples[index].store((left[i] + right[i]) * 0.5, kRelaxed);
        index = index == kSpectrumRingSize - 1 ? 0 : index + 1;
    }
    analyzer.writeIndex.store(index, kRelaxed);
    analyzer.hasNewData.store(1, kRelaxed);
}

const double* updateSpectrum(SpectrumAnalyzer& analyzer) {
    spectrumWindow();
    if (analyzer.hasNewData.load(kRelaxed) == 0) return analyzer.levelsDb;
    analyzer.hasNewData.store(0, kRelaxed);
    int32_t oldest = analyzer.writeIndex.load(kRelaxed);
    Smoothing smoothing = smoothingSince(analyzer, kobal::GetTickCount());
    double buffer[kSpectrumRingSize];
    windowRing(analyzer, oldest, buffer);
    hostExtensions.fftReal8(buffer, kSpectrumRingSize, 0);
    smoothLevels(analyzer.levelsDb, buffer, smoothing);
    return analyzer.levelsDb;
}
