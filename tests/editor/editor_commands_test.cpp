// The editor's buttons, switches and tab strip as a user works them, each
// control found by the label a person reads, what the host hears of them,
// and pictures of the open editor in the screenshot directory, read back.
#include <cmath>
#include <functional>
#include <numbers>

#include "editor/band_panel_controls.h"
#include "editor/editor_dialog.h"
#include "engine/band_list.h"
#include "engine/band_removal.h"
#include "host/ui/fader.h"
#include "host/ui/input_injection.h"
#include "host/ui/pointer_and_keys.h"
#include "host/ui/tab_control.h"
#include "tests/editor/editor_fixture.h"

namespace {

// The text a person reads on a control: its caption, or a fader's name.
std::string shownLabel(HWND window) {
    const char* name = kobal_layer::faderText(window, kobal_layer::kFaderNameText);
    return name ? name : window->text;
}

// Every window inside `window`, depth first.
std::vector<HWND> windowsIn(HWND window) {
    std::vector<HWND> all;
    for (HWND child : window->children) {
        all.push_back(child);
        for (HWND inner : windowsIn(child)) all.push_back(inner);
    }
    return all;
}

bool overlapsRows(const RECT& a, const RECT& b) { return a.top < b.bottom && b.top < a.bottom; }

class ControlLabelsTest : public EditorTest {
protected:
    std::vector<HWND> everyControl() const { return windowsIn(editor()); }
    // The control showing `label`.
    HWND labelled(const std::string& label) const {
        for (HWND window : everyControl())
            if (shownLabel(window) == label) return window;
        ADD_FAILURE() << "no control shows \"" << label << "\"";
        return nullptr;
    }
    // The leftmost edit box or list right of the label on the same row.
    HWND besideLabel(const std::string& label) const {
        HWND text = labelled(label), found = nullptr;
        const RECT textRect = rectInParent(text);
        for (HWND window : everyControl()) {
            const RECT rect = rectInParent(window);
            const bool field = window->className == "Edit" || window->className == "ComboBox";
            if (field && window->parent == text->parent && overlapsRows(rect, textRect) &&
                rect.left >= textRect.right && (!found || rect.left < rectInParent(found).left))
                found = window;
        }
        return found;
    }
    // The edit box right below the fader that shows `name`.
    HWND belowFader(const std::string& name) const {
        const RECT fader = rectInParent(labelled(name));
        for (HWND window : everyControl()) {
            const RECT rect = rectInParent(window);
            if (window->className == "Edit" && rect.top >= fader.bottom && rect.left < fader.right &&
                fader.left < rect.right)
                return window;
        }
        return nullptr;
    }
    void click(const std::string& label) { ASSERT_TRUE(kobal_layer::clickButton(labelled(label))); }
};

struct LabelledControl {
    const char* label;
    std::function<void()> use;
    std::function<bool()> changedAsLabelled;
};

TEST_F(ControlLabelsTest, EachHandledControlIsTheOneItsLabelNames) {
    const std::vector<LabelledControl> controls = {
        {"Show grid", [&] { click("Show grid"); }, [&] { return instance->showGrid == 0; }},
        {"Show phase", [&] { click("Show phase"); },
         [&] { return (instance->viewFlags & 1) != 0 && instance->showGrid == 0; }},
        {"Show tabs", [&] { click("Show tabs"); click("Show tabs"); },
         [&] { return instance->showTabs == 1 && (instance->viewFlags & 1) != 0; }},
        {"Add band", [&] { click("Add band"); },
         [&] {
             const EqBand added = band(4);  // a flat bell at 700 Hz, selected
             return added.type == Band && added.frequency == 700.0 && added.gain == 1.0 &&
                    added.bandwidth == 2.0 && currentTab() == 4;
         }},
        {"Remove band", [&] { click("Remove band"); },
         [&] { return instance->bandCount() == 4 && instance->selectedBand == 3; }},
        {"Frequency (Hz):",
         [&] { kobal_layer::typeIntoEdit(besideLabel("Frequency (Hz):"), "2000"); },
         [&] { return band(3).frequency == 2000.0 && band(3).gain == 1.0; }},
        {"Gain (dB):", [&] { kobal_layer::typeIntoEdit(besideLabel("Gain (dB):"), "6"); },
         [&] { return std::abs(band(3).gain - 1.9952623149688795) < 1e-12; }},
        {"Bandwidth (oct):",
         [&] { kobal_layer::typeIntoEdit(besideLabel("Bandwidth (oct):"), "1.5"); },
         [&] { return band(3).bandwidth == 1.5 && band(3).frequency == 2000.0; }},
        {"Type:", [&] { kobal_layer::chooseListEntry(besideLabel("Type:"), 0); },
         [&] { return band(3).type == LowShelf; }},
        {"Band frequency", [&] { kobal_layer::dragFaderTo(labelled("Band frequency"), 0); },
         [&] { return band(3).frequency == 20.0 && band(3).bandwidth == 1.5; }},
        {"Band width", [&] { kobal_layer::dragFaderTo(labelled("Band width"), 3000); },
         [&] { return band(3).bandwidth == 3.0 && text(panelControl(kBandwidthEdit)) == "3.00"; }},
        {"Band gain", [&] { kobal_layer::dragFaderTo(labelled("Band gain"), 1000); },
         [&] { return band(3).gain > 3.0 && band(3).bandwidth == 3.0; }},
        {"Enabled", [&] { click("Enabled"); }, [&] { return band(3).enabled == 0; }},
        {"Log-scale automated frequencies", [&] { click("Log-scale automated frequencies"); },
         [&] { return band(3).logScaleAutomation != band(2).logScaleAutomation; }},
        {"Output gain", [&] { kobal_layer::dragFaderTo(labelled("Output gain"), 500); },
         [&] { return instance->outputGain < 1.0; }},
        {"edit box below \"Output gain\"",
         [&] { kobal_layer::typeIntoEdit(belowFader("Output gain"), "-6"); },
         [&] { return std::abs(instance->outputGain - 0.5011872336272722) < 1e-12; }},
        {"Reset defaults", [&] { click("Reset defaults"); },
         [&] { return band(3).type == HighShelf && band(3).enabled == 1; }},
    };
    for (const LabelledControl& control : controls) {
        SCOPED_TRACE(control.label);
        control.use();
        EXPECT_TRUE(control.changedAsLabelled());
    }
}

using Texts = std::vector<std::string>;

class EditorCommandsTest : public EditorTest {
protected:
    void click(int id) { ASSERT_TRUE(kobal_layer::clickButton(control(id))); }
    void selectTab(int index) { ASSERT_TRUE(kobal_layer::clickTab(control(kBandTabs), index)); }
    void appendFlatBands(int count) {
        for (int i = 0; i < count; ++i)
            ASSERT_TRUE(appendBand(instance, createDesignedBand(Band, 2000.0, 1.0, 1.0,
                                                                instance->sampleRate)));
        refresh();
    }
    // The picture shows the graph as last painted, top to bottom.
    void expectGraphShown() const {
        RECT graph{};
        kobal::GetClientRect(view, &graph);
        for (int y : {0, graph.bottom / 2, graph.bottom - 1})
            for (int x : {0, graph.right / 3, graph.right - 1})
                EXPECT_EQ(at(view, x, y), pixel(x, y) & 0xffffff) << x << "," << y;
    }
    // Exactly these notices, then forgets them: an edit ended (unless `endedEdit`
    // is -1), a changed parameter list (unless `delta` is 0), the general notice.
    void expectNotices(int32_t endedEdit, int32_t first, int32_t delta) {
        const std::vector<HostNotice> sent = notices();
        clearNotices();
        ASSERT_EQ(sent.size(), 1u + (endedEdit >= 0) + (delta != 0));
        EXPECT_TRUE(endedEdit < 0 ||
                    (sent[0].opcode == audioMasterEndEdit && sent[0].index == endedEdit));
        EXPECT_TRUE(delta == 0 || sent[sent.size() - 2].isListChange(first, delta));
        EXPECT_TRUE(sent.back().opcode == audioMasterAutomate && sent.back().index == -1);
    }
};

// The selected index stays while a band is there, else the one before is
// selected; the host drops the removed band's three parameters; the only
// band stays. Band 3 (1000 Hz) is never removed.
TEST_F(EditorCommandsTest, RemoveBandTellsTheHostWhichParametersWent) {
    struct Case {
        int tab, selected;
        Texts tabs;
        int32_t firstRemoved;  // -1: nothing removed
    };
    const Case cases[] = {{1, 1, {"1", "2", "3"}, 3},
                          {2, 1, {"1", "2"}, 6},
                          {0, 0, {"1"}, 0},
                          {0, 0, {"1"}, -1}};
    for (const Case& c : cases) {
        SCOPED_TRACE(c.firstRemoved);
        selectTab(c.tab);
        click(kRemoveBandButton);
        EXPECT_EQ(instance->selectedBand, c.selected);
        EXPECT_EQ(currentTab(), c.selected);
        EXPECT_EQ(tabTexts(), c.tabs);
        EXPECT_EQ(band(c.selected).frequency, 1000.0);
        if (c.firstRemoved < 0) EXPECT_TRUE(notices().empty());
        else expectNotices(-1, c.firstRemoved, -3);
    }
}

// The panel showed band 4 (a high shelf) of six; right after the reset,
// before any timer tick, it shows band 1, its faders work on band 1 as it
// now is, and the host hears of the shorter list. Typing opens a gesture;
// a reset first ends it.
TEST_F(EditorCommandsTest, ResetDefaultsShowsBandOneInThePanelAtOnce) {
    click(kAddBandButton);
    click(kAddBandButton);
    selectTab(3);
    advanceClock(40);
    ASSERT_EQ(text(panelControl(kFrequencyEdit)), "5000.0");
    clearNotices();
    click(kResetDefaultsButton);
    expectNotices(-1, 12, -6);
    EXPECT_EQ(tabTexts(), (Texts{"1", "2", "3", "4"}));
    EXPECT_EQ(currentTab(), 0);
    EXPECT_EQ(text(panelControl(kFrequencyEdit)), "100.0");
    EXPECT_EQ(kobal::SendMessage(panelControl(kBandTypeList), CB_GETCURSEL, 0, 0), 0);
    ASSERT_TRUE(kobal_layer::dragFaderTo(panelControl(kFrequencyFader), 300));
    EXPECT_EQ(band(0).type, LowShelf);
    EXPECT_NE(band(0).frequency, 100.0);
    EXPECT_EQ(band(3).frequency, 5000.0);
    clearNotices();
    kobal_layer::typeIntoEdit(panelControl(kGainEdit), "5");
    EXPECT_EQ(notices().front().opcode, audioMasterBeginEdit);
    clearNotices();
    click(kResetDefaultsButton);
    EXPECT_EQ(band(0).gain, 1.0);
    expectNotices(1, 0, 0);
}

using EditorTabsTest = EditorCommandsTest;

// Band 6 of 6 is selected when a state of two bands arrives: the refresh
// selects band 2, its tab and its values, and typing and "Remove band" act on it.
TEST_F(EditorTabsTest, SmallerStateSelectsItsLastBandAndThePanelWorksOnIt) {
    ASSERT_TRUE(removeBandAt(instance, 3));
    ASSERT_TRUE(removeBandAt(instance, 2));
    void* data = nullptr;
    const intptr_t size =
        instance->effect.dispatcher(&instance->effect, effGetChunk, 0, 0, &data, 0.0f);
    std::vector<uint8_t> twoBands(static_cast<uint8_t*>(data), static_cast<uint8_t*>(data) + size);
    appendFlatBands(4);
    selectTab(5);
    advanceClock(40);
    ASSERT_EQ(text(panelControl(kFrequencyEdit)), "2000.0");

    instance->effect.dispatcher(&instance->effect, effSetChunk, 0, size, twoBands.data(), 0.0f);
    advanceClock(40);
    EXPECT_EQ(instance->selectedBand, 1);
    EXPECT_EQ(tabTexts(), (Texts{"1", "2"}));
    EXPECT_EQ(currentTab(), 1);
    EXPECT_EQ(text(panelControl(kFrequencyEdit)), "300.0");
    kobal_layer::typeIntoEdit(panelControl(kGainEdit), "6");
    EXPECT_NEAR(band(1).gain, 1.9952623149688795, 1e-12);
    click(kRemoveBandButton);
    EXPECT_EQ(instance->bandCount(), 1);
    EXPECT_EQ(band(0).type, LowShelf);
}

// At the default size (1020 by 640) forty tabs do not fit: the strip shows its
// arrows and scrolls, every band can be chosen, the current tab stands out,
// and a band added from the editor shows its tab.
TEST_F(EditorTabsTest, FortyBandsAreAllReachableInTheScrollingTabStrip) {
    resizeHost(1020, 640);
    appendFlatBands(36);
    HWND tabs = control(kBandTabs);
    for (int index : {39, 0, 25, 12, 37}) {
        selectTab(index);
        EXPECT_EQ(instance->selectedBand, index);
    }
    advanceClock(40);
    EXPECT_EQ(kobal_layer::tabHeaderRect(tabs, 0).right, 0);  // scrolled away
    save("editor_40_bands.png");
    const RECT left = kobal_layer::tabScrollButtonRect(tabs, -1);
    ASSERT_GT(left.right, 0);
    // A triangle pointing left: a tall base on the right, a one-pixel tip.
    const int x = (left.left + left.right) / 2, y = (left.top + left.bottom) / 2;
    const uint32_t arrow = at(tabs, x, y);
    EXPECT_EQ(at(tabs, x + 2, y - 4), arrow);
    EXPECT_NE(at(tabs, x - 2, y - 4), arrow);
    EXPECT_NE(at(tabs, left.left + 3, left.top + 3), arrow);
    const RECT current = kobal_layer::tabHeaderRect(tabs, 37);
    const RECT before = kobal_layer::tabHeaderRect(tabs, 36);
    EXPECT_NE(at(tabs, current.left + 3, current.top + 3), at(tabs, before.left + 3, before.top + 3));
    click(kAddBandButton);
    EXPECT_EQ(currentTab(), 40);
    EXPECT_GT(kobal_layer::tabHeaderRect(tabs, 40).right, 0);
}

using EditorPicturesTest = EditorCommandsTest;

// As opened; then with shaped bands, phase, spectra and band 3 under the
// pointer (hand cursor, red disc, the framed readout box 30 pixels right of
// it); then without the tabs, also after the editor opens again: strip and
// panel hidden, the graph reaching down to just above the buttons.
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
    RECT graph{};
    kobal::GetClientRect(view, &graph);
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
