#include "engine/state_chunk.h"

#include <bit>
#include <cstring>

#include "engine/band_list.h"
#include "plugin/eq_instance.h"

static_assert(std::endian::native == std::endian::little,
              "the chunk is little-endian and copied as it lies in memory");

namespace {

constexpr int32_t kRecordSize = 33;     // as written: five fields and the flag byte
constexpr int32_t kOldRecordSize = 32;  // before the flag byte existed
constexpr int64_t kHeaderSize = 8;
constexpr int64_t kTrailerSize = 28;
constexpr intptr_t kIgnoredChunkSize = 12;  // this short or shorter: not a state

// Band record offsets.
constexpr int64_t kTypeAt = 0, kEnabledAt = 4, kFrequencyAt = 8, kGainAt = 16,
                  kBandwidthAt = 24, kFlagAt = 32;

// The one buffer every instance's chunk is handed out from.
HeapBuffer chunkBuffer;

// Appends packed values.
class ChunkWriter {
public:
    explicit ChunkWriter(void* start) : at_(static_cast<unsigned char*>(start)) {}
    template <typename T>
    void put(T value) {
        std::memcpy(at_, &value, sizeof value);
        at_ += sizeof value;
    }

private:
    unsigned char* at_;
};

// Reads packed values at any offset (the records put them at odd ones).
class ChunkReader {
public:
    explicit ChunkReader(const void* start) : base_(static_cast<const unsigned char*>(start)) {}
    template <typename T>
    T get(int64_t offset) const {
        T value;
        std::memcpy(&value, base_ + offset, sizeof value);
        return value;
    }

private:
    const unsigned char* base_;
};

void writeBand(ChunkWriter& out, const EqBand& band) {
    out.put<int32_t>(band.type);
    out.put<int32_t>(band.enabled);
    out.put<double>(band.frequency);
    out.put<double>(band.gain);
    out.put<double>(band.bandwidth);
    out.put<uint8_t>(band.logScaleAutomation);
}

void writeTrailer(ChunkWriter& out, const EqInstance& instance) {
    out.put<int32_t>(instance.showGrid);
    out.put<int32_t>(instance.showTabs);
    out.put<double>(instance.outputGain);
    out.put<int32_t>(instance.viewFlags);
    out.put<int32_t>(instance.editorWidth);
    out.put<int32_t>(instance.editorHeight);
}

// Appends the band stored at `at`; false when memory ran out.
bool readBand(EqInstance* instance, const ChunkReader& in, int64_t at, int32_t recordSize) {
    EqBand* band = newEqBand();
    if (!band) return false;
    band->type = in.get<int32_t>(at + kTypeAt);
    band->enabled = in.get<int32_t>(at + kEnabledAt);
    band->frequency = in.get<double>(at + kFrequencyAt);
    band->gain = in.get<double>(at + kGainAt);
    band->bandwidth = in.get<double>(at + kBandwidthAt);
    band->logScaleAutomation =
        recordSize == kOldRecordSize ? 0 : in.get<uint8_t>(at + kFlagAt) & 1;
    designBand(band, kKeepBandType, true, 0.0, 0.0, 0.0);
    adoptSampleRate(band, instance->sampleRate);
    return appendBand(instance, band);
}

// The trailer grew field by field over time; read what is there.
void readTrailer(EqInstance* instance, const ChunkReader& in, int64_t at, int64_t left) {
    if (left >= 4) instance->showGrid = in.get<int32_t>(at);
    if (left < 8) return;
    instance->showTabs = in.get<int32_t>(at + 4);
    at += 8;
    left -= 8;
    if (left >= 8) {
        instance->outputGain = instance->currentOutputGain = in.get<double>(at);
        at += 8;
        left -= 8;
    }
    if (left >= 4) instance->viewFlags = in.get<int32_t>(at);
    if (left >= 12) {
        instance->editorWidth = in.get<int32_t>(at + 4);
        instance->editorHeight = in.get<int32_t>(at + 8);
    }
}

}  // namespace

int32_t writeStateChunk(EqInstance* instance, void** data) {
    MutexLock lock(instance->mutex);
    int32_t count = instance->bandCount();
    int64_t total = kHeaderSize + int64_t{kRecordSize} * count + kTrailerSize;
    chunkBuffer.resize(0, false);
    *data = chunkBuffer.resize(total <= INT32_MAX ? static_cast<int32_t>(total) : -1, false);
    if (chunkBuffer.size != total) return 0;
    ChunkWriter out(chunkBuffer.data);
    out.put<int32_t>(kRecordSize);
    out.put<int32_t>(count);
    for (int32_t index = 0; index < count; ++index) writeBand(out, *instance->band(index));
    writeTrailer(out, *instance);
    return chunkBuffer.size;
}

int32_t readStateChunk(EqInstance* instance, const void* data, intptr_t byteCount) {
    if (!data || byteCount <= kIgnoredChunkSize) return 0;
    MutexLock lock(instance->mutex);
    instance->outputGain = instance->currentOutputGain = 1.0;
    ChunkReader in(data);
    int32_t recordSize = in.get<int32_t>(0);
    int32_t count = in.get<int32_t>(4);
    int64_t recordBytes = int64_t{recordSize} * count;
    if (recordSize < kOldRecordSize || count < 0 || recordBytes > byteCount - kHeaderSize)
        return 0;
    deleteAllBands(instance);
    for (int32_t index = 0; index < count; ++index)
        if (!readBand(instance, in, kHeaderSize + int64_t{index} * recordSize, recordSize)) break;
    readTrailer(instance, in, kHeaderSize + recordBytes, byteCount - kHeaderSize - recordBytes);
    instance->refreshRequested = 1;
    instance->updateParameterCount();
    return 0;
}
