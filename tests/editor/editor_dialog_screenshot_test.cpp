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

TEST_F(EditorScreenshotTest, OpenEditorRendersAndIsWrittenAsPng) {
    openEditorIn(1000, 620);
    advanceClock(40);
    const std::string path = picturePath("editor_open.png");
    ASSERT_TRUE(kobal_layer::saveScreenshot(hostWindow, path));
    EXPECT_GT(std::filesystem::file_size(path), 1000u);
}

TEST_F(EditorScreenshotTest, EditorWithoutTabsShowsTheTallGraphAndIsWrittenAsPng) {
    openEditorIn(1000, 620);
    ASSERT_TRUE(kobal_layer::clickButton(control(kShowTabsBox)));
    advanceClock(40);
    const std::string path = picturePath("editor_without_tabs.png");
    ASSERT_TRUE(kobal_layer::saveScreenshot(hostWindow, path));
    EXPECT_GT(std::filesystem::file_size(path), 1000u);
}

}  // namespace
