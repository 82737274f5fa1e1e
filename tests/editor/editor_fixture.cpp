#include "tests/editor/editor_fixture.h"

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
#include "host/ui/tab_control.h"
#include "host/ui/window_tree.h"
#include "plugin/instance.h"

namespace {

std::mutex noticesMutex;
std::vector<HostNotice> recordedNotices;

intptr_t recordingHost(AEffect*, int32_t opcode, int32_t index, intptr_t, void* ptr, float opt) {
    if (opcode == kHostExtensionOpcode && index == kHostExtensionIndex)
        return reinterpret_cast<intptr_t>(findHostExtension(static_cast<const char*>(ptr)));
    HostNotice notice{opcode, index, opt, std::nullopt};
    if (opcode == audioMasterVendorSpecific && index == kHostExtensionOpcode && ptr)
        notice.listChange = *static_cast<const ParamListChange*>(ptr);
    std::lock_guard<std::mutex> lock(noticesMutex);
    recordedNotices.push_back(notice);
    return 0;
}

}  // namespace

void bindHostLayerOnce() {
    static std::once_flag bound;
    std::call_once(bound, bindUiLayer);
}

RECT rectInParent(HWND window) {
    RECT screen{};
    kobal::GetWindowRect(window, &screen);
    POINT corners[] = {{screen.left, screen.top}, {screen.right, screen.bottom}};
    for (POINT& corner : corners) kobal::ScreenToClient(kobal::GetParent(window), &corner);
    return RECT{corners[0].x, corners[0].y, corners[1].x, corners[1].y};
}

void EditorTest::SetUp() {
    bindHostLayerOnce();
    kobal_layer::resetWindowingLayer();
    kobal_layer::useTestClock(10000);
    instance = createInstance(recordingHost);
    ASSERT_NE(instance, nullptr);
    clearNotices();
}

void EditorTest::TearDown() {
    kobal_layer::releaseAllKeys();
    if (instance) destroyInstance(instance);
    kobal_layer::resetWindowingLayer();
    kobal_layer::useRealClock();
}

void EditorTest::openEditorIn(int width, int height) {
    hostWindow = kobal_layer::createHostWindow("host", RECT{50, 40, 50 + width, 40 + height});
    ASSERT_TRUE(openEditor(instance, hostWindow));
    kobal_layer::pumpMessages();
    view = control(kResponseViewControl);
}

void EditorTest::refresh() const { kobal::SendMessage(editor(), WM_REFRESH_EDITOR, 0, 0); }

void EditorTest::advanceClock(uint32_t milliseconds) {
    kobal_layer::advanceTestClock(milliseconds);
    kobal_layer::pumpMessages();
}

std::vector<HostNotice> EditorTest::notices() const {
    std::lock_guard<std::mutex> lock(noticesMutex);
    return recordedNotices;
}

void EditorTest::clearNotices() {
    std::lock_guard<std::mutex> lock(noticesMutex);
    recordedNotices.clear();
}

int EditorTest::countNotices(int32_t opcode, int32_t index) const {
    int count = 0;
    for (const HostNotice& notice : notices())
        count += notice.opcode == opcode && notice.index == index;
    return count;
}

std::vector<std::string> EditorTest::tabTexts() const {
    std::vector<std::string> texts;
    for (int i = 0; i < kobal::TabCtrl_GetItemCount(control(kBandTabs)); ++i)
        texts.emplace_back(kobal_layer::tabText(control(kBandTabs), i));
    return texts;
}

std::string text(HWND window) {
    KobalWindow* record = kobal_layer::liveWindow(window);
    return record ? record->text : std::string("<no window>");
}

bool isShown(HWND window) {
    KobalWindow* record = kobal_layer::liveWindow(window);
    return record && record->visible;
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

void EditorTest::silenceAllBands() {
    MutexLock lock(instance->mutex);
    for (int i = 0; i < instance->bandCount(); ++i) instance->band(i)->enabled = 0;
}

void EditorTest::process(const std::vector<double>& input) {
    std::vector<double> left = input, right = input, out(2 * input.size());
    double* inputs[] = {left.data(), right.data()};
    double* outputs[] = {out.data(), out.data() + input.size()};
    processDoubleReplacing(&instance->effect, inputs, outputs, static_cast<int>(input.size()));
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
