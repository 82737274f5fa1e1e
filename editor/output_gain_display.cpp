#include "editor/output_gain_display.h"

#include "editor/gain_scale.h"
#include "editor/typed_number.h"
#include "editor/ui_update_depth.h"
#include "plugin/eq_instance.h"
#include "plugin/ui_layer.h"

namespace {

void storeOutputGain(EqInstance* instance, double gain) {
    MutexLock lock(instance->mutex);
    instance->outputGain = gain;
}

void moveFader(HWND fader, double gain) {
    kobal::SendMessage(fader, TBM_SETPOS, 0, gainFaderPosition(gain));
}

void showFaderText(HWND fader, const char* text) {
    kobal::SendMessage(fader, FADER_SETTEXT, 2, reinterpret_cast<LPARAM>(text));
}

// Writes the gain's text into the edit box and onto the fader.
void showGainText(HWND editor, HWND fader, double gain, const char* dbFormat) {
    char text[128];
    formatGainText(gain, dbFormat, text, sizeof text);
    kobal::SetDlgItemText(editor, kOutputGainEdit, text);
    showFaderText(fader, text);
}

}  // namespace

void showOutputGain(EqInstance* instance, const char* dbFormat) {
    HWND editor = instance->editorWindow.load();
    if (!editor) return;
    UiUpdateScope updating;
    HWND fader = kobal::GetDlgItem(editor, kOutputGainFader);
    moveFader(fader, instance->outputGain);
    showGainText(editor, fader, instance->outputGain, dbFormat);
}

void takeTypedOutputGain(EqInstance* instance, HWND editor) {
    char text[512];
    const double gain = gainOfDb(readTypedNumber(editor, kOutputGainEdit, text));
    storeOutputGain(instance, gain);
    HWND fader = kobal::GetDlgItem(editor, kOutputGainFader);
    moveFader(fader, gain);
    showFaderText(fader, text);
}

void takeFaderOutputGain(EqInstance* instance, HWND editor) {
    HWND fader = kobal::GetDlgItem(editor, kOutputGainFader);
    const auto position = static_cast<int>(kobal::SendMessage(fader, TBM_GETPOS, 0, 0));
    const double gain = gainOfFaderPosition(position);
    storeOutputGain(instance, gain);
    UiUpdateScope updating;
    showGainText(editor, fader, gain, kGainTextFormat);
}
