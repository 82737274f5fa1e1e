#include "view/analyzer_curves.h"

#include <cmath>

#include "contracts/mura.h"
#include "engine/heap_buffer.h"
#include "engine/live_analyzer.h"
#include "plugin/eq_instance.h"
#include "plugin/host_imports.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"

namespace {

constexpr uint32_t kInputColor = 0xff808040;
constexpr uint32_t kOutputColor = 0xffffff40;
constexpr double kSpectrumAlpha = 0.75;
constexpr double kBottomDb = -120.0;
constexpr double kTopDb = 0.0;
constexpr uint32_t kSpectrumTimeoutMs = 1000;
constexpr int kScratchExtraBytes = 8448;
constexpr int kSmallestWidth = 5;
constexpr double kInverseFrequencyStep = 0.016680567139282735;  // 1 / 59.95

HeapBuffer scratch;  // column values, then the points; reused by every paint

int levelColumn(int level, float binWidth, int width) {
    if (level == 0) return 0;
    const double frequency = level * static_cast<double>(binWidth);
    const int x = static_cast<int>(
        std::log((frequency - 20.0) * kInverseFrequencyStep + 1.0) * kInverseLn401 * width + 0.5);
    return x < 0 ? 0 : x;  // levels below 20 Hz join the first column
}

// Levels that share a column merge into the highest; the points stop just
// past the right edge. Returns the point count.
int collectPoints(const double* levels, double topFrequency, double topDb, float rowScale,
                  int width, SpectrumPoint* points) {
    const float binWidth = static_cast<float>(topFrequency * 0.0009765625);
    int count = 0;
    for (int j = 0; j < kSpectrumBins; ++j) {
        const int x = levelColumn(j, binWidth, width);
        const float y = static_cast<float>((levels[j] - topDb) * rowScale);
        if (count > 0 && points[count - 1].x == x) {
            if (y < points[count - 1].y) points[count - 1].y = y;
            continue;
        }
        points[count++] = SpectrumPoint{x < width ? x : width, y};
        if (x > width) break;
    }
    return count;
}

double bezierAt(double k, double startX, double startY, double controlX, double controlY,
                double endX, double endY) {
    const double a = startX - 2.0 * controlX + endX;
    double t;
    if (a != 0.0) {
        const double b = controlX - startX;
        const double c = startX - k;
        t = (std::sqrt(b * b - c * a) - b) / a;
    } else {
        t = endX == startX ? 0.0 : (k - startX) / (endX - startX);
    }
    const double u = 1.0 - t;
    return u * u * startY + 2.0 * u * t * controlY + t * t * endY;
}

struct ColumnWriter {
    float* columns;
    int width;
    int next;

    void write(float value) {
        if (next < width) columns[next] = value;
        ++next;
    }
};

void writeLine(ColumnWriter& out, int end, double startX, double startY, double slope) {
    while (out.next < end && out.next < out.width) out.write(startY + slope * (out.next - startX));
}

}  // namespace

int interpolateSpectrumColumns(const SpectrumPoint* points, int count, int width, float* columns) {
    if (count < 2) return count == 1 ? points[0].x : 0;
    const auto midX = [&](int i) { return (points[i].x + points[i - 1].x) / 2.0; };
    const auto midY = [&](int i) { return (points[i].y + points[i - 1].y) / 2.0; };
    const auto slope = [&](int i) {
        return (points[i].y - points[i - 1].y) / static_cast<double>(points[i].x - points[i - 1].x);
    };
    ColumnWriter out{columns, width, points[0].x};
    writeLine(out, static_cast<int>(std::floor(midX(1) + 0.5)), points[0].x, points[0].y, slope(1));
    for (int i = 2; i < count; ++i) {
        const int end = static_cast<int>(std::floor(midX(i) + 0.5));
        const double startX = midX(i - 1), startY = midY(i - 1);
        const double endX = midX(i), endY = midY(i);
        const double controlY = points[i - 1].y;
        const bool flat = endY == startY && controlY == startY;
        while (out.next < end && out.next < width) {
            const double k = out.next;
            if (flat)
                out.write(controlY);
            else if (k <= startX)
                out.write(startY);
            else if (k >= endX)
                out.write(endY);
            else
                out.write(bezierAt(k, startX, startY, points[i - 1].x, controlY, endX, endY));
        }
    }
    const int last = count - 1;
    writeLine(out, points[last].x, out.next, midY(last), slope(last));
    return points[last].x;
}

void drawSpectrum(SpectrumAnalyzer& capture, MuraBitmap* bitmap, uint32_t color, double alpha,
                  double topFrequency, double bottomDb, double topDb) {
    const double* levels = updateSpectrum(capture);
    if (!levels || !bitmap) return;
    const int width = bitmap->width();
    const int height = bitmap->height();
    const int32_t bytes = width * 4 + kScratchExtraBytes;
    scratch.resize(bytes, false);
    if (scratch.size != bytes || width < kSmallestWidth) return;
    float* columns = scratch.as<float>();
    auto* points = reinterpret_cast<SpectrumPoint*>(columns + width);
    const float rowScale = static_cast<float>(height / (bottomDb - topDb));
    const int count = collectPoints(levels, topFrequency, topDb, rowScale, width, points);
    const int last = interpolateSpectrumColumns(points, count, width, columns);
    for (int k = 1; k < last; ++k)
        hostExtensions.line(bitmap, static_cast<float>(k - 1), columns[k - 1],
                            static_cast<float>(k), columns[k], color, alpha, 0, 1);
}

void drawSpectra(EqInstance& instance, MuraBitmap* bitmap) {
    const uint32_t tick = instance.spectrumTick.load();
    instance.spectrumDrawnTick = tick;
    if (kobal::GetTickCount() < tick + kSpectrumTimeoutMs) {
        const double topFrequency = 0.5 * instance.sampleRate;
        drawSpectrum(instance.inputAnalyzer, bitmap, kInputColor, kSpectrumAlpha, topFrequency,
                     kBottomDb, kTopDb);
        drawSpectrum(instance.outputAnalyzer, bitmap, kOutputColor, kSpectrumAlpha, topFrequency,
                     kBottomDb, kTopDb);
    } else {
        instance.spectrumTick = 0;
        instance.spectrumDrawnTick = 0;
    }
}
