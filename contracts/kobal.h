// The host windowing layer ("KOBAL") as the equalizer sees it: Win32-like
// handles, records, message numbers and the signatures of the functions the
// plug-in calls. The host process exports
//
//   void* KOBALAPI_GetFunc(const char* name);
//
// which answers a function's address by name, or, called with a null name,
// the interface version kKobalInterfaceVersion.
//
// Integer widths follow 64-bit Windows where that matters to the layout:
// LONG is 32 bits; WPARAM, LPARAM, LRESULT and window words are pointer-sized,
// because GWL_USERDATA carries an instance pointer.
#pragma once

#include <cstdint>

constexpr intptr_t kKobalInterfaceVersion = 0x100;
using KobalGetFuncProc = void* (*)(const char* name);

// ---- handles -----------------------------------------------------------------
struct KobalWindow;
struct KobalDeviceContext;
struct KobalMenu;
struct KobalFont;
struct KobalCursor;

using HWND = KobalWindow*;
using HDC = KobalDeviceContext*;
using HMENU = KobalMenu*;
using HFONT = KobalFont*;
using HCURSOR = KobalCursor*;

using BOOL = int32_t;
using UINT = uint32_t;
using DWORD = uint32_t;
using LONG = int32_t;
using WORD = uint16_t;
using BYTE = uint8_t;
using WPARAM = uintptr_t;
using LPARAM = intptr_t;
using LRESULT = intptr_t;
using LONG_PTR = intptr_t;
using UINT_PTR = uintptr_t;
using COLORREF = uint32_t;

using WNDPROC = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
using DLGPROC = WNDPROC;
using TIMERPROC = void (*)(HWND window, UINT message, UINT_PTR id, DWORD time);

// ---- records -------------------------------------------------------------------
struct RECT {
    LONG left, top, right, bottom;
};

struct POINT {
    LONG x, y;
};

struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};

struct NMHDR {
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};

struct TCITEM {
    UINT mask;
    DWORD dwState;
    DWORD dwStateMask;
    char* pszText;
    int cchTextMax;
    int iImage;
    LPARAM lParam;
};

constexpr int LF_FACESIZE = 32;
struct LOGFONT {
    LONG lfHeight;
    LONG lfWidth;
    LONG lfEscapement;
    LONG lfOrientation;
    LONG lfWeight;
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    char lfFaceName[LF_FACESIZE];
};

// ---- the plug-in's resources, as the layer reads them ------------------------------
// A dialog resource: a linked list entry whose create callback emits the
// dialog's controls with KOBAL_MakeSetCurParms and KOBAL_GenerateDialogFromList.
struct DialogResource {
    intptr_t resourceId;
    const char* title;
    int32_t windowTypeFlags;
    int32_t padding;
    void (*create)(HWND window, int32_t creationState);
    int32_t width;
    int32_t height;
    DialogResource* next;
};
static_assert(sizeof(DialogResource) == 48);

struct MenuResource {
    intptr_t resourceId;
    void (*create)(HMENU menu);
    MenuResource* next;
};
static_assert(sizeof(MenuResource) == 24);

// One control of a dialog list. A generic control names its window class; a
// marker control (label, edit, combo, group, button) puts one of the marker
// texts below in place of its text and shifts the other fields.
struct ControlRecord {
    const char* textOrMarker;
    int32_t idOrAlignment;
    int32_t padding;
    const char* classNameOrText;
    uint32_t styleOrId;
    int32_t x, y, width, height;
    uint32_t extendedStyleOrStyle;
};
static_assert(sizeof(ControlRecord) == 48);

constexpr const char* kMarkerLabel = "__KOBAL_LABEL";
constexpr const char* kMarkerEdit = "__KOBAL_EDIT";
constexpr const char* kMarkerCombo = "__KOBAL_COMBO";
constexpr const char* kMarkerGroup = "__KOBAL_GROUP";
constexpr const char* kMarkerButton = "__KOBAL_BUTTON";

struct MenuEntry {
    const char* text;  // null for a separator
    uint16_t commandId;
    uint16_t flags;
    int32_t padding;
};
static_assert(sizeof(MenuEntry) == 16);

constexpr const char* kMenuPopupPrefix = "/.BO^O:";
constexpr const char* kMenuPopupEnd = "EN%%%^:";
constexpr uint16_t kMenuSeparatorId = 0xFFFF;

// Creator of custom control classes: returns null when it does not know `className`.
using CustomControlCreator = HWND (*)(HWND parent, const char* name, int id, const char* className,
                                      int style, int x, int y, int width, int height);

