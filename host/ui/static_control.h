// The "Static" class: labels (left, centred or right aligned text) and
// SS_BLACKRECT placeholders. Statics send no notifications.
#pragma once

#include "host/ui/control_classes.h"

namespace kobal_layer {

extern const ControlClass kStaticClass;

}  // namespace kobal_layer
