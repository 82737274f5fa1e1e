#include "view/mouse_editing.h"

#include <algorithm>
#include <cmath>

#include "editor/gain_scale.h"
#include "engine/eq_band.h"
#include "plugin/eq_instance.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"
#include "view/band_hit_test.h"
#include "view/graph_axes.h"
#include "view/view_pointer.h"
#include "view/view_selection.h"

namespace {

constexpr int kHandCursor = 32649;
constexpr int kArrowCursor = 32512;
constexpr double kWheelStep = 0.2;
constexpr double kWidestBandwidth = 4.0;
constexpr double kLowestFrequency = 20.0;
constexpr double kHighestFrequency = 24000.0;
constexpr double kOctavesPerPixel = 0.02;

// The point of the last handled drag step, shared by every view.
int lastMouseX = 0;
int lastMouseY = 0;

bool keyDown(int virtualKey) { return (kobal::GetAsyncKeyState(virtualKey) & 0x8000) != 0; }

int parameterOf(int band, ParameterField field) { return kParametersPerBand * band + field; }

void redesign(EqInstance& instance, EqBand& band) {
    MutexLock lock(instance.mutex);
    designBand(&band, kKeepBandType, false, 0.0, 0.0, 0.0);
}

double clampedBandwidth(double bandwidth) {
    return bandwidth < 0.0 ? 0.0 : std::min(bandwidth, kWidestBandwidth);
}

void dragBandwidth(EqInstance& instance, EqBand& band, int index, int x) {
    if (x == lastMouseX) return;
    const double factor = std::exp2((x - lastMouseX) * kOctavesPerPixel);
    band.bandwidth = clampedBandwidth(band.bandwidth * factor);
    redesign(instance, band);
    reportParameter(&instance, parameterOf(index, BandwidthField), false);
    instance.hoverFlags |= kDraggedBandwidth;
}

struct DragKeys {
    bool control;
    bool alt;
    bool fine() const { return control || alt; }
    bool frequencyLocked() const { return control && !alt; }
    bool gainLocked() const { return alt && !control; }
};

// The new gain in dB for a vertical step from dbPrevious to dbNew; a band far
// below the graph jumps onto the bottom edge once the pointer is inside it.
double draggedGainDb(const EqBand& band, const GraphAxes& axes, double dbNew, double dbPrevious,
                     bool fine) {
    if (!fine && band.gain < 0.5 * axes.bottomAmplitude && dbNew > axes.gainBottom + 1.0)
        return axes.gainBottom;
    return displayDb(band.gain) + (dbNew - dbPrevious);
}

int32_t dragFrequencyAndGain(EqInstance& instance, HWND view, EqBand& band, int x, int y) {
    const DragKeys keys{keyDown(VK_CONTROL), keyDown(VK_MENU)};
    PointValues now{}, before{};
    hitTestBand(instance, view, x, y, &now, false);
    hitTestBand(instance, view, lastMouseX, lastMouseY, &before, false);
    int32_t changed = 0;
    if (x != lastMouseX && !keys.frequencyLocked()) {  // fine: a fifth of the motion
        const double target =
            keys.fine() ? 0.2 * now.frequency + 0.8 * before.frequency : now.frequency;
        band.frequency = std::clamp(band.frequency * target / before.frequency, kLowestFrequency,
                                    kHighestFrequency);
        changed |= kDraggedFrequency;
    }
    if (y != lastMouseY && !keys.gainLocked() && !ignoresGain(band.type)) {
        const GraphAxes axes = viewAxes(instance, view);
        double dbNew = displayDb(now.amplitude);
        const double dbPrevious = displayDb(before.amplitude);
        if (keys.fine()) dbNew = 0.1 * dbNew + 0.9 * dbPrevious;  // fine: a tenth of the motion
        const double newDb = draggedGainDb(band, axes, dbNew, dbPrevious, keys.fine());
        band.gain = newDb < axes.gainBottom - 1.0
                        ? kOffGraphGain
                        : std::min(kHighestBandGain, std::exp(newDb * kDbToLog));
        changed |= kDraggedGain;
    }
    return changed;
}

void dragStep(EqInstance& instance, HWND view, LPARAM lParam) {
    const int index = instance.hoverBand;
    EqBand* band = instance.band(index);
    if (!band) return;
    RECT client{};
    kobal::GetClientRect(view, &client);
    const int x = std::clamp(signedLowWord(lParam), 0, static_cast<int>(client.right));
    const int y = signedHighWord(lParam);
    if (keyDown(VK_SHIFT)) {
        dragBandwidth(instance, *band, index, x);
    } else {
        const int32_t changed = dragFrequencyAndGain(instance, view, *band, x, y);
        redesign(instance, *band);
        if (changed & kDraggedFrequency)
            reportParameter(&instance, parameterOf(index, FrequencyField), false);
        if (changed & kDraggedGain)
            reportParameter(&instance, parameterOf(index, GainField), false);
        instance.hoverFlags |= changed;
    }
    lastMouseX = x;
    lastMouseY = y;
    instance.dirtyFlags |= kDirtyResponseView | kDirtyBandPanel;
}

// The band whose handle is under the point of a mouse message, or -1.
int handleAt(const EqInstance& instance, HWND view, LPARAM lParam) {
    return hitTestBand(instance, view, signedLowWord(lParam), signedHighWord(lParam), nullptr,
                       true);
}

void buttonDown(EqInstance& instance, HWND view, LPARAM lParam) {
    const int hit = handleAt(instance, view, lParam);
    if (hit < 0) return;
    lastMouseX = signedLowWord(lParam);
    lastMouseY = signedHighWord(lParam);
    selectBand(instance, view, hit);
    instance.hoverBand = hit;
    instance.hoverFlags = 0;
    kobal::SetCapture(view);
}

void hover(EqInstance& instance, HWND view, LPARAM lParam) {
    const int hit = handleAt(instance, view, lParam);
    if (hit == instance.hoverBand) return;
    if (instance.hoverBand >= 0 && instance.hoverFlags != 0) endHoverEdit(instance);
    instance.hoverBand = hit;
    kobal::InvalidateRect(view, nullptr, 1);
}

void buttonUp(EqInstance& instance, HWND view) {
    if (instance.hoverBand >= 0) endHoverEdit(instance);
    instance.hoverBand = -1;
    kobal::ReleaseCapture();
    kobal::InvalidateRect(view, nullptr, 1);
}

void toggleEnabled(EqInstance& instance, HWND view, LPARAM lParam) {
    const int hit = handleAt(instance, view, lParam);
    EqBand* band = instance.band(hit);
    if (!band) return;
    band->enabled = band->enabled == 0 ? 1 : 0;
    instance.dirtyFlags |= kDirtyResponseView | kDirtyBandPanel;
}

LRESULT turnWheel(EqInstance& instance, HWND view, WPARAM wParam) {
    const POINT pointer = pointerInView(view);
    const int hit = hitTestBand(instance, view, pointer.x, pointer.y, nullptr, true);
    const int delta = signedHighWord(static_cast<intptr_t>(wParam));
    EqBand* band = instance.band(hit);
    if (delta == 0 || !band) return 0;
    band->bandwidth = clampedBandwidth(band->bandwidth + (delta > 0 ? kWheelStep : -kWheelStep));
    redesign(instance, *band);
    instance.dirtyFlags |= kDirtyResponseView | kDirtyBandPanel;
    return 0;
}

LRESULT chooseCursor(EqInstance& instance, HWND view) {
    const POINT pointer = pointerInView(view);
    HCURSOR cursor = nullptr;
    if (hitTestBand(instance, view, pointer.x, pointer.y, nullptr, true) >= 0)
        cursor = kobal::KOBAL_LoadCursor(kHandCursor);
    if (!cursor) cursor = kobal::KOBAL_LoadCursor(kArrowCursor);
    kobal::KOBAL_SetCursor(cursor);
    return 1;
}

}  // namespace

