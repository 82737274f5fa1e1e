#include "host/extensions/extension_table.h"

#include <cstring>

#include "host/extensions/config_variables.h"
#include "host/extensions/fader_curve.h"
#include "host/extensions/real_fft.h"
#include "host/extensions/tooltip_window.h"
#include "host/raster/mura_functions.h"

namespace {

template <typename Function>
void* address(Function* function) {
    return reinterpret_cast<void*>(function);
}

struct NamedExtension {
    const char* name;
    void* function;
};

const NamedExtension kOwnExtensions[] = {
    {"DB2SLIDER", address(&faderPositionOfDb)},
    {"SLIDER2DB", address(&dbOfFaderPosition)},
    {"GetTooltipWindow", address(&getTooltipWindow)},
    {"QIT_fft_real_8", address(&fftReal8)},
    {"QIT_fft_permute", address(&fftPermute)},
    {"get_config_var", address(&findConfigVariable)},
};

}  // namespace

void* findHostExtension(const char* name) {
    if (!name) return nullptr;
    for (const NamedExtension& extension : kOwnExtensions)
        if (std::strcmp(extension.name, name) == 0) return extension.function;
    return findMuraFunction(name);
}
