// Sent and posted messages, the pump, timers on the test clock and painting.
#include "host/ui/messages.h"

#include <cstdio>

#include "host/raster/canvas.h"
#include "host/ui/host_clock.h"
#include "host/ui/painting.h"
#include "host/ui/system_colors.h"
#include "host/ui/timers.h"
#include "host/ui/ui_font.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"
#include "tests/ui/ui_test_support.h"

using namespace kobal_layer;

namespace {

class Messages : public UiLayerTest {
protected:
    HWND recordingChild(HWND parent, RECT rect = RECT{0, 0, 40, 30}) {
        return createRecordingWindow(parent, rect);
    }
    std::vector<UINT> messageNumbers() {
        std::vector<UINT> numbers;
        for (const RecordedMessage& message : recordedMessages())
            numbers.push_back(message.message);
        return numbers;
    }
};

TEST_F(Messages, SendMessageRunsTheProcedureAtOnceAndReturnsItsAnswer) {
    HWND window = recordingChild(hostWindow());
    SendMessage(window, WM_SETTEXT, 0, reinterpret_cast<LPARAM>("title"));
    char text[8];
    EXPECT_EQ(SendMessage(window, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text)), 5);
    EXPECT_STREQ(text, "title");
    EXPECT_EQ(recordedMessages().size(), 2u);
    EXPECT_EQ(SendMessage(nullptr, WM_USER, 0, 0), 0);
}

LRESULT postAgainOnce(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_USER && wParam == 0) PostMessage(window, WM_USER, 1, 0);
    return recordingWindowProcedure(window, message, wParam, lParam);
}

TEST_F(Messages, PostedMessagesArriveInOrderFromOnePumpUnlessTheirWindowIsGone) {
    HWND first = recordingChild(hostWindow());
    HWND second = recordingChild(hostWindow());
    EXPECT_TRUE(PostMessage(first, WM_USER + 1, 1, 0));
    EXPECT_TRUE(PostMessage(second, WM_USER + 2, 2, 0));
    EXPECT_TRUE(PostMessage(first, WM_TIMER, 2, 0));
    EXPECT_FALSE(PostMessage(nullptr, WM_USER, 0, 0));
    EXPECT_TRUE(recordedMessages().empty());
    EXPECT_EQ(pendingPostedMessages(), 3);
    pumpMessages();
    auto posted = recordedMessages();
    ASSERT_GE(posted.size(), 3u);
    EXPECT_EQ(posted[0].message, WM_USER + 1);
    EXPECT_EQ(posted[1].message, WM_USER + 2);
    EXPECT_EQ(posted[1].window, second);
    EXPECT_EQ(posted[2].message, WM_TIMER);
    EXPECT_EQ(posted[2].wParam, 2u);
    EXPECT_EQ(pendingPostedMessages(), 0);
    HWND window = recordingChild(hostWindow());
    SetWindowLong(window, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(postAgainOnce));
    PostMessage(window, WM_USER, 0, 0);
    pumpMessages();
    auto users = recordedOf(WM_USER);
    ASSERT_EQ(users.size(), 2u);
    EXPECT_EQ(users[1].wParam, 1u);
    HWND doomed = recordingChild(hostWindow());
    PostMessage(doomed, WM_USER, 0, 0);
    DestroyWindow(doomed);
    EXPECT_EQ(pendingPostedMessages(), 0);
    recordedMessages().clear();
    pumpMessages();
    EXPECT_TRUE(recordedOf(WM_USER).empty());
}

TEST_F(Messages, TimersFireOnTheTestClockOncePerPumpWhenDue) {
    HWND window = recordingChild(hostWindow());
    EXPECT_EQ(SetTimer(window, 1, 40, nullptr), 1u);
    advanceTestClock(39);
    pumpMessages();
    EXPECT_TRUE(recordedOf(WM_TIMER).empty());
    advanceTestClock(1);
    pumpMessages();
    ASSERT_EQ(recordedOf(WM_TIMER).size(), 1u);
    EXPECT_EQ(recordedOf(WM_TIMER)[0].wParam, 1u);
    advanceTestClock(200);  // five intervals late: still one WM_TIMER
    pumpMessages();
    EXPECT_EQ(recordedOf(WM_TIMER).size(), 2u);
    pumpMessages();
    EXPECT_EQ(recordedOf(WM_TIMER).size(), 2u);
}

TEST_F(Messages, KillTimerAndDestroyWindowStopTimers) {
    HWND window = recordingChild(hostWindow());
    SetTimer(window, 1, 40, nullptr);
    SetTimer(window, 2, 40, nullptr);
    EXPECT_TRUE(KillTimer(window, 1));
    EXPECT_FALSE(KillTimer(window, 1));
    advanceTestClock(40);
    pumpMessages();
    ASSERT_EQ(recordedOf(WM_TIMER).size(), 1u);
    EXPECT_EQ(recordedOf(WM_TIMER)[0].wParam, 2u);
    DestroyWindow(window);
    EXPECT_EQ(activeTimerCount(), 0);
}

TEST_F(Messages, SettingATimerAgainRestartsItsInterval) {
    HWND window = recordingChild(hostWindow());
    SetTimer(window, 1, 40, nullptr);
    advanceTestClock(30);
    SetTimer(window, 1, 40, nullptr);
    advanceTestClock(30);
    pumpMessages();
    EXPECT_TRUE(recordedOf(WM_TIMER).empty());
    advanceTestClock(10);
    pumpMessages();
    EXPECT_EQ(recordedOf(WM_TIMER).size(), 1u);
}

