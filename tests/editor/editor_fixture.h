// An instance with its editor open in a host window of the stand-in windowing
// layer, on its test clock; the plug-in's kobal:: slots bound to the layer, as
// loading the library would; a host callback that records every notice.
#pragma once

#include <cairo.h>
#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "contracts/host_extensions.h"
#include "contracts/mura.h"
#include "editor/editor_controls.h"
#include "engine/eq_band.h"
#include "host/ui/window_tree.h"
#include "plugin/eq_instance.h"
#include "plugin/ui_layer.h"

// ln(10) / 20 and its inverse: dB to the natural log of a gain and back.
constexpr double kLogPerDb = 0.11512925464970228;
constexpr double kDbPerLog = 8.685889638065037;

void bindHostLayerOnce();
inline RECT rectInParent(HWND window) { return window->rect; }  // in the parent's client area
inline std::string text(HWND window) { return window->text; }

struct HostNotice {
    int32_t opcode, index;
    float opt;
    std::optional<ParamListChange> listChange;
    bool isListChange(int32_t first, int32_t delta) const {
        return listChange && listChange->first == first && listChange->delta == delta;
    }
};

// The editor opened in a 1100 by 700 host window, its opening's notices forgotten.
class EditorTest : public ::testing::Test {
protected:
    void SetUp() override;
    void TearDown() override;
    void resizeHost(int width, int height);
    void resizeGraph(int width, int height) {
        kobal::SetWindowPos(view, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    }
    HWND editor() const { return instance->editorWindow.load(); }
    HWND panel() const { return instance->bandPanelWindow; }
    HWND control(int id) const { return kobal::GetDlgItem(editor(), id); }
    HWND panelControl(int id) const { return kobal::GetDlgItem(panel(), id); }
    void refresh() const;  // as the poll does after a change from outside
    void advanceClock(uint32_t milliseconds);

    std::vector<HostNotice> notices() const;
    void clearNotices();
    int countNotices(int32_t opcode, int32_t index) const;
    std::vector<std::string> tabTexts() const;
    int currentTab() const { return kobal::TabCtrl_GetCurSel(control(kBandTabs)); }

    EqBand band(int index) const;  // a copy, taken under the lock
    // Redesigns band `index` the way the editor does, under the lock.
    void setBand(int index, int32_t type, double frequency, double gain, double bandwidth,
                 bool enabled = true);
    std::vector<double> process(const std::vector<double>& input);  // both channels

    void paint() const { kobal::SendMessage(view, WM_PAINT, 0, 0); }
    uint32_t pixel(int x, int y) const;  // of the graph's off-screen bitmap
    int countPixels(uint32_t color, int left, int top, int right, int bottom) const;
    POINT screenPoint(int x, int y) const;

    // Writes the host window's picture to the screenshot directory and reads
    // it back; `at` is its colour at a client point of `window`.
    void save(const char* name);
    uint32_t at(HWND window, int x, int y) const;

    EqInstance* instance = nullptr;
    HWND hostWindow = nullptr;
    HWND view = nullptr;
    std::unique_ptr<cairo_surface_t, void (*)(cairo_surface_t*)> image{nullptr,
                                                                       cairo_surface_destroy};
};
