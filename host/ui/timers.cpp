#include "host/ui/timers.h"

#include <algorithm>
#include <vector>

#include "host/ui/host_clock.h"
#include "host/ui/messages.h"
#include "host/ui/window_tree.h"

namespace kobal_layer {
namespace {

struct Timer {
    HWND window;
    UINT_PTR id;
    UINT interval;
    TIMERPROC callback;
    uint32_t lastFired;
};

std::vector<Timer>& timers() {
    static std::vector<Timer> list;
    return list;
}

bool isDue(const Timer& timer, uint32_t now) {
    return static_cast<uint32_t>(now - timer.lastFired) >= timer.interval;
}

void forgetWindowTimers(HWND window) {
    auto& list = timers();
    list.erase(std::remove_if(list.begin(), list.end(),
                              [window](const Timer& timer) { return timer.window == window; }),
               list.end());
}

[[maybe_unused]] const bool forgetterAdded = addWindowForgetter(forgetWindowTimers);

bool stillSet(const Timer& wanted) {
    for (const Timer& timer : timers())
        if (timer.window == wanted.window && timer.id == wanted.id) return true;
    return false;
}

UINT_PTR unusedThreadTimerId() {
    UINT_PTR id = 1;
    for (const Timer& timer : timers())
        if (!timer.window && timer.id >= id) id = timer.id + 1;
    return id;
}

}  // namespace

UINT_PTR SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC callback) {
    if (window && !liveWindow(window)) return 0;
    if (!window) id = unusedThreadTimerId();
    KillTimer(window, id);
    timers().push_back(Timer{window, id, milliseconds, callback, hostClockNow()});
    return id ? id : 1;
}

BOOL KillTimer(HWND window, UINT_PTR id) {
    auto& list = timers();
    auto found = std::find_if(list.begin(), list.end(), [&](const Timer& timer) {
        return timer.window == window && timer.id == id;
    });
    if (found == list.end()) return 0;
    list.erase(found);
    return 1;
}

int fireDueTimers() {
    uint32_t now = hostClockNow();
    std::vector<Timer> due;
    for (Timer& timer : timers())
        if (isDue(timer, now)) {
            timer.lastFired = now;
            due.push_back(timer);
        }
    for (const Timer& timer : due) {
        if (!stillSet(timer)) continue;  // killed by an earlier timer of this pass
        if (timer.callback)
            timer.callback(timer.window, WM_TIMER, timer.id, now);
        else
            SendMessage(timer.window, WM_TIMER, timer.id, 0);
    }
    return static_cast<int>(due.size());
}

int activeTimerCount() { return static_cast<int>(timers().size()); }

}  // namespace kobal_layer
