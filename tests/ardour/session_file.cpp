#include "tests/ardour/session_file.h"

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include "tests/ardour/ardour_sandbox.h"

namespace fs = std::filesystem;

namespace {

// Base64 (how Ardour keeps a chunk) by coreutils, through a file of `bytes`
// beside the session.
std::string base64(const std::string& folder, const std::string& option, const std::string& bytes) {
    const std::string path = folder + ".base64";
    std::ofstream(path, std::ios::binary) << bytes;
    return runChild({"base64", option, path}).output;
}

// A region of the stereo file of sources 90001 and 90002 (ids far above
// Ardour's own), at the start, without fades.
std::string region(int64_t frames) {
    return "<Region name=\"ombro_input\" type=\"audio\" id=\"90004\" start=\"0\" position=\"0\" length=\"" +
           std::to_string(frames) +
           "\" fade-in-active=\"0\" fade-out-active=\"0\" source-0=\"90001\" source-1=\"90002\" "
           "master-source-0=\"90001\" master-source-1=\"90002\" channels=\"2\"/>";
}

}  // namespace

SessionFile::SessionFile(std::string folder, const std::string& snapshot)
    : folder_(std::move(folder)), xmlPath_(folder_ + "/" + snapshot + ".ardour") {
    std::stringstream text;
    text << std::ifstream(xmlPath_).rdbuf();
    text_ = text.str();
}

bool SessionFile::save() const { return static_cast<bool>(std::ofstream(xmlPath_) << text_); }

bool SessionFile::replaceOnce(const std::string& from, const std::string& to) {
    size_t at = text_.find(from);
    if (at != std::string::npos) text_.replace(at, from.size(), to);
    return at != std::string::npos;
}

// Ardour keeps imported files in interchange/<its one folder>/audiofiles.
bool SessionFile::placeAudio(const std::string& wavPath, int64_t frames) {
    std::error_code error;
    fs::path audio;
    for (const auto& entry : fs::directory_iterator(folder_ + "/interchange", error)) audio = entry.path() / "audiofiles";
    fs::create_directories(audio, error);
    fs::copy_file(wavPath, audio / "ombro_input.wav", error);
    std::string sources;
    for (int channel : {0, 1})
        sources += "<Source name=\"ombro_input.wav\" type=\"audio\" flags=\"\" id=\"" +
                   std::to_string(90001 + channel) + "\" channel=\"" + std::to_string(channel) + "\" origin=\"\"/>";
    std::smatch playlist;
    if (error || !std::regex_search(text_, playlist, std::regex("<Playlist [^>]*name=\"Ombro\" type=\"audio\"[^>]*/>")))
        return false;
    text_.replace(playlist.position(0), playlist.length(0),
                  playlist.str(0).substr(0, playlist.length(0) - 2) + ">" + region(frames) +
                      "</Playlist>");
    return replaceOnce("<Sources/>", "<Sources>" + sources + "</Sources>") &&
           replaceOnce("<Locations/>", "<Locations><Location id=\"90005\" name=\"session\" start=\"0\" end=\"" +
                                           std::to_string(frames) + "\" flags=\"IsSessionRange\" locked=\"0\" timestamp=\"0\"/></Locations>");
}

std::vector<unsigned char> SessionFile::pluginChunk() const {
    std::smatch chunk;
    if (!std::regex_search(text_, chunk, std::regex("<chunk[^>]*>([^<]*)</chunk>"))) return {};
    std::string bytes = base64(folder_, "-d", chunk.str(1));
    return {bytes.begin(), bytes.end()};
}

bool SessionFile::replacePluginChunk(const std::vector<unsigned char>& chunk) {
    std::smatch stored;
    if (!std::regex_search(text_, stored, std::regex("(<chunk[^>]*>)[^<]*</chunk>"))) return false;
    text_.replace(stored.position(0), stored.length(0),
                  stored.str(1) + base64(folder_, "-w0", std::string(chunk.begin(), chunk.end())) + "</chunk>");
    text_ = std::regex_replace(text_, std::regex("\\s*<Controllable [^>]*parameter=\"\\d+\"/>"), "");
    return true;
}

// Ardour's GUI keeps its windows in the session's <Extra><UI> node; a
// plug-in's window is named after the ids of its route and of its processor.
bool SessionFile::markPluginWindowOpen() {
    std::smatch route, processor;
    if (!std::regex_search(text_, route, std::regex("<Route [^>]*id=\"(\\d+)\" name=\"Ombro\"")) ||
        !std::regex_search(route.suffix().first, text_.cend(), processor,
                           std::regex("<Processor id=\"(\\d+)\"[^>]*type=\"lxvst\"")))
        return false;
    return replaceOnce("</Session>", "<Extra><UI><Window name=\"P-" + route.str(1) + "-" + processor.str(1) +
                                         "\" visible=\"1\" x-off=\"60\" y-off=\"60\" custom-ui=\"1\"/></UI>"
                                         "</Extra></Session>");
}
