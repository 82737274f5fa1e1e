#include "host/x11/double_click.h"

#include <cstdlib>

#include "host/ui/input_injection.h"

namespace x11_front {

bool DoubleClickDetector::isDoubleClick(uint32_t timeMs, POINT point) {
    bool completes = pending_ && timeMs - firstTimeMs_ <= kobal_layer::kDoubleClickMs &&
                     std::abs(point.x - firstPoint_.x) <= kobal_layer::kDoubleClickDistance &&
                     std::abs(point.y - firstPoint_.y) <= kobal_layer::kDoubleClickDistance;
    pending_ = !completes;
    firstTimeMs_ = timeMs;
    firstPoint_ = point;
    return completes;
}

}  // namespace x11_front
