// The equalizer's shared object, opened with the dynamic loader. The windowing
// layer is bound by the plug-in while it loads, so the layer's options must be
// set before a library is opened.
#pragma once

#include <string>

#include "contracts/vst2.h"

class PluginLibrary {
public:
    // Opens the shared object at `path` and finds VSTPluginMain. Throws
    // std::runtime_error with the loader's message when either fails.
    explicit PluginLibrary(const std::string& path = OMBRO_PLUGIN_PATH);
    ~PluginLibrary();
    PluginLibrary(const PluginLibrary&) = delete;
    PluginLibrary& operator=(const PluginLibrary&) = delete;

    const std::string& path() const { return path_; }
    VstPluginMainProc mainEntry() const { return mainEntry_; }
    // Address of any exported symbol, or null.
    void* symbol(const char* name) const;

private:
    std::string path_;
    void* handle_ = nullptr;
    VstPluginMainProc mainEntry_ = nullptr;
};
