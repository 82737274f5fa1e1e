#include "editor/band_tabs.h"

#include <cstdio>

#include "plugin/ui_layer.h"

void insertBandTab(HWND tabs, int index) {
    char text[16];
    std::snprintf(text, sizeof text, "%d", index + 1);
    TCITEM item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    kobal::TabCtrl_InsertItem(tabs, index, &item);
}

bool matchTabsToBands(HWND tabs, int bandCount) {
    bool changed = false;
    for (int count = kobal::TabCtrl_GetItemCount(tabs); count > bandCount; --count) {
        kobal::TabCtrl_DeleteItem(tabs, bandCount);
        changed = true;
    }
    for (int count = kobal::TabCtrl_GetItemCount(tabs); count < bandCount; ++count) {
        insertBandTab(tabs, count);
        changed = true;
    }
    return changed;
}
