// Where the editors' host windows lie on the windowing layer's screen. The
// layer delivers the pointer to the window under it, so the host windows of
// two open editors must not overlap there, whatever their X windows do.
// Used under the layer lock.
#pragma once

#include "contracts/kobal.h"

namespace bridge {

// A free place of `width` × `height` pixels; `place` identifies it for release.
RECT claimEditorPlace(int width, int height, int& place);
void releaseEditorPlace(int place);

}  // namespace bridge
