#include "host/ui/dialogs.h"

#include <cmath>

#include "host/ui/dialog_controls.h"
#include "host/ui/messages.h"
#include "host/ui/window_tree.h"

namespace kobal_layer {
namespace {

struct GenerationTarget {
    HWND parent = nullptr;
    float xScale = 1.0f;
    float yScale = 1.0f;
    int xTranslation = 0;
    int yTranslation = 0;
    bool doOffset = false;
    bool doSize = true;
};

GenerationTarget& target() {
    static GenerationTarget current;
    return current;
}

const DialogResource* findDialogResource(const DialogResource* list, int resourceId) {
    // The list links entries to earlier heads; a bound keeps a corrupt (cyclic) list finite.
    constexpr int kLongestList = 10000;
    for (int i = 0; list && i < kLongestList; ++i, list = list->next)
        if (list->resourceId == resourceId) return list;
    return nullptr;
}

int scaled(int value, float scale) { return static_cast<int>(std::lround(value * scale)); }

RECT placeRecord(const ControlPlacement& placement) {
    const GenerationTarget& now = target();
    int x = scaled(placement.x, now.xScale);
    int y = scaled(placement.y, now.yScale);
    if (now.doOffset) {
        x += now.xTranslation;
        y += now.yTranslation;
    }
    int width = now.doSize ? scaled(placement.width, now.xScale) : placement.width;
    int height = now.doSize ? scaled(placement.height, now.yScale) : placement.height;
    return RECT{x, y, x + width, y + height};
}

HWND createPlainWindow(HWND parent, WNDPROC procedure) {
    WindowCreation creation;
    creation.parent = parent;
    creation.procedure = procedure;
    creation.visible = false;
    return createWindow(creation);
}

HWND createDialogWindow(const DialogResource& resource, HWND parent, DLGPROC procedure) {
    WindowCreation creation;
    creation.parent = parent;
    creation.className = kDialogClassName;
    creation.text = resource.title ? resource.title : "";
    creation.rect = RECT{0, 0, resource.width, resource.height};
    creation.procedure = procedure;
    creation.visible = false;
    HWND dialog = createWindow(creation);
    dialog->isDialog = true;
    return dialog;
}

}  // namespace

HWND KOBAL_CreateDialog(DialogResource* list, int resourceId, HWND parent, DLGPROC procedure,
                        LPARAM creationParameter) {
    if (parent && !liveWindow(parent)) return nullptr;
    const DialogResource* resource = findDialogResource(list, resourceId);
    if (!resource) return createPlainWindow(parent, procedure);
    HWND dialog = createDialogWindow(*resource, parent, procedure);
    if (resource->create) {
        GenerationTarget saved = target();  // a create callback may build a nested dialog
        resource->create(dialog, 0);
        target() = saved;
    }
    if (liveWindow(dialog)) SendMessage(dialog, WM_INITDIALOG, 0, creationParameter);
    return liveWindow(dialog) ? dialog : nullptr;
}

void KOBAL_MakeSetCurParms(float xScale, float yScale, int xTranslation, int yTranslation,
                           HWND parent, bool doOffset, bool doSize) {
    target() =
        GenerationTarget{parent, xScale, yScale, xTranslation, yTranslation, doOffset, doSize};
}

void KOBAL_GenerateDialogFromList(const ControlRecord* list, int count) {
    HWND parent = target().parent;
    if (!list || !liveWindow(parent)) return;
    for (int i = 0; i < count; ++i) {
        ControlPlacement placement = readControlRecord(list[i]);
        createDialogControl(parent, placement, placeRecord(placement));
    }
}

}  // namespace kobal_layer
