#include "host/ui/messages.h"

#include <cstring>
#include <deque>
#include <mutex>

#include "host/ui/pointer_and_keys.h"
#include "host/ui/text_and_time.h"
#include "host/ui/timers.h"
#include "host/ui/window_functions.h"
#include "host/ui/window_tree.h"

namespace kobal_layer {
namespace {

struct PostedMessage {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
};

// Windows belong to the UI thread; the queue has its own lock so that the
// pump can hand out messages while a procedure posts new ones.
std::mutex queueLock;
std::deque<PostedMessage>& queue() {
    static std::deque<PostedMessage> messages;
    return messages;
}

bool takeNextPosted(PostedMessage* next) {
    std::lock_guard<std::mutex> guard(queueLock);
    if (queue().empty()) return false;
    *next = queue().front();
    queue().pop_front();
    return true;
}

int deliverPosted() {
    // A runaway pair of windows posting to each other must not hang the host.
    constexpr int kMostPerPump = 100000;
    int delivered = 0;
    PostedMessage next;
    while (delivered < kMostPerPump && takeNextPosted(&next)) {
        if (!liveWindow(next.window)) continue;
        SendMessage(next.window, next.message, next.wParam, next.lParam);
        ++delivered;
    }
    return delivered;
}

void collectInvalid(KobalWindow* window, std::vector<HWND>* invalid) {
    if (!window->visible) return;
    if (window->needsPaint) invalid->push_back(window);
    for (KobalWindow* child : window->children) collectInvalid(child, invalid);
}

// Validated before the message, so that a procedure that never calls
// BeginPaint is not asked again, while one that invalidates itself while
// painting is.
uint64_t paintCount = 0;

void paintNow(HWND window) {
    window->needsPaint = false;
    ++paintCount;
    SendMessage(window, WM_PAINT, 0, 0);
}

}  // namespace

int paintInvalidWindows() {
    std::vector<HWND> invalid;
    for (HWND top : topLevelWindows()) collectInvalid(top, &invalid);
    int painted = 0;
    for (HWND window : invalid)
        if (liveWindow(window) && window->needsPaint) {
            paintNow(window);
            ++painted;
        }
    return painted;
}

namespace {

void forgetQueuedMessages(HWND window) {
    std::lock_guard<std::mutex> guard(queueLock);
    auto& messages = queue();
    for (auto it = messages.begin(); it != messages.end();)
        it = it->window == window ? messages.erase(it) : it + 1;
}

[[maybe_unused]] const bool forgetterAdded = addWindowForgetter(forgetQueuedMessages);

}  // namespace

LRESULT SendMessage(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    KobalWindow* window = liveWindow(handle);
    if (!window) return 0;
    if (!window->procedure) return DefWindowProc(handle, message, wParam, lParam);
    bool isDialog = window->isDialog;  // the procedure may destroy the window
    LRESULT result = window->procedure(handle, message, wParam, lParam);
    // A dialog procedure answers 0 for what it leaves to the default handling.
    if (isDialog && result == 0 && liveWindow(handle))
        return DefWindowProc(handle, message, wParam, lParam);
    return result;
}

BOOL PostMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (!liveWindow(window)) return 0;
    std::lock_guard<std::mutex> guard(queueLock);
    queue().push_back(PostedMessage{window, message, wParam, lParam});
    return 1;
}

LRESULT DefWindowProc(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    KobalWindow* window = liveWindow(handle);
    if (!window) return 0;
    switch (message) {
        case WM_PAINT: window->needsPaint = false; return 0;
        case WM_SETTEXT:
            window->text = lParam ? reinterpret_cast<const char*>(lParam) : "";
            window->needsPaint = true;
            return 1;
        case WM_GETTEXT:
            lstrcpyn(reinterpret_cast<char*>(lParam), window->text.c_str(),
                     static_cast<int>(wParam));
            return lParam && wParam
                       ? static_cast<LRESULT>(std::strlen(reinterpret_cast<const char*>(lParam)))
                       : 0;
        case WM_CLOSE: DestroyWindow(handle); return 0;
        case WM_MOUSEWHEEL:
            return window->parent ? SendMessage(window->parent, message, wParam, lParam) : 0;
        case WM_SETCURSOR:
            // The parent may set the cursor for its children; otherwise the arrow.
            if (window->parent && SendMessage(window->parent, message, wParam, lParam)) return 1;
            KOBAL_SetCursor(KOBAL_LoadCursor(IDC_ARROW));
            return 0;
        default: return 0;
    }
}

BOOL InvalidateRect(HWND handle, const RECT*, BOOL) {
    KobalWindow* window = liveWindow(handle);
    if (!window) return 0;
    window->needsPaint = true;
    return 1;
}

BOOL UpdateWindow(HWND handle) {
    KobalWindow* window = liveWindow(handle);
    if (!window) return 0;
    if (window->needsPaint && isShownOnScreen(handle)) paintNow(handle);
    return 1;
}

void invalidateWithChildren(HWND handle) {
    KobalWindow* window = liveWindow(handle);
    if (!window) return;
    window->needsPaint = true;
    for (KobalWindow* child : window->children) invalidateWithChildren(child);
}

uint64_t paintsSent() { return paintCount; }

int pumpMessages() {
    int delivered = deliverPosted();
    delivered += fireDueTimers();
    delivered += deliverPosted();  // what the timers posted
    delivered += paintInvalidWindows();
    return delivered;
}

int pendingPostedMessages() {
    std::lock_guard<std::mutex> guard(queueLock);
    return static_cast<int>(queue().size());
}

void dropPostedMessages() {
    std::lock_guard<std::mutex> guard(queueLock);
    queue().clear();
}

}  // namespace kobal_layer
