// The private extension interface between the equalizer and its host,
// requested by name through the VST host callback.
//
//   hostCallback(nullptr, kHostExtensionOpcode, kHostExtensionIndex, 0, "NAME", 0.0f)
//
// answers the address of the function called NAME, or 0 when the host does
// not offer it. The raster functions (MURA_*) are declared in mura.h.
#pragma once

#include <cstdint>

constexpr int32_t kHostExtensionOpcode = static_cast<int32_t>(0xdeadbeefu);
constexpr int32_t kHostExtensionIndex = static_cast<int32_t>(0xdeadf00du);

// Fader curve of the host's faders: dB to a fader position (0..1000) and back.
using Db2SliderProc = double (*)(double db);
using Slider2DbProc = double (*)(double position);

// In-place real FFT over `length` doubles. Forward (inverse = 0): the input is
// `length` real samples; the output is packed as length/2 complex pairs where
// pair 0 holds (DC, Nyquist) and the complex bin k lies at the pair index
// QIT_fft_permute(length / 2, k). Inverse (inverse = 1) undoes it, unscaled.
using FftReal8Proc = void (*)(double* buffer, int length, int inverse);
using FftPermuteProc = int (*)(int transformSize, int index);

// Address of a host configuration variable and its size in bytes, or null.
using GetConfigVarProc = void* (*)(const char* name, int* size);

// Notice sent with audioMasterVendorSpecific, index kHostExtensionOpcode,
// when the effect's parameter list grew or shrank: `delta` parameters were
// inserted (positive) or removed (negative) at parameter index `first`.
struct ParamListChange {
    int32_t first;
    int32_t delta;
};

// Answer to effCanDo for the product's private capabilities.
constexpr intptr_t kPrivateCanDoAnswer = 0xBEEF0000;
