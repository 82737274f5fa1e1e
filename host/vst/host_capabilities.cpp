#include "host/vst/host_capabilities.h"

#include <algorithm>
#include <iterator>

namespace {

// The host suspends an effect (effMainsChanged 0) before it stops processing
// and resumes it before it starts; it sends no events, time info or idle calls.
constexpr const char* kHostCapabilities[] = {
    "startStopProcess",
};

}  // namespace

intptr_t hostCanDo(const std::string& capability) {
    auto found = std::find(std::begin(kHostCapabilities), std::end(kHostCapabilities), capability);
    return found != std::end(kHostCapabilities) ? 1 : 0;
}
