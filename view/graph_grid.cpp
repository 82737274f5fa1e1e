#include "view/graph_grid.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>

#include "contracts/mura.h"
#include "plugin/host_imports.h"
#include "plugin/parameters.h"
#include "view/graph_fonts.h"

namespace {

// Lines in drawing order; a negative entry is a labelled line.
constexpr int kFrequencyLines[] = {-50,   -100,  -200,  -300,  400,    -500,  600,
                                   700,   800,   900,   -1000, -2000,  -3000, 4000,
                                   -5000, 6000,  7000,  8000,  9000,   -10000, 11000,
                                   12000, 13000, 14000, 15000, -20000};

constexpr uint32_t kBrightLineColor = 0xff808080;
constexpr uint32_t kDimLineColor = 0xff4d4d4d;
constexpr uint32_t kGainLineColor = 0x4d4d4d;
constexpr uint32_t kSpectrumScaleColor = 0xff5a5a0a;
constexpr UINT kRightLabelFlags = DT_RIGHT | DT_BOTTOM | DT_SINGLELINE | DT_NOCLIP;
constexpr UINT kLeftLabelFlags = DT_BOTTOM | DT_SINGLELINE | DT_NOCLIP;
constexpr int kUnlabelledLineGap = 13;
constexpr int kMinimumGainLineSpacing = 20;

bool isBrightFrequency(int f) {
    return (f >= 100 && f <= 500) || (f >= 1000 && f <= 5000) || f == 10000 || f == 15000 ||
           f == 20000;
}

int gridColumn(int frequency, int width) {
    return static_cast<int>(std::log((frequency - 20.0) / 24000.0 * 400.0 + 1.0) * width *
                            kInverseLn401);
}

void drawText(const char* text, int left, int top, int right, int bottom, UINT flags,
              MuraBitmap* bitmap) {
    if (!gridFont) return;
    RECT rect{left, top, right, bottom};
    gridFont->drawText(bitmap, text, -1, &rect, flags);
}

void drawFrequencyLabel(MuraBitmap* bitmap, int frequency, int x, int height) {
    char text[32];
    if (frequency <= 999)
        std::snprintf(text, sizeof text, "%d", frequency);
    else
        std::snprintf(text, sizeof text, "%.1fk", frequency / 1000.0);
    drawText(text, x - 100, height - 20, x - 1, height + 1, kRightLabelFlags, bitmap);
}

void drawFrequencyLines(MuraBitmap* bitmap, const GraphAxes& axes) {
    for (int entry : kFrequencyLines) {
        const int frequency = std::abs(entry);
        const int x = gridColumn(frequency, axes.width);
        if (x >= axes.width) return;
        const uint32_t color = isBrightFrequency(frequency) ? kBrightLineColor : kDimLineColor;
        const bool labelled = entry < 0;
        const int bottom = labelled ? axes.height + 1 : axes.height - kUnlabelledLineGap;
        hostExtensions.lineInt(bitmap, x, 0, x, bottom, color, 1.0, 0, 0);
        if (labelled) drawFrequencyLabel(bitmap, frequency, x, axes.height);
    }
}

double gainLineStep(const GraphAxes& axes) {
    double step = axes.gainRange / 2.0;
    int halvings = 0;
    do {
        step *= 0.5;
        ++halvings;
    } while (step > 6.0 && halvings < 15);
    return step;
}

void drawGainLabels(MuraBitmap* bitmap, const GraphAxes& axes, double db, int y) {
    char text[32];
    std::snprintf(text, sizeof text, " %+d", static_cast<int>(std::floor(db)));
    drawText(text, 0, y - 10, 20, y + 1, kLeftLabelFlags, bitmap);
    if (!gridFont) return;
    std::snprintf(text, sizeof text, "%+d",
                  static_cast<int>(std::floor(y * -120.0 / axes.height)));
    const uint32_t previous = gridFont->setTextColor(kSpectrumScaleColor);
    drawText(text, 0, y - 10, axes.width, y + 1, kRightLabelFlags, bitmap);
    gridFont->setTextColor(previous);
}

void drawGainLines(MuraBitmap* bitmap, const GraphAxes& axes) {
    const double step = gainLineStep(axes);
    int lastRow = 0;
    for (double db = axes.gainRange / 2.0 - step; db > axes.gainBottom; db -= step) {
        const int y = static_cast<int>((db - axes.gainBottom) * (-axes.height / axes.gainRange) +
                                       axes.height);
        if (y <= lastRow + kMinimumGainLineSpacing) continue;
        lastRow = y;
        hostExtensions.lineInt(bitmap, 0, y, axes.width, y, kGainLineColor, 1.0, 0, 0);
        drawGainLabels(bitmap, axes, db, y);
    }
}

}  // namespace

void drawGraphGrid(MuraBitmap* bitmap, const GraphAxes& axes) {
    drawFrequencyLines(bitmap, axes);
    drawGainLines(bitmap, axes);
}
