// Edits of a saved Ardour 7 session file that Ardour's Lua cannot make.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

class SessionFile {
public:
    SessionFile(std::string folder, const std::string& snapshot);
    bool save() const;

    // Lays a stereo WAV on the track "Ombro" as the whole session range.
    bool placeAudio(const std::string& wavPath, int64_t frames);
    // The chunk Ardour stored for the plug-in.
    std::vector<unsigned char> pluginChunk() const;
    // Stores another chunk for the plug-in and drops the parameter values
    // Ardour keeps beside it, so that the chunk alone decides the state.
    bool replacePluginChunk(const std::vector<unsigned char>& chunk);
    // Makes Ardour's GUI open the plug-in's editor with the session.
    bool markPluginWindowOpen();

private:
    bool replaceOnce(const std::string& from, const std::string& to);

    std::string folder_, xmlPath_, text_;
};
