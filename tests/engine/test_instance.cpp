#include "tests/engine/test_instance.h"

#include "engine/band_list.h"
#include "engine/state_chunk.h"
#include "plugin/instance.h"
#include "plugin/ui_layer.h"

uint32_t fakeTickNow = 0;

void useFakeTickCount() {
    kobal::GetTickCount = [] { return static_cast<DWORD>(fakeTickNow); };
}

void InstanceDeleter::operator()(EqInstance* instance) const { discardInstance(instance); }

InstancePtr makeTestInstance() {
    useFakeTickCount();
    return InstancePtr(allocateInstance(nullptr));
}

EqBand* addTestBand(EqInstance* instance, int32_t type, double frequency, double gain,
                    double bandwidth) {
    EqBand* band = createDesignedBand(type, frequency, gain, bandwidth, instance->sampleRate);
    return band && appendBand(instance, band) ? band : nullptr;
}

std::vector<unsigned char> writtenChunk(EqInstance* instance) {
    void* data = nullptr;
    int32_t size = writeStateChunk(instance, &data);
    return {static_cast<unsigned char*>(data), static_cast<unsigned char*>(data) + size};
}
