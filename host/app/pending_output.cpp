#include "host/app/pending_output.h"

#include <limits.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <system_error>
#include <vector>

#include "host/app/program_error.h"

namespace {

CommandFailure writeFailure(const std::string& path) {
    return CommandFailure("cannot write " + path + ": " + std::strerror(errno));
}

// Temporary files not yet renamed into place, removed when the program is
// interrupted: plain character arrays, as the signal handler may only unlink.
constexpr int kMostPendingFiles = 4;
char pendingPaths[kMostPendingFiles][PATH_MAX];

void removePendingFilesAndStop(int signalNumber) {
    for (char* path : pendingPaths)
        if (path[0] != '\0') unlink(path);
    std::signal(signalNumber, SIG_DFL);
    std::raise(signalNumber);
}

void watchForInterruption() {
    static bool installed = false;
    if (installed) return;
    installed = true;
    for (int signalNumber : {SIGINT, SIGTERM, SIGHUP})
        std::signal(signalNumber, removePendingFilesAndStop);
}

void rememberPending(const std::string& path) {
    watchForInterruption();
    for (char* slot : pendingPaths)
        if (slot[0] == '\0' && path.size() < PATH_MAX) {
            std::memcpy(slot, path.c_str(), path.size() + 1);
            return;
        }
}

void forgetPending(const std::string& path) {
    for (char* slot : pendingPaths)
        if (path == slot) slot[0] = '\0';
}

// The permissions a newly created file gets, as if made with open(2).
mode_t newFileMode() {
    mode_t mask = umask(0);
    umask(mask);
    return 0666 & ~mask;
}

}  // namespace

void requireFileName(const std::string& path) {
    std::error_code error;
    if (path.empty() || std::filesystem::is_directory(path, error)) {
        errno = EISDIR;
        throw writeFailure(path);
    }
}

PendingOutput::PendingOutput(const std::string& finalPath) : finalPath_(finalPath) {
    requireFileName(finalPath);
    std::filesystem::path target(finalPath);
    std::filesystem::path folder = target.parent_path();
    std::string pattern = (folder.empty() ? std::string() : folder.string() + "/") + "." +
                          target.filename().string() + ".partial-XXXXXX";
    std::vector<char> name(pattern.begin(), pattern.end());
    name.push_back('\0');
    int descriptor = mkstemp(name.data());
    if (descriptor < 0) throw writeFailure(finalPath);
    fchmod(descriptor, newFileMode());
    close(descriptor);
    temporaryPath_ = name.data();
    rememberPending(temporaryPath_);
}

PendingOutput::~PendingOutput() {
    if (committed_) return;
    std::remove(temporaryPath_.c_str());
    forgetPending(temporaryPath_);
}

void PendingOutput::commit() {
    if (std::rename(temporaryPath_.c_str(), finalPath_.c_str()) != 0) throw writeFailure(finalPath_);
    forgetPending(temporaryPath_);
    committed_ = true;
}

void requireDistinctFiles(const std::string& inputPath, const std::string& outputPath) {
    std::error_code error;
    if (inputPath == outputPath || std::filesystem::equivalent(inputPath, outputPath, error))
        throw UsageError("the output file must differ from the input file");
}
