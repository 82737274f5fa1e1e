// Loading as hosts do it: no connection to an X server unless an editor
// opens, with two instances at work, and unloading and loading again.
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

// A listening socket stands where the X server of display :87 would be: a
// client that connected would wait in its backlog. The state taken before
// unloading comes back after loading again.
TEST(BridgeLoading, MakesNoXConnectionUntilAnEditorOpensAndWorksAfterReload) {
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
    std::vector<uint8_t> chunk;
    {
        LoadedPlugin bridge(copy.path());
        HostedEffect first(bridge), second(bridge);
        for (HostedEffect* hosted : {&first, &second}) {
            ASSERT_NE(hosted->effect, nullptr);
            ERect* rect = nullptr;
            hosted->dispatch(effEditGetRect, 0, 0, &rect);
            hosted->dispatch(effEditIdle);
            hosted->setParameter(1, 0.75f);
            std::vector<float> left(512, 0.5f), right(left);
            float* channels[2] = {left.data(), right.data()};
            hosted->effect->processReplacing(hosted->effect, channels, channels, 512);
            EXPECT_NE(right[511], 0.5f);
        }
        second.setParameter(4, 0.5f);
        chunk = second.chunk();
    }
    EXPECT_LT(accept(server, nullptr, nullptr), 0) << "a client connected";
    close(server);
    unlink(serverPath.c_str());
    unsetenv("DISPLAY");
    LoadedPlugin reloaded(copy.path());
    HostedEffect hosted(reloaded);
    ASSERT_NE(hosted.effect, nullptr);
    hosted.setChunk(chunk);
    EXPECT_EQ(hosted.chunk(), chunk);
    EXPECT_FLOAT_EQ(hosted.parameter(4), 0.5f);
    EXPECT_EQ(hosted.dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(0x200001)), 0)
        << "no display: no editor, and nothing breaks";
    hosted.dispatch(effEditIdle);
    hosted.dispatch(effEditClose);
    if (!display.empty()) setenv("DISPLAY", display.c_str(), 1);
}

}  // namespace
