#include "engine/band_list.h"

#include "plugin/eq_instance.h"

namespace {
constexpr int32_t kPointerSize = static_cast<int32_t>(sizeof(EqBand*));
}

bool appendBand(EqInstance* instance, EqBand* band) {
    MutexLock lock(instance->mutex);
    HeapBuffer& list = instance->bands;
    int32_t wanted = list.size + kPointerSize;
    list.resize(wanted, false);
    if (list.size != wanted) {
        delete band;
        return false;
    }
    list.as<EqBand*>()[wanted / kPointerSize - 1] = band;
    instance->updateParameterCount();
    return true;
}

void deleteAllBands(EqInstance* instance) {
    MutexLock lock(instance->mutex);
    for (int32_t index = instance->bandCount() - 1; index >= 0; --index) {
        delete instance->bands.as<EqBand*>()[index];
        instance->bands.resize(index * kPointerSize, false);  // keeps the storage
    }
    instance->updateParameterCount();
}
