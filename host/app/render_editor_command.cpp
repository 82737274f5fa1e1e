// "render-editor OUT.png": opens the editor in a host window, plays the
// user's audio (--audio) or a test signal through the effect so the spectra
// show, and saves a picture of the window.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <optional>

#include "host/app/commands.h"
#include "host/app/editor_picture.h"
#include "host/app/host_setup.h"
#include "host/app/program_error.h"
#include "host/app/sound_file.h"
#include "host/app/test_signal.h"

namespace {

constexpr double kDefaultPlaySeconds = 10.0;
constexpr size_t kTestSignalFrames = 40 * 512;

// How many frames of the file to play: up to --at, by default the first ten
// seconds, never more than the file holds.
int64_t framesToPlay(const CommandLine& line, const SoundReader& reader) {
    double seconds = line.playSeconds.value_or(kDefaultPlaySeconds);
    double wanted = std::ceil(seconds * reader.sampleRate());
    if (line.playSeconds && wanted > static_cast<double>(reader.frames()))
        std::fprintf(stderr, "ombro-host: warning: %s lasts only %.2f s; playing all of it\n",
                     line.audioFile->c_str(),
                     static_cast<double>(reader.frames()) / reader.sampleRate());
    return std::min(static_cast<int64_t>(wanted), reader.frames());
}

}  // namespace

int runRenderEditor(const CommandLine& line) {
    const std::string& path = line.operands[0];
    if (line.playSeconds && !line.audioFile) throw UsageError("--at needs --audio FILE");
    std::optional<SoundReader> audio;
    if (line.audioFile) audio.emplace(*line.audioFile);
    useEditorClock();
    RunningEffect effect = startEffect(line, audio ? audio->sampleRate() : kDefaultSampleRate);
    EffectSession& session = *effect.session;
    applyStateAndSettings(session, line);
    PictureRequest request{line.windowWidth, line.windowHeight, 0, path};
    if (audio) {
        request.frames = framesToPlay(line, *audio);
        renderEditorPicture(session, [&](StereoBuffer& block, size_t frames) {
            return audio->read(block, frames);
        }, request);
    } else {
        StereoBuffer signal = makeNoisyTone(session.options().sampleRate, kTestSignalFrames);
        request.frames = static_cast<int64_t>(signal.frames());
        renderEditorPicture(session, bufferSource(signal), request);
    }
    std::printf("editor picture written to %s\n", path.c_str());
    return 0;
}
