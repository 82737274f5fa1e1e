#include "program_runner.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <sstream>

extern char** environ;

std::string fileContents(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

std::string temporaryPath(const std::string& name) {
    static int counter = 0;
    return testing::TempDir() + "ombro_host_test_" + std::to_string(getpid()) + "_" +
           std::to_string(counter++) + "_" + name;
}

RunningProgram startHostProgram(const std::vector<std::string>& arguments) {
    RunningProgram program{-1, temporaryPath("stdout.txt"), temporaryPath("stderr.txt")};
    std::vector<std::string> words = {OMBRO_HOST_PROGRAM};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char*> argv;
    for (std::string& word : words) argv.push_back(word.data());
    argv.push_back(nullptr);
    // Output goes to files, so neither stream can block the other.
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    for (auto [stream, path] : {std::pair{STDOUT_FILENO, &program.outPath},
                                std::pair{STDERR_FILENO, &program.errPath}})
        posix_spawn_file_actions_addopen(&actions, stream, path->c_str(),
                                         O_WRONLY | O_CREAT | O_TRUNC, 0600);
    pid_t child = 0;
    if (posix_spawn(&child, argv[0], &actions, nullptr, argv.data(), environ) == 0)
        program.processId = child;
    posix_spawn_file_actions_destroy(&actions);
    return program;
}

ProgramResult finishHostProgram(const RunningProgram& program) {
    if (program.processId < 0) return {-1, "", std::string("cannot start ") + OMBRO_HOST_PROGRAM};
    ProgramResult result;
    int status = 0;
    waitpid(program.processId, &status, 0);
    if (WIFEXITED(status)) result.exitCode = WEXITSTATUS(status);
    result.out = fileContents(program.outPath);
    result.err = fileContents(program.errPath);
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
    for (std::string line; std::getline(stream, line);)
        if (line.starts_with(prefix)) lines.push_back(line);
    return lines;
}

bool hasText(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}
