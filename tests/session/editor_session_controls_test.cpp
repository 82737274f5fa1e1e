// The editor in a whole host session: the stand-in host loads the shared
// object, opens the editor in a window of its own and drives it with
// injected input; the plug-in's notices arrive through the host callback.
#include <string>
#include <vector>

#include "host/ui/dialog_items.h"
#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/input_injection.h"
#include "host/ui/messages.h"
#include "host/ui/tab_control.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"
#include "tests/session/editor_session_fixture.h"

namespace {

constexpr int kTabs = 1026;
constexpr int kAddBand = 1018;
constexpr int kRemoveBand = 1019;
constexpr int kPanelGainEdit = 1020;

class EditorSession : public EditorSessionTest {
protected:
    void SetUp() override {
        EditorSessionTest::SetUp();
        panel = findBandPanel();
        ASSERT_NE(panel, nullptr);
        session->clearHostCalls();
    }
    // The band panel is the editor's child dialog.
    HWND findBandPanel() const {
        for (HWND child : kobal_layer::liveWindow(editor)->children)
            if (kobal_layer::liveWindow(child)->isDialog) return child;
        return nullptr;
    }
    HWND item(int id) const { return kobal_layer::GetDlgItem(editor, id); }
    int tabCount() const { return kobal_layer::TabCtrl_GetItemCount(item(kTabs)); }
    std::string panelText(int id) const {
        return kobal_layer::liveWindow(kobal_layer::GetDlgItem(panel, id))->text;
    }
    void advanceClock(uint32_t milliseconds) {
        kobal_layer::advanceTestClock(milliseconds);
        kobal_layer::pumpMessages();
    }

    HWND panel = nullptr;
};

TEST_F(EditorSession, EditorFillsTheHostWindowWithATabPerBand) {
    EXPECT_EQ(tabCount(), 4);
    EXPECT_STREQ(kobal_layer::tabText(item(kTabs), 3), "4");
    RECT client{};
    kobal_layer::GetClientRect(host, &client);
    EXPECT_EQ(kobal_layer::liveWindow(editor)->rect.right, client.right);
    EXPECT_EQ(kobal_layer::liveWindow(editor)->rect.bottom, client.bottom);
}

TEST_F(EditorSession, AddBandButtonGrowsTheHostParameterList) {
    ASSERT_TRUE(kobal_layer::clickButton(item(kAddBand)));
    EXPECT_EQ(session->parameterCount(), 15);
    EXPECT_EQ(tabCount(), 5);
    const std::vector<HostCall> calls = session->hostCalls();
    ASSERT_EQ(calls.size(), 2u);
    ASSERT_TRUE(calls[0].paramListChange);
    EXPECT_EQ(calls[0].paramListChange->first, 12);
    EXPECT_EQ(calls[0].paramListChange->delta, 3);
    EXPECT_EQ(calls[1].opcode, audioMasterAutomate);
    EXPECT_EQ(calls[1].index, -1);
    // The new band answers through its parameters: 700 Hz on the log scale
    // or as a fraction of 24 kHz, gain 1.0 as 0.25, 2 octaves as 0.5.
    EXPECT_EQ(session->parameter(13), 0.25f);
    EXPECT_EQ(session->parameter(14), 0.5f);
}

TEST_F(EditorSession, RemoveBandButtonShrinksTheHostParameterList) {
    ASSERT_TRUE(kobal_layer::clickButton(item(kRemoveBand)));
    EXPECT_EQ(session->parameterCount(), 9);
    EXPECT_EQ(tabCount(), 3);
    const std::vector<HostCall> calls = callsWith(audioMasterVendorSpecific);
    ASSERT_EQ(calls.size(), 1u);
    EXPECT_EQ(calls[0].paramListChange->first, 0);
    EXPECT_EQ(calls[0].paramListChange->delta, -3);
}

TEST_F(EditorSession, HostAutomationReachesThePanelOnTheNextPoll) {
    advanceClock(40);
    session->setParameter(1, 0.125f);  // band 0 gain 0.5
    EXPECT_EQ(panelText(kPanelGainEdit), "0.0");
    advanceClock(40);
    EXPECT_EQ(panelText(kPanelGainEdit), "-6.0");
    EXPECT_TRUE(session->hostCalls().empty());
}

TEST_F(EditorSession, TypedGainIsOneGestureWithTheParametersNormalizedValues) {
    kobal_layer::typeIntoEdit(kobal_layer::GetDlgItem(panel, kPanelGainEdit), "6");
    kobal_layer::clickButton(item(kAddBand));
    const std::vector<HostCall> calls = gestureCalls();
    ASSERT_EQ(calls.size(), 5u);
    EXPECT_EQ(calls[0].opcode, audioMasterBeginEdit);
    EXPECT_EQ(calls[0].index, 1);
    EXPECT_EQ(calls[1].opcode, audioMasterAutomate);
    EXPECT_EQ(calls[1].opt, 0.25f);  // the emptied box reads 0 dB
    EXPECT_EQ(calls[2].opcode, audioMasterAutomate);
    EXPECT_EQ(calls[2].opt, session->parameter(1));
    EXPECT_EQ(calls[3].opcode, audioMasterEndEdit);
    EXPECT_EQ(calls[3].index, 1);
    EXPECT_EQ(calls[4].opcode, audioMasterAutomate);
    EXPECT_EQ(calls[4].index, -1);
}

TEST_F(EditorSession, ClosingTheEditorRemovesItsWindows) {
    session->closeEditor();
    EXPECT_TRUE(kobal_layer::liveWindow(host)->children.empty());
    EXPECT_EQ(kobal_layer::liveWindow(editor), nullptr);
}

}  // namespace