// ---- messages and constants ------------------------------------------------------
constexpr UINT WM_CREATE = 0x0001;
constexpr UINT WM_DESTROY = 0x0002;
constexpr UINT WM_MOVE = 0x0003;
constexpr UINT WM_SIZE = 0x0005;
constexpr UINT WM_SETFOCUS = 0x0007;
constexpr UINT WM_KILLFOCUS = 0x0008;
constexpr UINT WM_SETTEXT = 0x000C;
constexpr UINT WM_GETTEXT = 0x000D;
constexpr UINT WM_PAINT = 0x000F;
constexpr UINT WM_CLOSE = 0x0010;
constexpr UINT WM_ERASEBKGND = 0x0014;
constexpr UINT WM_SHOWWINDOW = 0x0018;
constexpr UINT WM_SETCURSOR = 0x0020;
constexpr UINT WM_NOTIFY = 0x004E;
constexpr UINT WM_KEYDOWN = 0x0100;
constexpr UINT WM_KEYUP = 0x0101;
constexpr UINT WM_CHAR = 0x0102;
constexpr UINT WM_INITDIALOG = 0x0110;
constexpr UINT WM_COMMAND = 0x0111;
constexpr UINT WM_TIMER = 0x0113;
constexpr UINT WM_HSCROLL = 0x0114;
constexpr UINT WM_VSCROLL = 0x0115;
constexpr UINT WM_MOUSEMOVE = 0x0200;
constexpr UINT WM_LBUTTONDOWN = 0x0201;
constexpr UINT WM_LBUTTONUP = 0x0202;
constexpr UINT WM_LBUTTONDBLCLK = 0x0203;
constexpr UINT WM_RBUTTONDOWN = 0x0204;
constexpr UINT WM_RBUTTONUP = 0x0205;
constexpr UINT WM_MOUSEWHEEL = 0x020A;
constexpr UINT WM_USER = 0x0400;

constexpr int GWL_ID = -12;
constexpr int GWL_USERDATA = -21;

constexpr int SW_HIDE = 0;
constexpr int SW_SHOW = 1;

// SetWindowPos flags in this layer's numbering (the plug-in sizes its editor
// with 13 = SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE).
constexpr UINT SWP_NOMOVE = 0x0001;
constexpr UINT SWP_NOSIZE = 0x0002;
constexpr UINT SWP_NOZORDER = 0x0004;
constexpr UINT SWP_NOACTIVATE = 0x0008;

constexpr UINT BST_UNCHECKED = 0;
constexpr UINT BST_CHECKED = 1;

constexpr UINT BN_CLICKED = 0;
constexpr UINT EN_CHANGE = 0x0300;
constexpr UINT CBN_SELCHANGE = 1;
constexpr UINT TCN_SELCHANGE = static_cast<UINT>(-551);

constexpr UINT CB_ADDSTRING = 0x0143;
constexpr UINT CB_GETCURSEL = 0x0147;
constexpr UINT CB_RESETCONTENT = 0x014B;
constexpr UINT CB_SETCURSEL = 0x014E;

constexpr UINT TBM_GETPOS = WM_USER;
constexpr UINT TBM_SETTIC = WM_USER + 4;  // lParam -1: a tic at the fader curve's 0 dB
constexpr UINT TBM_SETPOS = WM_USER + 5;
constexpr UINT TBM_SETRANGE = WM_USER + 6;
constexpr UINT FADER_SETTEXT = 11023;  // wParam 1: name text, 2: value text; lParam: the text

constexpr int SB_THUMBTRACK = 5;
constexpr int SB_ENDSCROLL = 8;

constexpr UINT TCIF_TEXT = 0x0001;

constexpr int VK_SHIFT = 0x10;
constexpr int VK_CONTROL = 0x11;
constexpr int VK_MENU = 0x12;
constexpr int VK_LBUTTON = 0x01;
constexpr int VK_RBUTTON = 0x02;

constexpr UINT MF_BYCOMMAND = 0x0000;
constexpr UINT MF_ENABLED = 0x0000;
constexpr UINT MF_GRAYED = 0x0001;
constexpr UINT MF_UNCHECKED = 0x0000;
constexpr UINT MF_CHECKED = 0x0008;
constexpr UINT TPM_NONOTIFY = 0x0080;
constexpr UINT TPM_RETURNCMD = 0x0100;

constexpr UINT DT_LEFT = 0x0000;
constexpr UINT DT_CENTER = 0x0001;
constexpr UINT DT_RIGHT = 0x0002;
constexpr UINT DT_VCENTER = 0x0004;
constexpr UINT DT_BOTTOM = 0x0008;
constexpr UINT DT_SINGLELINE = 0x0020;
constexpr UINT DT_NOCLIP = 0x0100;
constexpr UINT DT_CALCRECT = 0x0400;

