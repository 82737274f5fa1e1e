// The plug-in's editor in a host window of the windowing layer, shown in a
// real X window by the front end on a virtual X server of the test's own;
// the test is the user at that server.
#pragma once

#include <functional>
#include <memory>

#include "host/x11/layer_window_view.h"
#include "tests/session/editor_session_fixture.h"
#include "tests/x11/x_user.h"
#include "tests/x11/xvfb_server.h"

// The one server of this test process.
XvfbServer& testServer();

// Skips the test when Xvfb is missing.
#define SKIP_WITHOUT_XVFB()                                                                   \
    do {                                                                                      \
        if (!XvfbServer::available())                                                         \
            GTEST_SKIP() << "Xvfb is not installed: the X11 front end cannot be tested here"; \
        ASSERT_TRUE(testServer().running()) << "Xvfb did not start";                          \
    } while (0)

class X11EditorTest : public EditorSessionTest {
protected:
    void SetUp() override;
    void TearDown() override;
    // The X window the view goes into; 0 for a top-level view.
    virtual unsigned long parentXWindow() { return 0; }

    // Runs the view's idle step (with 40 ms of the layer's clock each time)
    // until `done` holds; false when it never does.
    bool idleUntil(const std::function<bool()>& done);
    // Where a point of a layer window lies on the X screen.
    XPoint2 onScreen(HWND window, POINT clientPoint) const;
    // The host window as the layer composes it, as 0xRRGGBB.
    XPicture layerPicture() const;
    // True when the X window shows exactly what the layer composes.
    bool windowShowsTheLayer();

    std::unique_ptr<XUser> user;
    std::unique_ptr<x11_front::LayerWindowView> view;
};

// Where the graph filling `graph` puts a handle at `hz` and 0 dB: the
// logarithmic frequency axis across, 0 dB halfway down the dB axis.
POINT zeroDbPointOf(double hz, const RECT& graph);

// Pixels that differ between two pictures of the same size (all of them
// when the sizes differ).
int differingPixels(const XPicture& a, const XPicture& b);
