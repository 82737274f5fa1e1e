#include "editor/editor_dialog.h"

#include "contracts/mura.h"
#include "editor/band_panel.h"
#include "editor/editor_commands.h"
#include "editor/editor_controls.h"
#include "editor/editor_messages.h"
#include "editor/editor_refresh.h"
#include "editor/editor_timer.h"
#include "editor/instance_dialog.h"
#include "editor/output_gain_display.h"
#include "editor/resources.h"
#include "plugin/eq_instance.h"
#include "plugin/host_notices.h"
#include "plugin/ui_layer.h"

namespace {

// The client rectangle the editor was generated with: the sizer's reference
// and the smallest size the editor takes. One for every editor.
RECT editorMinRect{};

struct SizerEntry {
    int id;
    float left, top, right, bottom;
};

// How each control follows the dialog's size.
constexpr SizerEntry kEditorLayout[] = {
    {kEditorFrame, 0, 0, 1, 1},         {kResponseViewControl, 0, 0, 1, 1},
    {kBandTabs, 0, 1, 1, 1},            {kBandPanelPlaceholder, 0, 1, 1, 1},
    {kAddBandButton, 0, 1, 0, 1},       {kRemoveBandButton, 0, 1, 0, 1},
    {kResetDefaultsButton, 0, 1, 0, 1}, {kShowGridBox, 0, 1, 0, 1},
    {kShowTabsBox, 0, 1, 0, 1},         {kShowPhaseBox, 0, 1, 0, 1},
    {kGainLabel, 1, 0, 1, 0},           {kOutputGainFader, 1, 0, 1, 1},
    {kOutputGainEdit, 1, 1, 1, 1},
};

void registerWithSizer(EqInstance* instance, HWND editor) {
    kobal::GetClientRect(editor, &editorMinRect);
    LayoutSizer& sizer = instance->editorSizer;
    sizer.init(editor, &editorMinRect);
    for (const SizerEntry& entry : kEditorLayout)
        sizer.addItem(entry.id, entry.left, entry.top, entry.right, entry.bottom);
}

// The band panel takes the placeholder's place in every layout.
void createBandPanel(EqInstance* instance, HWND editor) {
    HWND panel = kobal::KOBAL_CreateDialog(dialogResourceList, kBandPanelResource, editor,
                                           bandPanelProcedure,
                                           reinterpret_cast<LPARAM>(instance));
    instance->bandPanelWindow = panel;
    if (SizerItem* placeholder = instance->editorSizer.findItem(kBandPanelPlaceholder))
        placeholder->window = panel;
}

void setUpGainFader(HWND editor) {
    HWND fader = kobal::GetDlgItem(editor, kOutputGainFader);
    kobal::SendMessage(fader, TBM_SETTIC, 0, -1);
    kobal::SendMessage(fader, FADER_SETTEXT, 1, reinterpret_cast<LPARAM>("Output gain"));
}

bool hasRememberedSize(const EqInstance* instance) {
    return instance->editorWidth > 0 && instance->editorHeight > 0;
}

void initializeEditor(EqInstance* instance, HWND editor) {
    registerWithSizer(instance, editor);
    instance->refreshRequested = 0;
    instance->editorWindow = editor;
    instance->dirtyFlags = 0;
    createBandPanel(instance, editor);
    setUpGainFader(editor);
    if (hasRememberedSize(instance))
        kobal::SetWindowPos(editor, nullptr, 0, 0, instance->editorWidth, instance->editorHeight,
                            SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    kobal::ShowWindow(editor, SW_SHOW);
    kobal::SetTimer(editor, kPollTimer, kPollMilliseconds, nullptr);
    refreshEditor(instance, editor);
    if (!hasRememberedSize(instance)) kobal::PostMessage(editor, WM_TIMER, kFirstSizingPass, 0);
}

void teardown(EqInstance* instance) {
    endEditGesture(instance, false);
    instance->editorWindow = nullptr;
    instance->bandPanelWindow = nullptr;  // destroyed with the editor
    delete instance->drawingBitmap;
    instance->drawingBitmap = nullptr;
    instance->editorSizer.init(nullptr, nullptr);
    instance->panelSizer.init(nullptr, nullptr);
}

void tabChosen(EqInstance* instance, const NMHDR* notice) {
    if (!notice || notice->idFrom != kBandTabs || notice->code != TCN_SELCHANGE) return;
    instance->selectedBand = kobal::TabCtrl_GetCurSel(notice->hwndFrom);
    instance->dirtyFlags |= kDirtyResponseView | kDirtyBandPanel;
}

void gainFaderMoved(EqInstance* instance, HWND editor, LPARAM fader) {
    if (reinterpret_cast<HWND>(fader) != kobal::GetDlgItem(editor, kOutputGainFader)) return;
    takeFaderOutputGain(instance, editor);
    notifyHostChanged(instance);
}

void handleEditorMessage(EqInstance* instance, HWND editor, UINT message, WPARAM wParam,
                         LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG: initializeEditor(instance, editor); break;
        case WM_REFRESH_EDITOR: refreshEditor(instance, editor); break;
        case WM_COMMAND:
            handleEditorCommand(instance, editor, static_cast<int>(wParam & 0xFFFF),
                                static_cast<UINT>((wParam >> 16) & 0xFFFF));
            break;
        case WM_VSCROLL: gainFaderMoved(instance, editor, lParam); break;
        case WM_NOTIFY: tabChosen(instance, reinterpret_cast<const NMHDR*>(lParam)); break;
        case WM_TIMER: runEditorTimer(instance, editor, wParam, editorMinRect); break;
        case WM_SIZE: instance->editorSizer.applyLayout(nullptr, false, 0, 0); break;
        case WM_LBUTTONDOWN: endEditGesture(instance, false); break;
        case WM_DESTROY: teardown(instance); break;
        default: break;
    }
}

}  // namespace

LRESULT editorDialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return dispatchToInstance(window, message, wParam, lParam, handleEditorMessage);
}

bool openEditor(EqInstance* instance, HWND parent) {
    closeEditor(instance);
    HWND dialog = kobal::KOBAL_CreateDialog(dialogResourceList, kEditorDialogResource, parent,
                                            editorDialogProcedure,
                                            reinterpret_cast<LPARAM>(instance));
    return dialog != nullptr;
}

void closeEditor(EqInstance* instance) {
    if (HWND editor = instance->editorWindow.load()) kobal::DestroyWindow(editor);
}
