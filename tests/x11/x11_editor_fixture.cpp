#include "tests/x11/x11_editor_fixture.h"

#include <unistd.h>

#include <cmath>

#include "host/raster/canvas.h"
#include "host/ui/input_injection.h"
#include "host/ui/screenshot.h"

namespace {

constexpr int kMostIdleSteps = 500;
constexpr uint32_t kIdleClockStepMs = 40;

}  // namespace

XvfbServer& testServer() {
    static XvfbServer server;
    return server;
}

void X11EditorTest::SetUp() {
    SKIP_WITHOUT_XVFB();
    EditorSessionTest::SetUp();
    user = std::make_unique<XUser>();
    ASSERT_TRUE(user->connected());
    view = x11_front::LayerWindowView::open(host, parentXWindow(), "Ombro under test");
    ASSERT_TRUE(view);
    ASSERT_TRUE(idleUntil([this] { return windowShowsTheLayer(); }));
    session->clearHostCalls();
}

void X11EditorTest::TearDown() {
    view.reset();
    if (session) EditorSessionTest::TearDown();
}

bool X11EditorTest::idleUntil(const std::function<bool()>& done) {
    for (int step = 0; step < kMostIdleSteps; ++step) {
        kobal_layer::advanceTestClock(kIdleClockStepMs);
        view->idle();
        if (done()) return true;
        usleep(2000);
    }
    return false;
}

XPoint2 X11EditorTest::onScreen(HWND window, POINT clientPoint) const {
    POINT layerPoint = kobal_layer::screenPointOf(window, clientPoint);
    POINT origin = kobal_layer::screenOrigin(host);
    return user->onScreen(view->xWindow(), {layerPoint.x - origin.x, layerPoint.y - origin.y});
}

XPicture X11EditorTest::layerPicture() const {
    std::unique_ptr<Canvas> canvas = kobal_layer::renderWindow(host);
    XPicture picture;
    if (!canvas) return picture;
    picture.width = canvas->width();
    picture.height = canvas->height();
    for (int y = 0; y < picture.height; ++y)
        for (int x = 0; x < picture.width; ++x)
            picture.pixels.push_back(canvas->pixel(x, y) & 0xFFFFFF);
    return picture;
}

bool X11EditorTest::windowShowsTheLayer() {
    return differingPixels(user->picture(view->xWindow()), layerPicture()) == 0;
}

POINT zeroDbPointOf(double hz, const RECT& graph) {
    const int width = graph.right - graph.left;
    const int height = graph.bottom - graph.top;
    const double position = std::log((hz - 20.0) / 59.95 + 1.0) / 5.993961427306569;
    return {graph.left + static_cast<int>(position * width),
            graph.top + height - static_cast<int>(12.0 * height / 24.0)};
}

int differingPixels(const XPicture& a, const XPicture& b) {
    if (a.width != b.width || a.height != b.height) return a.width * a.height + 1;
    int differing = 0;
    for (size_t i = 0; i < a.pixels.size(); ++i) differing += a.pixels[i] != b.pixels[i];
    return differing;
}
