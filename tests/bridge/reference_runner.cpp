#include "tests/bridge/reference_runner.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>

namespace fs = std::filesystem;

namespace {

std::string temporaryPath(const char* name) {
    return (fs::temp_directory_path() / (std::string(name) + std::to_string(getpid()))).string();
}

std::string runProgram(const std::string& command) {
    std::string output;
    FILE* pipe = popen(command.c_str(), "r");
    if (!pipe) return output;
    char buffer[4096];
    size_t read = 0;
    while ((read = fread(buffer, 1, sizeof buffer, pipe)) > 0) output.append(buffer, read);
    EXPECT_EQ(pclose(pipe), 0) << command;
    return output;
}

ParameterAnswer parseLine(const std::string& line) {
    std::vector<std::string> fields;
    std::stringstream stream(line);
    std::string field;
    while (std::getline(stream, field, '\t')) fields.push_back(field);
    fields.resize(5);
    return {fields[1], fields[2], fields[3], std::strtof(fields[4].c_str(), nullptr)};
}

}  // namespace

ReferenceAnswers standInAnswers(const std::vector<ParameterValue>& values,
                                const std::vector<uint8_t>& chunk) {
    std::string chunkIn = temporaryPath("ombro-chunk-in-");
    std::string chunkOut = temporaryPath("ombro-chunk-out-");
    std::string command = std::string(OMBRO_STAND_IN_REFERENCE) + " --chunk-out " + chunkOut;
    if (!chunk.empty()) {
        std::ofstream(chunkIn, std::ios::binary)
            .write(reinterpret_cast<const char*>(chunk.data()), static_cast<std::streamsize>(chunk.size()));
        command += " --chunk-in " + chunkIn;
    }
    char setting[64];
    for (const ParameterValue& value : values) {
        std::snprintf(setting, sizeof setting, " %d=%.9g", value.index, static_cast<double>(value.value));
        command += setting;
    }
    ReferenceAnswers answers;
    std::stringstream lines(runProgram(command));
    for (std::string line; std::getline(lines, line);) answers.parameters.push_back(parseLine(line));
    std::ifstream in(chunkOut, std::ios::binary);
    answers.chunk.assign(std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>());
    fs::remove(chunkIn);
    fs::remove(chunkOut);
    return answers;
}
