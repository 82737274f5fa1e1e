// The windowing layer is one process-wide set of windows, timers and
// messages without locks of its own. Hosts call a plug-in from several
// threads (a GUI thread, an editor thread that opens and idles the editor,
// an audio thread), and some requests reach the layer from the GUI thread
// (a vendor request that adds a band inserts its tab in the open editor,
// effClose destroys the editor). Every entry into the core or the layer that
// can touch it holds this lock, so the layer is only ever used by one thread
// at a time. The audio path never takes it.
#pragma once

#include <mutex>

namespace bridge {

std::recursive_mutex& layerLock();

using LayerGuard = std::lock_guard<std::recursive_mutex>;

}  // namespace bridge
