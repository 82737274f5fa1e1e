// A picture of the open editor, as a person would first see it.
#include <filesystem>
#include <string>

#include "editor/editor_controls.h"
#include "host/ui/input_injection.h"
#include "host/ui/screenshot.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_dialog_fixture.h"

namespace {

class EditorScreenshotTest : public EditorDialogTest {
protected:
    std::string picturePath(const char* name) const {
        std::filesystem::create_directories(OMBRO_TEST_OUTPUT_DIR);
        return std::string(OMBRO_TEST_OUTPUT_DIR) + "/" + name;
    }
};

// Written with the tabs, then without them (the tall graph).
TEST_F(EditorScreenshotTest, OpenEditorRendersWithAndWithoutTabsAndIsWrittenAsPng) {
    openEditorIn(1000, 620);
    for (const char* name : {"editor_open.png", "editor_without_tabs.png"}) {
        advanceClock(40);
        const std::string path = picturePath(name);
        ASSERT_TRUE(kobal_layer::saveScreenshot(hostWindow, path));
        EXPECT_GT(std::filesystem::file_size(path), 1000u);
        ASSERT_TRUE(kobal_layer::clickButton(control(kShowTabsBox)));
    }
}

}  // namespace
