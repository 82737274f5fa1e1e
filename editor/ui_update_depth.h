// Nonzero while the editor writes its own controls, so that the change
// notifications those writes cause are not taken for user input. One counter
// for every open editor.
#pragma once

extern int uiUpdateDepth;

class UiUpdateScope {
public:
    UiUpdateScope() { ++uiUpdateDepth; }
    ~UiUpdateScope() { --uiUpdateDepth; }
    UiUpdateScope(const UiUpdateScope&) = delete;
    UiUpdateScope& operator=(const UiUpdateScope&) = delete;
};
