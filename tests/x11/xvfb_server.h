// A virtual X server of the test's own: Xvfb on a free display number,
// made the process's DISPLAY while it runs.
#pragma once

#include <sys/types.h>

#include <string>

class XvfbServer {
public:
    // Starts the server with a screen of `screen` ("WIDTHxHEIGHTxDEPTH") and
    // waits until it accepts connections; check running() (Xvfb may be missing).
    explicit XvfbServer(const char* screen = "1600x1200x24");
    ~XvfbServer();  // stops it
    XvfbServer(const XvfbServer&) = delete;
    XvfbServer& operator=(const XvfbServer&) = delete;

    bool running() const { return !display_.empty(); }
    const std::string& display() const { return display_; }  // ":N"

    // True when an Xvfb program can be found on the PATH.
    static bool available();

private:
    pid_t pid_ = -1;
    std::string display_;
};
