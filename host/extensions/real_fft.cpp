#include "host/extensions/real_fft.h"

#include <fftw3.h>

#include <algorithm>
#include <map>
#include <memory>
#include <mutex>
#include <utility>

namespace {

bool isPowerOfTwo(int value) { return value > 0 && (value & (value - 1)) == 0; }

// One FFTW plan with the arrays it was made for; the caller's data is copied
// through them, so any buffer alignment works.
class PlannedTransform {
public:
    PlannedTransform(int length, bool inverse)
        : length_(length),
          real_(fftw_alloc_real(length)),
          spectrum_(fftw_alloc_complex(length / 2 + 1)) {
        plan_ = inverse ? fftw_plan_dft_c2r_1d(length, spectrum_, real_, FFTW_ESTIMATE)
                        : fftw_plan_dft_r2c_1d(length, real_, spectrum_, FFTW_ESTIMATE);
    }
    ~PlannedTransform() {
        fftw_destroy_plan(plan_);
        fftw_free(spectrum_);
        fftw_free(real_);
    }
    PlannedTransform(const PlannedTransform&) = delete;
    PlannedTransform& operator=(const PlannedTransform&) = delete;

    void forward(double* buffer) {
        std::copy(buffer, buffer + length_, real_);
        fftw_execute(plan_);
        packSpectrum(buffer);
    }

    void inverse(double* buffer) {
        unpackSpectrum(buffer);
        fftw_execute(plan_);
        std::copy(real_, real_ + length_, buffer);
    }

private:
    void packSpectrum(double* buffer) const {
        int pairs = length_ / 2;
        buffer[0] = spectrum_[0][0];
        buffer[1] = spectrum_[pairs][0];
        for (int bin = 1; bin < pairs; ++bin) {
            int pair = fftPermute(pairs, bin);
            buffer[2 * pair] = spectrum_[bin][0];
            buffer[2 * pair + 1] = spectrum_[bin][1];
        }
    }

    void unpackSpectrum(const double* buffer) {
        int pairs = length_ / 2;
        spectrum_[0][0] = buffer[0];
        spectrum_[0][1] = 0.0;
        spectrum_[pairs][0] = buffer[1];
        spectrum_[pairs][1] = 0.0;
        for (int bin = 1; bin < pairs; ++bin) {
            int pair = fftPermute(pairs, bin);
            spectrum_[bin][0] = buffer[2 * pair];
            spectrum_[bin][1] = buffer[2 * pair + 1];
        }
    }

    int length_;
    double* real_;
    fftw_complex* spectrum_;
    fftw_plan plan_;
};

// FFTW's planner is not thread-safe, and each plan's arrays are shared, so
// every transform runs under one lock.
std::mutex transformMutex;
std::map<std::pair<int, bool>, std::unique_ptr<PlannedTransform>> plannedTransforms;

PlannedTransform& transformFor(int length, bool inverse) {
    auto& slot = plannedTransforms[{length, inverse}];
    if (!slot) slot = std::make_unique<PlannedTransform>(length, inverse);
    return *slot;
}

}  // namespace

void fftReal8(double* buffer, int length, int inverse) {
    if (!buffer || length < 2 || !isPowerOfTwo(length)) return;
    std::lock_guard lock(transformMutex);
    PlannedTransform& transform = transformFor(length, inverse != 0);
    if (inverse)
        transform.inverse(buffer);
    else
        transform.forward(buffer);
}

int fftPermute(int transformSize, int index) {
    if (!isPowerOfTwo(transformSize)) return index;
    int reversed = 0;
    int remaining = index & (transformSize - 1);
    for (int bit = 1; bit < transformSize; bit <<= 1) {
        reversed = (reversed << 1) | (remaining & 1);
        remaining >>= 1;
    }
    return reversed;
}