// ---- the functions the plug-in calls, as it calls them ---------------------------
using lstrcpynProc = char* (*)(char* destination, const char* source, int limit);
using GetTickCountProc = DWORD (*)();
using GetDlgItemProc = HWND (*)(HWND dialog, int id);
using SetDlgItemTextProc = BOOL (*)(HWND dialog, int id, const char* text);
using GetDlgItemTextProc = UINT (*)(HWND dialog, int id, char* text, int limit);
using CheckDlgButtonProc = BOOL (*)(HWND dialog, int id, UINT check);
using IsDlgButtonCheckedProc = UINT (*)(HWND dialog, int id);
using ShowWindowProc = BOOL (*)(HWND window, int command);
using DestroyWindowProc = BOOL (*)(HWND window);
using GetParentProc = HWND (*)(HWND window);
using SetWindowPosProc = BOOL (*)(HWND window, HWND insertAfter, int x, int y, int width,
                                  int height, UINT flags);
using GetWindowRectProc = BOOL (*)(HWND window, RECT* rect);
using GetClientRectProc = BOOL (*)(HWND window, RECT* rect);
using ClientToScreenProc = BOOL (*)(HWND window, POINT* point);
using ScreenToClientProc = BOOL (*)(HWND window, POINT* point);
using WindowFromPointProc = HWND (*)(POINT point);
using InvalidateRectProc = BOOL (*)(HWND window, const RECT* rect, BOOL erase);
using GetWindowLongProc = LONG_PTR (*)(HWND window, int index);
using SetWindowLongProc = LONG_PTR (*)(HWND window, int index, LONG_PTR value);
using GetFocusProc = HWND (*)();
using SetCaptureProc = HWND (*)(HWND window);
using GetCaptureProc = HWND (*)();
using ReleaseCaptureProc = BOOL (*)();
using GetCursorPosProc = BOOL (*)(POINT* point);
using GetAsyncKeyStateProc = int16_t (*)(int virtualKey);
using KOBAL_LoadCursorProc = HCURSOR (*)(int cursorId);
using KOBAL_SetCursorProc = HCURSOR (*)(HCURSOR cursor);
using SetTimerProc = UINT_PTR (*)(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC callback);
using TabCtrl_GetItemCountProc = int (*)(HWND tabs);
using TabCtrl_DeleteItemProc = BOOL (*)(HWND tabs, int index);
using TabCtrl_InsertItemProc = int (*)(HWND tabs, int index, const TCITEM* item);
using TabCtrl_SetCurSelProc = int (*)(HWND tabs, int index);
using TabCtrl_GetCurSelProc = int (*)(HWND tabs);
using KOBAL_LoadMenuProc = HMENU (*)(MenuResource* list, int resourceId);
using GetSubMenuProc = HMENU (*)(HMENU menu, int position);
using EnableMenuItemProc = BOOL (*)(HMENU menu, UINT commandId, UINT flags);
using CheckMenuItemProc = DWORD (*)(HMENU menu, UINT commandId, UINT flags);
using TrackPopupMenuProc = int (*)(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner,
                                   const RECT* rect);
using DestroyMenuProc = BOOL (*)(HMENU menu);
using KOBAL_CreateDialogProc = HWND (*)(DialogResource* list, int resourceId, HWND parent,
                                        DLGPROC procedure, LPARAM creationParameter);
using KOBAL_RegisterCustomControlCreatorProc = void (*)(CustomControlCreator creator);
using KOBAL_UnregisterCustomControlCreatorProc = void (*)(CustomControlCreator creator);
using DefWindowProcProc = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
using SendMessageProc = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
using PostMessageProc = BOOL (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
using BeginPaintProc = HDC (*)(HWND window, PAINTSTRUCT* paint);
using EndPaintProc = BOOL (*)(HWND window, const PAINTSTRUCT* paint);
using BitBltProc = BOOL (*)(HDC destination, int x, int y, int width, int height, HDC source,
                            int sourceX, int sourceY, DWORD rop);
// Colours come as 0x00RRGGBB (the raster pixel order, not a COLORREF); index 8
// is the readout background, 9 the readout text.
using GetSysColorProc = DWORD (*)(int index);
using CreateFontIndirectProc = HFONT (*)(const LOGFONT* font);
using KOBAL_MakeSetCurParmsProc = void (*)(float xScale, float yScale, int xTranslation,
                                           int yTranslation, HWND parent, bool doOffset,
                                           bool doSize);
using KOBAL_GenerateDialogFromListProc = void (*)(const ControlRecord* list, int count);
using KOBAL_GenerateMenuFromListProc = void (*)(HMENU menu, const MenuEntry* list, int count);
