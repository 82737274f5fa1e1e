// Loading as hosts do it: unloading and loading again, and no connection to
// an X server unless an editor opens, with two instances at work.
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <filesystem>

#include "tests/bridge/plain_host.h"

namespace fs = std::filesystem;

namespace {

// A copy of the build's install folder in a new temporary folder.
struct CopiedBridge {
    std::string folder = testing::TempDir() + "ombro-bridge-XXXXXX";
    CopiedBridge() { fs::copy(OMBRO_BRIDGE_DIR, mkdtemp(folder.data()), fs::copy_options::recursive); }
    ~CopiedBridge() { fs::remove_all(folder); }
    std::string path() const { return folder + "/Ombro.so"; }
};

// A parameter set on one instance shows only there, and each instance
// equalizes a block.
void expectIndependentWorkingInstances(HostedEffect& first, HostedEffect& second) {
    first.setParameter(1, 0.75f);
    second.setParameter(1, 0.125f);
    EXPECT_FLOAT_EQ(first.parameter(1), 0.75f);
    EXPECT_FLOAT_EQ(second.parameter(1), 0.125f);
    for (HostedEffect* hosted : {&first, &second}) {
        std::vector<float> left(512, 0.5f), right(512, 0.5f);
        float* channels[2] = {left.data(), right.data()};
        hosted->effect->processReplacing(hosted->effect, channels, channels, 512);
        EXPECT_NE(left[511], 0.5f);
    }
}

TEST(BridgeLoading, WorksAfterUnloadAndReload) {
    CopiedBridge copy;
    std::vector<uint8_t> chunk;
    {
        LoadedPlugin bridge(copy.path());
        HostedEffect hosted(bridge);
        ASSERT_NE(hosted.effect, nullptr);
        hosted.setParameter(4, 0.5f);
        chunk = hosted.chunk();
    }
    LoadedPlugin reloaded(copy.path());
    HostedEffect hosted(reloaded);
    ASSERT_NE(hosted.effect, nullptr);
    hosted.setChunk(chunk);
    EXPECT_EQ(hosted.chunk(), chunk);
    EXPECT_FLOAT_EQ(hosted.parameter(4), 0.5f);
}

// A listening socket stands where the X server of display :87 would be: a
// client that connected would wait in its backlog.
TEST(BridgeLoading, ScanAndProcessingMakeNoXConnection) {
    const std::string serverPath = "/tmp/.X11-unix/X87";
    fs::create_directories("/tmp/.X11-unix");
    if (fs::exists(serverPath)) GTEST_SKIP() << "display :87 is taken";
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    serverPath.copy(address.sun_path, sizeof address.sun_path - 1);
    const int server = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0);
    ASSERT_EQ(bind(server, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    ASSERT_EQ(listen(server, 4), 0);
    const std::string display = getenv("DISPLAY") ? getenv("DISPLAY") : "";
    setenv("DISPLAY", ":87", 1);
    CopiedBridge copy;
    LoadedPlugin bridge(copy.path());
    {
        HostedEffect hosted(bridge), other(bridge);
        ASSERT_TRUE(hosted.effect && other.effect);
        ERect* rect = nullptr;
        hosted.dispatch(effEditGetRect, 0, 0, &rect);
        hosted.dispatch(effEditIdle);
        expectIndependentWorkingInstances(hosted, other);
    }
    EXPECT_LT(accept(server, nullptr, nullptr), 0) << "a client connected";
    close(server);
    unlink(serverPath.c_str());
    unsetenv("DISPLAY");
    HostedEffect hosted(bridge);
    EXPECT_EQ(hosted.dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(0x200001)), 0)
        << "no display: no editor, and nothing breaks";
    hosted.dispatch(effEditIdle);
    hosted.dispatch(effEditClose);
    if (!display.empty()) setenv("DISPLAY", display.c_str(), 1);
}

}  // namespace
