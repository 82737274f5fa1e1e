#include "editor/ui_update_depth.h"

int uiUpdateDepth = 0;
