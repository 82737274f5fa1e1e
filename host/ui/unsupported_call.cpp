#include "host/ui/unsupported_call.h"

namespace kobal_layer {

// Called through pointers of any signature: it reads none of its arguments,
// and on x86-64 the caller cleans up, so any argument list is safe.
intptr_t unsupportedCall() { return 0; }

}  // namespace kobal_layer
