// The live input and output spectra behind the response curve: the analyzers'
// smoothed levels placed on the graph's log-frequency axis, merged per
// column, smoothed with quadratic curves and drawn one segment per column.
#pragma once

#include <cstdint>

class MuraBitmap;
struct EqInstance;
struct SpectrumAnalyzer;

// Paint step: draws both spectra while audio arrived within the last second,
// and otherwise forgets the spectrum tick.
void drawSpectra(EqInstance& instance, MuraBitmap* bitmap);

void drawSpectrum(SpectrumAnalyzer& capture, MuraBitmap* bitmap, uint32_t color, double alpha,
                  double topFrequency, double bottomDb, double topDb);

// The columns of the curve through `count` points (x ascending from 0); writes
// at most `width` values and returns the last point's column.
struct SpectrumPoint {
    int x;
    float y;
};
int interpolateSpectrumColumns(const SpectrumPoint* points, int count, int width, float* columns);
