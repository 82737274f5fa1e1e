#include "host/vst/plugin_library.h"

#include <dlfcn.h>

#include <stdexcept>

namespace {

std::string loaderError() {
    const char* message = dlerror();
    return message ? message : "unknown loader error";
}

}  // namespace

PluginLibrary::PluginLibrary(const std::string& path) : path_(path) {
    dlerror();
    // Never unmapped: the plug-in keeps process-wide storage (its chunk buffer,
    // its runtime's pools) that must stay reachable until the process ends.
    handle_ = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL | RTLD_NODELETE);
    if (!handle_) throw std::runtime_error("cannot load plug-in " + path + ": " + loaderError());
    mainEntry_ = reinterpret_cast<VstPluginMainProc>(dlsym(handle_, "VSTPluginMain"));
    if (!mainEntry_) {
        std::string message = "plug-in " + path + " has no VSTPluginMain: " + loaderError();
        dlclose(handle_);
        throw std::runtime_error(message);
    }
}

PluginLibrary::~PluginLibrary() { dlclose(handle_); }

void* PluginLibrary::symbol(const char* name) const { return dlsym(handle_, name); }
