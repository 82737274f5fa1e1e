#include "host/ui/dialog_controls.h"

#include <cstring>

#include "host/ui/control_classes.h"

namespace kobal_layer {
namespace {

struct MarkerKind {
    const char* marker;
    const char* className;
    uint32_t addedStyle;
};

// Labels take their alignment from the record instead (see labelStyle).
constexpr MarkerKind kMarkerKinds[] = {
    {kMarkerLabel, kStaticClassName, 0},
    {kMarkerEdit, kEditClassName, 0},
    {kMarkerCombo, kComboClassName, 0},
    {kMarkerGroup, kButtonClassName, BS_GROUPBOX},
    {kMarkerButton, kButtonClassName, BS_PUSHBUTTON},
};

const MarkerKind* markerKindOf(const char* text) {
    if (!text) return nullptr;
    for (const MarkerKind& kind : kMarkerKinds)
        if (std::strcmp(text, kind.marker) == 0) return &kind;
    return nullptr;
}

// Alignment −1 is left, 0 centred, 1 right (the LTEXT / CTEXT / RTEXT trio).
uint32_t labelStyle(int alignment) {
    if (alignment < 0) return SS_LEFT;
    return alignment == 0 ? SS_CENTER : SS_RIGHT;
}

std::string textOf(const char* text) { return text ? text : ""; }

}  // namespace

ControlPlacement readControlRecord(const ControlRecord& record) {
    ControlPlacement placement;
    placement.x = record.x;
    placement.y = record.y;
    placement.width = record.width;
    placement.height = record.height;
    const MarkerKind* kind = markerKindOf(record.textOrMarker);
    if (!kind) {
        placement.className = textOf(record.classNameOrText);
        placement.text = textOf(record.textOrMarker);
        placement.id = record.idOrAlignment;
        placement.style = record.styleOrId;
        return placement;
    }
    placement.className = kind->className;
    placement.text = textOf(record.classNameOrText);
    placement.id = static_cast<int>(record.styleOrId);
    placement.style = record.extendedStyleOrStyle | kind->addedStyle;
    if (std::strcmp(kind->marker, kMarkerLabel) == 0)
        placement.style = (placement.style & ~SS_TYPEMASK) | labelStyle(record.idOrAlignment);
    return placement;
}

HWND createDialogControl(HWND parent, const ControlPlacement& placement, const RECT& rect) {
    return createControl(parent, placement.className.c_str(), placement.text.c_str(), placement.id,
                         placement.style, rect);
}

}  // namespace kobal_layer
