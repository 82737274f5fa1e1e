// One effect instance driven by the stand-in host: created through
// VSTPluginMain, then reached only through its AEffect's callbacks. Every call
// the plug-in makes back into the host is recorded in order.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "contracts/vst2.h"
#include "host/vst/host_call.h"
#include "host/vst/plugin_library.h"
#include "host/vst/session_options.h"
#include "host/vst/stereo_buffer.h"

class EffectSession {
public:
    // A new instance, told the options' sample rate and block size and
    // switched on; null when the plug-in refuses to make one (its requests to
    // the host are then left in `requestsWhenRefused`, when given).
    static std::unique_ptr<EffectSession> open(const PluginLibrary& library,
                                               const SessionOptions& options = {},
                                               std::vector<HostCall>* requestsWhenRefused = nullptr);
    ~EffectSession();  // closes the instance when still open
    EffectSession(const EffectSession&) = delete;
    EffectSession& operator=(const EffectSession&) = delete;

    AEffect* effect() const { return effect_; }
    bool isOpen() const { return effect_ != nullptr; }
    const SessionOptions& options() const { return options_; }

    intptr_t dispatch(int32_t opcode, int32_t index = 0, intptr_t value = 0, void* ptr = nullptr,
                      float opt = 0.0f);

    void setSampleRate(double sampleRate);
    void setBlockSize(int32_t blockSize);
    void setMainsOn(bool on);

    // processDoubleReplacing over the whole buffers (as one block);
    // `output` is resized to the input's length.
    void process(StereoBuffer& input, StereoBuffer& output);
    void processFrames(double* const* inputs, double* const* outputs, int32_t frames);
    // The 32-bit processReplacing entry.
    void processSinglePrecision(float* const* inputs, float* const* outputs, int32_t frames);

    int32_t parameterCount() const;
    float parameter(int32_t index) const;
    void setParameter(int32_t index, float value);
    std::string parameterName(int32_t index);
    std::string parameterLabel(int32_t index);
    std::string parameterDisplay(int32_t index);

    std::string effectName();
    std::string vendorName();
    std::string productName();
    bool canDo(const char* capability);

    std::vector<uint8_t> chunk();
    void setChunk(const std::vector<uint8_t>& chunk);

    intptr_t vendorSpecific(int32_t index, intptr_t value, void* ptr, float opt = 0.0f);

    bool openEditor(void* parentWindow);
    void closeEditor();

    void close();  // effClose; the session then only keeps its call record

    // The calls the plug-in made into the host, in order.
    std::vector<HostCall> hostCalls() const;
    void clearHostCalls();
    void recordHostCall(const HostCall& call);

private:
    explicit EffectSession(const SessionOptions& options) : options_(options) {}
    std::string textRequest(int32_t opcode, int32_t index, size_t bufferSize);

    SessionOptions options_;
    AEffect* effect_ = nullptr;
    mutable std::mutex callsMutex_;
    std::vector<HostCall> calls_;
};
