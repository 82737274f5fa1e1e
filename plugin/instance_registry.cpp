#include "plugin/instance_registry.h"

#include "plugin/ui_layer.h"
#include "view/graph_fonts.h"
#include "view/response_view_control.h"

namespace {
int instanceCount = 0;  // touched only on the host's main thread
}

void registerInstance() {
    if (instanceCount++ == 0) kobal::KOBAL_RegisterCustomControlCreator(createResponseViewControl);
}

void unregisterInstance() {
    if (--instanceCount > 0) return;
    instanceCount = 0;
    kobal::KOBAL_UnregisterCustomControlCreator(createResponseViewControl);
    destroyGraphFonts();
}

int liveInstanceCount() { return instanceCount; }
