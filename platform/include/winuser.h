/// Message boxes, dialogs and controls.
///
/// Texts are UTF-16. Everything about windows is for the user-interface thread. A window handle
/// that is wrong or stale fails with ERROR_INVALID_WINDOW_HANDLE (last error); 0, null or false is
/// failure unless told otherwise. Coordinates are pixels at 96 dots per inch, whatever the screen.
#pragma once

#include <windef.h>
#include <wingdi.h>
#include <winresrc.h>

using DLGPROC = INT_PTR(CALLBACK*)(HWND dialog, UINT message, WPARAM first, LPARAM second);

#define MAKEINTRESOURCEW(id) \
    (reinterpret_cast<LPWSTR>(static_cast<ULONG_PTR>(static_cast<WORD>(id))))
#define IS_INTRESOURCE(name) ((reinterpret_cast<ULONG_PTR>(name) >> 16) == 0)

#define ERROR_INVALID_WINDOW_HANDLE 1400
#define ERROR_CONTROL_ID_NOT_FOUND 1421

// Buttons of a message box.
#define MB_OK 0x00000000
#define MB_OKCANCEL 0x00000001
#define MB_YESNO 0x00000004

// Messages of a dialog.
#define WM_DESTROY 0x0002  ///< the last one that it gets
#define WM_PAINT 0x000F
/// Moves the focus. Second parameter not 0: to the control whose handle is the first; else to the
/// tab stop after the focused one, or with a first parameter that is not 0 to the one before it.
#define WM_NEXTDLGCTL 0x0028
#define WM_HELP 0x0053  ///< second parameter: a `HELPINFO*`
/// First parameter: the control that gets the focus when the answer is not 0 or none has it by
/// then; second: the creation parameter.
#define WM_INITDIALOG 0x0110
#define WM_COMMAND 0x0111  ///< first: control ID low, code high; second: the control

// Notifications of controls, the high word of a command.
#define BN_CLICKED 0
#define EN_SETFOCUS 0x0100
#define EN_KILLFOCUS 0x0200
#define EN_CHANGE 0x0300
#define EN_UPDATE 0x0400
#define EN_MAXTEXT 0x0501
#define CBN_SELCHANGE 1
#define CBN_SETFOCUS 3
#define CBN_KILLFOCUS 4
#define CBN_DROPDOWN 7
#define CBN_CLOSEUP 8
#define CBN_SELENDOK 9
#define CBN_SELENDCANCEL 10

// Messages of edits and buttons.
#define EM_LIMITTEXT 0x00C5  ///< first: what typing may reach, in WCHARs; 0: no limit
#define BM_GETCHECK 0x00F0
#define BM_SETCHECK 0x00F1
#define BST_UNCHECKED 0
#define BST_CHECKED 1

// Messages of lists. An index that is none answers CB_ERR.
#define CB_ADDSTRING 0x0143     ///< the new item's index, CB_ERRSPACE without memory
#define CB_DELETESTRING 0x0144  ///< the number of items left
#define CB_GETCOUNT 0x0146
#define CB_GETCURSEL 0x0147  ///< CB_ERR: nothing is selected
#define CB_SETCURSEL 0x014E  ///< an index that is none clears the selection
#define CB_GETITEMDATA 0x0150
#define CB_SETITEMDATA 0x0151
#define CB_FINDSTRINGEXACT 0x0158  ///< first: the index to begin after, -1 for all; wraps
#define CB_SETDROPPEDWIDTH 0x0160  ///< pixels; never narrower than the list itself
#define CB_ERR (-1)
#define CB_ERRSPACE (-2)

// Keys of `platform::hands::PressKey`; letters and digits are their capital ASCII characters.
#define VK_BACK 0x08
#define VK_TAB 0x09
#define VK_RETURN 0x0D
#define VK_ESCAPE 0x1B
#define VK_SPACE 0x20
#define VK_PRIOR 0x21
#define VK_NEXT 0x22
#define VK_END 0x23
#define VK_HOME 0x24
#define VK_LEFT 0x25
#define VK_UP 0x26
#define VK_RIGHT 0x27
#define VK_DOWN 0x28
#define VK_DELETE 0x2E
#define VK_F1 0x70
#define VK_F4 0x73

#define HELPINFO_WINDOW 1

/// What WM_HELP asks about.
struct HELPINFO {
    UINT cbSize;
    INT iContextType;  ///< HELPINFO_WINDOW
    INT iCtrlId;       ///< the control; 0: the dialog itself
    HANDLE hItemHandle;
    DWORD_PTR dwContextId;
    POINT MousePos;  ///< on the screen
};
static_assert(sizeof(HELPINFO) == 40 && offsetof(HELPINFO, hItemHandle) == 16);

