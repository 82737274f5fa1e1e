// The host's real FFT ("QIT_fft_real_8", "QIT_fft_permute").
//
// fftReal8(buffer, length, 0) transforms `length` real samples in place, with
// length a power of two, at least 2. The result X[k] = sum x[n] e^(-2 pi i k n / length)
// is packed as length/2 pairs of doubles: pair 0 holds (X[0], X[length/2]),
// both real; the complex bin k (1 <= k < length/2) lies as (re, im) at the pair
// index fftPermute(length/2, k). No scaling is applied.
//
// fftReal8(buffer, length, 1) takes that packing back to `length` real
// samples, also unscaled: a forward transform followed by the inverse
// multiplies every sample by `length`.
//
// Other lengths, and a null buffer, leave the buffer unchanged. Plans are
// made once per length and direction and kept for the life of the process.
#pragma once

void fftReal8(double* buffer, int length, int inverse);

// The pair index of complex bin `index` in a packed transform of
// `transformSize` pairs: `index` (taken modulo the size) with its bits
// reversed, the order in which butterfly transforms leave their output. For a
// size that is not a power of two the index comes back unchanged.
int fftPermute(int transformSize, int index);
