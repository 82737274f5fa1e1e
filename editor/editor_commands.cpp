#include "editor/editor_commands.h"

#include <algorithm>
#include <iterator>

#include "editor/band_list_editing.h"
#include "editor/editor_controls.h"
#include "editor/editor_messages.h"
#include "editor/editor_refresh.h"
#include "editor/output_gain_display.h"
#include "editor/ui_update_depth.h"
#include "engine/audio_processing.h"
#include "engine/default_bands.h"
#include "plugin/eq_instance.h"
#include "plugin/host_notices.h"
#include "plugin/ui_layer.h"

namespace {

// A band added with the button sits here, flat.
constexpr double kNewBandFrequency = 700.0;
constexpr double kNewBandGain = 1.0;

void redrawGraph(HWND editor) {
    kobal::InvalidateRect(kobal::GetDlgItem(editor, kResponseViewControl), nullptr, 1);
}

// After a view switch: the graph redraws and the host hears of the change.
void finishViewChange(EqInstance* instance, HWND editor) {
    redrawGraph(editor);
    notifyHostChanged(instance);
}

bool isChecked(HWND editor, int id) { return kobal::IsDlgButtonChecked(editor, id) != 0; }

void typedGain(EqInstance* instance, HWND editor, UINT code) {
    if (code != EN_CHANGE || uiUpdateDepth != 0) return;
    takeTypedOutputGain(instance, editor);
    notifyHostChanged(instance);
}

void addBandButton(EqInstance* instance, HWND editor, UINT) {
    endEditGesture(instance, false);
    addBand(instance, editor, kNewBandFrequency, kNewBandGain);
}

void removeBandButton(EqInstance* instance, HWND editor, UINT) {
    endEditGesture(instance, false);
    removeBand(instance, editor);
}

void resetDefaultsButton(EqInstance* instance, HWND editor, UINT) {
    endEditGesture(instance, false);
    const int32_t oldCount = instance->effect.numParams;
    loadDefaultBands(instance);
    const int32_t newCount = instance->effect.numParams;
    if (newCount != oldCount)
        notifyParamListChanged(instance, std::min(oldCount, newCount), newCount - oldCount);
    instance->selectedBand = 0;
    kobal::SendMessage(editor, WM_REFRESH_EDITOR, 0, 0);
    redrawGraph(editor);
    kobal::TabCtrl_SetCurSel(kobal::GetDlgItem(editor, kBandTabs), 0);
    resetBandStates(instance);
    // The panel shows band 1 as it now is before any other input arrives.
    if (instance->bandPanelWindow)
        kobal::SendMessage(instance->bandPanelWindow, WM_REFRESH_BANDPANEL, 0, 0);
    showBandListChange(instance);
}

void showGridBox(EqInstance* instance, HWND editor, UINT) {
    instance->showGrid = kobal::IsDlgButtonChecked(editor, kShowGridBox);
    finishViewChange(instance, editor);
}

void showPhaseBox(EqInstance* instance, HWND editor, UINT) {
    if (isChecked(editor, kShowPhaseBox)) {
        instance->viewFlags |= kViewShowPhase;
    } else {
        instance->viewFlags &= ~kViewShowPhase;
    }
    finishViewChange(instance, editor);
}

void showTabsBox(EqInstance* instance, HWND editor, UINT) {
    if (isChecked(editor, kShowTabsBox) == (instance->showTabs != 0)) return;
    instance->showTabs = instance->showTabs ? 0 : 1;
    applyShowTabsLayout(instance, editor, instance->showTabs != 0);
    finishViewChange(instance, editor);
}

struct EditorCommand {
    int id;
    void (*handle)(EqInstance* instance, HWND editor, UINT code);
};

constexpr EditorCommand kEditorCommands[] = {
    {kOutputGainEdit, typedGain},          {kAddBandButton, addBandButton},
    {kRemoveBandButton, removeBandButton}, {kResetDefaultsButton, resetDefaultsButton},
    {kShowGridBox, showGridBox},           {kShowPhaseBox, showPhaseBox},
    {kShowTabsBox, showTabsBox},
};

}  // namespace

void handleEditorCommand(EqInstance* instance, HWND editor, int id, UINT code) {
    const auto* command = std::find_if(std::begin(kEditorCommands), std::end(kEditorCommands),
                                       [id](const EditorCommand& entry) { return entry.id == id; });
    if (command != std::end(kEditorCommands)) command->handle(instance, editor, code);
}
