/// The common property sheet: the records by which a driver describes the items of its pages, and
/// the reasons and actions of the callbacks. Layouts are the 64-bit platform's.
#pragma once

#include <windows.h>

#define IDI_CPSUI_OFF 64007
#define IDI_CPSUI_ON 64008

#define TVOT_UDARROW 2
#define TVOT_COMBOBOX 6

#define OPTPF_HIDE 0x01
#define OPTPF_DISABLED 0x02
#define OPTPF_OVERLAY_STOP_ICON 0x10

#define OPTIF_COLLAPSE 0x00000001
#define OPTIF_HIDE 0x00000002
#define OPTIF_CALLBACK 0x00000004
#define OPTIF_CHANGED 0x00000008
#define OPTIF_DISABLED 0x00000020
#define OPTIF_EXT_IS_EXTPUSH 0x00000400
#define OPTIF_HAS_POIEXT 0x00010000

#define DMPUB_NONE 0
#define DMPUB_ORIENTATION 1
#define DMPUB_COPIES_COLLATE 3
#define DMPUB_DEFSOURCE 4
#define DMPUB_COLOR 6
#define DMPUB_DUPLEX 7
#define DMPUB_FORMNAME 9
#define DMPUB_ICMMETHOD 10
#define DMPUB_ICMINTENT 11
#define DMPUB_MEDIATYPE 12
#define DMPUB_NUP 16

#define CPSUICB_REASON_SEL_CHANGED 0
#define CPSUICB_REASON_EXTPUSH 5
#define CPSUICB_REASON_APPLYNOW 6
#define CPSUICB_REASON_SETACTIVE 10

#define CPSUICB_ACTION_NONE 0
#define CPSUICB_ACTION_OPTIF_CHANGED 1
#define CPSUICB_ACTION_REINIT_ITEMS 2
#define CPSUICB_ACTION_NO_APPLY_EXIT 3
#define CPSUICB_ACTION_ITEMS_APPLIED 4

#define PROPSHEETUI_INFO_VERSION 0x0100
#define PROPSHEETUI_REASON_INIT 0
#define PROPSHEETUI_REASON_GET_INFO_HEADER 1
#define PROPSHEETUI_REASON_DESTROY 2
#define PROPSHEETUI_REASON_SET_RESULT 3
#define PROPSHEETUI_REASON_GET_ICON 4

/// One choice of an item.
struct OPTPARAM {
    WORD cbSize;
    BYTE Flags;  ///< OPTPF_*
    BYTE Style;
    LPTSTR pData;
    ULONG_PTR IconID;  ///< for TVOT_UDARROW, second record: the lowest value
    LPARAM lParam;     ///< for TVOT_UDARROW, second record: the highest value
    ULONG_PTR dwReserved[2];
};
using POPTPARAM = OPTPARAM*;

/// How an item is shown, and its choices.
struct OPTTYPE {
    WORD cbSize;
    BYTE Type;  ///< TVOT_*
    BYTE Flags;
    WORD Count;  ///< records at pOptParam
    WORD BegCtrlID;
    POPTPARAM pOptParam;
    WORD Style;
    WORD wReserved[3];
    ULONG_PTR dwReserved[3];
};
using POPTTYPE = OPTTYPE*;

struct EXTCHKBOX;

/// The push button beside an item.
struct EXTPUSH {
    WORD cbSize;
    WORD Flags;
    LPTSTR pTitle;
    union {
        DLGPROC DlgProc;
        FARPROC pfnCallBack;
    };
    ULONG_PTR IconID;
    union {
        WORD DlgTemplateID;
        HANDLE hDlgTemplate;
    };
    ULONG_PTR dwReserved[3];
};
using PEXTPUSH = EXTPUSH*;

/// An item's help.
struct OIEXT {
    WORD cbSize;
    WORD Flags;
    HINSTANCE hInstCaller;
    LPTSTR pHelpFile;
    ULONG_PTR dwReserved[4];
};
using POIEXT = OIEXT*;

/// One item of a property page's tree.
struct OPTITEM {
    WORD cbSize;
    BYTE Level;
    BYTE DlgPageIdx;
    DWORD Flags;  ///< OPTIF_*
    ULONG_PTR UserData;
    LPTSTR pName;
    union {
        LONG Sel;
        LPTSTR pSel;
    };
    union {
        EXTCHKBOX* pExtChkBox;
        PEXTPUSH pExtPush;
    };
    POPTTYPE pOptType;
    DWORD HelpIndex;
    BYTE DMPubID;  ///< DMPUB_*
    BYTE UserItemID;
    WORD wReserved;
    POIEXT pOIExt;
    ULONG_PTR dwReserved[3];
};
using POPTITEM = OPTITEM*;

/// What the property sheet tells a callback.
struct CPSUICBPARAM {
    WORD cbSize;
    WORD Reason;  ///< CPSUICB_REASON_*
    HWND hDlg;
    POPTITEM pOptItem;
    WORD cOptItem;
    WORD Flags;
    POPTITEM pCurItem;
    union {
        LONG OldSel;
        LPTSTR pOldSel;
    };
    ULONG_PTR UserData;
    ULONG_PTR Result;
};
using PCPSUICBPARAM = CPSUICBPARAM*;

struct SETRESULT_INFO {
    WORD cbSize;
    WORD wReserved;
    HANDLE hSetResult;
    LRESULT Result;
};
using PSETRESULT_INFO = SETRESULT_INFO*;

using PFNCOMPROPSHEET = LONG_PTR(CALLBACK*)(HANDLE sheet, UINT function, LPARAM first,
                                            LPARAM second);

struct PROPSHEETUI_INFO {
    WORD cbSize;
    WORD Version;
    WORD Flags;
    WORD Reason;  ///< PROPSHEETUI_REASON_*
    HANDLE hComPropSheet;
    PFNCOMPROPSHEET pfnComPropSheet;
    LPARAM lParamInit;
    ULONG_PTR UserData;
    ULONG_PTR Result;
};
using PPROPSHEETUI_INFO = PROPSHEETUI_INFO*;

struct PROPSHEETUI_INFO_HEADER {
    WORD cbSize;
    WORD Flags;
    LPTSTR pTitle;
    HWND hWndParent;
    HINSTANCE hInst;
    union {
        HICON hIcon;
        ULONG_PTR IconID;
    };
};
using PPROPSHEETUI_INFO_HEADER = PROPSHEETUI_INFO_HEADER*;

static_assert(sizeof(OPTPARAM) == 48 && sizeof(OPTTYPE) == 48 && sizeof(EXTPUSH) == 64);
static_assert(sizeof(OIEXT) == 56 && sizeof(OPTITEM) == 88 && sizeof(CPSUICBPARAM) == 64);
static_assert(sizeof(PROPSHEETUI_INFO) == 48 && sizeof(PROPSHEETUI_INFO_HEADER) == 40);
