// A picture of the open editor after some audio has played through the
// effect, so that its input and output spectra show.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

#include "host/vst/effect_session.h"

// Fills `block` with up to `frames` frames (resizing it to what it gives);
// 0 at the end of the signal.
using BlockSource = std::function<size_t(StereoBuffer& block, size_t frames)>;

// Reads through `buffer`, which must outlive the source.
BlockSource bufferSource(const StereoBuffer& buffer);

// Switches the windowing layer to its manual clock; call it before the
// effect is made, so the editor's timer runs on the time the audio takes.
void useEditorClock();

struct PictureRequest {
    int width;
    int height;
    int64_t frames;    // how much of the source to play
    std::string path;  // the PNG to write
};

// Opens the editor in a host window, plays the source through the effect
// with the editor's timer running as the audio's time passes, and writes a
// PNG of the window. Throws CommandFailure when there is no editor or the
// picture cannot be written (no file is left behind then).
void renderEditorPicture(EffectSession& session, const BlockSource& source,
                         const PictureRequest& request);
