// A picture of the open editor, as a person would first see it.
#include <filesystem>
#include <string>

#include "host/ui/screenshot.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_dialog_fixture.h"

namespace {

class EditorScreenshotTest : public EditorDialogTest {};

TEST_F(EditorScreenshotTest, OpenEditorRendersAndIsWrittenAsPng) {
    openEditorIn(1000, 620);
    advanceClock(40);
    const std::string path = std::string(OMBRO_TEST_OUTPUT_DIR) + "/editor_open.png";
    std::filesystem::create_directories(OMBRO_TEST_OUTPUT_DIR);
    ASSERT_TRUE(kobal_layer::saveScreenshot(hostWindow, path));
    EXPECT_GT(std::filesystem::file_size(path), 1000u);
}

}  // namespace
