// Instances for the engine tests: every field at its creation value, no bands.
#pragma once

#include <memory>
#include <vector>

#include "plugin/eq_instance.h"

struct InstanceDeleter {
    void operator()(EqInstance* instance) const;
};
using InstancePtr = std::unique_ptr<EqInstance, InstanceDeleter>;

InstancePtr makeTestInstance();

// Appends a band designed the way every creator designs one.
EqBand* addTestBand(EqInstance* instance, int32_t type, double frequency, double gain,
                    double bandwidth);

// The state chunk the instance writes.
std::vector<unsigned char> writtenChunk(EqInstance* instance);

// A stand-in for the host's millisecond clock; tests set `fakeTickNow`.
extern uint32_t fakeTickNow;
void useFakeTickCount();
