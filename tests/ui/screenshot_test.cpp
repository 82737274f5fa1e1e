// Pictures of dialogs: standard control faces, self-painted windows, PNG output.
#include "host/ui/screenshot.h"

#include <cairo.h>

#include <algorithm>
#include <filesystem>

#include "host/raster/canvas.h"
#include "host/ui/dialog_items.h"
#include "host/ui/dialogs.h"
#include "host/ui/fader.h"
#include "host/ui/painting.h"
#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

constexpr uint32_t kFace = 0xFFF0F0F0u;
constexpr uint32_t kWhite = 0xFFFFFFFFu;
constexpr uint32_t kGreen = 0xFF00C000u;

enum ControlId { kOn = 1, kOff, kFader, kUpright };

const ControlRecord kControls[] = {
    {"Show grid", kOn, 0, "Button", 0x10003, 10, 44, 90, 16, 0},
    {"Show tabs", kOff, 0, "Button", 0x10003, 110, 44, 90, 16, 0},
    {"", kFader, 0, "HARVINhfader", 0x10000, 10, 140, 210, 24, 0},
    {"", kUpright, 0, "HARVINvfader", 0x10000, 282, 60, 16, 115, 0},
};

void createControls(HWND window, int32_t) {
    KOBAL_MakeSetCurParms(1.0f, 1.0f, 0, 0, window, false, true);
    KOBAL_GenerateDialogFromList(kControls, std::size(kControls));
}

DialogResource pictureResource{400, "", 13, 0, createControls, 300, 180, nullptr};

LRESULT paintGreen(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_PAINT) return DefWindowProc(window, message, wParam, lParam);
    PAINTSTRUCT paint;
    canvasOf(BeginPaint(window, &paint))->fillRect(0, 0, 60, 40, kGreen);
    EndPaint(window, &paint);
    return 0;
}

std::vector<uint32_t> pixelsOf(const Canvas& canvas, RECT rect) {
    std::vector<uint32_t> pixels;
    for (int y = rect.top; y < rect.bottom; ++y)
        for (int x = rect.left; x < rect.right; ++x) pixels.push_back(canvas.pixel(x, y));
    return pixels;
}

// True when some pixel of the rectangle is darker than mid grey.
bool hasDarkPixel(const Canvas& canvas, RECT rect) {
    const std::vector<uint32_t> pixels = pixelsOf(canvas, rect);
    return std::any_of(pixels.begin(), pixels.end(), [](uint32_t p) { return (p & 0xFF) < 0x80; });
}

class Screenshots : public UiLayerTest {
protected:
    void SetUp() override {
        UiLayerTest::SetUp();
        dialog =
            KOBAL_CreateDialog(&pictureResource, 400, hostWindow(), recordingDialogProcedure, 0);
        ShowWindow(dialog, SW_SHOW);
    }
    HWND dialog = nullptr;
};

