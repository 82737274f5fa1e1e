// The one answer for every interface function that this layer does not
// implement (file dialogs, list views, tree views, clipboard, threads, GDI
// pens and brushes, drag and drop, ...). The equalizer never calls them; a
// caller that does gets 0, which reads as a null handle, false or zero.
#pragma once

#include <cstdint>

namespace kobal_layer {

intptr_t unsupportedCall();

}  // namespace kobal_layer
