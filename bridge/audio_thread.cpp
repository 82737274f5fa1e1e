#include "bridge/audio_thread.h"

namespace bridge {
namespace {
// Initial-exec: the flag lies in the static TLS block, so the first use on a
// thread allocates nothing (dynamic TLS of a loaded library would).
__attribute__((tls_model("initial-exec"))) thread_local bool isAudioThread = false;
}  // namespace

void markAudioThread() { isAudioThread = true; }

bool onAudioThread() { return isAudioThread; }

}  // namespace bridge
