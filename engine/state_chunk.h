// The plug-in's whole state as one little-endian, packed byte block: the
// band list, the view settings, the output gain and the editor size.
#pragma once

#include <cstdint>

struct EqInstance;

// Builds the chunk in a process-wide buffer that stays valid until the next
// call; stores its address in *data and answers its size (0 when out of memory).
int32_t writeStateChunk(EqInstance* instance, void** data);
// Replaces the bands and settings from a chunk of byteCount bytes; a chunk it
// cannot read leaves the bands as they are. Always answers 0.
int32_t readStateChunk(EqInstance* instance, const void* data, intptr_t byteCount);
