#include "plugin/host_notices.h"

#include "contracts/host_extensions.h"
#include "plugin/eq_instance.h"
#include "plugin/host_imports.h"
#include "plugin/ui_layer.h"

void notifyHostChanged(EqInstance* instance) {
    callHost(&instance->effect, audioMasterAutomate, -1, 0, nullptr, 0.0f);
}

void notifyParamListChanged(EqInstance* instance, int32_t first, int32_t delta) {
    ParamListChange change{first, delta};
    callHost(&instance->effect, audioMasterVendorSpecific, kHostExtensionOpcode, 0, &change, 0.0f);
}

void endEditGesture(EqInstance* instance, bool onlyIfFocusMoved) {
    if (instance->gestureParam < 0) return;
    if (onlyIfFocusMoved && instance->gestureWindow == kobal::GetFocus()) return;
    callHost(&instance->effect, audioMasterEndEdit, instance->gestureParam, 0, nullptr, 0.0f);
    instance->gestureParam = -1;
    instance->gestureWindow = nullptr;
}
