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

// The one server of the X11 tests.
XvfbServer& testServer();

// Skips the test when Xvfb is missing.
#define SKIP_WITHOUT_XVFB()                                                                   \
    do {                                                                                      \
        if (!XvfbServer::available())                                                         \
            GTEST_SKIP() << "Xvfb is not installed: the X11 front end cannot be tested here"; \
        ASSERT_TRUE(testServer().running()) << "Xvfb did not start";                          \
    } while (0)
