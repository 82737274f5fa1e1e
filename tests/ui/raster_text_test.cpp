// Text through raster fonts: placement by DT_ flags, measuring, clipping,
// colours and the one-line text functions.
#include <gtest/gtest.h>

#include <cstring>

#include "host/ui/ui_font.h"
#include "tests/ui/raster_test_support.h"

namespace {

constexpr uint32_t kBlack = 0xff000000;
constexpr UINT kNoPrefix = 0x800;

struct Placed {
    RECT ink;      // inclusive bounds of the drawn pixels
    int returned;  // drawText's result
};

Placed drawInRect(const char* text, RECT rect, UINT flags) {
    BitmapPtr bitmap = makeBitmap(200, 80);
    FontPtr font(MURA_CreateFont());
    font->setTextColor(0xffffff);
    const int returned = font->drawText(bitmap.get(), text, -1, &rect, flags);
    return {boundsOfPixelsOtherThan(bitmap.get(), kBlack), returned};
}

TEST(MuraFontPlacement, AlignedTextSitsAgainstItsEdgesOrCentred) {
    const Placed placed = drawInRect("Gain", {40, 20, 160, 60}, DT_LEFT | DT_SINGLELINE);
    EXPECT_GE(placed.ink.left, 40);
    EXPECT_LE(placed.ink.left, 42);
    EXPECT_GE(placed.ink.top, 20);
    EXPECT_LE(placed.ink.top, 24);  // top-aligned
    EXPECT_EQ(placed.returned, 12);
    const Placed right = drawInRect("1.0k", {40, 20, 160, 60}, DT_RIGHT | DT_SINGLELINE);
    EXPECT_LE(right.ink.right, 159);
    EXPECT_GE(right.ink.right, 156);
    const Placed bottom = drawInRect("+6", {40, 20, 160, 60}, DT_BOTTOM | DT_SINGLELINE);
    EXPECT_LE(bottom.ink.bottom, 59);
    EXPECT_GE(bottom.ink.bottom, 54);
    const Placed centred =
        drawInRect("12", {40, 20, 160, 60}, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    EXPECT_NEAR((centred.ink.left + centred.ink.right + 1) / 2.0, 100, 2);
    EXPECT_NEAR((centred.ink.top + centred.ink.bottom + 1) / 2.0, 40, 3);
}

TEST(MuraFontPlacement, MultiLineTextPutsEachLineBelowTheLast) {
    const Placed one = drawInRect("Band 1", {10, 10, 190, 70}, kNoPrefix);
    const Placed two = drawInRect("Band 1\nBand 2", {10, 10, 190, 70}, kNoPrefix);
    EXPECT_EQ(two.returned, 24);
    EXPECT_GE(two.ink.bottom - one.ink.bottom, 10);
}

TEST(MuraFontClipping, TextIsClippedToItsRectangleUnlessNoClip) {
    const Placed clipped = drawInRect("Frequency", {50, 20, 60, 60}, DT_LEFT | DT_SINGLELINE);
    EXPECT_LE(clipped.ink.right, 59);
    EXPECT_GE(clipped.ink.left, 50);
    // The grid labels are right-aligned against their line and not clipped.
    const Placed spilled =
        drawInRect("Frequency", {50, 20, 60, 60}, DT_RIGHT | DT_SINGLELINE | DT_NOCLIP);
    EXPECT_LT(spilled.ink.left, 40);
    EXPECT_LE(spilled.ink.right, 59);
}

TEST(MuraFontMeasuring, CalcRectSizesTheRectangleWithoutDrawing) {
    BitmapPtr bitmap = makeBitmap(100, 40);
    FontPtr font(MURA_CreateFont());
    font->setTextColor(0xffffff);
    RECT rect{0, 0, 0, 0};
    const int height = font->drawText(bitmap.get(), "Band 3", -1, &rect, DT_CALCRECT | kNoPrefix);
    EXPECT_EQ(countPixelsOtherThan(bitmap.get(), kBlack), 0);
    EXPECT_EQ(height, 12);
    EXPECT_EQ(rect.bottom, 12);
    EXPECT_GT(rect.right, 20);
    EXPECT_LT(rect.right, 60);

    RECT twoLines{5, 5, 5, 5};
    font->drawText(nullptr, "Band 3\nlonger line here", -1, &twoLines, DT_CALCRECT);
    EXPECT_EQ(twoLines.top, 5);
    EXPECT_EQ(twoLines.bottom, 5 + 24);
    EXPECT_GT(twoLines.right - twoLines.left, rect.right);
}

TEST(MuraFontMeasuring, LengthLimitsTheTextAndAmpersandsMarkMnemonicsUnlessNoPrefix) {
    FontPtr font(MURA_CreateFont());
    RECT whole{0, 0, 0, 0}, part{0, 0, 0, 0};
    font->drawText(nullptr, "WWWW", -1, &whole, DT_CALCRECT);
    font->drawText(nullptr, "WWWW", 2, &part, DT_CALCRECT);
    EXPECT_NEAR(part.right * 2, whole.right, 2);
    RECT marked{0, 0, 0, 0}, plain{0, 0, 0, 0}, literal{0, 0, 0, 0};
    font->drawText(nullptr, "&Add", -1, &marked, DT_CALCRECT);
    font->drawText(nullptr, "Add", -1, &plain, DT_CALCRECT);
    font->drawText(nullptr, "&Add", -1, &literal, DT_CALCRECT | kNoPrefix);
    EXPECT_EQ(marked.right, plain.right);
    EXPECT_GT(literal.right, plain.right);
}

HFONT uiFont(int height, int weight = 400) {
    LOGFONT description{};
    description.lfHeight = height;
    description.lfWeight = weight;
    std::strcpy(description.lfFaceName, "Arial");
    return kobal_layer::CreateFontIndirect(&description);
}

TEST(MuraFontMeasuring, LineHeightFollowsTheUiFontsHeightAndDefaultsTo12) {
    FontPtr font(MURA_CreateFont());
    font->takeUiFont(uiFont(10), 0x200);  // the graph's label font
    EXPECT_EQ(font->lineHeight(), 10);
    font->takeUiFont(uiFont(30), 0x200);
    EXPECT_EQ(font->lineHeight(), 30);
    // A negative height is the character height: the cell is taller.
    font->takeUiFont(uiFont(-20), 0x200);
    EXPECT_GT(font->lineHeight(), 20);
    EXPECT_LE(font->lineHeight(), 24);
    FontPtr fallback(MURA_CreateFont());
    EXPECT_EQ(fallback->lineHeight(), 12);  // the default, 12-pixel Arial
    fallback->takeUiFont(nullptr, 0x200);
    EXPECT_EQ(fallback->lineHeight(), 12);
}

TEST(MuraFontMeasuring, BoldTextIsWider) {
    FontPtr regular(MURA_CreateFont());
    FontPtr bold(MURA_CreateFont());
    regular->takeUiFont(uiFont(16), 0);
    bold->takeUiFont(uiFont(16, 700), 0);
    RECT regularRect{0, 0, 0, 0}, boldRect{0, 0, 0, 0};
    regular->drawText(nullptr, "Bandwidth (oct):", -1, &regularRect, DT_CALCRECT);
    bold->drawText(nullptr, "Bandwidth (oct):", -1, &boldRect, DT_CALCRECT);
    EXPECT_GT(boldRect.right, regularRect.right);
}

TEST(MuraFontColours, TextColourIgnoresTheAlphaByteAndReturnsThePrevious) {
    FontPtr font(MURA_CreateFont());
    font->setTextColor(0x909090);
    EXPECT_EQ(font->setTextColor(0xff5a5a0a), 0x909090u);
    EXPECT_EQ(font->textColor(), 0xff5a5a0au);
    font->setTextColor(0x00ff0000);  // alpha byte 0: still drawn
    BitmapPtr bitmap = makeBitmap(60, 20);
    RECT rect{0, 0, 60, 20};
    font->drawText(bitmap.get(), "MMM", -1, &rect, DT_SINGLELINE);
    bool sawRed = false;
    for (int y = 0; y < 20; ++y)
        for (int x = 0; x < 60; ++x) sawRed = sawRed || pixelAt(bitmap.get(), x, y) == 0xffff0000;
    EXPECT_TRUE(sawRed);
}

TEST(MuraFontColours, OpaqueBackgroundFillsTheRectangle) {
    FontPtr font(MURA_CreateFont());
    font->setBackgroundColor(0x203040);
    EXPECT_EQ(font->backgroundColor(), 0x203040u);
    font->setBackgroundMode(1);
    BitmapPtr bitmap = makeBitmap(40, 20);
    RECT rect{0, 0, 40, 20};
    font->drawText(bitmap.get(), "x", -1, &rect, DT_SINGLELINE);
    EXPECT_EQ(pixelAt(bitmap.get(), 39, 19), 0xff203040);
    font->setBackgroundMode(0);
    MURA_Clear(bitmap.get(), kBlack);
    font->drawText(bitmap.get(), "x", -1, &rect, DT_SINGLELINE);
    EXPECT_EQ(pixelAt(bitmap.get(), 39, 19), kBlack);
}

TEST(MuraTextFunctions, MeasureAndDrawOneLineLatin1Included) {
    FontPtr font(MURA_CreateFont());
    int width = 0;
    int height = 0;
    MURA_MeasureText(font.get(), "20.0k", &width, &height);
    EXPECT_EQ(height, 12);
    EXPECT_GT(width, 15);
    EXPECT_LT(width, 40);

    BitmapPtr bitmap = makeBitmap(80, 30);
    MURA_DrawText(bitmap.get(), font.get(), "20.0k", 10, 5, 0xffffff);
    const RECT ink = boundsOfPixelsOtherThan(bitmap.get(), kBlack);
    EXPECT_GE(ink.left, 10);
    EXPECT_LE(ink.right, 10 + width);
    EXPECT_GE(ink.top, 5);
    EXPECT_LE(ink.bottom, 5 + height);
    int degreeWidth = 0;
    MURA_MeasureText(font.get(), "\xb0", &degreeWidth, nullptr);  // a Latin-1 degree sign
    EXPECT_GT(degreeWidth, 0);
}

}  // namespace
