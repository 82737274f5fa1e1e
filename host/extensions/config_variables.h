// The host's configuration variables as "get_config_var" serves them. The one
// variable offered is "midioctoffs", the octave offset of note names: a 4-byte
// integer (0 at start) that the effect reads through the pointer it is given,
// so changes made here show at once.
#pragma once

#include <cstdint>

// "get_config_var": the address of variable `name` and its size in bytes
// through `size` (when non-null); null and size 0 for an unknown name.
void* findConfigVariable(const char* name, int* size);

void setMidiOctaveOffset(int32_t octaves);
int32_t midiOctaveOffsetSetting();
