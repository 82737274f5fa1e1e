// "process IN.wav OUT.wav": equalizes a WAV file block by block.
#include <cstdio>
#include <filesystem>
#include <system_error>

#include "host/app/commands.h"
#include "host/app/host_setup.h"
#include "host/app/program_error.h"
#include "host/app/progress_meter.h"
#include "host/app/wav_file.h"

namespace {

// Writing over the file being read would destroy the input.
void requireDistinctFiles(const std::string& inputPath, const std::string& outputPath) {
    std::error_code error;
    if (inputPath == outputPath || std::filesystem::equivalent(inputPath, outputPath, error))
        throw UsageError("the output file must differ from the input file");
}

}  // namespace

int runProcess(const CommandLine& line) {
    const std::string& inputPath = line.operands[0];
    const std::string& outputPath = line.operands[1];
    requireDistinctFiles(inputPath, outputPath);
    WavReader reader(inputPath);
    RunningEffect effect = startEffect(line, reader.sampleRate());
    applyStateAndSettings(*effect.session, line);
    WavWriter writer(outputPath, reader.format(), reader.sampleRate());

    size_t blockSize = static_cast<size_t>(effect.session->options().blockSize);
    StereoBuffer input;
    StereoBuffer output;
    ProgressMeter progress(reader.frames(), reader.sampleRate());
    int64_t framesDone = 0;
    while (reader.read(input, blockSize) > 0) {
        effect.session->process(input, output);
        writer.write(output);
        framesDone += static_cast<int64_t>(input.frames());
        progress.update(framesDone);
    }
    progress.finish();
    writer.finish();
    std::printf("processed %lld frames at %g Hz into %s\n", static_cast<long long>(framesDone),
                effect.session->options().sampleRate, outputPath.c_str());
    return 0;
}
