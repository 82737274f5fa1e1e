#include "program_runner.h"

#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fcntl.h>

#include <cstdio>
#include <fstream>
#include <sstream>

extern char** environ;

namespace {

std::string readWholeFile(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

}  // namespace

std::string temporaryPath(const std::string& name) {
    static int counter = 0;
    return testing::TempDir() + "ombro_host_test_" + std::to_string(getpid()) + "_" +
           std::to_string(counter++) + "_" + name;
}

RunningProgram startHostProgram(const std::vector<std::string>& arguments) {
    RunningProgram program;
    program.outPath = temporaryPath("stdout.txt");
    program.errPath = temporaryPath("stderr.txt");
    std::vector<std::string> words = {OMBRO_HOST_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);

    // Output goes to files, so neither stream can block the other.
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, program.outPath.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, program.errPath.c_str(),
                                     O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t child = 0;
    int spawned = posix_spawn(&child, argv[0], &actions, nullptr, argv.data(), environ);
    posix_spawn_file_actions_destroy(&actions);
    if (spawned == 0) program.processId = child;
    return program;
}

ProgramResult finishHostProgram(const RunningProgram& program) {
    ProgramResult result;
    if (program.processId < 0) {
        result.err = std::string("cannot start ") + OMBRO_HOST_PROGRAM;
        return result;
    }
    int status = 0;
    waitpid(program.processId, &status, 0);
    if (WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
    result.out = readWholeFile(program.outPath);
    result.err = readWholeFile(program.errPath);
    std::remove(program.outPath.c_str());
    std::remove(program.errPath.c_str());
    return result;
}

ProgramResult runHostProgram(const std::vector<std::string>& arguments) {
    return finishHostProgram(startHostProgram(arguments));
}

std::vector<std::string> linesStartingWith(const std::string& text, const std::string& prefix) {
    std::vector<std::string> lines;
    std::istringstream stream(text);
    std::string line;
    while (std::getline(stream, line))
        if (line.compare(0, prefix.size(), prefix) == 0) lines.push_back(line);
    return lines;
}
