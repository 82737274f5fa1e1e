#include "host/ui/painting.h"

#include <map>
#include <memory>

#include "host/raster/canvas.h"
#include "host/ui/window_tree.h"

namespace kobal_layer {
namespace {

std::map<HWND, std::unique_ptr<Canvas>>& surfaces() {
    static std::map<HWND, std::unique_ptr<Canvas>> painted;
    return painted;
}

void forgetSurface(HWND window) { surfaces().erase(window); }

[[maybe_unused]] const bool forgetterAdded = addWindowForgetter(forgetSurface);

Canvas& surfaceFor(KobalWindow& window) {
    int width = windowWidth(window) > 0 ? windowWidth(window) : 1;
    int height = windowHeight(window) > 0 ? windowHeight(window) : 1;
    std::unique_ptr<Canvas>& surface = surfaces()[&window];
    if (!surface)
        surface = std::make_unique<Canvas>(width, height);
    else if (surface->width() != width || surface->height() != height)
        surface->resize(width, height);
    return *surface;
}

}  // namespace

HDC BeginPaint(HWND handle, PAINTSTRUCT* paint) {
    KobalWindow* window = liveWindow(handle);
    if (!window || !paint) return nullptr;
    Canvas& surface = surfaceFor(*window);
    *paint = PAINTSTRUCT{};
    paint->hdc = surface.deviceContext();
    paint->fErase = 1;
    paint->rcPaint = RECT{0, 0, windowWidth(*window), windowHeight(*window)};
    window->needsPaint = false;
    return paint->hdc;
}

BOOL EndPaint(HWND window, const PAINTSTRUCT*) { return liveWindow(window) ? 1 : 0; }

BOOL BitBlt(HDC destination, int x, int y, int width, int height, HDC source, int sourceX,
            int sourceY, DWORD) {
    Canvas* target = canvasOf(destination);
    Canvas* origin = canvasOf(source);
    if (!target || !origin || width <= 0 || height <= 0) return 0;
    target->copyFrom(*origin, sourceX, sourceY, width, height, x, y);
    return 1;
}

Canvas* paintedSurface(HWND window) {
    auto found = surfaces().find(window);
    return found == surfaces().end() ? nullptr : found->second.get();
}

}  // namespace kobal_layer
