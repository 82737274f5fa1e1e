// Edits of a saved Ardour 7 session file that Ardour's Lua cannot make
// without its GUI: an audio file placed on a track, the chunk of the track's
// plug-in read or replaced, and the plug-in's editor window marked open.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class SessionFile {
public:
    SessionFile(std::string folder, std::string snapshot);

    std::string xmlPath() const { return folder_ + "/" + snapshot_ + ".ardour"; }
    const std::string& text() const { return text_; }
    bool loaded() const { return !text_.empty(); }
    bool save() const;

    // Copies a stereo WAV into the session and lays it on the playlist of
    // `track` from the start, with no fades, as the whole session range.
    bool placeAudio(const std::string& wavPath, int64_t frames, const std::string& track);

    // The chunk Ardour stored for the plug-in (empty when there is none).
    std::vector<unsigned char> pluginChunk() const;
    // Stores another chunk for the plug-in and drops the parameter values
    // Ardour keeps beside it, so that the chunk alone decides the state.
    bool replacePluginChunk(const std::vector<unsigned char>& chunk);

    // Marks the editor window of the track's plug-in as open, at this place
    // on the screen, so that Ardour's GUI opens it with the session.
    bool markPluginWindowOpen(const std::string& track, int x, int y);

private:
    std::string audioFolder() const;
    bool replaceOnce(const std::string& from, const std::string& to);
    bool addRegionToPlaylist(const std::string& track, const std::string& region);

    std::string folder_;
    std::string snapshot_;
    std::string text_;
};
