// Control ids of the editor dialog (dialog resource 101).
#pragma once

constexpr int kResponseViewControl = 1023;
constexpr int kBandTabs = 1026;
constexpr int kBandPanelPlaceholder = 1028;
constexpr int kEditorFrame = 1034;
constexpr int kGainLabel = 1079;
constexpr int kAddBandButton = 1018;
constexpr int kRemoveBandButton = 1019;
constexpr int kResetDefaultsButton = 1020;
constexpr int kShowGridBox = 1022;
constexpr int kShowPhaseBox = 1024;
constexpr int kShowTabsBox = 1029;

// The editor's timers: the 40 ms poll, and the single pass posted at opening
// that sizes the dialog to its parent.
constexpr unsigned kPollTimer = 1;
constexpr unsigned kFirstSizingPass = 2;
constexpr unsigned kPollMilliseconds = 40;
