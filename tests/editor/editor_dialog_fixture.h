// An instance with its editor open in a host window of the stand-in
// windowing layer, on the layer's test clock. The host callback answers the
// extension requests from the host's own table and records every notice.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <vector>

#include "contracts/host_extensions.h"
#include "contracts/kobal.h"
#include "plugin/eq_instance.h"

struct HostNotice {
    int32_t opcode;
    int32_t index;
    float opt;
    std::optional<ParamListChange> paramListChange;
};

class EditorDialogTest : public ::testing::Test {
protected:
    static constexpr int kHostWidth = 1100;
    static constexpr int kHostHeight = 700;

    void SetUp() override;
    void TearDown() override;

    // Opens the editor in a host window with this client size and delivers
    // the first sizing pass.
    void openEditorIn(int width, int height);
    void reopenEditor();

    HWND control(int id) const;       // a control of the editor dialog
    HWND panelControl(int id) const;  // a control of the band panel
    HWND editor() const { return instance->editorWindow.load(); }
    HWND panel() const { return instance->bandPanelWindow; }

    // Moves the test clock on and lets the pump deliver what is due.
    void advanceClock(uint32_t milliseconds);
    void pump();

    std::vector<HostNotice> notices() const;
    void clearNotices();
    // Every audioMasterVendorSpecific notice of a changed parameter list.
    std::vector<ParamListChange> paramListChanges() const;

    std::vector<std::string> tabTexts() const;
    int currentTab() const;
    std::string text(HWND window) const;
    bool isShown(HWND window) const;
    RECT rectOf(HWND window) const;  // in the parent's client coordinates

    EqInstance* instance = nullptr;
    HWND hostWindow = nullptr;
};

// The editor already open in a host window of the default size, with the
// notices of the opening cleared.
class OpenEditorTest : public EditorDialogTest {
protected:
    void SetUp() override {
        EditorDialogTest::SetUp();
        if (!HasFatalFailure()) openEditorIn(kHostWidth, kHostHeight);
        clearNotices();
    }
};

// A band's values, read under the lock.
struct BandSnapshot {
    int32_t type;
    double frequency;
    double gain;
    double bandwidth;
    int32_t enabled;
    bool logScaleAutomation;
};
BandSnapshot snapshotBand(EqInstance* instance, int index);
