// The suites ombro-bench runs, in order. Each prints its own table.
#pragma once

struct BenchOptions {
    bool quick = false;      // fewer and shorter trials
    bool paintOnly = false;  // the editor paint suite alone
};

// The block callback as shipped against the scalar loop, steady and gliding.
void runAudioPathSuite(const BenchOptions& options);
// The audio path on every instruction set this processor runs.
void runInstructionSetSuite(const BenchOptions& options);
// The response graph's paint: 1200 x 600, 32 bands, with phase and spectra.
void runEditorPaintSuite(const BenchOptions& options);
