// The analysis window of the spectra: the first half of a 2048-point Blackman
// window, scaled so that the whole symmetric window sums to 1.
#pragma once

constexpr int kSpectrumWindowHalf = 1024;

// Built on first use (UI thread only); entry k weights ring samples k and 2047 - k.
const double* spectrumWindow();
