// Bringing the editor's controls in line with the instance, and the layout
// with and without the tab strip.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

// Tabs, current tab, output gain, check boxes and the show-tabs layout.
void refreshEditor(EqInstance* instance, HWND editor);
// Shows or hides the tab strip and the band panel; without them the graph
// reaches down to just above the button row.
void applyShowTabsLayout(EqInstance* instance, HWND editor, bool show);
