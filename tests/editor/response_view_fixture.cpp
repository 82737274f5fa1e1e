#include "tests/editor/response_view_fixture.h"

#include "contracts/mura.h"
#include "engine/eq_band.h"
#include "host/ui/input_injection.h"
#include "plugin/ui_layer.h"

void ResponseViewTest::openView(int width, int height) {
    openEditorIn(kHostWidth, kHostHeight);
    view = control(1023);
    ASSERT_NE(view, nullptr);
    kobal::SetWindowPos(view, nullptr, 0, 0, width, height,
                        SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    RECT client{};
    kobal::GetClientRect(view, &client);
    ASSERT_EQ(client.right, width);
    ASSERT_EQ(client.bottom, height);
}

void ResponseViewTest::paint() { kobal::SendMessage(view, WM_PAINT, 0, 0); }

uint32_t ResponseViewTest::pixel(int x, int y) const {
    MuraBitmap* bitmap = instance->drawingBitmap;
    if (!bitmap || x < 0 || y < 0 || x >= bitmap->width() || y >= bitmap->height()) return 0;
    return bitmap->pixels()[y * bitmap->rowSpan() + x];
}

int ResponseViewTest::countPixels(uint32_t color, int left, int top, int right,
                                  int bottom) const {
    int count = 0;
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x) count += pixel(x, y) == color;
    return count;
}

void ResponseViewTest::setBand(int index, int32_t type, double frequency, double gain,
                               double bandwidth, bool enabled) {
    MutexLock lock(instance->mutex);
    EqBand* band = instance->band(index);
    ASSERT_NE(band, nullptr);
    designBand(band, type, true, frequency, gain, bandwidth);
    band->enabled = enabled ? 1 : 0;
}

void ResponseViewTest::silenceAllBands() {
    MutexLock lock(instance->mutex);
    for (int i = 0; i < instance->bandCount(); ++i) instance->band(i)->enabled = 0;
}

POINT ResponseViewTest::screenPoint(int x, int y) const {
    return kobal_layer::screenPointOf(view, POINT{x, y});
}
