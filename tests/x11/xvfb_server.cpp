#include "tests/x11/xvfb_server.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <sstream>

namespace {

// Reads the display number that Xvfb writes once it is ready.
std::string readDisplayNumber(int fd) {
    std::string number;
    for (char c = 0;; number.push_back(c)) {
        pollfd ready{fd, POLLIN, 0};
        if (poll(&ready, 1, 20000) <= 0 || read(fd, &c, 1) != 1) return "";
        if (c == '\n') return number;
    }
}

}  // namespace

XvfbServer& testServer() {
    static XvfbServer server;
    return server;
}

bool XvfbServer::available() {
    const char* path = std::getenv("PATH");
    std::istringstream folders(path ? path : "/usr/bin");
    for (std::string folder; std::getline(folders, folder, ':');)
        if (access((folder + "/Xvfb").c_str(), X_OK) == 0) return true;
    return false;
}

XvfbServer::XvfbServer(const char* screen) {
    int pipeEnds[2];
    if (!available() || pipe(pipeEnds) != 0) return;
    pid_ = fork();
    if (pid_ == 0) {
        close(pipeEnds[0]);
        int quiet = open("/dev/null", O_WRONLY);
        dup2(quiet, STDOUT_FILENO);
        dup2(quiet, STDERR_FILENO);
        std::string fd = std::to_string(pipeEnds[1]);
        execlp("Xvfb", "Xvfb", "-displayfd", fd.c_str(), "-screen", "0", screen,
               "-nolisten", "tcp", "-noreset", static_cast<char*>(nullptr));
        _exit(127);
    }
    close(pipeEnds[1]);
    std::string number = pid_ > 0 ? readDisplayNumber(pipeEnds[0]) : "";
    close(pipeEnds[0]);
    if (number.empty()) return;
    display_ = ":" + number;
    setenv("DISPLAY", display_.c_str(), 1);
}

XvfbServer::~XvfbServer() {
    if (pid_ <= 0) return;
    kill(pid_, SIGTERM);
    waitpid(pid_, nullptr, 0);
}
