// The picture an X window shows: the pixels of a raster canvas converted
// to the window's TrueColor visual and kept, so that a new picture puts only
// the rectangle that differs from the one shown.
#pragma once

#include <X11/Xlib.h>

#include <cstdint>
#include <memory>
#include <vector>

class Canvas;

namespace x11_front {

class WindowPicture {
public:
    // Null unless the visual is TrueColor with 8 bits per colour and the
    // depth's images have 32 bits per pixel (24- and 32-bit visuals).
    static std::unique_ptr<WindowPicture> create(Display* display, Visual* visual, int depth);
    ~WindowPicture();
    WindowPicture(const WindowPicture&) = delete;
    WindowPicture& operator=(const WindowPicture&) = delete;

    // Takes the canvas as the new picture and puts what changed into the
    // window; answers whether anything was put.
    bool show(const Canvas& canvas, Window window);
    // Puts the whole picture again (after Expose).
    void putAll(Window window);

private:
    struct Rect {
        int left, top, right, bottom;
    };
    WindowPicture(Display* display, XImage* format);
    void resize(int width, int height);
    uint32_t xPixelOf(uint32_t argb) const;
    Rect takeRows(const Canvas& canvas);
    void put(Window window, const Rect& rect);

    Display* display_;
    XImage* image_;  // describes pixels_; its data pointer is set before each put
    int redShift_, greenShift_, blueShift_;
    bool swapBytes_;
    bool sameLayout_;  // the visual's pixels are the canvas's colour bytes
    int width_ = 0, height_ = 0;
    std::vector<uint32_t> pixels_;
    GC gc_ = nullptr;
};

}  // namespace x11_front
