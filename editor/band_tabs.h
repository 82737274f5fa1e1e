// The editor's tab strip: one tab per band, named by the band's number.
#pragma once

#include "contracts/kobal.h"

// Inserts the tab of band `index` (text "index + 1") before position `index`.
void insertBandTab(HWND tabs, int index);
// Adds or deletes tabs at the end until there is one per band; true when
// the count changed.
bool matchTabsToBands(HWND tabs, int bandCount);
