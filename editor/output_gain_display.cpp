#include "editor/output_gain_display.h"

#include <cstdio>

#include "editor/ui_update_depth.h"
#include "plugin/eq_instance.h"
#include "plugin/host_imports.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"

int uiUpdateDepth = 0;

double displayDb(double gain) {
    return gain < 2.9802322387695312e-08 ? -150.0 : ampToDb(gain);
}

void formatOutputGain(double gain, const char* dbFormat, char* text, size_t size) {
    if (gain <= 1e-6) {
        std::snprintf(text, size, "-inf");
    } else {
        std::snprintf(text, size, dbFormat, displayDb(gain));
    }
}

void showOutputGain(EqInstance* instance, const char* dbFormat) {
    HWND editor = instance->editorWindow.load();
    if (!editor) return;
    double gain = instance->outputGain;
    HWND fader = kobal::GetDlgItem(editor, kOutputGainFader);
    auto position = static_cast<LPARAM>(hostExtensions.db2Slider(displayDb(gain)));
    kobal::SendMessage(fader, TBM_SETPOS, 0, position);
    char text[128];
    formatOutputGain(gain, dbFormat, text, sizeof text);
    UiUpdateScope updating;
    kobal::SetDlgItemText(editor, kOutputGainEdit, text);
    kobal::SendMessage(fader, FADER_SETTEXT, 2, reinterpret_cast<LPARAM>(text));
}