void endHoverEdit(EqInstance& instance) {
    const int index = instance.hoverBand;
    if (instance.hoverFlags & kDraggedFrequency)
        reportParameter(&instance, parameterOf(index, FrequencyField), true);
    if (instance.hoverFlags & kDraggedGain)
        reportParameter(&instance, parameterOf(index, GainField), true);
    if (instance.hoverFlags & kDraggedBandwidth)
        reportParameter(&instance, parameterOf(index, BandwidthField), true);
    instance.hoverFlags = 0;
}

LRESULT handleMouseMessage(EqInstance& instance, HWND view, UINT message, WPARAM wParam,
                           LPARAM lParam) {
    switch (message) {
        case WM_MOUSEWHEEL: return turnWheel(instance, view, wParam);
        case WM_SETCURSOR: return chooseCursor(instance, view);
        case WM_LBUTTONDOWN: buttonDown(instance, view, lParam); break;
        case WM_LBUTTONUP: buttonUp(instance, view); break;
        case WM_LBUTTONDBLCLK: toggleEnabled(instance, view, lParam); break;
        case WM_MOUSEMOVE:
            if (kobal::GetCapture() == view)
                dragStep(instance, view, lParam);
            else
                hover(instance, view, lParam);
            break;
        default: break;
    }
    return kobal::DefWindowProc(view, message, wParam, lParam);
}
