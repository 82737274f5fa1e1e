// Text through raster fonts: placement by DT_ flags, measuring, clipping,
// colours and the one-line text functions.
#include <cstring>

#include "host/ui/ui_font.h"
#include "tests/ui/raster_test_support.h"

namespace {

constexpr UINT kNoPrefix = 0x800;

// The bounds of `text` drawn in white into `rect` of a 200 × 80 bitmap.
RECT inkOfText(const char* text, RECT rect, UINT flags) {
    BitmapPtr bitmap = makeBitmap(200, 80);
    FontPtr font(MURA_CreateFont());
    font->setTextColor(0xffffff);
    font->drawText(bitmap.get(), text, -1, &rect, flags);
    return inkOf(bitmap.get()).bounds;
}

TEST(MuraFontPlacement, TextSitsAgainstTheEdgesItsFlagsNameAndIsClippedUnlessNoClip) {
    const RECT box{40, 20, 160, 60};
    const RECT narrow{50, 20, 60, 60};
    struct Case {
        const char* text;
        RECT rect;
        UINT flags;
        LONG RECT::*edge;
        int low;
        int high;
    };
    const Case cases[] = {
        {"Gain", box, DT_LEFT, &RECT::left, 40, 42},
        {"Gain", box, DT_LEFT, &RECT::top, 20, 24},
        {"1.0k", box, DT_RIGHT, &RECT::right, 156, 159},
        {"+6", box, DT_BOTTOM, &RECT::bottom, 54, 59},
        {"Frequency", narrow, DT_LEFT, &RECT::left, 50, 52},
        {"Frequency", narrow, DT_LEFT, &RECT::right, 50, 59},
        // The grid labels are right-aligned against their line and not clipped.
        {"Frequency", narrow, DT_RIGHT | DT_NOCLIP, &RECT::left, 0, 39},
        {"Frequency", narrow, DT_RIGHT | DT_NOCLIP, &RECT::right, 55, 59},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(::testing::Message() << c.text << " " << c.flags);
        const RECT ink = inkOfText(c.text, c.rect, c.flags | DT_SINGLELINE);
        EXPECT_GE(ink.*c.edge, c.low);
        EXPECT_LE(ink.*c.edge, c.high);
    }
    const RECT centred = inkOfText("12", box, DT_CENTER | DT_VCENTER | DT_SINGLELINE);
    EXPECT_NEAR((centred.left + centred.right + 1) / 2.0, 100, 2);
    EXPECT_NEAR((centred.top + centred.bottom + 1) / 2.0, 40, 3);
    EXPECT_GE(inkOfText("Band 1\nBand 2", box, kNoPrefix).bottom -
                  inkOfText("Band 1", box, kNoPrefix).bottom,
              10);  // each line below the last
}

TEST(MuraFontMeasuring, CalcRectSizesLineByLineWithoutDrawingAndHonoursLengthAndPrefixes) {
    FontPtr font(MURA_CreateFont());
    BitmapPtr bitmap = makeBitmap(100, 40);
    RECT rect{0, 0, 0, 0};
    EXPECT_EQ(font->drawText(bitmap.get(), "Band 3", -1, &rect, DT_CALCRECT | kNoPrefix), 12);
    EXPECT_EQ(inkOf(bitmap.get()).count, 0);
    EXPECT_EQ(rect.bottom, 12);
    EXPECT_GT(rect.right, 20);
    EXPECT_LT(rect.right, 60);
    RECT twoLines{5, 5, 5, 5};
    EXPECT_EQ(font->drawText(nullptr, "Band 3\nlonger line", -1, &twoLines, DT_CALCRECT), 24);
    EXPECT_EQ(twoLines.top, 5);
    EXPECT_EQ(twoLines.bottom, 5 + 24);
    EXPECT_GT(twoLines.right - twoLines.left, rect.right);
    const auto width = [&](const char* text, int length, UINT flags) {
        RECT measured{0, 0, 0, 0};
        font->drawText(nullptr, text, length, &measured, DT_CALCRECT | flags);
        return measured.right;
    };
    EXPECT_NEAR(width("WWWW", 2, 0) * 2, width("WWWW", -1, 0), 2);
    EXPECT_EQ(width("&Add", -1, 0), width("Add", -1, 0));  // the ampersand marks a mnemonic
    EXPECT_GT(width("&Add", -1, kNoPrefix), width("Add", -1, 0));
}

HFONT uiFont(int height, int weight = 400) {
    LOGFONT description{};
    description.lfHeight = height;
    description.lfWeight = weight;
    std::strcpy(description.lfFaceName, "Arial");
    return kobal_layer::CreateFontIndirect(&description);
}

TEST(MuraFontMeasuring, LineHeightFollowsTheUiFontAndDefaultsToTwelvePixelArial) {
    FontPtr font(MURA_CreateFont());
    EXPECT_EQ(font->lineHeight(), 12);
    font->takeUiFont(nullptr, 0x200);
    EXPECT_EQ(font->lineHeight(), 12);
    font->takeUiFont(uiFont(10), 0x200);  // the graph's label font
    EXPECT_EQ(font->lineHeight(), 10);
    // A negative height is the character height: the cell is taller.
    font->takeUiFont(uiFont(-20), 0x200);
    EXPECT_GT(font->lineHeight(), 20);
    EXPECT_LE(font->lineHeight(), 24);
    FontPtr bold(MURA_CreateFont());
    bold->takeUiFont(uiFont(-20, 700), 0);
    RECT regularRect{0, 0, 0, 0}, boldRect{0, 0, 0, 0};
    font->drawText(nullptr, "Bandwidth (oct):", -1, &regularRect, DT_CALCRECT);
    bold->drawText(nullptr, "Bandwidth (oct):", -1, &boldRect, DT_CALCRECT);
    EXPECT_GT(boldRect.right, regularRect.right);
}

TEST(MuraFontColours, TextColourIgnoresTheAlphaByteAndAnOpaqueBackgroundFillsTheRectangle) {
    FontPtr font(MURA_CreateFont());
    font->setTextColor(0x909090);
    EXPECT_EQ(font->setTextColor(0x00ff0000), 0x909090u);  // alpha byte 0: still drawn
    BitmapPtr bitmap = makeBitmap(60, 20);
    RECT rect{0, 0, 60, 20};
    font->drawText(bitmap.get(), "MMM", -1, &rect, DT_SINGLELINE);
    EXPECT_LT(inkOf(bitmap.get(), kRed).count, 60 * 20);  // some pixels are pure red
    font->setBackgroundColor(0x203040);
    font->setBackgroundMode(1);
    font->drawText(bitmap.get(), "x", -1, &rect, DT_SINGLELINE);
    EXPECT_EQ(pixelAt(bitmap.get(), 59, 19), 0xff203040);
    font->setBackgroundMode(0);
    MURA_Clear(bitmap.get(), kBlack);
    font->drawText(bitmap.get(), "x", -1, &rect, DT_SINGLELINE);
    EXPECT_EQ(pixelAt(bitmap.get(), 59, 19), kBlack);
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
    const RECT ink = inkOf(bitmap.get()).bounds;
    EXPECT_GE(ink.left, 10);
    EXPECT_LE(ink.right, 10 + width);
    EXPECT_GE(ink.top, 5);
    EXPECT_LE(ink.bottom, 5 + height);
    int degreeWidth = 0;
    MURA_MeasureText(font.get(), "\xb0", &degreeWidth, nullptr);  // a Latin-1 degree sign
    EXPECT_GT(degreeWidth, 0);
}

}  // namespace
