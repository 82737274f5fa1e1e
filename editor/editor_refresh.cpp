#include "editor/editor_refresh.h"

#include "editor/band_tabs.h"
#include "editor/editor_controls.h"
#include "editor/output_gain_display.h"
#include "plugin/eq_instance.h"
#include "plugin/ui_layer.h"

namespace {

// Space between the graph and the button row when the tabs are hidden.
constexpr int kGraphGapAboveButtons = 4;

// A state with fewer bands than the selected band's number leaves the last
// band selected, and the panel shows it.
void keepSelectionInList(EqInstance* instance) {
    const int32_t last = instance->bandCount() - 1;
    if (last < 0 || (instance->selectedBand >= 0 && instance->selectedBand <= last)) return;
    instance->selectedBand = instance->selectedBand < 0 ? 0 : last;
    instance->dirtyFlags |= kDirtyResponseView | kDirtyBandPanel;
}

void refreshTabs(EqInstance* instance, HWND editor) {
    keepSelectionInList(instance);
    HWND tabs = kobal::GetDlgItem(editor, kBandTabs);
    HWND panel = instance->bandPanelWindow;
    if (matchTabsToBands(tabs, instance->bandCount()) && panel && instance->showTabs) {
        kobal::ShowWindow(panel, SW_HIDE);
        kobal::ShowWindow(panel, SW_SHOW);
    }
    kobal::TabCtrl_SetCurSel(tabs, instance->selectedBand);
}

UINT checkState(bool on) { return on ? BST_CHECKED : BST_UNCHECKED; }

void refreshCheckBoxes(EqInstance* instance, HWND editor) {
    kobal::CheckDlgButton(editor, kShowGridBox, checkState(instance->showGrid != 0));
    kobal::CheckDlgButton(editor, kShowTabsBox, checkState(instance->showTabs != 0));
    kobal::CheckDlgButton(editor, kShowPhaseBox,
                          checkState((instance->viewFlags & kViewShowPhase) != 0));
}

}  // namespace

void refreshEditor(EqInstance* instance, HWND editor) {
    refreshTabs(instance, editor);
    showOutputGain(instance, kGainTextFormat);
    refreshCheckBoxes(instance, editor);
    applyShowTabsLayout(instance, editor, instance->showTabs != 0);
}

void applyShowTabsLayout(EqInstance* instance, HWND editor, bool show) {
    LayoutSizer& sizer = instance->editorSizer;
    SizerItem* graph = sizer.findItem(kResponseViewControl);
    SizerItem* tabs = sizer.findItem(kBandTabs);
    SizerItem* removeButton = sizer.findItem(kRemoveBandButton);
    if (!graph || !tabs || !removeButton) return;
    graph->origRect = graph->addedRect;
    if (!show) graph->origRect.bottom = removeButton->origRect.top - kGraphGapAboveButtons;
    const int command = show ? SW_SHOW : SW_HIDE;
    kobal::ShowWindow(kobal::GetDlgItem(editor, kBandTabs), command);
    if (instance->bandPanelWindow) kobal::ShowWindow(instance->bandPanelWindow, command);
    sizer.applyLayout(nullptr, false, 0, 0);
}
