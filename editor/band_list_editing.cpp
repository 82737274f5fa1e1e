#include "editor/band_list_editing.h"

#include "editor/band_tabs.h"
#include "editor/editor_controls.h"
#include "engine/band_list.h"
#include "engine/band_removal.h"
#include "plugin/eq_instance.h"
#include "plugin/host_notices.h"
#include "plugin/ui_layer.h"

namespace {

constexpr double kNewBandBandwidth = 2.0;  // octaves

// Appends the band under the lock; false, with nothing added, when out of memory.
bool appendNewBand(EqInstance* instance, double frequency, double gain) {
    MutexLock lock(instance->mutex);
    EqBand* band = createDesignedBand(Band, frequency, gain, kNewBandBandwidth,
                                      instance->sampleRate);
    return band != nullptr && appendBand(instance, band);
}

HWND bandTabs(HWND editor) { return kobal::GetDlgItem(editor, kBandTabs); }

}  // namespace

void showBandListChange(EqInstance* instance) {
    if (instance->bandPanelWindow) kobal::InvalidateRect(instance->bandPanelWindow, nullptr, 1);
    instance->dirtyFlags |= kDirtyResponseView | kDirtyBandPanel;
    notifyHostChanged(instance);
}

// A band that cannot be allocated or appended is not added at all: the list,
// the selection, the tabs and the host's parameter list stay as they were.
void addBand(EqInstance* instance, HWND editor, double frequency, double gain) {
    if (!appendNewBand(instance, frequency, gain)) return;
    instance->selectedBand = instance->bandCount() - 1;
    notifyParamListChanged(instance, instance->effect.numParams - 3, 3);
    HWND tabs = bandTabs(editor);
    insertBandTab(tabs, instance->selectedBand);
    kobal::TabCtrl_SetCurSel(tabs, instance->selectedBand);
    showBandListChange(instance);
}

void removeBand(EqInstance* instance, HWND editor) {
    const int32_t removed = instance->selectedBand;
    int32_t remaining = 0;
    {
        MutexLock lock(instance->mutex);
        const int32_t count = instance->bandCount();
        if (count <= 1 || removed < 0 || removed >= count) return;
        instance->suspendSetParameter = 1;
        removeBandAt(instance, removed);
        remaining = instance->bandCount();
    }
    notifyParamListChanged(instance, removed * 3, -3);
    instance->suspendSetParameter = 0;
    HWND tabs = bandTabs(editor);
    kobal::TabCtrl_DeleteItem(tabs, remaining);
    if (removed >= remaining) instance->selectedBand = removed - 1;
    kobal::TabCtrl_SetCurSel(tabs, instance->selectedBand);
    showBandListChange(instance);
}
