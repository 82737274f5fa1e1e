#include "host/extensions/config_variables.h"

#include <atomic>
#include <cstring>

namespace {

// Lock-free so the effect may read it through a plain pointer from any thread.
std::atomic<int32_t> midiOctaveOffset{0};
static_assert(sizeof(midiOctaveOffset) == 4 && std::atomic<int32_t>::is_always_lock_free);

}  // namespace

void* findConfigVariable(const char* name, int* size) {
    bool known = name && std::strcmp(name, "midioctoffs") == 0;
    if (size) *size = known ? static_cast<int>(sizeof(int32_t)) : 0;
    return known ? static_cast<void*>(&midiOctaveOffset) : nullptr;
}

void setMidiOctaveOffset(int32_t octaves) { midiOctaveOffset.store(octaves); }

int32_t midiOctaveOffsetSetting() { return midiOctaveOffset.load(); }