TEST_F(Screenshots, DialogPngShowsItsControlsStatesAndTheShownSelfPaintedWindowsPixels) {
    CheckDlgButton(dialog, kOn, BST_CHECKED);
    SendMessage(GetDlgItem(dialog, kFader), TBM_SETPOS, 0, 500);
    HWND graph = KOBAL_CreateDialog(nullptr, 0, dialog, paintGreen, 0);
    SetWindowPos(graph, nullptr, 220, 10, 60, 40, SWP_NOZORDER);
    ShowWindow(graph, SW_SHOW);
    std::filesystem::create_directories(OMBRO_TEST_OUTPUT_DIR);
    const std::string path = std::string(OMBRO_TEST_OUTPUT_DIR) + "/ui_layer_dialog.png";
    ASSERT_TRUE(saveScreenshot(dialog, path));
    auto picture = renderWindow(dialog);
    cairo_surface_t* png = cairo_image_surface_create_from_png(path.c_str());
    ASSERT_EQ(cairo_image_surface_get_width(png), 300);
    ASSERT_EQ(cairo_image_surface_get_height(png), 180);
    const auto* stored = reinterpret_cast<const uint32_t*>(cairo_image_surface_get_data(png));
    EXPECT_EQ(std::vector<uint32_t>(stored, stored + 300 * 180),  // opaque: stored as drawn
              pixelsOf(*picture, RECT{0, 0, 300, 180}));
    cairo_surface_destroy(png);
    EXPECT_EQ(picture->pixel(220, 10), kGreen);  // the self-painted window's corners
    EXPECT_EQ(picture->pixel(279, 49), kGreen);
    EXPECT_EQ(picture->pixel(280, 50), kFace);
    // The check box's square, at the left of the control, shows its mark.
    EXPECT_FALSE(hasDarkPixel(*picture, RECT{113, 48, 121, 56}));
    EXPECT_TRUE(hasDarkPixel(*picture, RECT{13, 48, 21, 56}));     // checked
    const POINT knob = faderPointOfPosition(GetDlgItem(dialog, kFader), 500);
    EXPECT_EQ(knob.x, 105);                                        // 5 + 500/1000 × 200
    EXPECT_EQ(picture->pixel(10 + knob.x, 140 + knob.y), kWhite);  // the knob's face
    EXPECT_NE(picture->pixel(10 + knob.x + 40, 140 + knob.y), kWhite);
    ShowWindow(graph, SW_HIDE);  // hidden children are left out
    EXPECT_EQ(renderWindow(dialog)->pixel(240, 30), kFace);
}

// The rows of the vertical fader's picture where its knob face (white) shows.
std::vector<int> knobFaceRows(const Canvas& picture) {
    std::vector<int> rows;
    for (int y = 0; y < 115; ++y)
        if (picture.pixel(282 + 3, 60 + y) == kWhite) rows.push_back(y);
    return rows;
}

// Name above the travel, value below: the knob at either end stops at the texts.
TEST_F(Screenshots, VerticalFaderKeepsItsNameAndValueClearOfTheKnobOverTheWholeTravel) {
    HWND fader = GetDlgItem(dialog, kUpright);
    SendMessage(fader, FADER_SETTEXT, 1, reinterpret_cast<LPARAM>("Output gain"));
    SendMessage(fader, FADER_SETTEXT, 2, reinterpret_cast<LPARAM>("-6.0"));
    const RECT name = faderTextRect(fader, kFaderNameText);
    const RECT value = faderTextRect(fader, kFaderValueText);
    ASSERT_GT(name.bottom, 0);
    ASSERT_LT(value.top, 115);
    SendMessage(fader, TBM_SETPOS, 0, 1000);
    auto atTop = renderWindow(dialog);
    SendMessage(fader, TBM_SETPOS, 0, 0);
    auto atBottom = renderWindow(dialog);
    const std::vector<int> top = knobFaceRows(*atTop);
    const std::vector<int> bottom = knobFaceRows(*atBottom);
    ASSERT_FALSE(top.empty());
    ASSERT_FALSE(bottom.empty());
    EXPECT_EQ(top.front(), name.bottom + 1);  // just below the name's frame row
    EXPECT_EQ(bottom.back(), value.top - 2);  // just above the value
    for (const RECT& text : {name, value}) {
        const RECT placed{282 + text.left, 60 + text.top, 282 + text.right, 60 + text.bottom};
        EXPECT_TRUE(hasDarkPixel(*atTop, placed));
        EXPECT_EQ(pixelsOf(*atTop, placed), pixelsOf(*atBottom, placed));
    }
    SendMessage(fader, TBM_SETPOS, 0, 500);  // the knob in between: the travel is whole
    const std::vector<int> middle = knobFaceRows(*renderWindow(dialog));
    ASSERT_FALSE(middle.empty());
    EXPECT_NEAR((middle.front() + middle.back()) / 2.0, (name.bottom + value.top) / 2.0, 1.0);
}

}  // namespace
