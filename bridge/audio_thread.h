// Which threads are the host's audio threads: those that have run a
// processing entry of any bridge instance. Marking and asking cost a
// thread-local flag, no lock and no system call.
#pragma once

namespace bridge {

void markAudioThread();
bool onAudioThread();

}  // namespace bridge
