// Ardour with a home of its own: the test's install of Ombro in a plug-in
// folder, Ardour's configuration and plug-in cache in a temporary directory
// (the user's Ardour set-up is never read or written), the plug-in scanned
// once, and the command-line tools run against it with time limits.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "tests/ardour/child_process.h"

class ArdourSandbox {
public:
    ArdourSandbox();
    ~ArdourSandbox();
    ArdourSandbox(const ArdourSandbox&) = delete;
    ArdourSandbox& operator=(const ArdourSandbox&) = delete;

    // The folder `cmake --install` filled: <prefix>/lib/vst/ombro.
    const std::string& pluginFolder() const { return pluginFolder_; }
    // A fresh path inside the sandbox.
    std::string path(const std::string& name) const { return root_ + "/" + name; }
    // What installing and scanning printed, for failure messages.
    const std::string& setUpLog() const { return setUpLog_; }
    bool ready() const { return ready_; }

    // ardour7-lua on one of the scripts in tests/ardour/scripts.
    ChildResult runLua(const std::string& script, const std::vector<std::string>& arguments,
                       double timeLimitSeconds = 40) const;
    // ardour7-export: the session range as a 32-bit float WAV, not normalized.
    ChildResult exportSession(const std::string& sessionFolder, const std::string& snapshot,
                              const std::string& wavPath) const;
    // Ardour's GUI started on a session: its first-run questions answered
    // beforehand (welcome pages, memory warning, audio set-up: the dummy
    // backend at 48 kHz), output to `logPath`.
    std::unique_ptr<BackgroundChild> startGui(const std::string& sessionFolder,
                                              const std::string& logPath) const;
    const EnvironmentChanges& environment() const { return environment_; }

private:
    bool installPlugin();
    bool scanPlugin();
    bool answerFirstRunQuestions() const;

    std::string root_;
    std::string pluginFolder_;
    EnvironmentChanges environment_;
    std::string setUpLog_;
    bool ready_ = false;
};
