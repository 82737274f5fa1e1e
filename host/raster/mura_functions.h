// The raster library's MURA_* functions by name, for the host callback's
// extension request.
#pragma once

// Address of the raster function `name`, or null when there is none.
void* findMuraFunction(const char* name);
