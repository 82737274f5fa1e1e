// The UI typefaces of the stand-in host, found with fontconfig. The common
// Windows face names are served by their metric-compatible Liberation faces,
// so text takes the room the plug-in's layout expects.
#pragma once

#include <cairo.h>

// A face for `family` (null or empty: the default UI face) in the given
// weight (400 normal, 700 bold) and slant. The face is cached for the life
// of the process; the caller must not destroy it.
cairo_font_face_t* uiFontFace(const char* family, int weight, bool italic);
