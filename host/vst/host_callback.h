// The host callback handed to VSTPluginMain. A VST 2 callback carries no user
// pointer, so each call is routed to its session by the AEffect it names; calls
// with no known effect (the extension requests inside VSTPluginMain) go to the
// session whose instance is being created on this thread.
#pragma once

#include <cstdint>
#include <vector>

#include "contracts/vst2.h"
#include "host/vst/host_call.h"

class EffectSession;

intptr_t ombroHostCallback(AEffect* effect, int32_t opcode, int32_t index, intptr_t value,
                           void* ptr, float opt);

// Routes the calls for `effect` to `session` until unregistered.
void registerSession(AEffect* effect, EffectSession* session);
void unregisterSession(AEffect* effect);

// While alive, calls without a known effect made on this thread go to `session`.
class PendingSessionScope {
public:
    explicit PendingSessionScope(EffectSession* session);
    ~PendingSessionScope();
    PendingSessionScope(const PendingSessionScope&) = delete;
    PendingSessionScope& operator=(const PendingSessionScope&) = delete;

private:
    EffectSession* previous_;
};

// Calls that reached no session (recorded all the same, answered with the
// host's defaults).
std::vector<HostCall> unattributedHostCalls();
void clearUnattributedHostCalls();
