// Each control the editor handles is the one its label names. The controls
// are found the way a person finds them, by the text shown on or beside
// them, never through the ids the editor's code uses, and each is worked to
// see that it changes what its label says.
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "engine/eq_band.h"
#include "host/ui/fader.h"
#include "host/ui/input_injection.h"
#include "host/ui/window_tree.h"
#include "plugin/ui_layer.h"
#include "tests/editor/editor_fixture.h"

namespace {

bool isEditBox(const KobalWindow& window) { return window.className == "Edit"; }

// The text a person reads on a control: its caption, or a fader's name.
std::string shownLabel(HWND window) {
    const KobalWindow* record = kobal_layer::liveWindow(window);
    if (!record) return "";
    if (const char* name = kobal_layer::faderText(window, kobal_layer::kFaderNameText))
        return name;
    return record->text;
}

void collect(HWND window, std::vector<HWND>& windows) {
    for (KobalWindow* child : kobal_layer::liveWindow(window)->children) {
        windows.push_back(child);
        collect(child, windows);
    }
}

bool overlapsRows(const RECT& a, const RECT& b) { return a.top < b.bottom && b.top < a.bottom; }

class ControlLabelsTest : public OpenEditorTest {
protected:
    std::vector<HWND> everyControl() const {
        std::vector<HWND> windows;
        collect(editor(), windows);
        return windows;
    }
    // The control showing `label`.
    HWND labelled(const std::string& label) const {
        for (HWND window : everyControl())
            if (shownLabel(window) == label) return window;
        ADD_FAILURE() << "no control shows \"" << label << "\"";
        return nullptr;
    }
    // The leftmost edit box or list right of the label on the same row.
    HWND besideLabel(const std::string& label) const {
        HWND text = labelled(label);
        HWND found = nullptr;
        for (HWND window : everyControl()) {
            const RECT rect = rectInParent(window);
            const RECT textRect = rectInParent(text);
            const bool field = isEditBox(*window) || window->className == "ComboBox";
            if (!field || window->parent != text->parent || !overlapsRows(rect, textRect) ||
                rect.left < textRect.right)
                continue;
            if (!found || rect.left < rectInParent(found).left) found = window;
        }
        return found;
    }
    // The edit box right below the fader that shows `name`.
    HWND belowFader(const std::string& name) const {
        const RECT fader = rectInParent(labelled(name));
        for (HWND window : everyControl()) {
            const RECT rect = rectInParent(window);
            if (isEditBox(*window) && rect.top >= fader.bottom && rect.left < fader.right &&
                fader.left < rect.right)
                return window;
        }
        return nullptr;
    }
    void click(const std::string& label) {
        HWND button = labelled(label);
        ASSERT_NE(button, nullptr);
        ASSERT_TRUE(kobal_layer::clickButton(button));
    }
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
        {"Add band", [&] { click("Add band"); }, [&] { return instance->bandCount() == 5; }},
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
        {"Band frequency", [&] { kobal_layer::dragFaderTo(labelled("Band frequency"), 100); },
         [&] { return band(3).frequency < 100.0 && band(3).bandwidth == 1.5; }},
        {"Band width", [&] { kobal_layer::dragFaderTo(labelled("Band width"), 3000); },
         [&] { return band(3).bandwidth == 3.0; }},
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

}  // namespace
