// The extension functions the host serves through its callback (opcode
// kHostExtensionOpcode, index kHostExtensionIndex, ptr the name).
#pragma once

// The address of the extension function `name`, or null when the host has
// none by that name. The raster functions come from the raster library.
void* findHostExtension(const char* name);
