// The editor dialog (101) and the band panel (103), linked into
// dialogResourceList when the library is loaded: 101 first, then 103 in
// front of it.
#include <iterator>

#include "editor/control_records.h"
#include "editor/resources.h"
#include "plugin/ui_layer.h"

namespace {

constexpr int32_t kDialogWindowFlags = 13;
constexpr float kDialogScale = 1.7f;
constexpr int32_t kNoResizeState = 8;  // creation-state bit: keep the controls' sizes

const ControlRecord kEditorDialogControls[] = {
    genericControl("Bands", 1026, "SysTabControl32", kStyleTabStop, 9, 90, 308, 102),
    groupControl("Ombro", 1034, 0, 0, 349, 213),
    genericControl("", 1028, "Static", kStylePlaceholder, 17, 107, 296, 83),
    buttonControl("Add band", 1018, 9, 194, 46, 14),
    buttonControl("Remove band", 1019, 57, 194, 53, 14),
    genericControl("Show tabs", 1029, "Button", kStyleCheckBox, 179, 196, 47, 10),
    genericControl("Show grid", 1022, "Button", kStyleCheckBox, 231, 196, 45, 10),
    genericControl("", 1023, "OmbroWindow", kStyleTabStop, 8, 11, 310, 74),
    genericControl("", 1047, "HARVINvfader", kStyleTabStop, 324, 22, 14, 152),
    editControl(1011, 321, 178, 22, 14, kStyleCentredEdit),
    labelControl("Gain:", 1079, kAlignLeft, 324, 11, 18, 8),
    buttonControl("Reset defaults", 1020, 113, 194, 62, 14),
    genericControl("Show phase", 1024, "Button", kStyleCheckBox, 281, 196, 59, 10),
};

const ControlRecord kBandPanelControls[] = {
    genericControl("", 1023, "HARVINhfader", kStyleTabStop, 58, 18, 149, 14),
    labelControl("Frequency (Hz):", 0, kAlignLeft, 2, 21, 51, 8),
    editControl(1019, 210, 18, 35, 14, 0),
    labelControl("Type:", 0, kAlignLeft, 55, 4, 19, 8),
    comboControl(1015, 77, 2, 91, 146, kStyleDropDownList),
    genericControl("", 1024, "HARVINhfader", kStyleTabStop, 58, 35, 149, 14),
    labelControl("Gain (dB):", 0, kAlignLeft, 21, 38, 32, 8),
    editControl(1020, 210, 35, 35, 14, 0),
    genericControl("", 1025, "HARVINhfader", kStyleTabStop, 58, 52, 149, 14),
    labelControl("Bandwidth (oct):", 0, kAlignLeft, 2, 56, 52, 8),
    editControl(1021, 210, 52, 35, 14, 0),
    genericControl("Enabled", 1022, "Button", kStyleCheckBox, 1, 3, 40, 10),
    editControl(1027, 247, 18, 35, 14, kStyleReadOnlyEdit),
    genericControl("Log-scale automated frequencies", 1029, "Button", kStyleCheckBox, 175, 3, 117,
                   10),
    labelControl("Static", 500, kAlignDefault, 1, 74, 291, 8),
};

void generateControls(HWND window, int32_t creationState, const ControlRecord* controls,
                      int count) {
    kobal::KOBAL_MakeSetCurParms(kDialogScale, kDialogScale, 0, 0, window, false,
                                 !(creationState & kNoResizeState));
    kobal::KOBAL_GenerateDialogFromList(controls, count);
}

void createEditorDialog(HWND window, int32_t creationState) {
    generateControls(window, creationState, kEditorDialogControls,
                     static_cast<int>(std::size(kEditorDialogControls)));
}

void createBandPanel(HWND window, int32_t creationState) {
    generateControls(window, creationState, kBandPanelControls,
                     static_cast<int>(std::size(kBandPanelControls)));
}

DialogResource editorDialogResource{
    kEditorDialogResource, "", kDialogWindowFlags, 0, createEditorDialog, 596, 368, nullptr};
DialogResource bandPanelResource{
    kBandPanelResource, "", kDialogWindowFlags, 0, createBandPanel, 504, 144, nullptr};

void linkInFront(DialogResource& resource) {
    resource.next = dialogResourceList;
    dialogResourceList = &resource;
}

const bool dialogsRegistered = [] {
    linkInFront(editorDialogResource);
    linkInFront(bandPanelResource);
    return true;
}();

}  // namespace
