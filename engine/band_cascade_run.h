// The band loop's side of the fast kernels: the bands that take part in a
// block are added in list order, and each stretch of consecutive bands of one
// kind (steady or gliding) is filtered together when the kind changes, when
// the stretch is long enough, or at the end. The first stretch reads the host
// inputs, every later one works on the outputs in place.
#pragma once

#include <cstdint>

#include "engine/band_cascade.h"
#include "engine/band_cascade_glide.h"

// `GlideRule` is the glide of glideBands; filtered bands are marked primed,
// except gliding ones in a block of 0 frames (they ran no chunk).
template <typename GlideRule>
class BandRun {
public:
    BandRun(double* const inputs[2], double* const outputs[2], int32_t frames)
        : in_{inputs[0], inputs[1]}, out_{outputs[0], outputs[1]}, frames_(frames) {}

    void add(EqBand& band, bool gliding) {
        if (count_ > 0 && (gliding != gliding_ || count_ == kLongestRun)) finish();
        gliding_ = gliding;
        bands_[count_++] = &band;
    }

    // Filters the bands added since the last call.
    void finish() {
        if (count_ == 0) return;
        const BandKernels& kernels = activeBandKernels();
        if (gliding_)
            glideBands(bands_, count_, GlideRule{}, kernels, in_[0], in_[1], out_[0], out_[1],
                       frames_);
        else
            kernels.runCascade(bands_, count_, in_[0], in_[1], out_[0], out_[1], frames_);
        for (int32_t i = 0; i < count_; ++i)
            if (!gliding_ || frames_ > 0) bands_[i]->primed = 1;
        count_ = 0;
        in_[0] = out_[0];
        in_[1] = out_[1];
    }

private:
    static constexpr int32_t kLongestRun = 64;  // bands handed to one kernel call

    const double* in_[2];
    double* const out_[2];
    const int32_t frames_;
    EqBand* bands_[kLongestRun];
    int32_t count_ = 0;
    bool gliding_ = false;
};
