// The equalizer's band types as users name them.
#pragma once

#include <cstdint>
#include <optional>
#include <string>

// "Low Shelf", "Band (alt 2)", ...; "" for a code that is no band type.
const char* bandTypeName(int32_t code);

// The code of a type name, matched without regard to case, spaces, dashes
// and brackets ("lowshelf", "high-pass", "band (alt)"); "peak" and "bell"
// name the peaking Band. Empty when the name is unknown.
std::optional<int32_t> findBandType(const std::string& name);

// Every name, in the order the editor lists them, separated by ", ".
std::string bandTypeList();
