#include "plugin/band_value_requests.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

#include "editor/output_gain_display.h"
#include "engine/band_list.h"
#include "plugin/band_address.h"
#include "plugin/eq_instance.h"
#include "plugin/host_imports.h"
#include "plugin/host_notices.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"

namespace {

constexpr int kTabStrip = 1026;

double defaultFrequencyOf(int32_t type) {
    switch (type) {
        case LowShelf: return 100.0;
        case HighShelf: return 5000.0;
        case LowPass: return 250.0;
        case HighPass: return 4000.0;
        default: return 1000.0;
    }
}

void markEditorDirty(EqInstance* instance) {
    if (instance->editorWindow.load()) instance->dirtyFlags |= kDirtyResponseView | kDirtyBandPanel;
}

void showNewBandTab(EqInstance* instance) {
    HWND editor = instance->editorWindow.load();
    if (!editor) return;
    HWND tabs = kobal::GetDlgItem(editor, kTabStrip);
    char text[16];
    std::snprintf(text, sizeof text, "%d", instance->selectedBand + 1);
    TCITEM item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    kobal::TabCtrl_InsertItem(tabs, instance->selectedBand, &item);
    kobal::TabCtrl_SetCurSel(tabs, instance->selectedBand);
    kobal::InvalidateRect(instance->bandPanelWindow, nullptr, 1);
}

bool appendNewBand(EqInstance* instance, int32_t type) {
    MutexLock lock(instance->mutex);
    EqBand* band = createDesignedBand(type, defaultFrequencyOf(type), 1.0, 2.0, instance->sampleRate);
    if (!band || !appendBand(instance, band)) return false;
    instance->selectedBand = instance->bandCount() - 1;
    instance->updateParameterCount();
    return true;
}

// Creates bands of `type` until there are ordinal + 1 of them, each with its
// own tab and parameter-list notice so the host and the tab strip stay in step
// with the band list; the last one created ends up selected.
void createMissingBands(EqInstance* instance, int32_t type, int32_t existing, int32_t ordinal) {
    for (int32_t rank = existing; rank <= ordinal; ++rank) {
        if (!appendNewBand(instance, type)) break;
        showNewBandTab(instance);
        notifyParamListChanged(instance, instance->effect.numParams - 3, 3);
    }
    notifyHostChanged(instance);
}

// Selects the ordinal-th band of `type`, creating it when missing; false when
// there is no band to work on.
bool selectAddressedBand(EqInstance* instance, int32_t type, int32_t ordinal) {
    int32_t existing = 0;
    int32_t index = findBandOfType(instance, type, ordinal, &existing);
    if (index >= 0) {
        instance->selectedBand = index;
        return true;
    }
    createMissingBands(instance, type, existing, ordinal);
    return instance->bandCount() > 0;
}

void setOutputGain(EqInstance* instance, bool normalized, double v) {
    if (normalized) v = std::exp(hostExtensions.slider2Db(v * 1000.0) * kDbToLog);
    {
        MutexLock lock(instance->mutex);
        instance->outputGain = v;
    }
    showOutputGain(instance, kSignedGainTextFormat);
    notifyHostChanged(instance);
}

// The generic-EQ interface reads a normalized frequency on the band's own
// scale, dividing by 1/ln 401 where the automation path multiplies by ln 401.
double frequencyFromHostValue(const EqBand& band, double v) {
    if (!band.logScaleAutomation) return v * 24000.0;
    return (std::exp(v / kInverseLn401) - 1.0) * 23980.0 * 0.0025 + 20.0;
}

double gainFromNormalized(double v) { return v < 0.5 ? 2.0 * v : (v - 0.5) * 2.0 * 3.0 + 1.0; }

double normalizedOfGain(double x) { return x < 1.0 ? 0.5 * x : (x - 1.0) * 0.5 / 3.0 + 0.5; }

struct DesignValues {
    double frequency, gain, bandwidth;
};

void replaceValue(const EqBand& band, DesignValues& values, int32_t parameter, bool normalized,
                  double v) {
    switch (parameter) {
        case FrequencyField:
            if (normalized) v = frequencyFromHostValue(band, v);
            values.frequency = std::clamp(v, 20.0, 24000.0);
            break;
        case GainField:
            values.gain = std::clamp(normalized ? gainFromNormalized(v) : v, 0.0, 64.0);
            break;
        case BandwidthField:
            values.bandwidth = std::clamp(normalized ? 4.0 * v : v, 0.0, 4.0);
            break;
        default: break;
    }
}

double normalizedForHost(const EqBand& band, int32_t field) {
    switch (field) {
        case FrequencyField: return logFrequencyToNormalized(band.frequency);
        case GainField: return normalizedOfGain(band.gain);
        default: return 0.25 * band.bandwidth;
    }
}

}  // namespace

void setBandValue(EqInstance* instance, int32_t type, int32_t ordinal, int32_t parameter,
                  bool normalized, float value) {
    if (type < 0) {
        setOutputGain(instance, normalized, value);
        return;
    }
    if (!selectAddressedBand(instance, type, ordinal)) return;
    EqBand* band = instance->band(instance->selectedBand);
    if (!band) return;
    DesignValues values{band->frequency, band->gain, band->bandwidth};
    replaceValue(*band, values, parameter, normalized, value);
    {
        MutexLock lock(instance->mutex);
        designBand(band, band->type, false, values.frequency, values.gain, values.bandwidth);
    }
    reportParameter(instance, kParametersPerBand * instance->selectedBand + parameter, false);
    markEditorDirty(instance);
}

void setBandEnabled(EqInstance* instance, int32_t type, int32_t ordinal, bool enable) {
    if (type < 0) return;
    int32_t index = findBandOfType(instance, type, ordinal);
    if (index < 0 && !enable) return;
    if (index >= 0) {
        instance->selectedBand = index;
    } else if (!selectAddressedBand(instance, type, ordinal)) {
        return;
    }
    if (EqBand* band = instance->band(instance->selectedBand)) band->enabled = enable ? 1 : 0;
    markEditorDirty(instance);
}

int32_t describeParameter(EqInstance* instance, int32_t p, float* value) {
    if (p < 0) {
        if (value) *value = static_cast<float>(instance->outputGain);
        return kOutputGainAddressAnswer;
    }
    const EqBand* band = bandOfParameter(instance, p);
    if (!band) {
        if (value) *value = 0.0f;
        return kOutputGainAddressAnswer;
    }
    int32_t bandIndex = p / kParametersPerBand;
    int32_t field = p % kParametersPerBand;
    if (value) *value = static_cast<float>(normalizedForHost(*band, field));
    return encodeBandAddress(band->type, rankOfBand(instance, bandIndex), field);
}

float bandEnabledValue(EqInstance* instance, int32_t type, int32_t ordinal) {
    const EqBand* band = instance->band(findBandOfType(instance, type, ordinal));
    return band && band->enabled ? 1.0f : 0.0f;
}
