#include "tests/editor/editor_fixture.h"

#include <algorithm>
#include <filesystem>
#include <mutex>

#include "editor/editor_dialog.h"
#include "editor/editor_messages.h"
#include "engine/audio_processing.h"
#include "host/extensions/extension_table.h"
#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/input_injection.h"
#include "host/ui/messages.h"
#include "host/ui/pointer_and_keys.h"
#include "host/ui/screenshot.h"
#include "host/ui/tab_control.h"
#include "plugin/instance.h"

namespace {

std::vector<HostNotice> recordedNotices;

intptr_t recordingHost(AEffect*, int32_t opcode, int32_t index, intptr_t, void* ptr, float opt) {
    if (opcode == kHostExtensionOpcode && index == kHostExtensionIndex)
        return reinterpret_cast<intptr_t>(findHostExtension(static_cast<const char*>(ptr)));
    HostNotice notice{opcode, index, opt, std::nullopt};
    if (opcode == audioMasterVendorSpecific && index == kHostExtensionOpcode && ptr)
        notice.listChange = *static_cast<const ParamListChange*>(ptr);
    recordedNotices.push_back(notice);
    return 0;
}

}  // namespace

void bindHostLayerOnce() {
    static std::once_flag bound;
    std::call_once(bound, bindUiLayer);
}

void EditorTest::SetUp() {
    bindHostLayerOnce();
    kobal_layer::resetWindowingLayer();
    kobal_layer::useTestClock(10000);
    instance = createInstance(recordingHost);
    ASSERT_NE(instance, nullptr);
    hostWindow = kobal_layer::createHostWindow("host", RECT{50, 40, 1150, 740});
    ASSERT_TRUE(openEditor(instance, hostWindow));
    kobal_layer::pumpMessages();
    view = control(kResponseViewControl);
    clearNotices();
}

void EditorTest::TearDown() {
    kobal_layer::releaseAllKeys();
    if (instance) destroyInstance(instance);
    kobal_layer::resetWindowingLayer();
    kobal_layer::useRealClock();
}

void EditorTest::resizeHost(int width, int height) {
    kobal::SetWindowPos(hostWindow, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    advanceClock(40);
}

void EditorTest::refresh() const { kobal::SendMessage(editor(), WM_REFRESH_EDITOR, 0, 0); }

void EditorTest::advanceClock(uint32_t milliseconds) {
    kobal_layer::advanceTestClock(milliseconds);
    kobal_layer::pumpMessages();
}

std::vector<HostNotice> EditorTest::notices() const { return recordedNotices; }

void EditorTest::clearNotices() { recordedNotices.clear(); }

int EditorTest::countNotices(int32_t opcode, int32_t index) const {
    return std::count_if(recordedNotices.begin(), recordedNotices.end(), [&](const HostNotice& n) {
        return n.opcode == opcode && n.index == index;
    });
}

std::vector<std::string> EditorTest::tabTexts() const {
    std::vector<std::string> texts;
    for (int i = 0; i < kobal::TabCtrl_GetItemCount(control(kBandTabs)); ++i)
        texts.emplace_back(kobal_layer::tabText(control(kBandTabs), i));
    return texts;
}

EqBand EditorTest::band(int index) const {
    MutexLock lock(instance->mutex);
    const EqBand* found = instance->band(index);
    return found ? *found : EqBand{};
}

void EditorTest::setBand(int index, int32_t type, double frequency, double gain,
                         double bandwidth, bool enabled) {
    MutexLock lock(instance->mutex);
    EqBand* found = instance->band(index);
    ASSERT_NE(found, nullptr);
    designBand(found, type, true, frequency, gain, bandwidth);
    found->enabled = enabled ? 1 : 0;
}

std::vector<double> EditorTest::process(const std::vector<double>& input) {
    std::vector<double> left = input, right = input, out(2 * input.size());
    double* inputs[] = {left.data(), right.data()};
    double* outputs[] = {out.data(), out.data() + input.size()};
    processDoubleReplacing(&instance->effect, inputs, outputs, static_cast<int>(input.size()));
    return out;
}

uint32_t EditorTest::pixel(int x, int y) const {
    MuraBitmap* bitmap = instance->drawingBitmap;
    if (!bitmap || x < 0 || y < 0 || x >= bitmap->width() || y >= bitmap->height()) return 0;
    return bitmap->pixels()[y * bitmap->rowSpan() + x];
}

int EditorTest::countPixels(uint32_t color, int left, int top, int right, int bottom) const {
    int count = 0;
    for (int y = top; y < bottom; ++y)
        for (int x = left; x < right; ++x) count += pixel(x, y) == color;
    return count;
}

POINT EditorTest::screenPoint(int x, int y) const {
    return kobal_layer::screenPointOf(view, POINT{x, y});
}

void EditorTest::save(const char* name) {
    std::filesystem::create_directories(OMBRO_TEST_OUTPUT_DIR);
    const std::string path = std::string(OMBRO_TEST_OUTPUT_DIR) + "/" + name;
    ASSERT_TRUE(kobal_layer::saveScreenshot(hostWindow, path));
    image.reset(cairo_image_surface_create_from_png(path.c_str()));
    ASSERT_EQ(cairo_surface_status(image.get()), CAIRO_STATUS_SUCCESS);
}

uint32_t EditorTest::at(HWND window, int x, int y) const {
    const POINT p = kobal_layer::screenPointOf(window, POINT{x, y});
    const POINT origin = kobal_layer::screenPointOf(hostWindow, POINT{0, 0});
    const int column = p.x - origin.x, row = p.y - origin.y;
    if (column < 0 || row < 0 || column >= cairo_image_surface_get_width(image.get()) ||
        row >= cairo_image_surface_get_height(image.get()))
        return 0xdeadbeef;
    const unsigned char* line = cairo_image_surface_get_data(image.get()) +
                                row * cairo_image_surface_get_stride(image.get());
    return reinterpret_cast<const uint32_t*>(line)[column] & 0xffffff;
}
