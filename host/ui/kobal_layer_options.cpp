#include "host/ui/kobal_layer_options.h"

namespace {
KobalLayerOptions& currentOptions() {
    static KobalLayerOptions options;
    return options;
}
}  // namespace

void setKobalLayerOptions(const KobalLayerOptions& options) { currentOptions() = options; }

const KobalLayerOptions& kobalLayerOptions() { return currentOptions(); }