int callbackCalls = 0;
void countCall(HWND, UINT message, UINT_PTR, DWORD) {
    if (message == WM_TIMER) ++callbackCalls;
}

TEST_F(Messages, TimerCallbacksRunInsteadOfWmTimer) {
    HWND window = recordingChild(hostWindow());
    callbackCalls = 0;
    SetTimer(window, 3, 10, countCall);
    advanceTestClock(10);
    pumpMessages();
    EXPECT_EQ(callbackCalls, 1);
    EXPECT_TRUE(recordedOf(WM_TIMER).empty());
}

TEST_F(Messages, InvalidatedShownWindowsArePaintedAfterPostedMessages) {
    HWND window = recordingChild(hostWindow());
    pumpMessages();  // first paint of the new windows
    recordedMessages().clear();
    InvalidateRect(window, nullptr, 1);
    PostMessage(window, WM_USER, 0, 0);
    pumpMessages();
    EXPECT_EQ(messageNumbers(), (std::vector<UINT>{WM_USER, WM_PAINT}));
    recordedMessages().clear();
    pumpMessages();
    EXPECT_TRUE(recordedMessages().empty());  // validated by the default handling
    ShowWindow(window, SW_HIDE);
    InvalidateRect(window, nullptr, 0);
    recordedMessages().clear();
    pumpMessages();
    EXPECT_TRUE(recordedOf(WM_PAINT).empty());
}

LRESULT invalidateWhilePainting(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    recordedMessages().push_back(RecordedMessage{window, message, wParam, lParam});
    if (message != WM_PAINT) return DefWindowProc(window, message, wParam, lParam);
    PAINTSTRUCT paint;
    BeginPaint(window, &paint);
    InvalidateRect(window, nullptr, 0);  // asks for the next frame
    EndPaint(window, &paint);
    return 0;
}

TEST_F(Messages, InvalidatingWhilePaintingAsksForAnotherPaint) {
    HWND window = recordingChild(hostWindow());
    SetWindowLong(window, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(invalidateWhilePainting));
    pumpMessages();
    pumpMessages();
    EXPECT_EQ(recordedOf(WM_PAINT).size(), 2u);  // once per pump, not in a loop
}

TEST_F(Messages, UpdateWindowPaintsAtOnceOnlyWhenInvalid) {
    HWND window = recordingChild(hostWindow());
    UpdateWindow(window);
    EXPECT_EQ(recordedOf(WM_PAINT).size(), 1u);
    UpdateWindow(window);
    EXPECT_EQ(recordedOf(WM_PAINT).size(), 1u);
}

LRESULT paintRed(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_PAINT) return DefWindowProc(window, message, wParam, lParam);
    PAINTSTRUCT paint;
    HDC dc = BeginPaint(window, &paint);
    Canvas backBuffer(paint.rcPaint.right, paint.rcPaint.bottom);
    backBuffer.fillRect(0, 0, backBuffer.width(), backBuffer.height(), 0xFFFF0000u);
    BitBlt(dc, 0, 0, paint.rcPaint.right, paint.rcPaint.bottom, backBuffer.deviceContext(), 0, 0,
           0);
    EndPaint(window, &paint);
    return 0;
}

TEST_F(Messages, BeginPaintGivesACanvasOfTheClientSizeThatBitBltFills) {
    HWND window = recordingChild(hostWindow(), RECT{0, 0, 30, 20});
    SetWindowLong(window, GWL_WNDPROC, reinterpret_cast<LONG_PTR>(paintRed));
    pumpMessages();
    Canvas* surface = paintedSurface(window);
    ASSERT_NE(surface, nullptr);
    EXPECT_EQ(surface->width(), 30);
    EXPECT_EQ(surface->height(), 20);
    EXPECT_EQ(surface->pixel(29, 19), 0xFFFF0000u);
    PAINTSTRUCT paint;
    EXPECT_EQ(BeginPaint(nullptr, &paint), nullptr);
    EXPECT_FALSE(BitBlt(nullptr, 0, 0, 1, 1, surface->deviceContext(), 0, 0, 0));
}

TEST_F(Messages, FontsRememberTheirDescription) {
    LOGFONT requested{};
    requested.lfHeight = 10;
    requested.lfWeight = 400;
    std::snprintf(requested.lfFaceName, LF_FACESIZE, "Arial");
    HFONT font = CreateFontIndirect(&requested);
    ASSERT_NE(font, nullptr);
    LOGFONT described{};
    ASSERT_TRUE(describeUiFont(font, &described));
    EXPECT_EQ(described.lfHeight, 10);
    EXPECT_STREQ(described.lfFaceName, "Arial");
    EXPECT_FALSE(describeUiFont(nullptr, &described));
    EXPECT_EQ(CreateFontIndirect(nullptr), nullptr);
}

TEST_F(Messages, SystemColoursGiveALegibleReadoutPair) {
    EXPECT_EQ(GetSysColor(COLOR_READOUT_TEXT), 0x000000u);
    EXPECT_EQ(GetSysColor(COLOR_READOUT_BACKGROUND), 0xFFFFE1u);
    EXPECT_EQ(GetSysColor(COLOR_WINDOW), 0xFFFFFFu);
    EXPECT_EQ(GetSysColor(1000), 0u);
}

}  // namespace
