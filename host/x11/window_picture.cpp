#include "host/x11/window_picture.h"

#include <X11/Xutil.h>

#include <algorithm>
#include <cstring>

#include "host/raster/canvas.h"

namespace x11_front {
namespace {

// The lowest bit of a mask of 8 contiguous bits, or -1 for another mask.
int shiftOfByteMask(unsigned long mask) {
    for (int shift = 0; shift <= 24; ++shift)
        if (mask == (0xFFul << shift)) return shift;
    return -1;
}

bool hostIsLittleEndian() {
    const uint16_t probe = 1;
    return *reinterpret_cast<const uint8_t*>(&probe) == 1;
}

}  // namespace

std::unique_ptr<WindowPicture> WindowPicture::create(Display* display, Visual* visual, int depth) {
    if (visual->c_class != TrueColor) return nullptr;
    if (shiftOfByteMask(visual->red_mask) < 0 || shiftOfByteMask(visual->green_mask) < 0 ||
        shiftOfByteMask(visual->blue_mask) < 0)
        return nullptr;
    XImage* format = XCreateImage(display, visual, static_cast<unsigned>(depth), ZPixmap, 0,
                                  nullptr, 1, 1, 32, 0);
    if (!format) return nullptr;
    if (format->bits_per_pixel != 32) {
        XDestroyImage(format);
        return nullptr;
    }
    return std::unique_ptr<WindowPicture>(new WindowPicture(display, format));
}

WindowPicture::WindowPicture(Display* display, XImage* format)
    : display_(display),
      image_(format),
      redShift_(shiftOfByteMask(format->red_mask)),
      greenShift_(shiftOfByteMask(format->green_mask)),
      blueShift_(shiftOfByteMask(format->blue_mask)),
      swapBytes_((format->byte_order == LSBFirst) != hostIsLittleEndian()),
      sameLayout_(redShift_ == 16 && greenShift_ == 8 && blueShift_ == 0 && !swapBytes_) {}

WindowPicture::~WindowPicture() {
    image_->data = nullptr;  // the pixels belong to the vector
    XDestroyImage(image_);
    if (gc_) XFreeGC(display_, gc_);
}

void WindowPicture::resize(int width, int height) {
    width_ = width;
    height_ = height;
    pixels_.assign(static_cast<size_t>(width) * static_cast<size_t>(height), 0);
    image_->width = width;
    image_->height = height;
    image_->bytes_per_line = width * 4;
}

// The canvas holds premultiplied 0xAARRGGBB: taking the colour bytes as
// they are shows the picture over black.
uint32_t WindowPicture::xPixelOf(uint32_t argb) const {
    uint32_t pixel = (((argb >> 16) & 0xFF) << redShift_) | (((argb >> 8) & 0xFF) << greenShift_) |
                     ((argb & 0xFF) << blueShift_);
    return swapBytes_ ? __builtin_bswap32(pixel) : pixel;
}

// Converts the canvas into the kept pixels and answers the rectangle that changed.
WindowPicture::Rect WindowPicture::takeRows(const Canvas& canvas) {
    cairo_surface_t* surface = canvas.surface();
    cairo_surface_flush(surface);
    const unsigned char* data = cairo_image_surface_get_data(surface);
    int stride = cairo_image_surface_get_stride(surface);
    Rect changed{width_, height_, 0, 0};
    std::vector<uint32_t> row(static_cast<size_t>(width_));
    for (int y = 0; y < height_; ++y) {
        const auto* source =
            reinterpret_cast<const uint32_t*>(data + static_cast<size_t>(y) * stride);
        if (sameLayout_)
            for (int x = 0; x < width_; ++x) row[x] = source[x] & 0xFFFFFF;
        else
            for (int x = 0; x < width_; ++x) row[x] = xPixelOf(source[x]);
        uint32_t* shown = &pixels_[static_cast<size_t>(y) * width_];
        if (std::memcmp(shown, row.data(), row.size() * 4) == 0) continue;
        int first = 0, last = width_ - 1;
        while (shown[first] == row[first]) ++first;
        while (shown[last] == row[last]) --last;
        changed = {std::min(changed.left, first), std::min(changed.top, y),
                   std::max(changed.right, last + 1), y + 1};
        std::copy(row.begin(), row.end(), shown);
    }
    return changed;
}

void WindowPicture::put(Window window, const Rect& rect) {
    if (rect.right <= rect.left || rect.bottom <= rect.top) return;
    if (!gc_) gc_ = XCreateGC(display_, window, 0, nullptr);
    image_->data = reinterpret_cast<char*>(pixels_.data());
    XPutImage(display_, window, gc_, image_, rect.left, rect.top, rect.left, rect.top,
              static_cast<unsigned>(rect.right - rect.left),
              static_cast<unsigned>(rect.bottom - rect.top));
    image_->data = nullptr;
}

bool WindowPicture::show(const Canvas& canvas, Window window) {
    bool resized = canvas.width() != width_ || canvas.height() != height_;
    if (resized) resize(canvas.width(), canvas.height());
    Rect changed = takeRows(canvas);
    if (resized) changed = {0, 0, width_, height_};
    put(window, changed);
    return changed.right > changed.left;
}

void WindowPicture::putAll(Window window) { put(window, {0, 0, width_, height_}); }

}  // namespace x11_front
