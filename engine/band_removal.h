// Taking one band out of the middle of the instance's band list.
#pragma once

#include <cstdint>

struct EqInstance;

// Deletes the band at `index` and closes the gap; the later bands move down
// by one and the host parameter count follows. False when there is no such
// index.
bool removeBandAt(EqInstance* instance, int32_t index);
