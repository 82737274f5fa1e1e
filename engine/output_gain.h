// The output gain stage at the end of each block: a linear ramp from the gain
// reached so far to the target, so that gain changes do not click.
#pragma once

#include <cstdint>

// Scales both channels towards `target`; `current` is the gain reached at the
// end of the previous block and becomes the gain reached at the end of this one.
void applyOutputGain(double* const outputs[2], int32_t frames, double target, double& current);
