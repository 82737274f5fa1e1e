#include "view/context_menu.h"

#include <cmath>

#include "editor/band_list_editing.h"
#include "editor/resources.h"
#include "engine/eq_band.h"
#include "plugin/eq_instance.h"
#include "plugin/host_notices.h"
#include "plugin/parameters.h"
#include "plugin/ui_layer.h"
#include "view/band_hit_test.h"
#include "view/view_pointer.h"
#include "view/view_selection.h"

namespace {

constexpr UINT kGrayedItem = 3;  // MF_GRAYED | MF_DISABLED
constexpr UINT kPopupFlags = TPM_RETURNCMD | 0x0002;  // returns the command, right button
constexpr int kMenuTypeCount = 9;  // LowShelf .. Band; BandAlt has no item
constexpr double kSilentGain = 2.9802322387695312e-08;  // 2^-25
constexpr double kLowestDb = -150.0;
constexpr double kLoudestGain = 31622776.601683773;  // +150 dB
constexpr double kDbPerLog = 8.685889638065037;

void prepareItems(HMENU popup, const EqBand* selected, UINT bandItemFlags) {
    kobal::EnableMenuItem(popup, kDeleteBandCommand, bandItemFlags);
    kobal::EnableMenuItem(popup, kResetBandCommand, bandItemFlags);
    kobal::EnableMenuItem(popup, kEnableBandCommand, bandItemFlags);
    kobal::CheckMenuItem(popup, kEnableBandCommand,
                         selected && selected->enabled ? MF_CHECKED : MF_UNCHECKED);
    for (int type = 0; type < kMenuTypeCount; ++type) {
        const UINT item = kFirstBandTypeCommand + type;
        kobal::EnableMenuItem(popup, item, bandItemFlags);
        kobal::CheckMenuItem(popup, item,
                             selected && selected->type == type ? MF_CHECKED : MF_UNCHECKED);
    }
}

UINT trackMenu(EqInstance& instance, HWND view, POINT screen, UINT bandItemFlags) {
    HMENU menu = kobal::KOBAL_LoadMenu(menuResourceList, kContextMenuResource);
    HMENU popup = kobal::GetSubMenu(menu, 0);
    prepareItems(popup, instance.band(instance.selectedBand), bandItemFlags);
    const int command =
        kobal::TrackPopupMenu(popup, kPopupFlags, screen.x, screen.y, 0, view, nullptr);
    kobal::DestroyMenu(menu);
    return static_cast<UINT>(command);
}

// Runs `change` on the selected band under the mutex, then tells the host.
template <typename Change>
void changeSelectedBand(EqInstance& instance, Change change) {
    EqBand* band = instance.band(instance.selectedBand);
    if (!band) return;
    {
        MutexLock lock(instance.mutex);
        change(*band);
        instance.dirtyFlags |= kDirtyResponseView | kDirtyBandPanel;
    }
    notifyHostChanged(&instance);
}

// Runs `change` on every band under the mutex, then tells the host.
template <typename Change>
void changeAllBands(EqInstance& instance, Change change) {
    {
        MutexLock lock(instance.mutex);
        for (int32_t i = 0; i < instance.bandCount(); ++i)
            if (EqBand* band = instance.band(i)) change(*band);
        instance.dirtyFlags |= kDirtyResponseView | kDirtyBandPanel;
    }
    notifyHostChanged(&instance);
}

void resetGain(EqBand& band) {
    designBand(&band, band.type, true, band.frequency, 1.0, band.bandwidth);
}

void flipGain(EqBand& band) {
    const bool silent = band.gain < kSilentGain || std::log(band.gain) * kDbPerLog < kLowestDb;
    band.gain = silent ? kLoudestGain : std::exp(-(std::log(band.gain) * kDbPerLog) * kDbToLog);
    designBand(&band, kKeepBandType, true, 0.0, 0.0, 0.0);
}

void setType(EqInstance& instance, EqBand& band, int32_t type) {
    band.type = type;
    MutexLock again(instance.mutex);
    designBand(&band, kKeepBandType, true, 0.0, 0.0, 0.0);
}

}  // namespace

void runContextCommand(EqInstance& instance, HWND view, UINT command, double clickFrequency,
                       double clickAmplitude) {
    switch (command) {
        case kAddBandCommand:
            addBand(&instance, kobal::GetParent(view), clickFrequency, clickAmplitude);
            return;
        case kDeleteBandCommand: removeBand(&instance, kobal::GetParent(view)); return;
        case kEnableBandCommand:
            changeSelectedBand(instance, [](EqBand& band) { band.enabled = band.enabled ? 0 : 1; });
            return;
        case kResetBandCommand: changeSelectedBand(instance, resetGain); return;
        case kResetAllBandsCommand: changeAllBands(instance, resetGain); return;
        case kFlipAllBandsCommand: changeAllBands(instance, flipGain); return;
        default: break;
    }
    if (command >= kFirstBandTypeCommand && command <= kLastBandTypeCommand) {
        const int32_t type = static_cast<int32_t>(command - kFirstBandTypeCommand);
        changeSelectedBand(instance, [&](EqBand& band) { setType(instance, band, type); });
    }
}

LRESULT openContextMenu(EqInstance& instance, HWND view, WPARAM wParam, LPARAM lParam) {
    POINT point{signedLowWord(lParam), signedHighWord(lParam)};
    PointValues click{};
    const int hit = hitTestBand(instance, view, point.x, point.y, &click, true);
    if (hit >= 0) selectBand(instance, view, hit);
    kobal::ClientToScreen(view, &point);
    const UINT command = trackMenu(instance, view, point, hit >= 0 ? MF_ENABLED : kGrayedItem);
    runContextCommand(instance, view, command, click.frequency, click.amplitude);
    return kobal::DefWindowProc(view, WM_RBUTTONDOWN, wParam, lParam);
}
