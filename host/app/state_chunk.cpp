#include "host/app/state_chunk.h"

#include <cmath>
#include <cstring>

#include "host/app/band_types.h"
#include "host/app/program_error.h"

namespace {

constexpr int32_t kRecordSize = 33;
constexpr int32_t kOldRecordSize = 32;
constexpr int32_t kLargestRecordSize = 4096;  // room for later fields, no more
constexpr size_t kHeaderSize = 8;
constexpr size_t kFullTrailerSize = 28;

class ChunkReader {
public:
    ChunkReader(const std::vector<uint8_t>& chunk) : chunk_(chunk) {}
    size_t left() const { return chunk_.size() - offset_; }
    void skip(size_t bytes) { offset_ += bytes; }
    template <typename T>
    T take() {
        if (left() < sizeof(T)) throw CommandFailure("the state is cut short");
        T value;
        std::memcpy(&value, chunk_.data() + offset_, sizeof(T));
        offset_ += sizeof(T);
        return value;
    }
    double takeFinite(const char* what) {
        double value = take<double>();
        if (!std::isfinite(value))
            throw CommandFailure(std::string("the state holds a ") + what +
                                 " that is not a number");
        return value;
    }

private:
    const std::vector<uint8_t>& chunk_;
    size_t offset_ = 0;
};

template <typename T>
void append(std::vector<uint8_t>& chunk, T value) {
    size_t at = chunk.size();
    chunk.resize(at + sizeof(T));
    std::memcpy(chunk.data() + at, &value, sizeof(T));
}

ChunkBand readBand(ChunkReader& reader, int32_t recordSize) {
    ChunkBand band;
    band.type = reader.take<int32_t>();
    if (*bandTypeName(band.type) == '\0')
        throw CommandFailure("the state holds an unknown band type " + std::to_string(band.type));
    band.enabled = reader.take<int32_t>();
    band.frequency = reader.takeFinite("band frequency");
    band.gain = reader.takeFinite("band gain");
    band.bandwidth = reader.takeFinite("band bandwidth");
    band.logScaleAutomation = 0;
    if (recordSize > kOldRecordSize) {
        band.logScaleAutomation = reader.take<uint8_t>() & 1;
        reader.skip(static_cast<size_t>(recordSize - kRecordSize));
    }
    return band;
}

// The trailer's optional fields, in the order and with the sizes the effect
// reads them: nothing, the grid switch, both switches, then with eight more
// bytes the output gain, then the view flags and the editor size.
void readTrailer(ChunkReader& reader, EffectState& state) {
    size_t left = reader.left();
    if (left == 0) return;
    if (left != 4 && left != 8 && left != 12 && left != 16 && left != 20 &&
        left != kFullTrailerSize)
        throw CommandFailure("the state ends in " + std::to_string(left) +
                             " bytes that match no known layout");
    state.showGrid = reader.take<int32_t>();
    if (left >= 8) state.showTabs = reader.take<int32_t>();
    if (left >= 16) state.outputGain = reader.takeFinite("output gain");
    if (reader.left() >= 4) state.viewFlags = reader.take<int32_t>();
    if (reader.left() >= 8) {
        state.editorWidth = reader.take<int32_t>();
        state.editorHeight = reader.take<int32_t>();
    }
}

}  // namespace

EffectState decodeStateChunk(const std::vector<uint8_t>& chunk) {
    if (chunk.size() < kHeaderSize) throw CommandFailure("the state is too short to hold bands");
    ChunkReader reader(chunk);
    int32_t recordSize = reader.take<int32_t>();
    int32_t count = reader.take<int32_t>();
    if (recordSize < kOldRecordSize || recordSize > kLargestRecordSize)
        throw CommandFailure("the state has an impossible band record size " +
                             std::to_string(recordSize));
    if (count < 0 || static_cast<int64_t>(recordSize) * count >
                         static_cast<int64_t>(chunk.size() - kHeaderSize))
        throw CommandFailure("the state claims " + std::to_string(count) +
                             " bands, more than it holds");
    EffectState state;
    for (int32_t i = 0; i < count; ++i) state.bands.push_back(readBand(reader, recordSize));
    readTrailer(reader, state);
    return state;
}

std::vector<uint8_t> encodeStateChunk(const EffectState& state) {
    std::vector<uint8_t> chunk;
    append<int32_t>(chunk, kRecordSize);
    append<int32_t>(chunk, static_cast<int32_t>(state.bands.size()));
    for (const ChunkBand& band : state.bands) {
        append(chunk, band.type);
        append(chunk, band.enabled);
        append(chunk, band.frequency);
        append(chunk, band.gain);
        append(chunk, band.bandwidth);
        append(chunk, band.logScaleAutomation);
    }
    append(chunk, state.showGrid);
    append(chunk, state.showTabs);
    append(chunk, state.outputGain);
    append(chunk, state.viewFlags);
    append(chunk, state.editorWidth);
    append(chunk, state.editorHeight);
    return chunk;
}
