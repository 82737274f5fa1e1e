// The effect's state chunk as the host reads and builds it: little-endian and
// packed, a header (record size, band count), one record per band, then the
// view settings, the output gain and the editor size.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

struct ChunkBand {
    int32_t type = 8;
    int32_t enabled = 1;
    double frequency = 1000.0;  // Hz
    double gain = 1.0;          // linear amplitude
    double bandwidth = 1.0;     // octaves
    uint8_t logScaleAutomation = 1;
};

struct EffectState {
    std::vector<ChunkBand> bands;
    int32_t showGrid = 1;
    int32_t showTabs = 1;
    double outputGain = 1.0;  // linear; absent from a chunk means 1.0
    int32_t viewFlags = 0;
    int32_t editorWidth = 0;
    int32_t editorHeight = 0;
};

// Reads a chunk, accepting the older layouts the effect accepts (32-byte
// records, shorter trailers) but nothing it would ignore or misread: throws
// CommandFailure with the reason for a chunk that is cut short, has an
// impossible size or band count, bytes left over, an unknown band type or a
// value that is not a finite number.
EffectState decodeStateChunk(const std::vector<uint8_t>& chunk);

// The current layout: 33-byte records and the whole trailer.
std::vector<uint8_t> encodeStateChunk(const EffectState& state);
