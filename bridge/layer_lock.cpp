#include "bridge/layer_lock.h"

namespace bridge {

std::recursive_mutex& layerLock() {
    static std::recursive_mutex lock;
    return lock;
}

}  // namespace bridge
