// Dialogs built from the plug-in's resource lists. KOBAL_CreateDialog finds
// the resource by id, creates a hidden dialog window of the resource's size,
// lets the resource's create callback emit its controls (through
// KOBAL_MakeSetCurParms and KOBAL_GenerateDialogFromList), then sends
// WM_INITDIALOG with the creation parameter. Without a resource of that id it
// makes a plain hidden child window whose procedure is a window procedure.
//
// Dialogs start hidden (the plug-in shows its dialogs itself); the
// resource's window type flags are not used; the create callback gets
// creation state 0, so controls are sized with the scale.
//
// A dialog procedure answers 0 for messages it leaves to the default
// handling (SendMessage then runs DefWindowProc); a plain window's procedure
// calls DefWindowProc itself.
#pragma once

#include "contracts/kobal.h"

namespace kobal_layer {

constexpr const char* kDialogClassName = "#32770";

HWND KOBAL_CreateDialog(DialogResource* list, int resourceId, HWND parent, DLGPROC procedure,
                        LPARAM creationParameter);
// Sets where and how the next generated controls go: positions are
// multiplied by the scales; with `doOffset` the translation is added; with
// `doSize` sizes are scaled too, otherwise they stay as given.
void KOBAL_MakeSetCurParms(float xScale, float yScale, int xTranslation, int yTranslation,
                           HWND parent, bool doOffset, bool doSize);
void KOBAL_GenerateDialogFromList(const ControlRecord* list, int count);

}  // namespace kobal_layer
