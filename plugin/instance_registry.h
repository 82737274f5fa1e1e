// Counts the live instances: the first one registers the graph's control
// class with the windowing layer, the last one to close withdraws it and
// frees the graph's shared fonts.
#pragma once

void registerInstance();
void unregisterInstance();
int liveInstanceCount();
