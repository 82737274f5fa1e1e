// The editor's output-gain fader and edit box.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

constexpr int kOutputGainFader = 1047;
constexpr int kOutputGainEdit = 1011;

// The editor writes the gain as "%.1f"; a host that sets it through a vendor
// request sees it signed.
constexpr const char* kGainTextFormat = "%.1f";
constexpr const char* kSignedGainTextFormat = "%+.1f";

// Moves the fader to the instance's output gain and writes its text into the
// edit box and the fader.
void showOutputGain(EqInstance* instance, const char* dbFormat);
// The user typed into the edit box: its text, read as dB, becomes the output
// gain (text that is no number reads as 0 dB); the fader follows.
void takeTypedOutputGain(EqInstance* instance, HWND editor);
// The user moved the fader: its position becomes the output gain; the edit
// box follows.
void takeFaderOutputGain(EqInstance* instance, HWND editor);
