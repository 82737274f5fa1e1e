// The layer's small utility functions: bounded string copy and the tick count.
#pragma once

#include "contracts/kobal.h"

namespace kobal_layer {

// Copies at most limit - 1 characters and always terminates (when limit > 0).
// Tolerates a null source (copies nothing) and a null destination or a limit
// of 0 or less (writes nothing). Returns the destination.
char* lstrcpyn(char* destination, const char* source, int limit);
// Milliseconds on the host clock (host_clock.h).
DWORD GetTickCount();

}  // namespace kobal_layer
