/// Devmodes, device contexts, bitmaps, fonts and text output.
#pragma once

#include <windef.h>

#define CCHDEVICENAME 32
#define CCHFORMNAME 32
#define LF_FACESIZE 32

#define DM_SPECVERSION 0x0401
#define DM_ORIENTATION 0x00000001
#define DM_PAPERSIZE 0x00000002
#define DM_PAPERLENGTH 0x00000004
#define DM_PAPERWIDTH 0x00000008
#define DM_COPIES 0x00000100
#define DM_DEFAULTSOURCE 0x00000200
#define DM_COLOR 0x00000800
#define DM_DUPLEX 0x00001000
#define DM_COLLATE 0x00008000
#define DM_FORMNAME 0x00010000
#define DM_ICMMETHOD 0x00800000
#define DM_ICMINTENT 0x01000000
#define DM_MEDIATYPE 0x02000000

#define DMORIENT_PORTRAIT 1
#define DMORIENT_LANDSCAPE 2
#define DMCOLOR_MONOCHROME 1
#define DMCOLOR_COLOR 2
#define DMDUP_SIMPLEX 1
#define DMDUP_VERTICAL 2
#define DMDUP_HORIZONTAL 3
#define DMCOLLATE_FALSE 0
#define DMCOLLATE_TRUE 1
#define DMICMMETHOD_NONE 1
#define DMICMMETHOD_SYSTEM 2
#define DMICMMETHOD_DRIVER 3

/// The public part of a devmode.
struct DEVMODEW {
    WCHAR dmDeviceName[CCHDEVICENAME];
    WORD dmSpecVersion;
    WORD dmDriverVersion;
    WORD dmSize;
    WORD dmDriverExtra;
    DWORD dmFields;  ///< DM_*
    SHORT dmOrientation;
    SHORT dmPaperSize;
    SHORT dmPaperLength;  ///< tenths of a millimetre
    SHORT dmPaperWidth;   ///< tenths of a millimetre
    SHORT dmScale;
    SHORT dmCopies;
    SHORT dmDefaultSource;
    SHORT dmPrintQuality;
    SHORT dmColor;
    SHORT dmDuplex;
    SHORT dmYResolution;
    SHORT dmTTOption;
    SHORT dmCollate;
    WCHAR dmFormName[CCHFORMNAME];
    WORD dmLogPixels;
    DWORD dmBitsPerPel;
    DWORD dmPelsWidth;
    DWORD dmPelsHeight;
    DWORD dmDisplayFlags;
    DWORD dmDisplayFrequency;
    DWORD dmICMMethod;
    DWORD dmICMIntent;
    DWORD dmMediaType;
    DWORD dmDitherType;
    DWORD dmReserved1;
    DWORD dmReserved2;
    DWORD dmPanningWidth;
    DWORD dmPanningHeight;
};
static_assert(sizeof(DEVMODEW) == 220 && offsetof(DEVMODEW, dmFormName) == 102);
