// What the editor's buttons, check boxes and gain box do.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

// WM_COMMAND from control `id` with notification `code`; other ids are ignored.
void handleEditorCommand(EqInstance* instance, HWND editor, int id, UINT code);
