// The equalizer the program loads unless --plugin names another.
#pragma once

#include <string>

// The core installed with the program (<prefix>/lib/vst/ombro/ombro.core for
// a program in <prefix>/bin) when there is one, else the build's ombro.so.
std::string defaultPluginPath();
