// A host's scan of a plug-in folder, as a command: every file whose name ends
// in ".so", found recursively, is loaded in a fresh process with RTLD_LOCAL
// and asked for an instance through VSTPluginMain with a callback that
// answers only audioMasterVersion.
//
//   vst_scan_probe FOLDER
//
// Prints one line per file; exits 0 when exactly one plug-in was found and
// every file gave an instance, 1 otherwise.
#include <dlfcn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <filesystem>
#include <string>

#include "contracts/vst2.h"

namespace {

intptr_t versionOnlyHost(AEffect*, int32_t opcode, int32_t, intptr_t, void*, float) {
    return opcode == audioMasterVersion ? 2400 : 0;
}

// In the child: 0 when the file gives a working instance.
int scanOne(const std::string& path) {
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (!library) {
        std::printf("%s: does not load: %s\n", path.c_str(), dlerror());
        return 1;
    }
    auto main = reinterpret_cast<VstPluginMainProc>(dlsym(library, "VSTPluginMain"));
    AEffect* effect = main ? main(versionOnlyHost) : nullptr;
    if (!effect || effect->magic != kEffectMagic) {
        std::printf("%s: gives no instance\n", path.c_str());
        return 1;
    }
    char name[64] = {};
    effect->dispatcher(effect, effGetEffectName, 0, 0, name, 0.0f);
    std::printf("%s: plug-in \"%s\", %d parameters\n", path.c_str(), name, effect->numParams);
    effect->dispatcher(effect, effClose, 0, 0, nullptr, 0.0f);
    dlclose(library);
    return 0;
}

bool scannedInFreshProcess(const std::string& path) {
    std::fflush(stdout);
    pid_t child = fork();
    if (child == 0) {
        int failed = scanOne(path);
        std::fflush(stdout);
        _exit(failed);
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: vst_scan_probe FOLDER\n");
        return 2;
    }
    int plugins = 0, failures = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(argv[1])) {
        if (!entry.is_regular_file() || entry.path().extension() != ".so") continue;
        if (scannedInFreshProcess(entry.path().string())) ++plugins; else ++failures;
    }
    std::printf("%d plug-in(s), %d failure(s)\n", plugins, failures);
    return plugins == 1 && failures == 0 ? 0 : 1;
}
