#include "view/graph_axes.h"

#include <cmath>

#include "editor/gain_scale.h"
#include "engine/eq_band.h"
#include "plugin/eq_instance.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"

namespace {

constexpr double kFrequencyStep = 59.95;  // 23980 * 0.0025
constexpr double kLowestFrequency = 20.0;

constexpr GraphAxes kTallAxes{0, 0, 48.0, -24.0, 15.848931924611136, 0.06309573444801932};
constexpr GraphAxes kShortAxes{0, 0, 24.0, -12.0, 3.9810717055349727, 0.251188643150958};

}  // namespace

GraphAxes graphAxes(const EqInstance& instance, int width, int height) {
    GraphAxes axes = instance.showTabs ? kShortAxes : kTallAxes;
    axes.width = width;
    axes.height = height;
    return axes;
}

GraphAxes viewAxes(const EqInstance& instance, HWND view) {
    RECT client{};
    kobal::GetClientRect(view, &client);
    return graphAxes(instance, client.right - client.left, client.bottom - client.top);
}

double columnToFrequency(double x, int width) {
    return (std::exp(x / (width * kInverseLn401)) - 1.0) * kFrequencyStep + kLowestFrequency;
}

double paintedColumnFrequency(int x, int width) {
    return (std::exp(x * kLn401 / width) - 1.0) * 23980.0 * 0.0025 + kLowestFrequency;
}

int frequencyToColumn(double frequency, int width) {
    const double position =
        std::log((frequency - kLowestFrequency) * kInverseFrequencySpan * 400.0 + 1.0);
    return static_cast<int>(position * width * kInverseLn401);
}

double dbOfRow(const GraphAxes& axes, int y) {
    return (axes.height - y) * axes.gainRange / axes.height + axes.gainBottom;
}

double amplitudeOfRow(const GraphAxes& axes, int y) {
    return std::exp(dbOfRow(axes, y) * kDbToLog);
}

int rowOfDb(const GraphAxes& axes, double db) {
    return axes.height - static_cast<int>((db - axes.gainBottom) * axes.height / axes.gainRange);
}

int handleRow(const GraphAxes& axes, int32_t type, double gain) {
    switch (type) {
        case Notch: return axes.height;
        case LowPass:
        case HighPass: return static_cast<int>(3.0 * axes.height / 4.0);
        case AllPass:
        case BandPass: return axes.height / 2;
        default: return rowOfDb(axes, displayDb(gain));
    }
}
