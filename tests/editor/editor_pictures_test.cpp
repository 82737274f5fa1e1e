// Pictures of the open editor in the screenshot directory, for a person to
// look at, each read back to see that it shows what the editor shows.
#include <cmath>
#include <numbers>

#include "editor/editor_dialog.h"
#include "host/ui/input_injection.h"
#include "host/ui/pointer_and_keys.h"
#include "tests/editor/editor_fixture.h"

namespace {

class EditorPicturesTest : public EditorTest {
protected:
    RECT graphClient() const {
        RECT client{};
        kobal::GetClientRect(view, &client);
        return client;
    }
    // The picture shows the graph as last painted, top to bottom.
    void expectGraphShown() const {
        const RECT graph = graphClient();
        for (int y : {0, graph.bottom / 2, graph.bottom - 1})
            for (int x : {0, graph.right / 3, graph.right - 1})
                EXPECT_EQ(at(view, x, y), pixel(x, y) & 0xffffff) << x << "," << y;
    }
};

// As opened; then with shaped bands, phase, spectra and band 3 under the
// pointer: the hand cursor, its red disc and the framed readout box 30
// pixels right of it; then without the tabs, also after the editor opens
// again: strip and panel hidden, the graph reaching down to just above the
// buttons.
TEST_F(EditorPicturesTest, OpenEditorWithShapedBandsAndWithoutTabs) {
    resizeHost(1000, 620);
    save("editor_open.png");
    expectGraphShown();
    setBand(0, LowShelf, 120.0, 2.0, 1.0);
    setBand(1, Band, 400.0, 0.4, 1.5);
    setBand(2, Band, 2500.0, 2.5, 0.7);
    setBand(3, HighPass, 9000.0, 1.0, 1.0, false);
    instance->viewFlags |= kViewShowPhase;
    instance->selectedBand = 2;
    std::vector<double> chord(4096);  // with a little noise
    for (size_t i = 0; i < chord.size(); ++i) {
        const double t = 2.0 * std::numbers::pi * static_cast<double>(i) / 44100.0;
        chord[i] = 0.3 * std::sin(220 * t) + 0.1 * std::sin(3300 * t) + 0.01 * std::sin(i * i);
    }
    process(chord);
    process(chord);
    const RECT graph = graphClient();
    const int x = static_cast<int>(std::log(2480.0 / 23980.0 * 400.0 + 1.0) * graph.right /
                                   5.993961427306569);
    const int y = graph.bottom -
                  static_cast<int>((std::log10(2.5) * 20.0 + 12.0) * graph.bottom / 24.0);
    kobal_layer::moveMouse(screenPoint(x, y));
    ASSERT_EQ(instance->hoverBand, 2);
    EXPECT_EQ(kobal_layer::cursorIdOf(kobal_layer::currentCursor()), kobal_layer::IDC_HAND);
    kobal::InvalidateRect(view, nullptr, 1);
    save("response_view_editor.png");
    EXPECT_NE(instance->spectrumDrawnTick, 0u);
    expectGraphShown();
    const uint32_t border = kobal::GetSysColor(9) & 0xffffff;
    const uint32_t background = kobal::GetSysColor(8) & 0xffffff;
    int red = 0, readout = 0;
    for (int dy = -6; dy <= 6; ++dy)
        for (int dx = -6; dx <= 6; ++dx) red += at(view, x + dx, y + dy) == 0xff2222;
    for (int dy = 10; dy < 20; ++dy)
        for (int dx = 32; dx < 80; ++dx) readout += at(view, x + dx, y + dy) == background;
    EXPECT_GT(red, 50);
    EXPECT_GT(readout, 150);
    EXPECT_EQ(at(view, x + 30 - 2, y + 8 + 3), border);  // the frame's left edge
    EXPECT_EQ(at(view, x + 30 - 1, y + 8 + 3), background);

    kobal_layer::moveMouse(screenPoint(x, graph.bottom + 40));
    const RECT withTabs = rectInParent(view);
    ASSERT_TRUE(kobal_layer::clickButton(control(kShowTabsBox)));
    ASSERT_TRUE(openEditor(instance, hostWindow));
    advanceClock(40);
    view = control(kResponseViewControl);
    save("editor_without_tabs.png");
    expectGraphShown();
    EXPECT_FALSE(control(kBandTabs)->visible);
    EXPECT_FALSE(panel()->visible);
    EXPECT_EQ(kobal::IsDlgButtonChecked(editor(), kShowTabsBox), BST_UNCHECKED);
    const RECT withoutTabs = rectInParent(view);
    EXPECT_EQ(withoutTabs.bottom, rectInParent(control(kRemoveBandButton)).top - 4);
    EXPECT_EQ(withoutTabs.top, withTabs.top);
    EXPECT_EQ(withoutTabs.right, withTabs.right);
    ASSERT_TRUE(kobal_layer::clickButton(control(kShowTabsBox)));
    EXPECT_TRUE(panel()->visible);
    EXPECT_EQ(rectInParent(view).bottom, withTabs.bottom);
}

}  // namespace
