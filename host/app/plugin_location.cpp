#include "host/app/plugin_location.h"

#include <unistd.h>

#include <climits>
#include <filesystem>

namespace {

std::string programFolder() {
    char path[PATH_MAX];
    ssize_t length = readlink("/proc/self/exe", path, sizeof path - 1);
    if (length <= 0) return {};
    return std::filesystem::path(std::string(path, static_cast<size_t>(length))).parent_path();
}

}  // namespace

std::string defaultPluginPath() {
    std::string folder = programFolder();
    if (!folder.empty()) {
        std::filesystem::path installed = std::filesystem::path(folder) / OMBRO_INSTALLED_CORE;
        std::error_code ignored;
        if (std::filesystem::is_regular_file(installed, ignored)) return installed.lexically_normal();
    }
    return OMBRO_PLUGIN_PATH;
}
