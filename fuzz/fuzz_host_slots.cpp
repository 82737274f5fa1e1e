// The two host-supplied slots the engine calls, for the engine-only fuzzing
// build: no windowing layer (the clock reads 0) and no host FFT.
#include "plugin/host_imports.h"
#include "plugin/ui_layer.h"

namespace kobal {
GetTickCountProc GetTickCount = [] { return DWORD{0}; };
}
HostExtensions hostExtensions = {};
