#include "tests/bridge/install_folder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

std::string builtBridgeFolder() { return OMBRO_BRIDGE_DIR; }

std::string bridgePathIn(const std::string& folder) { return folder + "/Ombro.so"; }

CopiedInstallFolder::CopiedInstallFolder() {
    std::string pattern = (fs::temp_directory_path() / "ombro-bridge-XXXXXX").string();
    if (!mkdtemp(pattern.data())) {
        ADD_FAILURE() << "no temporary folder";
        return;
    }
    root_ = pattern;
    path_ = root_ + "/vst/ombro";
    fs::create_directories(path_);
    fs::copy(builtBridgeFolder(), path_, fs::copy_options::recursive);
}

CopiedInstallFolder::~CopiedInstallFolder() {
    std::error_code ignored;
    if (!root_.empty()) fs::remove_all(root_, ignored);
}
