#include "tests/editor/editor_dialog_fixture.h"

#include <mutex>

#include "editor/editor_controls.h"
#include "editor/editor_dialog.h"
#include "engine/audio_processing.h"
#include "engine/default_bands.h"
#include "host/extensions/extension_table.h"
#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/messages.h"
#include "host/ui/tab_control.h"
#include "host/ui/window_tree.h"
#include "plugin/host_imports.h"
#include "plugin/instance.h"
#include "plugin/instance_registry.h"
#include "plugin/ui_layer.h"
#include "tests/editor/host_layer_binding.h"

namespace {

std::mutex noticesMutex;
std::vector<HostNotice> recordedNotices;

intptr_t recordingHost(AEffect*, int32_t opcode, int32_t index, intptr_t, void* ptr, float opt) {
    if (opcode == kHostExtensionOpcode && index == kHostExtensionIndex)
        return reinterpret_cast<intptr_t>(findHostExtension(static_cast<const char*>(ptr)));
    HostNotice notice{opcode, index, opt, std::nullopt};
    if (opcode == audioMasterVendorSpecific && index == kHostExtensionOpcode && ptr)
        notice.paramListChange = *static_cast<const ParamListChange*>(ptr);
    std::lock_guard<std::mutex> lock(noticesMutex);
    recordedNotices.push_back(notice);
    return 0;
}

}  // namespace

void EditorDialogTest::SetUp() {
    bindHostLayerOnce();
    kobal_layer::resetWindowingLayer();
    kobal_layer::useTestClock(10000);
    instance = createInstance(recordingHost);
    ASSERT_NE(instance, nullptr);
    clearNotices();
}

void EditorDialogTest::TearDown() {
    if (instance) {
        destroyInstance(instance);
    }
    kobal_layer::resetWindowingLayer();
    kobal_layer::useRealClock();
}

void EditorDialogTest::openEditorIn(int width, int height) {
    hostWindow = kobal_layer::createHostWindow("host", RECT{50, 40, 50 + width, 40 + height});
    ASSERT_NE(hostWindow, nullptr);
    ASSERT_TRUE(openEditor(instance, hostWindow));
    ASSERT_NE(editor(), nullptr);
    pump();
}

void EditorDialogTest::reopenEditor() {
    ASSERT_TRUE(openEditor(instance, hostWindow));
    pump();
}

HWND EditorDialogTest::control(int id) const { return kobal::GetDlgItem(editor(), id); }
HWND EditorDialogTest::panelControl(int id) const { return kobal::GetDlgItem(panel(), id); }

void EditorDialogTest::advanceClock(uint32_t milliseconds) {
    kobal_layer::advanceTestClock(milliseconds);
    pump();
}

void EditorDialogTest::pump() { kobal_layer::pumpMessages(); }

std::vector<HostNotice> EditorDialogTest::notices() const {
    std::lock_guard<std::mutex> lock(noticesMutex);
    return recordedNotices;
}

void EditorDialogTest::clearNotices() {
    std::lock_guard<std::mutex> lock(noticesMutex);
    recordedNotices.clear();
}

std::vector<ParamListChange> EditorDialogTest::paramListChanges() const {
    std::vector<ParamListChange> changes;
    for (const HostNotice& notice : notices())
        if (notice.paramListChange) changes.push_back(*notice.paramListChange);
    return changes;
}

std::vector<std::string> EditorDialogTest::tabTexts() const {
    std::vector<std::string> texts;
    HWND tabs = control(kBandTabs);
    for (int i = 0; i < kobal::TabCtrl_GetItemCount(tabs); ++i)
        texts.emplace_back(kobal_layer::tabText(tabs, i));
    return texts;
}

int EditorDialogTest::currentTab() const { return kobal::TabCtrl_GetCurSel(control(kBandTabs)); }

std::string EditorDialogTest::text(HWND window) const {
    KobalWindow* record = kobal_layer::liveWindow(window);
    return record ? record->text : std::string("<no window>");
}

bool EditorDialogTest::isShown(HWND window) const {
    KobalWindow* record = kobal_layer::liveWindow(window);
    return record && record->visible;
}

RECT EditorDialogTest::rectOf(HWND window) const { return rectInParent(window); }

BandSnapshot snapshotBand(EqInstance* instance, int index) {
    MutexLock lock(instance->mutex);
    const EqBand* band = instance->band(index);
    if (!band) return BandSnapshot{-1, 0, 0, 0, 0, false};
    return BandSnapshot{band->type,    band->frequency, band->gain,
                        band->bandwidth, band->enabled, band->logScaleAutomation != 0};
}
