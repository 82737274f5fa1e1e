#include "view/graph_snapshot.h"

#include "engine/heap_buffer.h"
#include "plugin/eq_instance.h"

namespace {

HeapBuffer bandCopies;

}  // namespace

GraphSnapshot takeGraphSnapshot(EqInstance& instance) {
    GraphSnapshot snapshot{nullptr, 0, instance.selectedBand, instance.hoverBand};
    MutexLock lock(instance.mutex);
    const int32_t count = instance.bandCount();
    const int32_t bytes = count * static_cast<int32_t>(sizeof(BandCopy));
    bandCopies.resize(bytes, false);
    if (count == 0 || bandCopies.size != bytes) return snapshot;
    auto* copies = bandCopies.as<BandCopy>();
    for (int32_t i = 0; i < count; ++i) {
        const EqBand* band = instance.band(i);
        copies[i].present = band != nullptr;
        if (band) copies[i].values = *band;
    }
    snapshot.bands = copies;
    snapshot.count = count;
    return snapshot;
}
