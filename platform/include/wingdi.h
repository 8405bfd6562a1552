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

// Stock objects, raster operations, device capabilities.
#define WHITE_BRUSH 0
#define DKGRAY_BRUSH 3
#define SRCCOPY 0x00CC0020
#define PHYSICALWIDTH 110
#define PHYSICALHEIGHT 111

// Text alignment: the given point is the top left corner, or the top centre, of the line.
#define TA_LEFT 0
#define TA_CENTER 6
#define TA_TOP 0
#define GDI_ERROR 0xFFFFFFFFu
#define CLR_INVALID 0xFFFFFFFFu

// Logical fonts.
#define FW_NORMAL 400
#define FW_BOLD 700
#define DEFAULT_CHARSET 1
#define OUT_STRING_PRECIS 1
#define PROOF_QUALITY 2
#define FIXED_PITCH 1
#define VARIABLE_PITCH 2
#define FF_ROMAN 0x10
#define FF_MODERN 0x30
#define FF_DECORATIVE 0x50

// Font types of an enumeration, and the bits of `tmPitchAndFamily`.
#define RASTER_FONTTYPE 1
#define DEVICE_FONTTYPE 2
#define TRUETYPE_FONTTYPE 4
#define TMPF_FIXED_PITCH 1  // set: the width varies
#define TMPF_VECTOR 2
#define TMPF_TRUETYPE 4

#define RGB(red, green, blue)                                 \
    (static_cast<COLORREF>(static_cast<BYTE>(red)) |          \
     (static_cast<COLORREF>(static_cast<BYTE>(green)) << 8) | \
     (static_cast<COLORREF>(static_cast<BYTE>(blue)) << 16))
#define GetRValue(color) (static_cast<BYTE>((color)&0xFF))
#define GetGValue(color) (static_cast<BYTE>(((color) >> 8) & 0xFF))
#define GetBValue(color) (static_cast<BYTE>(((color) >> 16) & 0xFF))

/// A font as asked for, or as enumerated.
struct LOGFONTW {
    LONG lfHeight;       ///< pixels: cell height when positive, character height when negative
    LONG lfWidth;        ///< average character width; 0: the face's own
    LONG lfEscapement;   ///< tenths of a degree, counter-clockwise
    LONG lfOrientation;  ///< not honoured apart from the escapement
    LONG lfWeight;       ///< 1..1000, 400 normal, 700 bold, 0 any
    BYTE lfItalic;
    BYTE lfUnderline;
    BYTE lfStrikeOut;
    BYTE lfCharSet;
    BYTE lfOutPrecision;
    BYTE lfClipPrecision;
    BYTE lfQuality;
    BYTE lfPitchAndFamily;
    WCHAR lfFaceName[LF_FACESIZE];
};
static_assert(sizeof(LOGFONTW) == 92 && offsetof(LOGFONTW, lfFaceName) == 28);

/// The measures of a font, in pixels.
struct TEXTMETRICW {
    LONG tmHeight;  ///< ascent + descent
    LONG tmAscent;
    LONG tmDescent;
    LONG tmInternalLeading;
    LONG tmExternalLeading;
    LONG tmAveCharWidth;
    LONG tmMaxCharWidth;
    LONG tmWeight;
    LONG tmOverhang;
    LONG tmDigitizedAspectX;
    LONG tmDigitizedAspectY;
    WCHAR tmFirstChar;
    WCHAR tmLastChar;
    WCHAR tmDefaultChar;
    WCHAR tmBreakChar;
    BYTE tmItalic;
    BYTE tmUnderlined;
    BYTE tmStruckOut;
    BYTE tmPitchAndFamily;  ///< TMPF_* and FF_*
    BYTE tmCharSet;
};
static_assert(sizeof(TEXTMETRICW) == 60);

/// Called once per family; 0 ends the enumeration.
using FONTENUMPROCW = int(CALLBACK*)(const LOGFONTW* font, const TEXTMETRICW* metrics,
                                     DWORD fontType, LPARAM argument);

// Everything below is for the user-interface thread. A wrong or stale handle fails with
// ERROR_INVALID_HANDLE (last error); 0 or null is failure unless told otherwise.

extern "C" {

/// A device context of a printer with its default page, at 600 dots per inch: only its
/// capabilities are of use. Driver, output and devmode must be null. Null when the printer is
/// unknown.
HDC WINAPI CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR output, const DEVMODEW* devmode);

/// A memory device context that draws nowhere until a bitmap is selected. The context it is
/// compatible with may be null.
HDC WINAPI CreateCompatibleDC(HDC context);

/// Ends a context made by the two calls above. Objects selected into it may be deleted afterwards.
BOOL WINAPI DeleteDC(HDC context);

/// A capability named above, in device units; 0 for any other index.
int WINAPI GetDeviceCaps(HDC context, int index);

/// A white bitmap of the given size in pixels, 1..32767 each and at most 256 MB. A side of 0 gives
/// a bitmap of one pixel.
HBITMAP WINAPI CreateCompatibleBitmap(HDC context, int width, int height);

/// A font; the face and the measures are settled when it is first used.
HFONT WINAPI CreateFontIndirectW(const LOGFONTW* font);

/// WHITE_BRUSH or DKGRAY_BRUSH; lives for ever.
HGDIOBJ WINAPI GetStockObject(int object);

/// Selects a bitmap (memory contexts only, one context at a time), a font or a brush.
/// \return the object of that kind selected before; null when refused.
HGDIOBJ WINAPI SelectObject(HDC context, HGDIOBJ object);

/// Deletes a bitmap or a font. Refused, false, while it is selected into a context; a stock object
/// is left alone, true.
BOOL WINAPI DeleteObject(HGDIOBJ object);

/// Copies a rectangle between two contexts; only SRCCOPY. The parts outside either are left out.
BOOL WINAPI BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX,
                   int sourceY, DWORD operation);

/// TA_* flags. \return the flags before; GDI_ERROR on failure.
UINT WINAPI SetTextAlign(HDC context, UINT align);

/// \return the colour before; CLR_INVALID on failure.
COLORREF WINAPI SetTextColor(HDC context, COLORREF color);
COLORREF WINAPI SetBkColor(HDC context, COLORREF color);

/// Draws one line of text in the selected font at a point given by the alignment, its background
/// filled with the background colour.
/// \param length  in WCHARs, 0..8192; surrogates may be lone.
BOOL WINAPI TextOutW(HDC context, int x, int y, LPCWSTR text, int length);

/// The width and the cell height of a text in the selected font, in pixels, as if not turned.
BOOL WINAPI GetTextExtentPoint32W(HDC context, LPCWSTR text, int length, SIZE* size);

/// Calls back once for every font family of the system, in no order. Of the font only face, weight,
/// character set, pitch and family are told, of the metrics weight, character set, pitch and
/// family. \param family  must be null. \return what the last call back returned, or 1 without one;
/// 0 on failure.
int WINAPI EnumFontFamiliesW(HDC context, LPCWSTR family, FONTENUMPROCW procedure, LPARAM argument);

}  // extern "C"
