#include "engine/analysis_window.h"

#include <cmath>

namespace {

constexpr double kPhaseStep = 0.0030679615757712823;  // pi / 1024

struct HalfBlackman {
    double weights[kSpectrumWindowHalf];

    HalfBlackman() {
        double sum = 0.0;
        double phase = 0.0;  // accumulated, as the window has always been built
        for (double& weight : weights) {
            weight = 0.42 - 0.5 * std::cos(phase) + 0.08 * std::cos(2 * phase);
            sum += weight;
            phase += kPhaseStep;
        }
        double scale = 0.5 / sum;
        for (double& weight : weights) weight *= scale;
    }
};

}  // namespace

const double* spectrumWindow() {
    static const HalfBlackman window;
    return window.weights;
}
