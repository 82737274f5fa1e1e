#include "engine/band_removal.h"

#include <cstring>

#include "plugin/eq_instance.h"

bool removeBandAt(EqInstance* instance, int32_t index) {
    MutexLock lock(instance->mutex);
    const int32_t count = instance->bandCount();
    if (index < 0 || index >= count) return false;
    EqBand** list = instance->bands.as<EqBand*>();
    delete list[index];
    std::memmove(list + index, list + index + 1,
                 static_cast<size_t>(count - index - 1) * sizeof(EqBand*));
    // Shrinking without leave to reallocate only lowers the size: it cannot fail.
    instance->bands.resize((count - 1) * static_cast<int32_t>(sizeof(EqBand*)), false);
    instance->updateParameterCount();
    return true;
}
