#include "host/x11/layer_window_view.h"

#include <X11/Xatom.h>
#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <algorithm>

#include "host/raster/canvas.h"
#include "host/ui/messages.h"
#include "host/ui/screenshot.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"
#include "host/x11/input_feeder.h"
#include "host/x11/pointer_shape.h"
#include "host/x11/window_picture.h"
#include "host/x11/x_error_trap.h"

namespace x11_front {
namespace {

constexpr long kEventMask = ExposureMask | StructureNotifyMask | PointerMotionMask |
                            ButtonPressMask | ButtonReleaseMask | KeyPressMask | KeyReleaseMask |
                            LeaveWindowMask | FocusChangeMask;

struct Size {
    int width = 1, height = 1;
    bool operator==(const Size&) const = default;
};

Size layerSizeOf(HWND layerWindow) {
    KobalWindow* window = kobal_layer::liveWindow(layerWindow);
    if (!window) return {};
    return {std::max(1, kobal_layer::windowWidth(*window)),
            std::max(1, kobal_layer::windowHeight(*window))};
}

// The window's own pixels cover it whole: no background to clear first,
// and the kept contents stay in the corner on resize.
XSetWindowAttributes plainAttributes() {
    XSetWindowAttributes attributes{};
    attributes.background_pixmap = None;
    attributes.bit_gravity = NorthWestGravity;
    attributes.event_mask = kEventMask;
    return attributes;
}
constexpr unsigned long kAttributeMask = CWBackPixmap | CWBitGravity | CWEventMask;

struct Placement {
    Window window = 0;
    Visual* visual = nullptr;
    int depth = 0;
};

Placement createChild(Display* display, Window parent, Size size) {
    XWindowAttributes parentAttributes{};
    if (!XGetWindowAttributes(display, parent, &parentAttributes)) return {};
    XSetWindowAttributes attributes = plainAttributes();
    Window window = XCreateWindow(display, parent, 0, 0, static_cast<unsigned>(size.width),
                                  static_cast<unsigned>(size.height), 0, CopyFromParent,
                                  InputOutput, CopyFromParent, kAttributeMask, &attributes);
    return {window, parentAttributes.visual, parentAttributes.depth};
}

Placement createTopLevel(Display* display, Size size, const std::string& title) {
    int screen = DefaultScreen(display);
    XSetWindowAttributes attributes = plainAttributes();
    Window window =
        XCreateWindow(display, RootWindow(display, screen), 0, 0, static_cast<unsigned>(size.width),
                      static_cast<unsigned>(size.height), 0, CopyFromParent, InputOutput,
                      CopyFromParent, kAttributeMask, &attributes);
    XStoreName(display, window, title.c_str());
    XClassHint classHint{const_cast<char*>("ombro"), const_cast<char*>("Ombro")};
    XSetClassHint(display, window, &classHint);
    XWMHints hints{};
    hints.flags = InputHint;
    hints.input = True;
    XSetWMHints(display, window, &hints);
    return {window, DefaultVisual(display, screen), DefaultDepth(display, screen)};
}

}  // namespace

struct LayerWindowView::State {
    Display* display = nullptr;
    Window window = 0;
    HWND layerWindow = nullptr;
    bool topLevel = false;
    Atom deleteWindow = None;
    std::unique_ptr<WindowPicture> picture;
    std::unique_ptr<PointerShape> pointerShape;
    std::unique_ptr<InputFeeder> input;
    Size shownSize;
    uint64_t paintsShown = 0;
    bool pictureStale = true;
    bool exposed = false;
    bool closeAsked = false;
    bool windowGone = false;

