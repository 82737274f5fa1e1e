// Every kind of bad input ends the program with one line on standard error,
// exit code 1 (the work failed) or 2 (usage), and leaves the folder as it was.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdint>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <limits>
#include <map>
#include <sstream>

#include "program_runner.h"
#include "sound_fixtures.h"

namespace {

namespace fs = std::filesystem;

bool contains(const std::string& text, const std::string& part) {
    return text.find(part) != std::string::npos;
}

std::string readWholeFile(const fs::path& path) {
    std::ifstream file(path, std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

void writeBytes(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

template <typename T>
void append(std::string& bytes, T value) {
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

// A state with one band record of 33 bytes and the whole trailer.
std::string stateBytes(int32_t recordSize, int32_t count, int32_t type, double frequency) {
    std::string bytes;
    append(bytes, recordSize);
    append(bytes, count);
    append(bytes, type);
    append<int32_t>(bytes, 1);
    append(bytes, frequency);
    append(bytes, 1.0);
    append(bytes, 1.0);
    append<uint8_t>(bytes, 1);
    for (int32_t field : {1, 1}) append(bytes, field);
    append(bytes, 1.0);
    for (int32_t field : {0, 0, 0}) append(bytes, field);
    return bytes;
}

// A 16-bit mono WAV header announcing `sampleRate` and 100 samples, with them.
std::string wavWithRate(uint32_t sampleRate) {
    std::string bytes = "RIFF";
    append<uint32_t>(bytes, 36 + 200);
    bytes += "WAVEfmt ";
    append<uint32_t>(bytes, 16);
    append<uint16_t>(bytes, 1);
    append<uint16_t>(bytes, 1);
    append<uint32_t>(bytes, sampleRate);
    append<uint32_t>(bytes, sampleRate * 2);
    append<uint16_t>(bytes, 2);
    append<uint16_t>(bytes, 16);
    bytes += "data";
    append<uint32_t>(bytes, 200);
    return bytes + std::string(200, '\0');
}

// Every file in the folder with its contents.
std::map<std::string, std::string> snapshot(const fs::path& folder) {
    std::map<std::string, std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
        files[entry.path().string()] =
            entry.is_symlink() ? "link to " + fs::read_symlink(entry.path()).string()
            : entry.is_regular_file() ? readWholeFile(entry.path()) : "folder";
    return files;
}

// A folder of inputs, good and bad, and an earlier output to be kept.
fs::path makeFixtureFolder() {
    fs::path folder = temporaryPath("bad_input");
    fs::create_directories(folder / "sub");
    fs::rename(writeTone("x.wav", 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 4410), folder / "tone.wav");
    std::string tone = readWholeFile(folder / "tone.wav");
    writeBytes(folder / "cut.wav", tone.substr(0, tone.size() / 2));
    writeBytes(folder / "header-only.wav", tone.substr(0, 44));
    for (int container : {SF_FORMAT_AIFF, SF_FORMAT_FLAC}) {
        std::string whole = readWholeFile(writeTone("whole", 1, container | SF_FORMAT_PCM_16, 44100));
        writeBytes(folder / (container == SF_FORMAT_AIFF ? "cut.aiff" : "cut.flac"),
                   whole.substr(0, whole.size() / 2));
    }
    writeBytes(folder / "text.wav", "these are not samples\n");
    writeBytes(folder / "empty.wav", "");
    writeBytes(folder / "rate0.wav", wavWithRate(0));
    writeBytes(folder / "rate1M.wav", wavWithRate(1000000));
    writeSound((folder / "six.wav").string(), 6, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 100,
               [](int, int) { return 0.0; });
    writeBytes(folder / "previous.wav", "an earlier result");
    writeBytes(folder / "garbage.state", "these are not bands either\n");
    writeBytes(folder / "many-bands.state", stateBytes(33, std::numeric_limits<int32_t>::max(), 8, 1000.0));
    writeBytes(folder / "nan.state", stateBytes(33, 1, 8, std::numeric_limits<double>::quiet_NaN()));
    writeBytes(folder / "type12.state", stateBytes(33, 1, 12, 1000.0));
    writeBytes(folder / "record31.state", stateBytes(31, 1, 8, 1000.0));
    writeBytes(folder / "trailing.state", stateBytes(33, 1, 8, 1000.0) + "xyz");
    fs::create_symlink("tone.wav", folder / "link.wav");
    return folder;
}

TEST(ProgramBadInput, FailsWithOneLineAndLeavesTheFolderUnchanged) {
    struct Case {
        std::vector<std::string> arguments;  // "@" stands for the folder
        int exitCode;
        const char* said;
    };
    const Case cases[] = {
        {{"process", "@/absent.wav", "@/out.wav"}, 1, "cannot read @/absent.wav"},
        {{"process", "@/sub", "@/out.wav"}, 1, "is a directory"},
        {{"process", "@/text.wav", "@/out.wav"}, 1, "not a sound file"},
        {{"process", "@/empty.wav", "@/out.wav"}, 1, "not a sound file"},
        {{"process", "@/cut.wav", "@/out.wav"}, 1, "cut short"},
        {{"process", "@/header-only.wav", "@/out.wav"}, 1, "cut short"},
        {{"process", "@/cut.aiff", "@/out.wav"}, 1, "cut short"},
        {{"process", "@/cut.flac", "@/out.wav"}, 1, "cut short"},
        {{"process", "@/rate0.wav", "@/out.wav"}, 1, "rate0.wav"},
        {{"process", "@/rate1M.wav", "@/out.wav"}, 1, "768000"},
        {{"process", "@/six.wav", "@/out.wav"}, 1, "6 channels"},
        {{"process", "@/tone.wav", "@/absent/out.wav"}, 1, "cannot write @/absent/out.wav"},
        {{"process", "@/tone.wav", "@/sub"}, 1, "cannot write @/sub"},
        {{"process", "@/tone.wav", "@/tone.wav"}, 2, "must differ"},
        {{"process", "@/tone.wav", "@/link.wav"}, 2, "must differ"},
        {{"process", "@/tone.wav", "@/previous.wav", "--state", "@/garbage.state"}, 1, "not a valid state"},
        {{"process", "@/tone.wav", "@/previous.wav", "--state", "@/many-bands.state"}, 1, "claims 2147483647 bands"},
        {{"process", "@/tone.wav", "@/previous.wav", "--state", "@/nan.state"}, 1, "not a number"},
        {{"process", "@/tone.wav", "@/previous.wav", "--state", "@/type12.state"}, 1, "unknown band type 12"},
        {{"process", "@/tone.wav", "@/previous.wav", "--state", "@/record31.state"}, 1, "record size 31"},
        {{"process", "@/tone.wav", "@/previous.wav", "--state", "@/trailing.state"}, 1, "ends in 31 bytes"},
        {{"process", "@/tone.wav", "@/previous.wav", "--state", "@/absent.state"}, 1, "cannot read state file"},
        {{"process", "@/tone.wav", "@/previous.wav", "--band", "shelf,1k,3,1"}, 2, "unknown band type"},
        {{"process", "@/tone.wav", "@/previous.wav", "--band", "peak,1k,,1"}, 2, "gain is not a number"},
        {{"process", "@/tone.wav", "@/previous.wav", "--output-gain", "-inf"}, 2, "not a number"},
        {{"process", "@/tone.wav", "@/previous.wav", "--sample-rate", "0"}, 2, "sample rate"},
        {{"save-state", "@/previous.wav", "--state", "@/garbage.state"}, 1, "not a valid state"},
        {{"save-state", "@/absent/new.state"}, 1, "cannot write"},
        {{"load-state", "@/garbage.state"}, 1, "not a valid state"},
        {{"render-editor", "@/previous.wav", "--audio", "@/cut.wav"}, 1, "cut short"},
        {{"render-editor", "@/sub/picture.png", "--audio", "@/text.wav"}, 1, "not a sound file"},
        {{"render-editor", "@/absent/picture.png"}, 1, "cannot write"},
        {{"response", "--state", "@/type12.state"}, 1, "unknown band type 12"},
        {{"demo", "--out", "@/previous.wav"}, 1, "cannot make the folder"},
    };
    fs::path folder = makeFixtureFolder();
    std::map<std::string, std::string> before = snapshot(folder);
    for (const Case& test : cases) {
        std::vector<std::string> arguments;
        std::string traced;
        for (const std::string& argument : test.arguments) {
            std::string word = argument;
            if (word[0] == '@') word.replace(0, 1, folder.string());
            arguments.push_back(word);
            traced += argument + " ";
        }
        SCOPED_TRACE(traced);
        ProgramResult result = runHostProgram(arguments);
        EXPECT_EQ(result.exitCode, test.exitCode);
        std::string said = test.said;
        if (size_t at = said.find('@'); at != std::string::npos) said.replace(at, 1, folder.string());
        std::vector<std::string> lines = linesStartingWith(result.err, "");
        ASSERT_EQ(lines.size(), test.exitCode == 2 ? 2u : 1u) << result.err;
        EXPECT_TRUE(contains(lines[0], said)) << lines[0];
        EXPECT_TRUE(snapshot(folder) == before) << "the folder changed";
    }
    fs::remove_all(folder);
}

}  // namespace
