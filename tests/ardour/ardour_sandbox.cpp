#include "tests/ardour/ardour_sandbox.h"

#include <sys/stat.h>
#include <utime.h>

#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <fstream>

#include <gtest/gtest.h>

namespace {

// Ardour trusts a cached scan only when it is strictly newer than the plug-in,
// to the second; an install and a scan in the same second would leave the
// cache stale, so the installed files are dated an hour back.
void backdate(const std::string& folder) {
    time_t hourAgo = std::time(nullptr) - 3600;
    utimbuf times{hourAgo, hourAgo};
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        utime(entry.path().c_str(), &times);
}

bool writeText(const std::string& path, const std::string& text) {
    std::ofstream file(path, std::ios::trunc);
    file << text;
    return static_cast<bool>(file);
}

// The engine state the audio set-up dialog would have saved for the dummy
// backend; with it and autostart Ardour starts the engine without asking.
constexpr char kDummyEngineConfig[] = R"xml(<?xml version="1.0" encoding="UTF-8"?>
<Ardour version="7.3.0">
  <Config>
    <Option name="hide-dummy-backend" value="0"/>
    <Option name="try-autostart-engine" value="1"/>
  </Config>
  <Extra>
    <AudioMIDISetup>
      <EngineStates>
        <State backend="None (Dummy)" driver="" device="Silence" input-device="" output-device=""
               sample-rate="48000" buffer-size="1024" n-periods="2" input-latency="0"
               output-latency="0" lm-input="0" lm-output="0" active="1" use-buffered-io="0"
               midi-option="" lru="1">
          <MIDIDevices/>
        </State>
      </EngineStates>
    </AudioMIDISetup>
  </Extra>
</Ardour>
)xml";

constexpr char kNoMemoryWarning[] = R"xml(<?xml version="1.0" encoding="UTF-8"?>
<instant>
  <no-memory-warning/>
</instant>
)xml";

}  // namespace

ArdourSandbox::ArdourSandbox() {
    std::string pattern = testing::TempDir() + "ombro_ardour_XXXXXX";
    if (!mkdtemp(pattern.data())) return;
    root_ = pattern;
    pluginFolder_ = root_ + "/prefix/lib/vst/ombro";
    std::string home = root_ + "/home";
    std::filesystem::create_directories(home);
    environment_ = {
        {"HOME", home},
        {"XDG_CONFIG_HOME", home + "/.config"},
        {"XDG_CACHE_HOME", home + "/.cache"},
        {"XDG_DATA_HOME", home + "/.local/share"},
        {"LXVST_PATH", pluginFolder_},
        {"VST_PATH", pluginFolder_},
    };
    ready_ = installPlugin() && scanPlugin();
}

ArdourSandbox::~ArdourSandbox() {
    std::error_code ignored;
    if (!root_.empty() && !getenv("OMBRO_KEEP_ARDOUR_SANDBOX"))
        std::filesystem::remove_all(root_, ignored);
}

bool ArdourSandbox::installPlugin() {
    ChildResult install = runChild(
        {OMBRO_CMAKE_COMMAND, "--install", OMBRO_BUILD_DIR, "--prefix", root_ + "/prefix"},
        {}, 60);
    setUpLog_ += install.output;
    if (!install.succeeded() || !std::filesystem::is_directory(pluginFolder_)) return false;
    backdate(pluginFolder_);
    return true;
}

bool ArdourSandbox::scanPlugin() {
    EnvironmentChanges scanEnvironment = environment_;
    scanEnvironment["LD_LIBRARY_PATH"] = OMBRO_ARDOUR_LIBRARY_DIR;
    ChildResult scan = runChild(
        {OMBRO_ARDOUR_VST_SCANNER, "-f", pluginFolder_ + "/Ombro.so"}, scanEnvironment, 30);
    setUpLog_ += scan.output;
    return scan.succeeded() && scan.output.find("Found Plugin") != std::string::npos;
}

ChildResult ArdourSandbox::runLua(const std::string& script,
                                  const std::vector<std::string>& arguments,
                                  double timeLimitSeconds) const {
    std::vector<std::string> argv = {OMBRO_ARDOUR_LUA,
                                     std::string(OMBRO_ARDOUR_SCRIPTS) + "/" + script};
    argv.insert(argv.end(), arguments.begin(), arguments.end());
    return runChild(argv, environment_, timeLimitSeconds);
}

ChildResult ArdourSandbox::exportSession(const std::string& sessionFolder,
                                         const std::string& snapshot,
                                         const std::string& wavPath) const {
    return runChild({OMBRO_ARDOUR_EXPORT, "--bitdepth", "float", "--output", wavPath,
                     sessionFolder, snapshot},
                    environment_, 60);
}

bool ArdourSandbox::answerFirstRunQuestions() const {
    std::string config = environment_.at("XDG_CONFIG_HOME") + "/ardour7";
    std::filesystem::create_directories(config);
    // Ardour shows its welcome pages until this marker exists.
    return writeText(config + "/.a7", "") && writeText(config + "/config", kDummyEngineConfig) &&
           writeText(config + "/instant.xml", kNoMemoryWarning);
}

std::unique_ptr<BackgroundChild> ArdourSandbox::startGui(const std::string& sessionFolder,
                                                         const std::string& logPath) const {
    if (!answerFirstRunQuestions()) return nullptr;
    return std::make_unique<BackgroundChild>(
        std::vector<std::string>{OMBRO_ARDOUR_GUI, "--no-splash", "--no-announcements",
                                sessionFolder},
                               environment_, logPath);
}
