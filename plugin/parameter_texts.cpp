#include "plugin/parameter_texts.h"

#include <algorithm>
#include <cstdio>

#include "plugin/eq_instance.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"

namespace {

const char* const kFieldNames[] = {"Freq", "Gain", "Q"};
const char* const kFieldLabels[] = {"Hz", "dB", ""};

bool inParameterRange(const EqInstance* instance, int32_t index) {
    return index >= 0 && index < instance->effect.numParams;
}

void formatValue(const EqBand& band, int32_t field, char* scratch, size_t size) {
    switch (field) {
        case FrequencyField: std::snprintf(scratch, size, "%.1f", band.frequency); break;
        case GainField:
            if (band.gain <= 0.000001) {
                std::snprintf(scratch, size, "-inf");
            } else {
                std::snprintf(scratch, size, "%.1f", ampToDb(std::min(band.gain, 64.0)));
            }
            break;
        default: std::snprintf(scratch, size, "%.2f", band.bandwidth); break;
    }
}

// A band keeps its bare type name when it is the first low shelf or the last
// high shelf of the list; every other band is numbered.
bool isEdgeShelf(const EqInstance* instance, int32_t bandIndex, const EqBand& band) {
    if (bandIndex == 0 && band.type == LowShelf) return true;
    return bandIndex == instance->bandCount() - 1 && band.type == HighShelf;
}

// The band of parameter `index`; when there is none, the host's buffer gets "".
const EqBand* bandForText(EqInstance* instance, int32_t index, char* text) {
    const EqBand* band = inParameterRange(instance, index) ? bandOfParameter(instance, index) : nullptr;
    if (!band) kobal::lstrcpyn(text, "", kParameterTextLimit);
    return band;
}

}  // namespace

void copyHostText(char* destination, const char* text, int limit) {
    kobal::lstrcpyn(destination, text, limit);
}

intptr_t writeParameterLabel(EqInstance* instance, int32_t index, char* text) {
    if (!inParameterRange(instance, index)) {
        copyHostText(text, "", kParameterTextLimit);
        return 0;
    }
    copyHostText(text, kFieldLabels[index % kParametersPerBand], kParameterTextLimit);
    return 1;
}

intptr_t writeParameterDisplay(EqInstance* instance, int32_t index, char* text) {
    const EqBand* band = bandForText(instance, index, text);
    if (!band) return 0;
    char scratch[512];
    formatValue(*band, index % kParametersPerBand, scratch, sizeof scratch);
    copyHostText(text, scratch, kParameterTextLimit);
    return 1;
}

intptr_t writeParameterName(EqInstance* instance, int32_t index, char* text) {
    const EqBand* band = bandForText(instance, index, text);
    if (!band) return 0;
    int32_t bandIndex = index / kParametersPerBand;
    const char* field = kFieldNames[index % kParametersPerBand];
    const char* type = bandTypeName(band->type);
    char scratch[512];
    if (isEdgeShelf(instance, bandIndex, *band)) {
        std::snprintf(scratch, sizeof scratch, "%s-%s", field, type);
    } else {
        std::snprintf(scratch, sizeof scratch, "%s-%s %d", field, type, bandIndex + 1);
    }
    copyHostText(text, scratch, kParameterTextLimit);
    return 1;
}
