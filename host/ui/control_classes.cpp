#include "host/ui/control_classes.h"

#include <strings.h>

#include "host/ui/custom_controls.h"

namespace kobal_layer {

const ControlClass* findControlClass(const char* className) {
    if (!className) return nullptr;
    int count = 0;
    const ControlClass* const* classes = standardClasses(&count);
    for (int i = 0; i < count; ++i)
        if (strcasecmp(classes[i]->name, className) == 0) return classes[i];
    return nullptr;
}

const ControlClass* controlClassOf(HWND handle) {
    KobalWindow* window = liveWindow(handle);
    return window ? findControlClass(window->className.c_str()) : nullptr;
}

bool isTransparentWindow(HWND handle) {
    const ControlClass* standard = controlClassOf(handle);
    return standard && standard->isTransparent && standard->isTransparent(handle->style);
}

HWND createControl(HWND parent, const char* className, const char* text, int id, uint32_t style,
                   const RECT& rect) {
    const ControlClass* standard = findControlClass(className);
    if (!standard) {
        HWND custom =
            createCustomControl(parent, text, id, className, static_cast<int>(style), rect);
        if (custom) return custom;
    }
    WindowCreation creation;
    creation.parent = parent;
    creation.className = className ? className : "";
    creation.text = text ? text : "";
    creation.id = id;
    creation.style = style;
    creation.rect = rect;
    creation.procedure = standard ? standard->procedure : nullptr;
    HWND window = createWindow(creation);
    if (standard && standard->makeState) window->control = standard->makeState(style);
    if (standard && standard->created) standard->created(window);
    return window;
}

}  // namespace kobal_layer
