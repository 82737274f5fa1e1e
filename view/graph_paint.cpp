#include "view/graph_paint.h"

#include <cmath>
#include <cstring>

#include "contracts/mura.h"
#include "plugin/eq_instance.h"
#include "plugin/host_imports.h"
#include "plugin/ui_layer.h"
#include "view/band_handles.h"
#include "view/graph_axes.h"
#include "view/graph_fonts.h"
#include "view/graph_grid.h"
#include "view/graph_snapshot.h"
#include "view/hover_readout.h"
#include "view/last_response.h"
#include "view/response_curve.h"
#include "view/analyzer_curves.h"

namespace {

constexpr int kOpaqueBitmap = 1;
constexpr uint32_t kBackgroundColor = 0x00000000;
constexpr uint32_t kFillColor = 0xff006060;
constexpr uint32_t kCurveColor = 0xff00ffff;
constexpr uint32_t kPhaseColor = 0xffff8040;
constexpr uint32_t kNyquistLineColor = 0xffc0c0c0;
constexpr uint32_t kGridTextColor = 0x909090;

MuraBitmap* preparedBitmap(EqInstance& instance, int width, int height) {
    if (!instance.drawingBitmap && hostExtensions.createBitmap)
        instance.drawingBitmap = hostExtensions.createBitmap(kOpaqueBitmap, width, height);
    if (instance.drawingBitmap) instance.drawingBitmap->resize(width, height);
    return instance.drawingBitmap;
}

// Zeroed per-column storage in the instance's curve buffer, or null columns
// when it cannot grow.
ResponseColumns curveColumns(EqInstance& instance, int width, bool withPhase) {
    const int32_t bytes = width * static_cast<int32_t>(sizeof(double)) * (withPhase ? 2 : 1);
    instance.curveBuffer.resize(bytes);
    if (bytes <= 0 || instance.curveBuffer.size != bytes) return ResponseColumns{nullptr, nullptr};
    auto* values = instance.curveBuffer.as<double>();
    std::memset(values, 0, bytes);
    return ResponseColumns{values, withPhase ? values + width : nullptr};
}

void fillUnderCurve(MuraBitmap* bitmap, const GraphAxes& axes, const double* magnitude,
                    int drawnWidth) {
    const int middle = axes.height / 2;
    for (int x = 0; x < drawnWidth; ++x) {
        const int offset = static_cast<int>(std::floor(axes.height * magnitude[x] + 0.5));
        const int row = middle - offset;
        if (row > middle)
            hostExtensions.lineInt(bitmap, x, middle + 1, x, row, kFillColor, 1.0, 0, 0);
        else
            hostExtensions.lineInt(bitmap, x, middle - 1, x, row + 1, kFillColor, 1.0, 0, 0);
    }
}

template <typename RowOf>
void drawColumnCurve(MuraBitmap* bitmap, int drawnWidth, uint32_t color, RowOf rowOf) {
    float previous = 0.0f;
    for (int x = 0; x <= drawnWidth; ++x) {
        const float row = static_cast<float>(rowOf(x < drawnWidth ? x : drawnWidth - 1));
        if (x > 0)
            hostExtensions.line(bitmap, static_cast<float>(x - 1), previous, static_cast<float>(x),
                                row, color, 1.0, 0, 1);
        previous = row;
    }
}

void drawCurves(MuraBitmap* bitmap, const GraphAxes& axes, const ResponseColumns& columns,
                int drawnWidth) {
    const int middle = axes.height / 2;
    drawColumnCurve(bitmap, drawnWidth, kCurveColor, [&](int x) {
        return middle - axes.height * columns.magnitude[x];
    });
    if (columns.phase)
        drawColumnCurve(bitmap, drawnWidth, kPhaseColor, [&](int x) {
            return (1.0 + columns.phase[x]) * middle;
        });
    if (drawnWidth < axes.width)
        hostExtensions.lineInt(bitmap, drawnWidth, 0, drawnWidth, axes.height - 1,
                               kNyquistLineColor, 1.0, 0, 0);
}

void drawGridLayer(MuraBitmap* bitmap, const EqInstance& instance, const GraphAxes& axes) {
    ensureGridFont();
    if (gridFont) gridFont->setTextColor(kGridTextColor);
    if (instance.showGrid) drawGraphGrid(bitmap, axes);
}

}  // namespace

bool renderGraph(EqInstance& instance, HWND view, int width, int height) {
    const GraphSnapshot snapshot = takeGraphSnapshot(instance);
    MuraBitmap* bitmap = preparedBitmap(instance, width, height);
    if (!bitmap) return false;
    ensureLabelFont();
    hostExtensions.fillRect(bitmap, 0, 0, width, height, kBackgroundColor, 1.0, 0);
    const GraphAxes axes = graphAxes(instance, width, height);
    const ResponseColumns columns =
        curveColumns(instance, width, (instance.viewFlags & kViewShowPhase) != 0);
    const int drawnWidth = columns.magnitude ? summedResponse(snapshot, axes, columns) : 0;
    if (drawnWidth > 0) fillUnderCurve(bitmap, axes, columns.magnitude, drawnWidth);
    drawGridLayer(bitmap, instance, axes);
    drawSpectra(instance, bitmap);
    if (drawnWidth > 0) drawCurves(bitmap, axes, columns, drawnWidth);
    drawBandHandles(bitmap, snapshot, axes);
    drawHoverReadout(bitmap, snapshot, view);
    return true;
}

LRESULT paintResponseView(EqInstance& instance, HWND view) {
    PAINTSTRUCT paint{};
    HDC dc = kobal::BeginPaint(view, &paint);
    if (!dc) return kobal::DefWindowProc(view, WM_PAINT, 0, 0);
    RECT client{};
    kobal::GetClientRect(view, &client);
    const int width = client.right - client.left;
    const int height = client.bottom - client.top;
    if (!renderGraph(instance, view, width, height)) {
        kobal::EndPaint(view, &paint);
        return 0;
    }
    kobal::BitBlt(dc, 0, 0, width, height, instance.drawingBitmap->deviceContext(), 0, 0, 0);
    kobal::EndPaint(view, &paint);
    return kobal::DefWindowProc(view, WM_PAINT, 0, 0);
}
