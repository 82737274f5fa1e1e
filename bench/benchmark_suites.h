// The suites ombro-bench runs, in order. Each prints its own table.
#pragma once

struct BenchOptions {
    bool quick = false;  // fewer and shorter trials
};

// The block callback as shipped against the scalar loop, steady and gliding.
void runAudioPathSuite(const BenchOptions& options);
// The steady cascade on every instruction set this processor runs.
void runInstructionSetSuite(const BenchOptions& options);
// (The editor-paint suite joins here once the response graph exists.)
