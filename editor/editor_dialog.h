// The editor: a child dialog of the host's window, built from the editor
// dialog resource.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

// Opens the editor in `parent`, closing a still-open one first; false when
// the windowing layer made no dialog.
bool openEditor(EqInstance* instance, HWND parent);
void closeEditor(EqInstance* instance);

LRESULT editorDialogProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
