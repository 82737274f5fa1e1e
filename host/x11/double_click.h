// Tells a double click from two single ones, as Win32 does: the second
// left press counts as a double click when it comes within the layer's
// double-click time of the first and near its point. A third press starts
// over.
#pragma once

#include <cstdint>

#include "contracts/kobal.h"

namespace x11_front {

class DoubleClickDetector {
public:
    // Called for every left press with its time in milliseconds (a wrapping
    // server clock) and its point; true when it completes a double click.
    bool isDoubleClick(uint32_t timeMs, POINT point);
    // Any other press (right button) breaks the pair.
    void forget() { pending_ = false; }

private:
    bool pending_ = false;
    uint32_t firstTimeMs_ = 0;
    POINT firstPoint_{};
};

}  // namespace x11_front