    ~State();
    void drainEvents();
    void handle(XEvent& event);
    void followUserResize(const XConfigureEvent& configure);
    void followLayerSize();
    void redraw();
};

LayerWindowView::State::~State() {
    releaseModifiers();
    picture.reset();
    pointerShape.reset();
    // Closing the connection destroys the window, unless a destroyed parent
    // took it along already.
    if (!display) return;
    XCloseDisplay(display);
    releaseErrorsOn(display);
}

void LayerWindowView::State::followUserResize(const XConfigureEvent& configure) {
    Size size{configure.width, configure.height};
    if (!topLevel || size == shownSize) return;
    shownSize = size;
    kobal_layer::SetWindowPos(layerWindow, nullptr, 0, 0, size.width, size.height,
                              SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void LayerWindowView::State::handle(XEvent& event) {
    switch (event.type) {
        case Expose: exposed = true; break;
        case ConfigureNotify: followUserResize(event.xconfigure); break;
        case DestroyNotify:
            if (event.xdestroywindow.window == window) windowGone = true;
            break;
        case ClientMessage:
            if (deleteWindow != None && static_cast<Atom>(event.xclient.data.l[0]) == deleteWindow)
                closeAsked = true;
            break;
        case ButtonPress:
            XSetInputFocus(display, window, RevertToParent, event.xbutton.time);
            pictureStale |= input->feed(event);
            break;
        default: pictureStale |= input->feed(event); break;
    }
}

void LayerWindowView::State::drainEvents() {
    while (XPending(display)) {
        XEvent event;
        XNextEvent(display, &event);
        // Only the latest of a run of pointer moves matters.
        if (event.type == MotionNotify && XPending(display)) {
            XEvent next;
            XPeekEvent(display, &next);
            if (next.type == MotionNotify) continue;
        }
        handle(event);
    }
}

void LayerWindowView::State::followLayerSize() {
    Size size = layerSizeOf(layerWindow);
    if (size == shownSize || !kobal_layer::liveWindow(layerWindow)) return;
    shownSize = size;
    XResizeWindow(display, window, static_cast<unsigned>(size.width),
                  static_cast<unsigned>(size.height));
    pictureStale = true;
}

void LayerWindowView::State::redraw() {
    if (pictureStale || kobal_layer::paintsSent() != paintsShown) {
        std::unique_ptr<Canvas> canvas = kobal_layer::renderWindow(layerWindow);
        paintsShown = kobal_layer::paintsSent();
        pictureStale = false;
        if (canvas) picture->show(*canvas, window);
    }
    if (exposed) picture->putAll(window);
    exposed = false;
}

std::unique_ptr<LayerWindowView> LayerWindowView::open(HWND layerWindow,
                                                       unsigned long parentXWindow,
                                                       const std::string& title) {
    if (!kobal_layer::liveWindow(layerWindow)) return nullptr;
    auto state = std::make_unique<State>();
    state->display = XOpenDisplay(nullptr);
    if (!state->display) return nullptr;
    trapErrorsOn(state->display);
    state->layerWindow = layerWindow;
    state->topLevel = parentXWindow == 0;
    state->shownSize = layerSizeOf(layerWindow);
    Placement placement = state->topLevel
                              ? createTopLevel(state->display, state->shownSize, title)
                              : createChild(state->display, parentXWindow, state->shownSize);
    if (!placement.window) return nullptr;
    state->window = placement.window;
    state->picture = WindowPicture::create(state->display, placement.visual, placement.depth);
    if (!state->picture) return nullptr;
    if (state->topLevel) {
        state->deleteWindow = XInternAtom(state->display, "WM_DELETE_WINDOW", False);
        XSetWMProtocols(state->display, state->window, &state->deleteWindow, 1);
    }
    state->pointerShape = std::make_unique<PointerShape>(state->display);
    state->input = std::make_unique<InputFeeder>(layerWindow);
    XMapWindow(state->display, state->window);
    XFlush(state->display);
    return std::unique_ptr<LayerWindowView>(new LayerWindowView(std::move(state)));
}

LayerWindowView::LayerWindowView(std::unique_ptr<State> state) : state_(std::move(state)) {}

LayerWindowView::~LayerWindowView() = default;

void LayerWindowView::idle() {
    State& state = *state_;
    state.drainEvents();
    if (state.windowGone) return;
    kobal_layer::pumpMessages();
    if (!kobal_layer::liveWindow(state.layerWindow)) return;
    state.followLayerSize();
    state.pointerShape->follow(state.window);
    state.redraw();
    XFlush(state.display);
}

unsigned long LayerWindowView::xWindow() const { return state_->window; }

bool LayerWindowView::closeRequested() const {
    return state_->closeAsked || state_->windowGone ||
           !kobal_layer::liveWindow(state_->layerWindow);
}

}  // namespace x11_front
