#include "tests/ardour/child_process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <fstream>
#include <sstream>
#include <thread>

namespace {

// Starts argv in a new process group with its output sent to `outputPath`.
int spawnInOwnGroup(const std::vector<std::string>& argv, const EnvironmentChanges& environment,
                    const std::string& outputPath) {
    std::vector<std::string> words = argv;
    std::vector<char*> arguments;
    for (std::string& word : words) arguments.push_back(word.data());
    arguments.push_back(nullptr);
    int pid = fork();
    if (pid != 0) return pid;
    setpgid(0, 0);
    int output = open(outputPath.c_str(), O_WRONLY | O_CREAT | O_TRUNC, 0600);
    int nothing = open("/dev/null", O_RDONLY);
    if (output >= 0) {
        dup2(output, STDOUT_FILENO);
        dup2(output, STDERR_FILENO);
    }
    if (nothing >= 0) dup2(nothing, STDIN_FILENO);
    for (const auto& [name, value] : environment) setenv(name.c_str(), value.c_str(), 1);
    execvp(arguments[0], arguments.data());
    _exit(127);
}

std::string readWholeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

void killGroup(int pid) {
    kill(-pid, SIGKILL);
    waitpid(pid, nullptr, 0);
}

}  // namespace

ChildResult runChild(const std::vector<std::string>& argv, const EnvironmentChanges& environment,
                     double timeLimitSeconds) {
    char pattern[] = "/tmp/ombro_child_XXXXXX";
    int file = mkstemp(pattern);
    if (file >= 0) close(file);
    ChildResult result;
    int pid = spawnInOwnGroup(argv, environment, pattern);
    if (pid < 0) return result;
    auto deadline = std::chrono::steady_clock::now() +
                    std::chrono::duration<double>(timeLimitSeconds);
    int status = 0;
    while (waitpid(pid, &status, WNOHANG) == 0) {
        if (std::chrono::steady_clock::now() > deadline) {
            result.timedOut = true;
            killGroup(pid);
            break;
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
    }
    // Helpers the tool left behind in its group go with it.
    kill(-pid, SIGKILL);
    if (!result.timedOut && WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
    result.output = readWholeFile(pattern);
    unlink(pattern);
    return result;
}

BackgroundChild::BackgroundChild(const std::vector<std::string>& argv,
                                 const EnvironmentChanges& environment,
                                 const std::string& outputPath)
    : pid_(spawnInOwnGroup(argv, environment, outputPath)) {}

BackgroundChild::~BackgroundChild() {
    if (pid_ > 0) killGroup(pid_);
}

bool BackgroundChild::running() {
    if (pid_ <= 0) return false;
    return waitpid(pid_, nullptr, WNOHANG) == 0;
}
