#include "tests/ardour/session_file.h"

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>

#include "tests/ardour/base64_text.h"

namespace {

// Ids far above those Ardour handed out for a fresh session.
constexpr int kLeftSourceId = 90001;
constexpr int kRightSourceId = 90002;
constexpr int kWholeFileRegionId = 90003;
constexpr int kPlacedRegionId = 90004;
constexpr int kSessionRangeId = 90005;

constexpr char kAudioName[] = "ombro_input.wav";

std::string regionElement(int id, bool wholeFile, int64_t frames) {
    std::ostringstream region;
    region << "<Region name=\"ombro_input\" muted=\"0\" opaque=\"1\" locked=\"0\" "
              "video-locked=\"0\" automatic=\"0\" whole-file=\""
           << (wholeFile ? 1 : 0)
           << "\" import=\"0\" external=\"0\" sync-marked=\"0\" left-of-split=\"0\" "
              "right-of-split=\"0\" hidden=\"0\" position-locked=\"0\" valid-transients=\"0\" "
              "start=\"0\" length=\""
           << frames
           << "\" position=\"0\" sync-position=\"0\" ancestral-start=\"0\" "
              "ancestral-length=\"0\" stretch=\"1\" shift=\"1\" layering-index=\"0\" "
              "envelope-active=\"0\" default-fade-in=\"0\" default-fade-out=\"0\" "
              "fade-in-active=\"0\" fade-out-active=\"0\" scale-amplitude=\"1\" id=\""
           << id << "\" type=\"audio\" first-edit=\"nothing\" source-0=\"" << kLeftSourceId
           << "\" source-1=\"" << kRightSourceId << "\" master-source-0=\"" << kLeftSourceId
           << "\" master-source-1=\"" << kRightSourceId << "\" channels=\"2\"/>";
    return region.str();
}

std::string sourceElement(int id, int channel) {
    return std::string("<Source name=\"") + kAudioName + "\" type=\"audio\" flags=\"\" id=\"" +
           std::to_string(id) + "\" channel=\"" + std::to_string(channel) + "\" origin=\"\"/>";
}

}  // namespace

SessionFile::SessionFile(std::string folder, std::string snapshot)
    : folder_(std::move(folder)), snapshot_(std::move(snapshot)) {
    std::ifstream file(xmlPath(), std::ios::binary);
    std::stringstream text;
    text << file.rdbuf();
    text_ = text.str();
}

bool SessionFile::save() const {
    std::ofstream file(xmlPath(), std::ios::binary | std::ios::trunc);
    file << text_;
    return static_cast<bool>(file);
}

// Ardour keeps imported files in interchange/<its one folder>/audiofiles and
// refuses a session whose interchange folder holds more than one folder.
std::string SessionFile::audioFolder() const {
    std::error_code error;
    for (const auto& entry : std::filesystem::directory_iterator(folder_ + "/interchange", error))
        if (entry.is_directory()) return entry.path().string() + "/audiofiles";
    return "";
}

bool SessionFile::replaceOnce(const std::string& from, const std::string& to) {
    size_t at = text_.find(from);
    if (at == std::string::npos) return false;
    text_.replace(at, from.size(), to);
    return true;
}

bool SessionFile::addRegionToPlaylist(const std::string& track, const std::string& region) {
    std::regex emptyPlaylist("(<Playlist [^>]*name=\"" + track + "\" type=\"audio\"[^>]*)/>");
    std::smatch match;
    if (!std::regex_search(text_, match, emptyPlaylist)) return false;
    text_.replace(match.position(0), match.length(0),
                  match.str(1) + ">\n      " + region + "\n    </Playlist>");
    return true;
}

bool SessionFile::placeAudio(const std::string& wavPath, int64_t frames,
                             const std::string& track) {
    std::string folder = audioFolder();
    std::error_code error;
    if (folder.empty()) return false;
    std::filesystem::create_directories(folder, error);
    if (!std::filesystem::copy_file(wavPath, folder + "/" + kAudioName, error)) return false;
    std::string sources = "<Sources>\n    " + sourceElement(kLeftSourceId, 0) + "\n    " +
                          sourceElement(kRightSourceId, 1) + "\n  </Sources>";
    std::string regions = "<Regions>\n    " + regionElement(kWholeFileRegionId, true, frames) +
                          "\n  </Regions>";
    std::string range = "<Locations>\n    <Location id=\"" + std::to_string(kSessionRangeId) +
                        "\" name=\"session\" start=\"0\" end=\"" + std::to_string(frames) +
                        "\" flags=\"IsSessionRange\" locked=\"0\" timestamp=\"0\"/>\n"
                        "  </Locations>";
    return replaceOnce("<Sources/>", sources) && replaceOnce("<Regions/>", regions) &&
           replaceOnce("<Locations/>", range) &&
           addRegionToPlaylist(track, regionElement(kPlacedRegionId, false, frames));
}

std::vector<unsigned char> SessionFile::pluginChunk() const {
    std::smatch match;
    std::regex chunk("<chunk[^>]*>([^<]*)</chunk>");
    if (!std::regex_search(text_, match, chunk)) return {};
    return decodeBase64(match.str(1));
}

bool SessionFile::replacePluginChunk(const std::vector<unsigned char>& chunk) {
    std::smatch match;
    std::regex content("(<chunk[^>]*>)[^<]*</chunk>");
    if (!std::regex_search(text_, match, content)) return false;
    text_.replace(match.position(0), match.length(0),
                  match.str(1) + encodeBase64(chunk) + "</chunk>");
    text_ = std::regex_replace(text_, std::regex("\\s*<Controllable [^>]*parameter=\"\\d+\"/>"),
                               "");
    return true;
}

// Ardour's GUI keeps its windows in the session's <Extra><UI> node; a plug-in's
// window is named after the ids of its route and of its processor.
bool SessionFile::markPluginWindowOpen(const std::string& track, int x, int y) {
    std::smatch route, processor;
    std::regex routeElement("<Route [^>]*id=\"(\\d+)\" name=\"" + track + "\"");
    if (!std::regex_search(text_, route, routeElement)) return false;
    std::string rest = text_.substr(static_cast<size_t>(route.position(0)));
    if (!std::regex_search(rest, processor,
                           std::regex("<Processor id=\"(\\d+)\"[^>]*type=\"lxvst\"")))
        return false;
    std::string window = "<Window name=\"P-" + route.str(1) + "-" + processor.str(1) +
                         "\" visible=\"1\" x-off=\"" + std::to_string(x) + "\" y-off=\"" +
                         std::to_string(y) + "\" custom-ui=\"1\"/>";
    return replaceOnce("</Session>", "  <Extra>\n    <UI>\n      " + window +
                                         "\n    </UI>\n  </Extra>\n</Session>");
}
