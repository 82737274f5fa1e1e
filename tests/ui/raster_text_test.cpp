// Text through raster fonts: placement by DT_ flags, clipping and measuring.
#include <cstring>

#include "host/ui/ui_font.h"
#include "tests/ui/raster_test_support.h"

namespace {

constexpr UINT kNoPrefix = 0x800;

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
        FontPtr font(MURA_CreateFont());
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

HFONT uiFont(int height) {
    LOGFONT description{};
    description.lfHeight = height;
    std::strcpy(description.lfFaceName, "Arial");
    return kobal_layer::CreateFontIndirect(&description);
}

TEST(MuraFontMeasuring, CalcRectSizesLineByLineWithoutDrawingInTheUiFontsHeight) {
    FontPtr font(MURA_CreateFont());
    BitmapPtr bitmap = makeBitmap(100, 40);
    RECT twoLines{5, 5, 5, 5};
    EXPECT_EQ(font->drawText(bitmap.get(), "Band 3\nlonger", -1, &twoLines, DT_CALCRECT), 24);
    EXPECT_EQ(inkOf(bitmap.get()).count, 0);
    EXPECT_EQ(twoLines.bottom, 5 + 24);  // two lines of the default 12-pixel Arial
    EXPECT_GT(twoLines.right, 5 + 20);
    const auto width = [&](const char* text, int length, UINT flags) {
        RECT measured{0, 0, 0, 0};
        font->drawText(nullptr, text, length, &measured, DT_CALCRECT | flags);
        return measured.right;
    };
    EXPECT_NEAR(width("WWWW", 2, 0) * 2, width("WWWW", -1, 0), 2);
    EXPECT_EQ(width("&Add", -1, 0), width("Add", -1, 0));  // the ampersand marks a mnemonic
    EXPECT_GT(width("&Add", -1, kNoPrefix), width("Add", -1, 0));
    font->takeUiFont(uiFont(10), 0x200);  // the graph's label font
    EXPECT_EQ(font->lineHeight(), 10);
    font->takeUiFont(uiFont(-20), 0x200);  // the character height: the cell is taller
    EXPECT_GT(font->lineHeight(), 20);
    EXPECT_LE(font->lineHeight(), 24);
}

TEST(MuraTextFunctions, DrawTextInksWithinWhatMeasureTextMeasuredLatin1Included) {
    FontPtr font(MURA_CreateFont());
    int width = 0;
    int height = 0;
    MURA_MeasureText(font.get(), "20.0k\xb0", &width, &height);  // with a degree sign
    EXPECT_EQ(height, 12);
    BitmapPtr bitmap = makeBitmap(80, 30);
    MURA_DrawText(bitmap.get(), font.get(), "20.0k\xb0", 10, 5, 0xffffff);
    const RECT ink = inkOf(bitmap.get()).bounds;
    EXPECT_GE(ink.left, 10);
    EXPECT_GE(ink.top, 5);
    EXPECT_LE(ink.bottom, 5 + height);
    EXPECT_GT(ink.right, 10 + width - 6);  // the degree sign is drawn
    EXPECT_LE(ink.right, 10 + width);
}

}  // namespace
