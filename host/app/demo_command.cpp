// "demo": shows the effect, then equalizes test tones before and after
// raising the gain of band 3 (the peaking band at 1 kHz).
#include <cstdio>
#include <iterator>

#include "host/app/commands.h"
#include "host/app/effect_report.h"
#include "host/app/host_setup.h"
#include "host/app/test_signal.h"

namespace {

constexpr double kToneFrequencies[] = {100.0, 1000.0, 10000.0};
constexpr double kToneAmplitude = 0.25;
constexpr double kToneSeconds = 1.0;
constexpr int32_t kRaisedParameter = 3 * 2 + 1;  // band 3's gain
constexpr float kRaisedValue = 1.0f;             // the top of the range: +12 dB

constexpr size_t kToneCount = std::size(kToneFrequencies);

struct ToneLevels {
    double input[kToneCount];
    double output[kToneCount];
};

// Input and output level of each tone, measured over its second half so that
// filter transients and the glide to new settings are over.
ToneLevels measureTones(EffectSession& session) {
    double rate = session.options().sampleRate;
    size_t frames = static_cast<size_t>(rate * kToneSeconds);
    ToneLevels levels;
    StereoBuffer output;
    for (size_t i = 0; i < kToneCount; ++i) {
        StereoBuffer tone = makeTone(kToneFrequencies[i], kToneAmplitude, rate, frames);
        session.process(tone, output);
        levels.input[i] = rmsLevelDb(tone, frames / 2);
        levels.output[i] = rmsLevelDb(output, frames / 2);
    }
    return levels;
}

}  // namespace

int runDemo(const CommandLine& line) {
    RunningEffect effect = startEffect(line);
    EffectSession& session = *effect.session;
    applyStateAndSettings(session, line);
    printIdentity(session);
    printParameters(session);

    ToneLevels before = measureTones(session);
    session.setParameter(kRaisedParameter, kRaisedValue);
    std::printf("\nset parameter %d (%s) to %.2f: %s %s\n", kRaisedParameter,
                session.parameterName(kRaisedParameter).c_str(), kRaisedValue,
                session.parameterDisplay(kRaisedParameter).c_str(),
                session.parameterLabel(kRaisedParameter).c_str());
    ToneLevels after = measureTones(session);

    std::printf("\n%10s %12s %12s %12s %10s\n", "tone (Hz)", "input (dB)", "before (dB)",
                "after (dB)", "change");
    for (size_t i = 0; i < kToneCount; ++i)
        std::printf("%10.0f %12.2f %12.2f %12.2f %+10.2f\n", kToneFrequencies[i],
                    before.input[i], before.output[i], after.output[i],
                    after.output[i] - before.output[i]);
    return 0;
}
