// Every kind of bad input ends the program with one line on standard error
// (and a pointer to --help for usage errors), exit code 1 (the work failed)
// or 2 (usage), and leaves the folder as it was.
#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <limits>
#include <map>

#include "program_runner.h"
#include "sound_fixtures.h"

namespace {

namespace fs = std::filesystem;

void writeBytes(const fs::path& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary) << bytes;
}

template <typename T>
void append(std::string& bytes, T value) {
    bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
}

// A state of one band: records of 32 bytes have no automation byte; the
// whole trailer is the grid and tab switches, output gain, view flags and size.
std::string stateBytes(int32_t recordSize, int32_t count, int32_t type, double frequency,
                       bool wholeTrailer = true) {
    std::string bytes;
    for (int32_t field : {recordSize, count, type, 1}) append(bytes, field);
    for (double field : {frequency, 1.0, 1.0}) append(bytes, field);
    if (recordSize != 32) append<uint8_t>(bytes, 1);
    for (int32_t field : {1, 1}) append(bytes, field);
    if (wholeTrailer) append(bytes, 1.0);
    for (int32_t field : wholeTrailer ? std::vector{0, 0, 0} : std::vector{0}) append(bytes, field);
    return bytes;
}

// Every file in the folder with its contents.
std::map<std::string, std::string> snapshot(const fs::path& folder) {
    std::map<std::string, std::string> files;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder))
        files[entry.path().string()] =
            entry.is_symlink() ? "link to " + fs::read_symlink(entry.path()).string()
            : entry.is_regular_file() ? fileContents(entry.path()) : "folder";
    return files;
}

// A folder of inputs, good and bad, and an earlier output to be kept.
fs::path makeFixtureFolder() {
    fs::path folder = temporaryPath("bad_input");
    fs::create_directories(folder / "sub");
    fs::rename(writeTone("x.wav", 1, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 4410), folder / "tone.wav");
    std::string tone = fileContents(folder / "tone.wav");
    writeBytes(folder / "cut.wav", tone.substr(0, tone.size() / 2));
    writeBytes(folder / "text.wav", "these are not samples\n");
    writeSound((folder / "three.wav").string(), 3, SF_FORMAT_WAV | SF_FORMAT_PCM_16, 100,
               [](int, int) { return 0.0; });
    writeBytes(folder / "old.wav", "an earlier result");
    writeBytes(folder / "bad.state", "these are not bands either\n");
    writeBytes(folder / "many.state", stateBytes(33, std::numeric_limits<int32_t>::max(), 8, 1e3));
    writeBytes(folder / "nan.state", stateBytes(33, 1, 8, std::numeric_limits<double>::quiet_NaN()));
    writeBytes(folder / "type12.state", stateBytes(33, 1, 12, 1e3));
    writeBytes(folder / "record31.state", stateBytes(31, 1, 8, 1e3));
    writeBytes(folder / "trailing.state", stateBytes(33, 1, 8, 1e3) + "xyz");
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
        {{}, 2, "no command"},
        {{"equalize"}, 2, "'equalize'"},
        {{"process", "@/tone.wav"}, 2, "process expects IN OUT"},
        {{"info", "--set", "7=1.5"}, 2, "0..1"},
        {{"response", "--band", "shelf,1k,6,1"}, 2, "unknown band type 'shelf'"},
        {{"response", "--band", "peak,1k,nan,1"}, 2, "gain is not a number: 'nan'"},
        {{"response", "--sample-rate", "768001"}, 2, "sample rate"},
        {{"render-editor", "@/x.png", "--size", "0x10"}, 2, "window size out of range: 0x10"},
        {{"process", "@/tone.wav", "@/b.flac", "--format", "double"}, 2, "cannot hold 64-bit float"},
        {{"process", "@/tone.wav", "@/link.wav"}, 2, "must differ"},
        {{"edit", "--audio", "@/absent.wav"}, 1, "cannot read @/absent.wav"},
        {{"info", "--without-extension", "MURA_Arc"}, 1, "refused"},
        {{"process", "@/sub", "@/out.wav"}, 1, "is a directory"},
        {{"process", "@/text.wav", "@/out.wav"}, 1, "not a sound file"},
        {{"process", "@/cut.wav", "@/out.wav"}, 1, "cut short"},
        {{"process", "@/three.wav", "@/out.wav"}, 1, "3 channels"},
        {{"process", "@/tone.wav", "@/sub"}, 1, "cannot write @/sub"},
        {{"load-state", "@/bad.state"}, 1, "not a valid state"},
        {{"process", "@/tone.wav", "@/old.wav", "--state", "@/many.state"}, 1, "claims 2147483647 bands"},
        {{"process", "@/tone.wav", "@/old.wav", "--state", "@/nan.state"}, 1, "not a number"},
        {{"process", "@/tone.wav", "@/old.wav", "--state", "@/record31.state"}, 1, "record size 31"},
        {{"process", "@/tone.wav", "@/old.wav", "--state", "@/trailing.state"}, 1, "ends in 31 bytes"},
        {{"response", "--state", "@/type12.state"}, 1, "unknown band type 12"},
        {{"demo", "--out", "@/old.wav"}, 1, "cannot make the folder"},
    };
    fs::path folder = makeFixtureFolder();
    std::map<std::string, std::string> before = snapshot(folder);
    auto placed = [&](std::string word) {
        if (size_t at = word.find('@'); at != std::string::npos) word.replace(at, 1, folder.string());
        return word;
    };
    for (const Case& test : cases) {
        std::vector<std::string> arguments;
        for (const std::string& argument : test.arguments) arguments.push_back(placed(argument));
        SCOPED_TRACE(test.said);
        ProgramResult result = runHostProgram(arguments);
        EXPECT_EQ(result.exitCode, test.exitCode);
        std::vector<std::string> lines = linesStartingWith(result.err, "");
        ASSERT_EQ(lines.size(), test.exitCode == 2 ? 2u : 1u) << result.err;
        EXPECT_TRUE(hasText(lines[0], placed(test.said))) << lines[0];
        if (test.exitCode == 2) {
            EXPECT_EQ(lines[1], "Try 'ombro-host --help' for more information.");
            EXPECT_TRUE(result.out.empty()) << result.out;
        }
        EXPECT_TRUE(snapshot(folder) == before) << "the folder changed";
    }
    fs::remove_all(folder);
}

TEST(ProgramState, OlderLayoutsLoad) {
    // Records of 32 bytes, with a trailer of only the switches and view flags or with none.
    std::string withTrailer = stateBytes(32, 1, 8, 440.0, false);
    for (const std::string& bytes : {withTrailer, withTrailer.substr(0, 40)}) {
        std::string path = temporaryPath("old.state");
        writeBytes(path, bytes);
        ProgramResult loaded = runHostProgram({"load-state", path});
        EXPECT_EQ(loaded.exitCode, 0) << loaded.err;
        EXPECT_TRUE(hasText(loaded.out, "    0  Freq-Band 1          0.018333  440.0 Hz\n"));
    }
}

}  // namespace
