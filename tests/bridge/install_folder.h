// The bridge's install folder as the build lays it out (Ombro.so beside the
// core), and copies of it in fresh temporary folders, as a user would have
// after installing into two places.
#pragma once

#include <string>

// The build's folder: OMBRO_BRIDGE_DIR.
std::string builtBridgeFolder();
std::string bridgePathIn(const std::string& folder);

// A copy of the build's folder in a new temporary folder, removed on destruction.
class CopiedInstallFolder {
public:
    CopiedInstallFolder();
    ~CopiedInstallFolder();
    CopiedInstallFolder(const CopiedInstallFolder&) = delete;
    CopiedInstallFolder& operator=(const CopiedInstallFolder&) = delete;

    const std::string& path() const { return path_; }
    std::string bridgePath() const { return bridgePathIn(path_); }

private:
    std::string root_;
    std::string path_;
};
