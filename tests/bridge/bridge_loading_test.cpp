// Loading as hosts do it: several instances, two installed copies of the
// bridge in one process, unloading and loading again, and no connection to
// an X server unless an editor opens.
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

#include "tests/bridge/bridge_fixture.h"
#include "tests/bridge/install_folder.h"

namespace {

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
        hosted->effect()->processReplacing(hosted->effect(), channels, channels, 512);
        EXPECT_NE(left[511], 0.5f);
    }
}

template <typename Function>
std::string objectOf(Function* function) {
    Dl_info info{};
    dladdr(reinterpret_cast<void*>(function), &info);
    return info.dli_fname ? info.dli_fname : "";
}

TEST(BridgeLoading, InstancesOfOneBridgeAreIndependent) {
    auto first = HostedEffect::open(builtBridge());
    auto second = HostedEffect::open(builtBridge());
    ASSERT_TRUE(first && second);
    EXPECT_NE(first->effect(), second->effect());
    expectIndependentWorkingInstances(*first, *second);
}

TEST(BridgeLoading, TwoInstalledCopiesServeInstancesTogether) {
    CopiedInstallFolder userFolder, systemFolder;
    LoadedPlugin userBridge(userFolder.bridgePath());
    LoadedPlugin systemBridge(systemFolder.bridgePath());
    ASSERT_NE(userBridge.handle(), systemBridge.handle()) << "two distinct objects";
    auto fromUser = HostedEffect::open(userBridge);
    auto fromSystem = HostedEffect::open(systemBridge);
    ASSERT_TRUE(fromUser && fromSystem);
    EXPECT_EQ(fromSystem->effect()->numParams, kDefaultParameterCount);
    EXPECT_EQ(objectOf(fromUser->effect()->dispatcher), objectOf(fromSystem->effect()->dispatcher))
        << "the copy whose windowing layer the process uses serves both";
    expectIndependentWorkingInstances(*fromUser, *fromSystem);
    ERect* rect = nullptr;
    EXPECT_EQ(fromSystem->dispatch(effEditGetRect, 0, 0, &rect), 1) << "the editor stays offered";
}

// In a fresh child process: a windowing layer that is not a bridge's is
// already global (the stand-in host's library, as a host that offered the
// layer itself would have it); the bridge then gives instances that process
// audio but offer no editor. Exit code 0 on success, 77 when the process
// already had a layer.
int runWithForeignLayer(const std::string& bridgePath) {
    if (dlsym(RTLD_DEFAULT, "KOBALAPI_GetFunc")) return 77;
    if (!dlopen(OMBRO_HOST_LIBRARY, RTLD_NOW | RTLD_GLOBAL)) return 1;
    void* bridge = dlopen(bridgePath.c_str(), RTLD_NOW | RTLD_LOCAL);
    auto main = bridge ? reinterpret_cast<VstPluginMainProc>(dlsym(bridge, "VSTPluginMain")) : nullptr;
    AEffect* effect = main ? main(plainHostCallback) : nullptr;
    if (!effect || (effect->flags & effFlagsHasEditor)) return 2;
    ERect* rect = nullptr;
    if (effect->dispatcher(effect, effEditGetRect, 0, 0, &rect, 0.0f) != 0) return 3;
    std::vector<float> left(64, 0.5f), right(64, 0.5f);
    float* channels[2] = {left.data(), right.data()};
    effect->setParameter(effect, 1, 1.0f);
    for (int block = 0; block < 4; ++block) effect->processReplacing(effect, channels, channels, 64);
    if (left[63] == 0.5f) return 4;
    effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0f);
    return 0;
}

TEST(BridgeLoading, AnotherLayerFirstInTheProcessLeavesInstancesWithoutEditor) {
    CopiedInstallFolder folder;
    pid_t child = fork();
    if (child == 0) _exit(runWithForeignLayer(folder.bridgePath()));
    int status = 0;
    waitpid(child, &status, 0);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == 77) GTEST_SKIP() << "a bridge is loaded in this process already";
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST(BridgeLoading, WorksAfterUnloadAndReload) {
    CopiedInstallFolder folder;
    std::vector<uint8_t> chunk;
    {
        LoadedPlugin bridge(folder.bridgePath());
        auto hosted = HostedEffect::open(bridge);
        ASSERT_NE(hosted, nullptr);
        hosted->setParameter(4, 0.5f);
        chunk = hosted->chunk();
    }
    LoadedPlugin reloaded(folder.bridgePath());
    auto hosted = HostedEffect::open(reloaded);
    ASSERT_NE(hosted, nullptr);
    hosted->setChunk(chunk);
    EXPECT_EQ(hosted->chunk(), chunk);
    EXPECT_FLOAT_EQ(hosted->parameter(4), 0.5f);
}

// A listening socket where an X server of display `number` would be; it
// counts the clients that connected.
class FakeXServer {
public:
    explicit FakeXServer(int number) : path_("/tmp/.X11-unix/X" + std::to_string(number)) {
        std::filesystem::create_directories("/tmp/.X11-unix");
        if (std::filesystem::exists(path_)) return;  // a real server: not ours to use
        socket_ = socket(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0);
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path_.copy(address.sun_path, sizeof address.sun_path - 1);
        if (bind(socket_, reinterpret_cast<sockaddr*>(&address), sizeof address) != 0 ||
            listen(socket_, 4) != 0) {
            close(socket_);
            socket_ = -1;
        }
    }
    ~FakeXServer() {
        if (socket_ < 0) return;
        close(socket_);
        unlink(path_.c_str());
    }
    bool listening() const { return socket_ >= 0; }
    int connectedClients() const {
        int count = 0;
        for (int client; (client = accept(socket_, nullptr, nullptr)) >= 0; ++count) close(client);
        return count;
    }

private:
    std::string path_;
    int socket_ = -1;
};

TEST(BridgeLoading, ScanAndProcessingMakeNoXConnection) {
    constexpr int kDisplayNumber = 87;
    FakeXServer server(kDisplayNumber);
    if (!server.listening()) GTEST_SKIP() << "display :87 is taken";
    setenv("DISPLAY", ":87", 1);
    CopiedInstallFolder folder;
    {
        LoadedPlugin bridge(folder.bridgePath());
        auto hosted = HostedEffect::open(bridge);
        ASSERT_NE(hosted, nullptr);
        ERect* rect = nullptr;
        hosted->dispatch(effEditGetRect, 0, 0, &rect);
        hosted->dispatch(effEditIdle);
        expectIndependentWorkingInstances(*hosted, *HostedEffect::open(bridge));
    }
    EXPECT_EQ(server.connectedClients(), 0);
    unsetenv("DISPLAY");
    LoadedPlugin bridge(folder.bridgePath());
    auto hosted = HostedEffect::open(bridge);
    ASSERT_NE(hosted, nullptr);
    EXPECT_EQ(hosted->dispatch(effEditOpen, 0, 0, reinterpret_cast<void*>(0x200001)), 0)
        << "no display: no editor, and nothing breaks";
    hosted->dispatch(effEditIdle);
    hosted->dispatch(effEditClose);
}

}  // namespace
