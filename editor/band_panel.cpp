#include "editor/band_panel.h"

#include "editor/band_fader_scale.h"
#include "editor/band_panel_controls.h"
#include "editor/band_panel_texts.h"
#include "editor/band_type_list.h"
#include "editor/editor_controls.h"
#include "editor/editor_messages.h"
#include "editor/gain_scale.h"
#include "editor/instance_dialog.h"
#include "editor/typed_number.h"
#include "editor/ui_update_depth.h"
#include "plugin/eq_instance.h"
#include "plugin/host_notices.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"

namespace {

constexpr int kNoField = -1;
constexpr LPARAM kNoKeptBox = 0;
constexpr LONG_PTR kFrequencyFaderStyle = 3;

LPARAM faderRange(int minimum, int maximum) {
    return static_cast<LPARAM>(minimum) | (static_cast<LPARAM>(maximum) << 16);
}

EqBand* selectedBandOf(EqInstance* instance) { return instance->band(instance->selectedBand); }

BandValues valuesOf(EqInstance* instance, const EqBand& band) {
    MutexLock lock(instance->mutex);
    return BandValues{band.frequency, band.gain, band.bandwidth};
}

int parameterOf(EqInstance* instance, int field) {
    return instance->selectedBand * kParametersPerBand + field;
}

HWND itemOf(HWND panel, int id) { return kobal::GetDlgItem(panel, id); }

void redrawGraph(HWND panel) {
    kobal::InvalidateRect(kobal::GetDlgItem(kobal::GetParent(panel), kResponseViewControl),
                          nullptr, 1);
}

void setFader(HWND panel, int id, WPARAM redraw, int position) {
    kobal::SendMessage(itemOf(panel, id), TBM_SETPOS, redraw, position);
}

int faderPosition(HWND panel, int id) {
    return static_cast<int>(kobal::SendMessage(itemOf(panel, id), TBM_GETPOS, 0, 0));
}

// ---- set-up ----------------------------------------------------------------------

void registerWithSizer(EqInstance* instance, HWND panel) {
    LayoutSizer& sizer = instance->panelSizer;
    sizer.init(panel, nullptr);
    for (int fader : {kFrequencyFader, kGainFader, kBandwidthFader})
        sizer.addItem(fader, 0.0f, 0.0f, 1.0f, 0.0f);
    for (int box : {kFrequencyEdit, kGainEdit, kBandwidthEdit, kNoteNameBox})
        sizer.addItem(box, 1.0f, 0.0f, 1.0f, 0.0f);
}

void fillTypeList(HWND panel) {
    HWND list = itemOf(panel, kBandTypeList);
    for (int index = 0;; ++index) {
        const char* name = bandTypeName(bandTypeOfListIndex(index));
        if (name[0] == '\0') break;
        kobal::SendMessage(list, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name));
    }
    kobal::SendMessage(list, CB_SETCURSEL, listIndexOfBandType(Band), 0);
}

void nameFader(HWND panel, int id, const char* name) {
    kobal::SendMessage(itemOf(panel, id), FADER_SETTEXT, 1, reinterpret_cast<LPARAM>(name));
}

void setUpFaders(HWND panel) {
    kobal::SendMessage(itemOf(panel, kFrequencyFader), TBM_SETRANGE, 0,
                       faderRange(0, kFrequencyFaderTop));
    nameFader(panel, kFrequencyFader, "Band frequency");
    kobal::SendMessage(itemOf(panel, kGainFader), TBM_SETTIC, 0, -1);
    nameFader(panel, kGainFader, "Band gain");
    HWND bandwidth = itemOf(panel, kBandwidthFader);
    kobal::SendMessage(bandwidth, TBM_SETRANGE, 0,
                       faderRange(kBandwidthFaderBottom, kBandwidthFaderTop));
    kobal::SendMessage(bandwidth, TBM_SETTIC, 0, kBandwidthFaderCentre);
    nameFader(panel, kBandwidthFader, "Band width");
}

