#include "tests/ardour/ardour_sandbox.h"

#include <sys/wait.h>
#include <unistd.h>
#include <utime.h>

#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>

#include "tests/engine/chunk_bytes.h"

namespace fs = std::filesystem;

namespace {

// Starts a program in a process group of its own, its output to a file.
pid_t spawn(const std::vector<std::string>& argv, const std::string& outputPath) {
    const pid_t pid = fork();
    if (pid != 0) return pid;
    setpgid(0, 0);
    std::freopen("/dev/null", "r", stdin);
    std::freopen(outputPath.c_str(), "w", stdout);
    dup2(fileno(stdout), STDERR_FILENO);
    std::vector<char*> words;
    for (const std::string& word : argv) words.push_back(const_cast<char*>(word.c_str()));
    words.push_back(nullptr);
    execvp(words[0], words.data());
    _exit(127);
}

}  // namespace

ChildResult runChild(const std::vector<std::string>& argv, int timeLimitSeconds) {
    const std::string outputPath = testing::TempDir() + "ombro_child_" + std::to_string(getpid());
    const pid_t pid = spawn(argv, outputPath);
    int status = 0;
    for (int tick = 0; waitpid(pid, &status, WNOHANG) == 0; ++tick) {
        if (tick == timeLimitSeconds * 50) kill(-pid, SIGKILL);
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    // Helpers the program left behind in its group go with it.
    kill(-pid, SIGKILL);
    std::stringstream output;
    output << std::ifstream(outputPath).rdbuf();
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, output.str()};
}

BackgroundChild::BackgroundChild(const std::vector<std::string>& argv, const std::string& outputPath)
    : pid_(spawn(argv, outputPath)) {}

BackgroundChild::~BackgroundChild() {
    kill(-pid_, SIGKILL);
    waitpid(pid_, nullptr, 0);
}

bool BackgroundChild::running() const { return waitpid(pid_, nullptr, WNOHANG) == 0; }

std::vector<unsigned char> addedBandsChunk() {
    const int32_t bandRecordSize = 33, showGrid = 1, showTabs = 1, viewFlags = 0, editorSize = 0;
    ChunkBytes chunk;
    chunk.put(bandRecordSize).put(static_cast<int32_t>(kAddedBands.size()));
    for (const BandSetting& band : kAddedBands)
        chunk.band(band.type, band.enabled, band.frequency, std::pow(10.0, band.gainDb / 20.0), band.bandwidth)
            .put(static_cast<uint8_t>(1));
    chunk.put(showGrid).put(showTabs).put(std::pow(10.0, kOutputGainDb / 20.0)).put(viewFlags);
    return chunk.put(editorSize).put(editorSize).bytes;
}

void ArdourSessionTest::SetUp() {
    std::string pattern = testing::TempDir() + "ombro_ardour_XXXXXX";
    ASSERT_NE(mkdtemp(pattern.data()), nullptr);
    root_ = pattern;
    const std::string plugins = path("prefix/lib/vst/ombro"), home = path("home");
    for (auto [name, value] : {std::pair{"HOME", home}, {"XDG_CONFIG_HOME", home + "/.config"},
                               {"XDG_CACHE_HOME", home + "/.cache"}, {"XDG_DATA_HOME", home + "/.local/share"},
                               {"LXVST_PATH", plugins}, {"VST_PATH", plugins}})
        setenv(name, value.c_str(), 1);
    ChildResult install = runChild({OMBRO_CMAKE_COMMAND, "--install", OMBRO_BUILD_DIR, "--prefix", path("prefix")});
    ASSERT_EQ(install.exitCode, 0) << install.output;
    // Ardour trusts a cached scan only when it is newer than the plug-in.
    utimbuf hourAgo{std::time(nullptr) - 3600, std::time(nullptr) - 3600};
    for (const auto& entry : fs::directory_iterator(plugins)) utime(entry.path().c_str(), &hourAgo);
    ChildResult scan = runChild({"env", "LD_LIBRARY_PATH=" OMBRO_ARDOUR_LIBRARY_DIR, OMBRO_ARDOUR_VST_SCANNER,
                                 "-f", plugins + "/Ombro.so"});
    ASSERT_NE(scan.output.find("Found Plugin"), std::string::npos) << scan.output;
}

void ArdourSessionTest::TearDown() {
    std::error_code ignored;
    if (!root_.empty() && !getenv("OMBRO_KEEP_ARDOUR_SANDBOX")) fs::remove_all(root_, ignored);
}

SessionFile ArdourSessionTest::createSession(const std::string& name) {
    ChildResult created =
        runChild({OMBRO_ARDOUR_LUA, OMBRO_ARDOUR_FILES "/scripts/create_session.lua", path(name), name, "Ombro"}, 40);
    EXPECT_EQ(created.exitCode, 0) << created.output;
    return SessionFile(path(name), name);
}

std::vector<float> ArdourSessionTest::reopenSession(const std::string& name, const std::string& snapshot,
                                                    const std::string& saveAs) {
    ChildResult opened = runChild(
        {OMBRO_ARDOUR_LUA, OMBRO_ARDOUR_FILES "/scripts/read_session.lua", path(name), snapshot, saveAs}, 40);
    EXPECT_EQ(opened.exitCode, 0) << opened.output;
    // "parameter I VALUE" lines in the order of I.
    std::vector<float> values;
    std::istringstream lines(opened.output);
    for (std::string line; std::getline(lines, line);) {
        size_t index = 0;
        float value = 0;
        if (std::sscanf(line.c_str(), "parameter %zu %f", &index, &value) == 2 && index == values.size())
            values.push_back(value);
    }
    return values;
}
