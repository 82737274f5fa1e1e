// The plug-in's dialog and menu resources, linked into the two list heads at
// load time and handed to the windowing layer.
#pragma once

#include "contracts/kobal.h"

constexpr int kEditorDialogResource = 101;
constexpr int kBandPanelResource = 103;
constexpr int kContextMenuResource = 104;

// The heads are defined in resource_lists.cpp; each resource file links its
// entries in front of them from a static initializer.
extern DialogResource* dialogResourceList;
extern MenuResource* menuResourceList;
