// The band panel's type list: the peaking type "Band" comes third, the two
// older peaking variants last.
#pragma once

#include <cstdint>

// The BandType code shown at list position `index`; no selection (−1) counts
// as "Band".
int32_t bandTypeOfListIndex(int index);
// The list position that shows the BandType `code`.
int listIndexOfBandType(int32_t code);