extern "C" {

/// Shows a message and waits for the answer; the focused control hears of the focus it loses
/// meanwhile. \param owner, text, caption  may be null. \param type  MB_OK, MB_OKCANCEL, MB_YESNO.
/// \return IDOK, IDCANCEL, IDYES or IDNO; 0 on failure.
int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type);

/// Runs the dialog of a template until `EndDialog`. \param dialogTemplate  a name or
/// MAKEINTRESOURCEW(id). \param owner  may be null. \return what `EndDialog` was given; 0 when the
/// owner is no window, -1 when there is no such template, or one that is damaged.
INT_PTR WINAPI DialogBoxParamW(HINSTANCE module, LPCWSTR dialogTemplate, HWND owner,
                               DLGPROC procedure, LPARAM parameter);
/// Ends a modal dialog: it is hidden at once and gone when its procedure returns.
BOOL WINAPI EndDialog(HWND dialog, INT_PTR result);

/// A control of a dialog; null when there is none of that ID (ERROR_CONTROL_ID_NOT_FOUND).
HWND WINAPI GetDlgItem(HWND dialog, int controlId);
/// Sets a control's text. An edit notifies before the call returns, also when nothing changes.
BOOL WINAPI SetDlgItemTextW(HWND dialog, int controlId, LPCWSTR text);
/// Copies a control's text, cut to fit. \param capacity  WCHARs, with the terminator.
/// \return the number of WCHARs copied.
UINT WINAPI GetDlgItemTextW(HWND dialog, int controlId, LPWSTR text, int capacity);
BOOL WINAPI SetDlgItemInt(HWND dialog, int controlId, UINT value, BOOL isSigned);
/// The digits at the front of a control's text, behind blanks and, when signed, a minus; 0 without
/// any, or when the number does not fit 32 bits.
/// \param translated  whether there was a number; may be null.
UINT WINAPI GetDlgItemInt(HWND dialog, int controlId, BOOL* translated, BOOL isSigned);
LRESULT WINAPI SendDlgItemMessageW(HWND dialog, int controlId, UINT message, WPARAM first,
                                   LPARAM second);
/// Sends a message to a control, or to a dialog's procedure.
LRESULT WINAPI SendMessageW(HWND window, UINT message, WPARAM first, LPARAM second);

/// \return whether the window was disabled before. A control that had the focus loses it.
BOOL WINAPI EnableWindow(HWND window, BOOL enable);
BOOL WINAPI IsWindowEnabled(HWND window);
/// \return the window that had the focus. A disabled window refuses it.
HWND WINAPI SetFocus(HWND window);
/// \return null when no window of this thread has it.
HWND WINAPI GetFocus();

/// \param capacity  WCHARs, with the terminator. \return the number of WCHARs copied.
int WINAPI GetWindowTextW(HWND window, LPWSTR text, int capacity);
int WINAPI GetWindowTextLengthW(HWND window);

HWND WINAPI GetParent(HWND window);
HWND WINAPI GetDesktopWindow();
BOOL WINAPI GetClientRect(HWND window, RECT* rectangle);
/// On the screen.
BOOL WINAPI GetWindowRect(HWND window, RECT* rectangle);
BOOL WINAPI ClientToScreen(HWND window, POINT* point);
/// \param x, y  in the parent's client area, or on the screen for a dialog.
BOOL WINAPI MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);

/// What `BeginPaint` tells about a repaint.
struct PAINTSTRUCT {
    HDC hdc;
    BOOL fErase;   ///< false: the background is already there
    RECT rcPaint;  ///< the whole client area
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};
static_assert(sizeof(PAINTSTRUCT) == 72 && offsetof(PAINTSTRUCT, rcPaint) == 12);

/// A context that draws into the window's client area, shown at once; give it back with
/// `ReleaseDC`. Its font at first is the system's.
HDC WINAPI GetDC(HWND window);
/// \return 1 when the context was of that window and is gone now.
int WINAPI ReleaseDC(HWND window, HDC context);
/// As `GetDC`, for a repaint; at any time. Ended by `EndPaint`.
HDC WINAPI BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL WINAPI EndPaint(HWND window, const PAINTSTRUCT* paint);

/// \param rectangle  right and bottom are outside; an inverted one is empty. \param brush  a stock
/// brush.
int WINAPI FillRect(HDC context, const RECT* rectangle, HBRUSH brush);

#define HELP_CONTEXT 1
#define HELP_CONTEXTPOPUP 8

/// Gives a topic of a help file to the user to read. A missing file or topic is told to the user
/// and is no failure. \param file  a platform path. \param command  HELP_CONTEXT or
/// HELP_CONTEXTPOPUP. \param topic  its number.
BOOL WINAPI WinHelpW(HWND owner, LPCWSTR file, UINT command, ULONG_PTR topic);

}  // extern "C"
