#include "view/view_selection.h"

#include "plugin/eq_instance.h"
#include "plugin/ui_layer.h"

namespace {
constexpr int kBandTabsId = 1026;
}

void selectBand(EqInstance& instance, HWND view, int index) {
    instance.selectedBand = index;
    kobal::TabCtrl_SetCurSel(kobal::GetDlgItem(kobal::GetParent(view), kBandTabsId), index);
    instance.dirtyFlags |= kDirtyResponseView | kDirtyBandPanel;
}
