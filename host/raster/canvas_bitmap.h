// The raster library's bitmap: a MuraBitmap drawn on a Canvas.
//
// Two kinds, chosen by MURA_CreateBitmap's mode:
//   opaque (mode 1): every pixel stays fully opaque; colours' alpha bytes are
//     ignored and only the call's alpha sets the opacity. It starts black.
//   with alpha (any other mode): colours' alpha bytes count; pixels are stored
//     premultiplied, as Cairo keeps them. It starts transparent.
#pragma once

#include "contracts/mura.h"
#include "host/raster/canvas.h"

class CanvasBitmap final : public MuraBitmap {
public:
    CanvasBitmap(int width, int height, bool opaque);

    uint32_t* pixels() override;
    int width() const override;
    int height() const override;
    int rowSpan() const override;
    void markDirty() override;
    void resize(int width, int height) override;
    HDC deviceContext() override;

    bool isOpaque() const { return opaque_; }
    Canvas& canvas() { return canvas_; }

private:
    Canvas canvas_;
    bool opaque_;
};

// The library's own bitmap behind `bitmap`, or null.
CanvasBitmap* canvasBitmapOf(MuraBitmap* bitmap);
