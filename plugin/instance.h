// Creating and destroying effect instances.
#pragma once

#include "contracts/vst2.h"

struct EqInstance;

// What VSTPluginMain does: imports the host's extensions through `host`,
// builds an instance with the default bands; null when the host lacks a
// required extension or memory ran out.
EqInstance* createInstance(audioMasterCallback host);
// An instance with every field at its creation value and the AEffect filled,
// but no bands yet; null when out of memory.
EqInstance* allocateInstance(audioMasterCallback host);
// Frees an instance that was never handed to the host.
void discardInstance(EqInstance* instance);
// effClose: deletes the bands, closes the editor and frees the instance.
void destroyInstance(EqInstance* instance);
