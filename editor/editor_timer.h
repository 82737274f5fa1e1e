// The editor's timer pass: closes edit gestures once the focus moved on,
// keeps the dialog sized to its parent and turns the flags that other code
// sets into refreshes and redraws.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

// `timerId` is the poll timer, or the single sizing pass posted at opening.
// `minimumSize` is the smallest client rectangle the editor may have.
void runEditorTimer(EqInstance* instance, HWND editor, WPARAM timerId, const RECT& minimumSize);
