// "demo": shows the effect, then equalizes test tones before and after
// raising the gain of band 3 (the peaking band at 1 kHz), and leaves the test
// signal, its equalized version and a picture of the editor in a folder.
#include <cstdio>
#include <filesystem>
#include <iterator>
#include <system_error>

#include "host/app/commands.h"
#include "host/app/editor_picture.h"
#include "host/app/effect_report.h"
#include "host/app/host_setup.h"
#include "host/app/pending_output.h"
#include "host/app/program_error.h"
#include "host/app/sound_file.h"
#include "host/app/test_signal.h"

namespace {

constexpr double kToneFrequencies[] = {100.0, 1000.0, 10000.0};
constexpr double kToneAmplitude = 0.25;
constexpr double kToneSeconds = 1.0;
constexpr int32_t kRaisedParameter = 3 * 2 + 1;  // band 3's gain
constexpr float kRaisedValue = 1.0f;             // the top of the range: +12 dB

constexpr size_t kToneCount = std::size(kToneFrequencies);
constexpr double kNoiseSeconds = 2.0;
constexpr double kNoiseAmplitude = 0.1;

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

// The tones one after another, then noise.
StereoBuffer makeDemoSignal(double rate) {
    size_t toneFrames = static_cast<size_t>(rate * kToneSeconds);
    StereoBuffer signal;
    for (double frequency : kToneFrequencies)
        signal = joinSignals(signal, makeTone(frequency, kToneAmplitude, rate, toneFrames));
    return joinSignals(signal, makeNoise(kNoiseAmplitude, static_cast<size_t>(rate * kNoiseSeconds)));
}

void writeSoundFile(const std::string& path, const StereoBuffer& signal, int sampleRate) {
    PendingOutput output(path);
    SoundWriter writer(output.path(), {SF_FORMAT_WAV | SF_FORMAT_FLOAT, 2, sampleRate}, false);
    writer.write(signal);
    writer.finish();
    output.commit();
}

std::string prepareFolder(const std::string& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (error || !std::filesystem::is_directory(folder))
        throw CommandFailure("cannot make the folder " + folder + ": " + error.message());
    return folder + "/";
}

void writeDemoFiles(EffectSession& session, const CommandLine& line) {
    std::string folder = prepareFolder(line.demoFolder);
    double rate = session.options().sampleRate;
    StereoBuffer signal = makeDemoSignal(rate);
    StereoBuffer equalized;
    session.process(signal, equalized);
    const std::string signalPath = folder + "test-signal.wav";
    const std::string equalizedPath = folder + "test-signal-equalized.wav";
    const std::string picturePath = folder + "editor.png";
    writeSoundFile(signalPath, signal, static_cast<int>(rate));
    writeSoundFile(equalizedPath, equalized, static_cast<int>(rate));
    renderEditorPicture(session, bufferSource(signal),
                        {line.windowWidth, line.windowHeight,
                         static_cast<int64_t>(signal.frames()), picturePath});
    std::printf("\nfiles written:\n");
    std::printf("  %-40s tones at 100 Hz, 1 kHz and 10 kHz, then noise\n", signalPath.c_str());
    std::printf("  %-40s the same through the effect\n", equalizedPath.c_str());
    std::printf("  %-40s the editor after playing it\n", picturePath.c_str());
}

}  // namespace

int runDemo(const CommandLine& line) {
    useEditorClock();
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
    writeDemoFiles(session, line);
    return 0;
}