void refreshPanel(EqInstance* instance, HWND panel, LPARAM keptBox);

void initializePanel(EqInstance* instance, HWND panel) {
    registerWithSizer(instance, panel);
    fillTypeList(panel);
    setUpFaders(panel);
    kobal::SetDlgItemText(panel, kPanelMessageLabel, "");
    kobal::SetWindowLong(itemOf(panel, kFrequencyFader), 0, kFrequencyFaderStyle);
    kobal::ShowWindow(panel, SW_SHOW);
    refreshPanel(instance, panel, kNoKeptBox);
}

// ---- showing the band ------------------------------------------------------------

void refreshPanel(EqInstance* instance, HWND panel, LPARAM keptBox) {
    EqBand* band = selectedBandOf(instance);
    if (!band) return;
    HWND list = itemOf(panel, kBandTypeList);
    const int listIndex = listIndexOfBandType(band->type);
    if (kobal::SendMessage(list, CB_GETCURSEL, 0, 0) != listIndex)
        kobal::SendMessage(list, CB_SETCURSEL, listIndex, 0);
    const BandValues values = valuesOf(instance, *band);
    setFader(panel, kFrequencyFader, 1, frequencyFaderPosition(values.frequency));
    setFader(panel, kGainFader, 0, gainFaderPosition(values.gain));
    setFader(panel, kBandwidthFader, 1, bandwidthFaderPosition(values.bandwidth));
    kobal::CheckDlgButton(panel, kEnabledBox, band->enabled ? BST_CHECKED : BST_UNCHECKED);
    kobal::CheckDlgButton(panel, kLogScaleAutomationBox,
                          band->logScaleAutomation ? BST_CHECKED : BST_UNCHECKED);
    showBandTexts(panel, values, keptBox, GainTextCeiling::shown);
}

// ---- faders and the type list ----------------------------------------------------

// Reads the fader that moved into `values`; the parameter field it stands
// for, or kNoField.
int readMovedFader(HWND panel, LPARAM fader, BandValues& values) {
    const HWND moved = reinterpret_cast<HWND>(fader);
    if (moved == nullptr) return kNoField;
    if (moved == itemOf(panel, kFrequencyFader)) {
        values.frequency = frequencyOfFaderPosition(faderPosition(panel, kFrequencyFader));
        return FrequencyField;
    }
    if (moved == itemOf(panel, kGainFader)) {
        values.gain = gainOfFaderPosition(faderPosition(panel, kGainFader));
        return GainField;
    }
    if (moved == itemOf(panel, kBandwidthFader)) {
        values.bandwidth = bandwidthOfFaderPosition(faderPosition(panel, kBandwidthFader));
        return BandwidthField;
    }
    return kNoField;
}

void applyPanel(EqInstance* instance, HWND panel, WPARAM wParam, LPARAM lParam) {
    EqBand* band = selectedBandOf(instance);
    if (!band) return;
    const auto listIndex = static_cast<int>(
        kobal::SendMessage(itemOf(panel, kBandTypeList), CB_GETCURSEL, 0, 0));
    const int32_t type = bandTypeOfListIndex(listIndex);
    BandValues values = valuesOf(instance, *band);
    const int field = readMovedFader(panel, lParam, values);
    {
        MutexLock lock(instance->mutex);
        designBand(band, type, false, values.frequency, values.gain, values.bandwidth);
    }
    if (field != kNoField) {
        const bool endOfTracking = (wParam & 0xFFFF) == SB_ENDSCROLL;
        reportParameter(instance, parameterOf(instance, field), endOfTracking);
    }
    showBandTexts(panel, values, kNoKeptBox, GainTextCeiling::ignored);
    redrawGraph(panel);
}

// ---- commands --------------------------------------------------------------------

