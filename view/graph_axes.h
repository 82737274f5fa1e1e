// The graph's axes: a logarithmic frequency axis from 20 Hz to 24000 Hz
// across the client width, and a linear dB axis whose range follows "Show
// tabs" (±24 dB for the tall graph, ±12 dB when the tabs take room). Painting,
// hit testing, the menu and the readout all map through these functions.
#pragma once

#include "contracts/kobal.h"

struct EqInstance;

struct GraphAxes {
    int width;
    int height;
    double gainRange;        // dB from the bottom edge to the top edge
    double gainBottom;       // dB at the bottom edge
    double topAmplitude;     // linear gain at the top edge
    double bottomAmplitude;  // linear gain at the bottom edge
};

GraphAxes graphAxes(const EqInstance& instance, int width, int height);
// The axes of the view's client area.
GraphAxes viewAxes(const EqInstance& instance, HWND view);

// Hz at column x of a graph `width` columns wide (the hit-testing form).
double columnToFrequency(double x, int width);
// The same axis as the paint evaluates it, column by column.
double paintedColumnFrequency(int x, int width);
// The column of `frequency`, truncated toward zero.
int frequencyToColumn(double frequency, int width);

double dbOfRow(const GraphAxes& axes, int y);
double amplitudeOfRow(const GraphAxes& axes, int y);
int rowOfDb(const GraphAxes& axes, double db);

// The row a band's handle sits on before it is held inside the graph.
int handleRow(const GraphAxes& axes, int32_t type, double gain);
