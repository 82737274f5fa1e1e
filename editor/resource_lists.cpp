#include "editor/resources.h"

DialogResource* dialogResourceList = nullptr;
MenuResource* menuResourceList = nullptr;
