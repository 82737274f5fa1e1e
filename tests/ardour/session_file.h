// Edits of a saved Ardour 7 session file that Ardour's Lua cannot make
// without its GUI: an audio file placed on a track, the chunk of the track's
// plug-in read or replaced, and the plug-in's editor window marked open.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class SessionFile {
public:
    SessionFile(std::string folder, const std::string& snapshot);
    bool save() const;

    // Copies a stereo WAV into the session and lays it on the playlist of
    // the track "Ombro" from the start, as the whole session range.
    bool placeAudio(const std::string& wavPath, int64_t frames);
    // The chunk Ardour stored for the plug-in (empty when there is none).
    std::vector<unsigned char> pluginChunk() const;
    // Stores another chunk for the plug-in and drops the parameter values
    // Ardour keeps beside it, so that the chunk alone decides the state.
    bool replacePluginChunk(const std::vector<unsigned char>& chunk);
    // Marks the editor window of the track's plug-in as open, so that
    // Ardour's GUI opens it with the session.
    bool markPluginWindowOpen();

private:
    bool replaceOnce(const std::string& from, const std::string& to);

    std::string folder_, xmlPath_, text_;
};
