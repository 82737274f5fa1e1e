// Protocol errors on the front end's own X connections are not fatal: a
// host may destroy the window that holds the view before it closes the
// view, and Xlib's default handler would end the host's process. Errors on
// other connections go to the handler that was installed before.
#pragma once

#include <X11/Xlib.h>

namespace x11_front {

// While at least one connection is trapped, the trap's handler is installed.
void trapErrorsOn(Display* display);
void releaseErrorsOn(Display* display);

}  // namespace x11_front
