// What the stand-in host says about itself to a plug-in.
#pragma once

#include <cstdint>
#include <string>

constexpr const char* kHostVendorName = "Pellix";
constexpr const char* kHostProductName = "Ombro Host";

// The answer to audioMasterCanDo: 1 for a capability the host has, 0 otherwise.
intptr_t hostCanDo(const std::string& capability);
