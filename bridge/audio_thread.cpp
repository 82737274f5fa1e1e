#include "bridge/audio_thread.h"

namespace bridge {
namespace {
thread_local bool isAudioThread = false;
}  // namespace

void markAudioThread() { isAudioThread = true; }

bool onAudioThread() { return isAudioThread; }

}  // namespace bridge
