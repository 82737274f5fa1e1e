// The editor in a whole host session: the stand-in host loads the shared
// object, opens the editor in a window of its own and drives it with
// injected input; the plug-in's notices arrive through the host callback.
#include <vector>

#include "host/ui/dialog_items.h"
#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/input_injection.h"
#include "host/ui/messages.h"
#include "host/ui/tab_control.h"
#include "host/ui/window_tree.h"
#include "tests/session/session_fixture.h"

namespace {

constexpr int kTabs = 1026;
constexpr int kAddBand = 1018;
constexpr int kRemoveBand = 1019;
constexpr int kPanelGainEdit = 1020;

class EditorSession : public SessionTest {
protected:
    void SetUp() override {
        SessionTest::SetUp();
        kobal_layer::resetWindowingLayer();
        kobal_layer::useTestClock(5000);
        host = kobal_layer::createHostWindow("session", RECT{20, 20, 1020, 660});
        ASSERT_TRUE(session->openEditor(host));
        kobal_layer::pumpMessages();
        ASSERT_EQ(kobal_layer::liveWindow(host)->children.size(), 1u);
        editor = kobal_layer::liveWindow(host)->children[0];
        session->clearHostCalls();
    }
    void TearDown() override {
        session->closeEditor();
        kobal_layer::resetWindowingLayer();
        kobal_layer::useRealClock();
    }
    HWND item(int id) const { return kobal_layer::GetDlgItem(editor, id); }
    int tabCount() const { return kobal_layer::TabCtrl_GetItemCount(item(kTabs)); }
    // The band panel is the editor's child dialog.
    HWND panelItem(int id) const {
        for (HWND child : kobal_layer::liveWindow(editor)->children)
            if (kobal_layer::liveWindow(child)->isDialog) return kobal_layer::GetDlgItem(child, id);
        return nullptr;
    }

    HWND host = nullptr;
    HWND editor = nullptr;
};

// A typed gain is one gesture, closed before the band buttons grow and shrink
// the host's parameter list; closing the editor leaves the host window empty.
TEST_F(EditorSession, TypedGainAndBandButtonsReachTheHostInOrder) {
    kobal_layer::typeIntoEdit(panelItem(kPanelGainEdit), "6");
    ASSERT_TRUE(kobal_layer::clickButton(item(kAddBand)));
    const std::vector<HostCall> calls = session->hostCalls();
    const std::vector<std::pair<int32_t, int32_t>> expected = {
        {audioMasterBeginEdit, 1}, {audioMasterAutomate, 1},
        {audioMasterAutomate, 1},  {audioMasterEndEdit, 1},
        {audioMasterVendorSpecific, static_cast<int32_t>(0xDEADBEEF)}, {audioMasterAutomate, -1}};
    ASSERT_EQ(opcodesOf(calls), expected);
    EXPECT_EQ(calls[1].opt, 0.25f);  // the emptied box reads 0 dB
    EXPECT_EQ(calls[2].opt, session->parameter(1));
    expectListChange(calls[4], 12, 3);
    EXPECT_EQ(session->parameterCount(), 15);
    EXPECT_EQ(tabCount(), 5);
    EXPECT_EQ(session->parameter(13), 0.25f);  // gain 1.0
    EXPECT_EQ(session->parameter(14), 0.5f);   // 2 octaves

    session->clearHostCalls();
    ASSERT_TRUE(kobal_layer::clickButton(item(kRemoveBand)));  // the new, selected band
    EXPECT_EQ(session->parameterCount(), 12);
    EXPECT_EQ(tabCount(), 4);
    const std::vector<HostCall> removed = callsWith(audioMasterVendorSpecific);
    ASSERT_EQ(removed.size(), 1u);
    expectListChange(removed[0], 12, -3);
    session->closeEditor();
    EXPECT_TRUE(kobal_layer::liveWindow(host)->children.empty());
}


// Host automation shows in the panel at the next poll, not before, and tells
// the host nothing back.
TEST_F(EditorSession, HostAutomationReachesThePanelOnTheNextPoll) {
    HWND gain = panelItem(kPanelGainEdit);
    kobal_layer::advanceTestClock(40);  // a first poll, so the next is a whole period away
    kobal_layer::pumpMessages();
    session->setParameter(1, 0.5f);  // band 1's gain to 2.0
    kobal_layer::advanceTestClock(39);
    kobal_layer::pumpMessages();
    EXPECT_EQ(kobal_layer::liveWindow(gain)->text, "0.0");
    kobal_layer::advanceTestClock(1);
    kobal_layer::pumpMessages();
    EXPECT_EQ(kobal_layer::liveWindow(gain)->text, "6.0");
    EXPECT_TRUE(session->hostCalls().empty());
}

}  // namespace
