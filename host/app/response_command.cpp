// "response [FREQ...]": the combined response of the bands and the output
// gain in dB and degrees, at the given frequencies or over a logarithmic grid.
#include <algorithm>
#include <cmath>
#include <cstdio>
#include <numbers>
#include <vector>

#include "host/app/band_report.h"
#include "host/app/commands.h"
#include "host/app/effect_response.h"
#include "host/app/host_setup.h"
#include "host/app/number_text.h"
#include "host/app/program_error.h"

namespace {

constexpr double kGridLowestHz = 20.0;
constexpr double kGridHighestHz = 24000.0;
constexpr double kGridPointsPerOctave = 12.0;

std::vector<double> logarithmicGrid(double highest) {
    double octaves = std::log2(highest / kGridLowestHz);
    int steps = static_cast<int>(std::ceil(octaves * kGridPointsPerOctave));
    std::vector<double> grid;
    for (int i = 0; i <= steps; ++i)
        grid.push_back(kGridLowestHz * std::pow(highest / kGridLowestHz, double(i) / steps));
    return grid;
}

std::vector<double> requestedFrequencies(const CommandLine& line, double nyquist) {
    if (line.operands.empty()) return logarithmicGrid(std::min(kGridHighestHz, nyquist));
    std::vector<double> frequencies;
    for (const std::string& operand : line.operands) {
        double frequency = parseFrequency(operand, "frequency");
        if (frequency <= 0.0 || frequency > nyquist)
            throw UsageError("frequency " + operand + " lies outside 0.." +
                             std::to_string(static_cast<long>(nyquist)) +
                             " Hz (half the sample rate)");
        frequencies.push_back(frequency);
    }
    return frequencies;
}

}  // namespace

int runResponse(const CommandLine& line) {
    RunningEffect effect = startEffect(line);
    EffectSession& session = *effect.session;
    double rate = session.options().sampleRate;
    std::vector<double> frequencies = requestedFrequencies(line, 0.5 * rate);
    applyStateAndSettings(session, line);
    std::vector<double> impulse = measureImpulseResponse(session);

    if (line.csv)
        std::printf("frequency_hz,gain_db,phase_deg\n");
    else
        std::printf("response at a sample rate of %g Hz\n%14s %11s %12s\n", rate,
                    "frequency (Hz)", "gain (dB)", "phase (deg)");
    for (double frequency : frequencies) {
        std::complex<double> transfer = transferAt(impulse, frequency, rate);
        double gainDb = gainToDb(std::abs(transfer));
        double phaseDeg = std::arg(transfer) * 180.0 / std::numbers::pi;
        std::printf(line.csv ? "%.6g,%.4f,%.3f\n" : "%14.2f %+11.4f %12.3f\n", frequency, gainDb,
                    phaseDeg);
    }
    return 0;
}
