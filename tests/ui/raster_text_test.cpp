// Text through raster fonts: placement by DT_ flags and clipping.
#include "tests/ui/raster_test_support.h"

namespace {

TEST(MuraFontPlacement, TextSitsAgainstTheEdgesItsFlagsNameAndIsClippedUnlessNoClip) {
    const RECT box{40, 20, 160, 60};
    const RECT narrow{50, 20, 60, 60};
    struct Case {
        const char* text;
        RECT rect;
        UINT flags;
        RECT low;   // the least ink bounds
        RECT high;  // the greatest
    };
    const Case cases[] = {
        {"Gain", box, DT_LEFT, {40, 20, 41, 21}, {42, 24, 159, 59}},
        {"1.0k", box, DT_RIGHT, {41, 20, 156, 21}, {159, 24, 159, 59}},
        {"+6", box, DT_BOTTOM, {40, 21, 41, 54}, {159, 59, 159, 59}},
        {"12", box, DT_CENTER | DT_VCENTER, {90, 32, 101, 42}, {99, 38, 110, 48}},
        {"Frequency", narrow, DT_LEFT, {50, 20, 50, 21}, {52, 24, 59, 59}},
        // The grid labels are right-aligned against their line and not clipped.
        {"Frequency", narrow, DT_RIGHT | DT_NOCLIP, {0, 20, 55, 21}, {39, 24, 59, 59}},
    };
    for (const Case& c : cases) {
        BitmapPtr bitmap = makeBitmap(200, 80);
        std::unique_ptr<MuraFont> font(MURA_CreateFont());
        font->setTextColor(0xffffff);
        RECT rect = c.rect;
        EXPECT_EQ(font->drawText(bitmap.get(), c.text, -1, &rect, c.flags | DT_SINGLELINE), 12);
        const RECT ink = inkOf(bitmap.get()).bounds;
        for (LONG RECT::*edge : {&RECT::left, &RECT::top, &RECT::right, &RECT::bottom}) {
            EXPECT_GE(ink.*edge, c.low.*edge) << c.text << " " << c.flags;
            EXPECT_LE(ink.*edge, c.high.*edge) << c.text << " " << c.flags;
        }
    }
}

}  // namespace
