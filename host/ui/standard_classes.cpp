// The table of window classes the layer implements itself.
#include "host/ui/button.h"
#include "host/ui/combo_box.h"
#include "host/ui/control_classes.h"
#include "host/ui/edit_box.h"
#include "host/ui/fader.h"
#include "host/ui/static_control.h"
#include "host/ui/tab_control.h"

namespace kobal_layer {

const ControlClass* const* standardClasses(int* count) {
    static const ControlClass* const classes[] = {
        &kButtonClass,     &kStaticClass,          &kEditClass,          &kComboClass,
        &kTabControlClass, &kHorizontalFaderClass, &kVerticalFaderClass,
    };
    *count = static_cast<int>(sizeof(classes) / sizeof(classes[0]));
    return classes;
}

}  // namespace kobal_layer
