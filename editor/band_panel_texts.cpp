#include "editor/band_panel_texts.h"

#include <cstdio>

#include "editor/band_panel_controls.h"
#include "editor/gain_scale.h"
#include "editor/ui_update_depth.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"

namespace {

constexpr int kTextSize = 512;
constexpr double kGainCeiling = 64.0;
constexpr double kGainCeilingDb = 36.12359947967774;  // 20 log10 64

void formatBandGain(double gain, GainTextCeiling ceiling, char* text) {
    if (ceiling == GainTextCeiling::shown && gain >= kGainCeiling) {
        std::snprintf(text, kTextSize, "%0.1f", kGainCeilingDb);
    } else {
        formatGainText(gain, "%0.1f", text, kTextSize);
    }
}

void showText(HWND panel, int editId, int faderId, const char* text, LPARAM keptBox) {
    if (editId != keptBox) kobal::SetDlgItemText(panel, editId, text);
    kobal::SendMessage(kobal::GetDlgItem(panel, faderId), FADER_SETTEXT, 2,
                       reinterpret_cast<LPARAM>(text));
}

}  // namespace

void showBandTexts(HWND panel, const BandValues& values, LPARAM keptBox,
                   GainTextCeiling ceiling) {
    UiUpdateScope updating;
    char text[kTextSize];
    std::snprintf(text, sizeof text, "%.1f", values.frequency);
    showText(panel, kFrequencyEdit, kFrequencyFader, text, keptBox);
    char note[16];
    noteName(note, values.frequency);
    kobal::SetDlgItemText(panel, kNoteNameBox, note);
    formatBandGain(values.gain, ceiling, text);
    showText(panel, kGainEdit, kGainFader, text, keptBox);
    std::snprintf(text, sizeof text, "%0.2f", values.bandwidth);
    showText(panel, kBandwidthEdit, kBandwidthFader, text, keptBox);
}
