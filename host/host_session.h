// What programs and tests use to run the equalizer in the stand-in host:
// loading the plug-in, effect sessions and the host's extension functions.
#pragma once

#include "host/extensions/config_variables.h"
#include "host/extensions/extension_table.h"
#include "host/extensions/fader_curve.h"
#include "host/extensions/real_fft.h"
#include "host/vst/effect_session.h"
#include "host/vst/host_call.h"
#include "host/vst/host_callback.h"
#include "host/vst/plugin_library.h"
