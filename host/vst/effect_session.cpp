#include "host/vst/effect_session.h"

#include "host/vst/host_callback.h"

namespace {

// Parameter texts may fill up to 256 bytes (more than VST 2's customary 8 or
// 24); effect, vendor and product names up to 64.
constexpr size_t kParameterTextSize = 256;
constexpr size_t kNameTextSize = 64;

}  // namespace

std::unique_ptr<EffectSession> EffectSession::open(const PluginLibrary& library,
                                                   const SessionOptions& options,
                                                   std::vector<HostCall>* requestsWhenRefused) {
    std::unique_ptr<EffectSession> session(new EffectSession(options));
    {
        PendingSessionScope pending(session.get());
        session->effect_ = library.mainEntry()(ombroHostCallback);
    }
    if (!session->effect_) {
        if (requestsWhenRefused) *requestsWhenRefused = session->hostCalls();
        return nullptr;
    }
    registerSession(session->effect_, session.get());
    session->setSampleRate(options.sampleRate);
    session->setBlockSize(options.blockSize);
    session->setMainsOn(true);
    return session;
}

EffectSession::~EffectSession() { close(); }

intptr_t EffectSession::dispatch(int32_t opcode, int32_t index, intptr_t value, void* ptr,
                                 float opt) {
    if (!effect_) return 0;
    return effect_->dispatcher(effect_, opcode, index, value, ptr, opt);
}

void EffectSession::setSampleRate(double sampleRate) {
    options_.sampleRate = sampleRate;
    dispatch(effSetSampleRate, 0, 0, nullptr, static_cast<float>(sampleRate));
}

void EffectSession::setBlockSize(int32_t blockSize) {
    options_.blockSize = blockSize;
    dispatch(effSetBlockSize, 0, blockSize);
}

void EffectSession::setMainsOn(bool on) { dispatch(effMainsChanged, 0, on ? 1 : 0); }

void EffectSession::process(StereoBuffer& input, StereoBuffer& output) {
    output.resize(input.frames());
    auto inputs = input.channels();
    auto outputs = output.channels();
    processFrames(inputs.data(), outputs.data(), static_cast<int32_t>(input.frames()));
}

void EffectSession::processFrames(double* const* inputs, double* const* outputs,
                                  int32_t frames) {
    if (!effect_) return;
    effect_->processDoubleReplacing(effect_, const_cast<double**>(inputs),
                                    const_cast<double**>(outputs), frames);
}

void EffectSession::processSinglePrecision(float* const* inputs, float* const* outputs,
                                           int32_t frames) {
    if (!effect_) return;
    effect_->processReplacing(effect_, const_cast<float**>(inputs), const_cast<float**>(outputs),
                              frames);
}

int32_t EffectSession::parameterCount() const { return effect_ ? effect_->numParams : 0; }

float EffectSession::parameter(int32_t index) const {
    return effect_ ? effect_->getParameter(effect_, index) : 0.0f;
}

void EffectSession::setParameter(int32_t index, float value) {
    if (effect_) effect_->setParameter(effect_, index, value);
}

std::string EffectSession::textRequest(int32_t opcode, int32_t index, size_t bufferSize) {
    std::vector<char> text(bufferSize, '\0');
    dispatch(opcode, index, 0, text.data());
    text.back() = '\0';
    return text.data();
}

std::string EffectSession::parameterName(int32_t index) {
    return textRequest(effGetParamName, index, kParameterTextSize);
}

std::string EffectSession::parameterLabel(int32_t index) {
    return textRequest(effGetParamLabel, index, kParameterTextSize);
}

std::string EffectSession::parameterDisplay(int32_t index) {
    return textRequest(effGetParamDisplay, index, kParameterTextSize);
}

std::string EffectSession::effectName() { return textRequest(effGetEffectName, 0, kNameTextSize); }

std::string EffectSession::vendorName() {
    return textRequest(effGetVendorString, 0, kNameTextSize);
}

std::string EffectSession::productName() {
    return textRequest(effGetProductString, 0, kNameTextSize);
}

bool EffectSession::canDo(const char* capability) {
    return dispatch(effCanDo, 0, 0, const_cast<char*>(capability)) != 0;
}

std::vector<uint8_t> EffectSession::chunk() {
    void* data = nullptr;
    intptr_t size = dispatch(effGetChunk, 0, 0, &data);
    if (!data || size <= 0) return {};
    const uint8_t* bytes = static_cast<const uint8_t*>(data);
    return std::vector<uint8_t>(bytes, bytes + size);
}

void EffectSession::setChunk(const std::vector<uint8_t>& chunk) {
    std::vector<uint8_t> copy = chunk;  // the dispatcher takes a writable pointer
    dispatch(effSetChunk, 0, static_cast<intptr_t>(copy.size()), copy.data());
}

intptr_t EffectSession::vendorSpecific(int32_t index, intptr_t value, void* ptr, float opt) {
    return dispatch(effVendorSpecific, index, value, ptr, opt);
}

bool EffectSession::openEditor(void* parentWindow) {
    return dispatch(effEditOpen, 0, 0, parentWindow) != 0;
}

void EffectSession::closeEditor() { dispatch(effEditClose); }

void EffectSession::close() {
    if (!effect_) return;
    setMainsOn(false);
    dispatch(effClose);
    unregisterSession(effect_);
    effect_ = nullptr;
}

std::vector<HostCall> EffectSession::hostCalls() const {
    std::lock_guard lock(callsMutex_);
    return calls_;
}

void EffectSession::clearHostCalls() {
    std::lock_guard lock(callsMutex_);
    calls_.clear();
}

void EffectSession::recordHostCall(const HostCall& call) {
    std::lock_guard lock(callsMutex_);
    calls_.push_back(call);
}
