// Two channels of float64 samples in the shape processDoubleReplacing takes.
#pragma once

#include <array>
#include <cstddef>
#include <vector>

struct StereoBuffer {
    explicit StereoBuffer(size_t frames = 0, double value = 0.0)
        : left(frames, value), right(frames, value) {}

    size_t frames() const { return left.size(); }
    void resize(size_t frames) {
        left.resize(frames);
        right.resize(frames);
    }
    std::array<double*, 2> channels() { return {left.data(), right.data()}; }

    std::vector<double> left;
    std::vector<double> right;
};
