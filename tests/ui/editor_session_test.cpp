// The equalizer's own editor running on this layer inside a host window: the
// plug-in is loaded by the stand-in host and driven only by injected input,
// the pump and the test clock.
#include <memory>
#include <string>

#include "host/raster/canvas.h"
#include "host/ui/dialog_items.h"
#include "host/ui/fader.h"
#include "host/ui/host_clock.h"
#include "host/ui/host_windows.h"
#include "host/ui/input_injection.h"
#include "host/ui/menus.h"
#include "host/ui/messages.h"
#include "host/ui/screenshot.h"
#include "host/ui/tab_control.h"
#include "host/ui/timers.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"
#include "host/vst/effect_session.h"
#include "host/vst/plugin_library.h"
#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

constexpr int kTabStrip = 1026;
constexpr int kResponseView = 1023;
constexpr int kOutputFader = 1047;
constexpr int kOutputGainBox = 1011;
constexpr int kFrequencyBox = 1019;
constexpr UINT kAddBandCommand = 40001;

class EditorSession : public UiLayerTest {
protected:
    void SetUp() override {
        UiLayerTest::SetUp();
        library = std::make_unique<PluginLibrary>();
        session = EffectSession::open(*library);
        ASSERT_NE(session, nullptr);
        host = createHostWindow("Editor host", RECT{0, 0, 900, 600});
        ASSERT_TRUE(session->openEditor(host));
        settle();
        ASSERT_EQ(host->children.size(), 1u);
        editor = host->children.front();
    }
    void TearDown() override {
        if (session) session->closeEditor();
        session.reset();
        library.reset();
        UiLayerTest::TearDown();
    }
    // A few passes of the editor's 40 ms timer.
    void settle() {
        for (int pass = 0; pass < 3; ++pass) {
            advanceTestClock(40);
            pumpMessages();
        }
    }
    HWND panel() {
        for (KobalWindow* child : editor->children)
            if (child->isDialog) return child;
        return nullptr;
    }
    std::string itemText(HWND dialog, int id) {
        char text[256];
        GetDlgItemText(dialog, id, text, sizeof text);
        return text;
    }
    std::unique_ptr<PluginLibrary> library;
    std::unique_ptr<EffectSession> session;
    HWND host = nullptr;
    HWND editor = nullptr;
};

TEST_F(EditorSession, EditorIsShownAndSizedToTheHostWindow) {
    EXPECT_TRUE(IsWindowVisible(editor));
    RECT client{};
    GetClientRect(editor, &client);
    EXPECT_EQ(client.right, 900);
    EXPECT_EQ(client.bottom, 600);
    ASSERT_NE(panel(), nullptr);
    EXPECT_TRUE(IsWindowVisible(panel()));
    EXPECT_EQ(activeTimerCount(), 1);
}

TEST_F(EditorSession, ClickingATabShowsThatBandInThePanel) {
    HWND tabs = GetDlgItem(editor, kTabStrip);
    ASSERT_GE(TabCtrl_GetItemCount(tabs), 2);
    std::string firstFrequency = itemText(panel(), kFrequencyBox);
    ASSERT_TRUE(clickTab(tabs, 1));
    settle();
    EXPECT_EQ(TabCtrl_GetCurSel(tabs), 1);
    std::string secondFrequency = itemText(panel(), kFrequencyBox);
    EXPECT_FALSE(secondFrequency.empty());
    EXPECT_NE(secondFrequency, firstFrequency);
}

TEST_F(EditorSession, TypedOutputGainMovesTheOutputFader) {
    typeIntoEdit(GetDlgItem(editor, kOutputGainBox), "-6");
    // −6 dB on the host's fader curve: 550 (−10 dB) + 200 × 4/10.
    EXPECT_EQ(SendMessage(GetDlgItem(editor, kOutputFader), TBM_GETPOS, 0, 0), 630);
}

TEST_F(EditorSession, DraggingTheOutputFaderWritesTheGainBox) {
    HWND fader = GetDlgItem(editor, kOutputFader);
    // Fader position 550 is −10 dB on the host's fader curve.
    ASSERT_TRUE(dragFaderTo(fader, 550));
    EXPECT_EQ(SendMessage(fader, TBM_GETPOS, 0, 0), 550);
    EXPECT_EQ(itemText(editor, kOutputGainBox), "-10.0");
}

TEST_F(EditorSession, RightClickOnTheGraphOffersTheContextMenu) {
    HWND tabs = GetDlgItem(editor, kTabStrip);
    int bandsBefore = TabCtrl_GetItemCount(tabs);
    queueMenuChoice(kAddBandCommand);
    POINT middle = screenPointOf(GetDlgItem(editor, kResponseView), POINT{40, 40});
    pressMouse(MouseButton::right, middle);
    releaseMouse(MouseButton::right, middle);
    settle();
    ASSERT_TRUE(lastTrackedMenu().has_value());
    const MenuView& shown = *lastTrackedMenu();
    int commands = 0, separators = 0;
    for (const MenuItemView& item : shown) (item.separator ? separators : commands) += 1;
    EXPECT_EQ(commands, 15);
    EXPECT_EQ(separators, 3);
    EXPECT_EQ(liveMenuCount(), 0);  // destroyed after tracking
    EXPECT_EQ(TabCtrl_GetItemCount(tabs), bandsBefore + 1);
}

TEST_F(EditorSession, ScreenshotShowsThePaintedGraph) {
    std::string path = screenshotPath("ui_layer_editor.png");
    ASSERT_TRUE(saveScreenshot(host, path));
    auto picture = renderWindow(host);
    RECT graph{};
    GetWindowRect(GetDlgItem(editor, kResponseView), &graph);
    // The graph paints its own background, unlike the dialog face around it.
    EXPECT_NE(picture->pixel(graph.left + 3, graph.top + 3), 0xFFF0F0F0u);
    EXPECT_EQ(picture->pixel(graph.left - 3, graph.top + 3), 0xFFF0F0F0u);
}

TEST_F(EditorSession, ClosingTheEditorDestroysItsWindowsAndTimer) {
    session->closeEditor();
    EXPECT_TRUE(host->children.empty());
    EXPECT_FALSE(IsWindow(editor));
    EXPECT_EQ(activeTimerCount(), 0);
}

}  // namespace
