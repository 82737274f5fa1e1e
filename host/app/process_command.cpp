// "process IN OUT": equalizes a sound file block by block, keeping its
// channel count and (unless --format says otherwise) its sample format.
#include <cmath>
#include <cstdio>

#include "host/app/commands.h"
#include "host/app/host_setup.h"
#include "host/app/pending_output.h"
#include "host/app/program_error.h"
#include "host/app/progress_meter.h"
#include "host/app/sound_file.h"

namespace {

SoundFormat outputFormat(const CommandLine& line, const SoundReader& reader, int container) {
    int subtype = chooseSubtype(container, reader.format() & SF_FORMAT_SUBMASK, line.sampleFormat);
    return {container | subtype, reader.channels(), reader.sampleRate()};
}

void reportClipping(const ClippingCount& clipping) {
    if (clipping.samples == 0) return;
    double overDb = 20.0 * std::log10(clipping.peak);
    std::fprintf(stderr,
                 "ombro-host: warning: %lld samples clipped, the loudest %.2f dB over full scale "
                 "(lower --output-gain by that much or write --format float)\n",
                 static_cast<long long>(clipping.samples), overDb);
}

}  // namespace

int runProcess(const CommandLine& line) {
    const std::string& inputPath = line.operands[0];
    const std::string& outputPath = line.operands[1];
    requireDistinctFiles(inputPath, outputPath);
    requireFileName(outputPath);
    int container = containerForPath(outputPath);
    if (line.sampleFormat) chooseSubtype(container, *line.sampleFormat, line.sampleFormat);
    SoundReader reader(inputPath);
    SoundFormat format = outputFormat(line, reader, container);
    RunningEffect effect = startEffect(line, reader.sampleRate());
    applyStateAndSettings(*effect.session, line);
    PendingOutput output(outputPath);
    SoundWriter writer(output.path(), format, line.dither);

    size_t blockSize = static_cast<size_t>(effect.session->options().blockSize);
    StereoBuffer input;
    StereoBuffer equalized;
    ProgressMeter progress(reader.lengthKnown() ? reader.frames() : 0, reader.sampleRate());
    int64_t framesDone = 0;
    while (reader.read(input, blockSize) > 0) {
        effect.session->process(input, equalized);
        writer.write(equalized);
        framesDone += static_cast<int64_t>(input.frames());
        progress.update(framesDone);
    }
    progress.finish();
    writer.finish();
    output.commit();
    reportClipping(writer.clipping());
    std::printf("processed %lld frames at %g Hz into %s\n", static_cast<long long>(framesDone),
                effect.session->options().sampleRate, outputPath.c_str());
    return 0;
}
