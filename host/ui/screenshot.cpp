#include "host/ui/screenshot.h"

#include "host/raster/canvas.h"
#include "host/ui/control_classes.h"
#include "host/ui/face_drawing.h"
#include "host/ui/messages.h"
#include "host/ui/painting.h"
#include "host/ui/window_tree.h"

namespace kobal_layer {
namespace {

void drawOwnPixels(HWND window, Canvas& canvas) {
    canvas.fillRect(0, 0, canvas.width(), canvas.height(), facePixel());
    const ControlClass* standard = controlClassOf(window);
    if (standard && standard->drawFace) {
        standard->drawFace(window, canvas, 0, 0);
        return;
    }
    if (Canvas* painted = paintedSurface(window))
        canvas.copyFrom(*painted, 0, 0, painted->width(), painted->height(), 0, 0);
}

std::unique_ptr<Canvas> compose(HWND window) {
    int width = windowWidth(*window) > 0 ? windowWidth(*window) : 1;
    int height = windowHeight(*window) > 0 ? windowHeight(*window) : 1;
    auto canvas = std::make_unique<Canvas>(width, height);
    drawOwnPixels(window, *canvas);
    // Transparent children (group boxes) first, straight onto this window;
    // then the others in creation order, each clipped to its own rectangle.
    for (KobalWindow* child : window->children)
        if (child->visible && isTransparentWindow(child))
            controlClassOf(child)->drawFace(child, *canvas, child->rect.left, child->rect.top);
    for (KobalWindow* child : window->children) {
        if (!child->visible || isTransparentWindow(child)) continue;
        std::unique_ptr<Canvas> picture = compose(child);
        canvas->copyFrom(*picture, 0, 0, picture->width(), picture->height(), child->rect.left,
                         child->rect.top);
    }
    return canvas;
}

}  // namespace

std::unique_ptr<Canvas> renderWindow(HWND window) {
    if (!liveWindow(window)) return nullptr;
    paintInvalidWindows();
    if (!liveWindow(window)) return nullptr;
    return compose(window);
}

bool saveScreenshot(HWND window, const std::string& path) {
    std::unique_ptr<Canvas> picture = renderWindow(window);
    return picture && picture->writePng(path);
}

}  // namespace kobal_layer
