// Control ids of the band panel (dialog resource 103) and what its faders span.
#pragma once

constexpr int kFrequencyFader = 1023;
constexpr int kGainFader = 1024;
constexpr int kBandwidthFader = 1025;
constexpr int kFrequencyEdit = 1019;
constexpr int kGainEdit = 1020;
constexpr int kBandwidthEdit = 1021;
constexpr int kNoteNameBox = 1027;
constexpr int kBandTypeList = 1015;
constexpr int kEnabledBox = 1022;
constexpr int kLogScaleAutomationBox = 1029;
constexpr int kPanelMessageLabel = 500;

constexpr int kFrequencyFaderTop = 1000;
constexpr int kBandwidthFaderBottom = 10;    // 0.01 octave
constexpr int kBandwidthFaderTop = 4000;     // 4 octaves
constexpr int kBandwidthFaderCentre = 2000;  // 2 octaves, where new bands start
