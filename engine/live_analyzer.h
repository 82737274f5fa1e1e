// Live spectrum of one signal for the graph: a ring of mono samples written
// by the audio thread, and smoothed dB levels computed from it on the UI thread.
#pragma once

#include <atomic>
#include <cstdint>

constexpr int kSpectrumRingSize = 2048;
constexpr int kSpectrumBins = 1024;
constexpr double kSpectrumFloorDb = -150.0;

struct SpectrumAnalyzer {
    std::atomic<int32_t> writeIndex;
    std::atomic<int32_t> hasNewData;
    uint32_t lastUpdateTick;
    std::atomic<double> samples[kSpectrumRingSize];
    double levelsDb[kSpectrumBins];
};

// Zeroes everything, counters included (a new instance).
void clearSpectrumAnalyzer(SpectrumAnalyzer& analyzer);
// samples 0, levels at the floor, lastUpdateTick 0; counters kept.
void resetSpectrumAnalyzer(SpectrumAnalyzer& analyzer);
// Audio thread: appends (left + right) * 0.5 of every frame.
void captureSpectrum(SpectrumAnalyzer& analyzer, const double* left, const double* right,
                     int32_t frames);
// UI thread: brings the smoothed levels up to date when new samples arrived.
const double* updateSpectrum(SpectrumAnalyzer& analyzer);