void chooseType(EqInstance* instance, HWND panel, UINT code) {
    if (code != CBN_SELCHANGE) return;
    kobal::SendMessage(panel, WM_APPLY_BANDPANEL, 0, 0);
    reportParameter(instance, -1, false);
}

void switchEnabled(EqInstance* instance, HWND panel, UINT) {
    EqBand* band = selectedBandOf(instance);
    if (!band) return;
    MutexLock lock(instance->mutex);
    band->enabled = kobal::IsDlgButtonChecked(panel, kEnabledBox);
    redrawGraph(panel);
    reportParameter(instance, -1, false);
}

void switchLogScaleAutomation(EqInstance* instance, HWND panel, UINT) {
    EqBand* band = selectedBandOf(instance);
    if (!band) return;
    band->logScaleAutomation = kobal::IsDlgButtonChecked(panel, kLogScaleAutomationBox) != 0;
    reportParameter(instance, -1, false);
}

// The typed value, read as the box's unit, replaces the field in `values`.
void takeTypedValue(HWND panel, int field, BandValues& values) {
    static constexpr int kBoxOfField[] = {kFrequencyEdit, kGainEdit, kBandwidthEdit};
    char text[512];
    const double typed = readTypedNumber(panel, kBoxOfField[field], text);
    switch (field) {
        case FrequencyField: values.frequency = typed; break;
        case GainField: values.gain = gainOfDb(typed); break;
        default: values.bandwidth = typed; break;
    }
}

void typeValue(EqInstance* instance, HWND panel, int box, int field, UINT code) {
    if (code != EN_CHANGE || uiUpdateDepth != 0) return;
    EqBand* band = selectedBandOf(instance);
    if (!band) return;
    BandValues values = valuesOf(instance, *band);
    takeTypedValue(panel, field, values);
    {
        MutexLock lock(instance->mutex);
        designBand(band, band->type, false, values.frequency, values.gain, values.bandwidth);
    }
    touchParameter(instance, parameterOf(instance, field));
    if (instance->bandPanelWindow) {
        instance->dirtyFlags = kDirtyResponseView;
        kobal::SendMessage(instance->bandPanelWindow, WM_REFRESH_BANDPANEL, 0, box);
    }
    instance->dirtyFlags |= kDirtyResponseView;
}

void handlePanelCommand(EqInstance* instance, HWND panel, int id, UINT code) {
    switch (id) {
        case kBandTypeList: chooseType(instance, panel, code); break;
        case kEnabledBox: switchEnabled(instance, panel, code); break;
        case kLogScaleAutomationBox: switchLogScaleAutomation(instance, panel, code); break;
        case kFrequencyEdit: typeValue(instance, panel, id, FrequencyField, code); break;
        case kGainEdit: typeValue(instance, panel, id, GainField, code); break;
        case kBandwidthEdit: typeValue(instance, panel, id, BandwidthField, code); break;
        default: break;
    }
}

void handlePanelMessage(EqInstance* instance, HWND panel, UINT message, WPARAM wParam,
                        LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG: initializePanel(instance, panel); break;
        case WM_COMMAND:
            handlePanelCommand(instance, panel, static_cast<int>(wParam & 0xFFFF),
                               static_cast<UINT>((wParam >> 16) & 0xFFFF));
            break;
        case WM_HSCROLL:
        case WM_VSCROLL: kobal::SendMessage(panel, WM_APPLY_BANDPANEL, wParam, lParam); break;
        case WM_APPLY_BANDPANEL: applyPanel(instance, panel, wParam, lParam); break;
        case WM_REFRESH_BANDPANEL: refreshPanel(instance, panel, lParam); break;
        case WM_SIZE: instance->panelSizer.applyLayout(nullptr, false, 0, 0); break;
        case WM_LBUTTONDOWN: endEditGesture(instance, false); break;
        default: break;
    }
}

}  // namespace

LRESULT bandPanelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return dispatchToInstance(window, message, wParam, lParam, handlePanelMessage);
}
