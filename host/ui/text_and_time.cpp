#include "host/ui/text_and_time.h"

#include "host/ui/host_clock.h"

namespace kobal_layer {

char* lstrcpyn(char* destination, const char* source, int limit) {
    if (!destination || limit <= 0) return destination;
    int length = 0;
    if (source)
        while (length < limit - 1 && source[length] != '\0') {
            destination[length] = source[length];
            ++length;
        }
    destination[length] = '\0';
    return destination;
}

DWORD GetTickCount() { return hostClockNow(); }

}  // namespace kobal_layer
