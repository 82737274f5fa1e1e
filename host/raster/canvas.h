// A drawing surface of the stand-in host: an ARGB32 image with the plain
// drawing the windowing layer needs (control faces, text, copies between
// surfaces) and PNG output. Device contexts (HDC) handed to the plug-in are
// backed by canvases. Owned by the raster library; used by the windowing layer.
//
// The pixels are kept premultiplied, as Cairo wants them; pixel() answers
// them unpremultiplied. A fresh canvas is fully transparent.
#pragma once

#include <cairo.h>

#include <cstdint>
#include <string>

#include "contracts/kobal.h"
#include "host/raster/device_context.h"

class Canvas {
public:
    Canvas(int width, int height);
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    int width() const;
    int height() const;
    // Keeps the pixels that still fit; new pixels are transparent. The
    // device context stays the same.
    void resize(int width, int height);
    HDC deviceContext();  // a DC drawing into this canvas

    // Colours are 0xAARRGGBB; coordinates in pixels.
    void fillRect(int x, int y, int width, int height, uint32_t color);
    void frameRect(int x, int y, int width, int height, uint32_t color);
    void line(double x1, double y1, double x2, double y2, uint32_t color, double lineWidth = 1.0);
    // Text in the UI face ("Arial", served by Liberation Sans) with DT_ flags.
    // `pixelHeight` counts like LOGFONT's lfHeight: positive for the cell
    // height, negative for the character height. The colour's alpha byte is
    // ignored: text is opaque.
    void text(const char* text, const RECT& rect, UINT dtFlags, uint32_t color, int pixelHeight);
    // Copies a rectangle of `source` to (x, y), replacing what is there.
    void copyFrom(const Canvas& source, int sourceX, int sourceY, int width, int height, int x,
                  int y);
    uint32_t pixel(int x, int y) const;  // 0xAARRGGBB, unpremultiplied; 0 outside
    bool writePng(const std::string& path) const;

    // For the raster library's own drawing.
    cairo_surface_t* surface() const { return surface_; }

private:
    cairo_surface_t* surface_ = nullptr;
    KobalDeviceContext deviceContext_;
};

// The canvas behind a device context, or null for an unknown handle.
Canvas* canvasOf(HDC dc);
