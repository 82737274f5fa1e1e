#include "host/x11/x_error_trap.h"

#include <algorithm>
#include <mutex>
#include <vector>

namespace x11_front {
namespace {

std::mutex trapLock;
std::vector<Display*> trapped;
XErrorHandler previousHandler = nullptr;

int handleError(Display* display, XErrorEvent* error) {
    XErrorHandler passOn = nullptr;
    {
        std::lock_guard<std::mutex> guard(trapLock);
        if (std::find(trapped.begin(), trapped.end(), display) != trapped.end()) return 0;
        passOn = previousHandler;
    }
    return passOn ? passOn(display, error) : 0;
}

}  // namespace

void trapErrorsOn(Display* display) {
    std::lock_guard<std::mutex> guard(trapLock);
    if (trapped.empty()) previousHandler = XSetErrorHandler(handleError);
    trapped.push_back(display);
}

void releaseErrorsOn(Display* display) {
    std::lock_guard<std::mutex> guard(trapLock);
    trapped.erase(std::remove(trapped.begin(), trapped.end(), display), trapped.end());
    if (!trapped.empty()) return;
    // Put the earlier handler back, unless someone installed another since.
    XErrorHandler current = XSetErrorHandler(previousHandler);
    if (current != handleError) XSetErrorHandler(current);
    previousHandler = nullptr;
}

}  // namespace x11_front
