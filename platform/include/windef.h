/// Basic types, calling conventions and macros of the platform, as the 64-bit platform lays them
/// out. `LONG` and `DWORD` are 32 bits wide although this compiler's `long` is 64.
#pragma once

#include <climits>
#include <cstddef>
#include <cstdint>

#define WINAPI
#define CALLBACK
#define APIENTRY
#define STDMETHODCALLTYPE
#define STDAPICALLTYPE
#define VOID void

#define TRUE 1
#define FALSE 0
#define MAX_PATH 260

#define PLATFORM_WIDE_(text) u##text
#define TEXT(text) PLATFORM_WIDE_(text)

using BOOL = int;
using BYTE = unsigned char;
using UCHAR = unsigned char;
using CHAR = char;
using WORD = std::uint16_t;
using USHORT = std::uint16_t;
using SHORT = std::int16_t;
using DWORD = std::uint32_t;
using ULONG = std::uint32_t;
using UINT = std::uint32_t;
using UINT32 = std::uint32_t;
using INT32 = std::int32_t;
using INT = std::int32_t;
using LONG = std::int32_t;
using WCHAR = char16_t;
using COLORREF = DWORD;
using HRESULT = LONG;
using UINT_PTR = std::uint64_t;
using INT_PTR = std::int64_t;
using ULONG_PTR = std::uint64_t;
using LONG_PTR = std::int64_t;
using DWORD_PTR = std::uint64_t;
using SIZE_T = std::uint64_t;
using WPARAM = UINT_PTR;
using LPARAM = LONG_PTR;
using LRESULT = LONG_PTR;

using PVOID = void*;
using LPVOID = void*;
using LPCVOID = const void*;
using LPSTR = char*;
using LPCSTR = const char*;
using PCSTR = const char*;
using LPWSTR = WCHAR*;
using PWSTR = WCHAR*;
using LPTSTR = WCHAR*;
using LPCWSTR = const WCHAR*;
using LPBYTE = BYTE*;
using PBYTE = BYTE*;
using LPDWORD = DWORD*;
using PDWORD = DWORD*;

#define DECLARE_HANDLE(name) \
    struct name##__ {        \
        int unused;          \
    };                       \
    using name = struct name##__* /* NOLINT(bugprone-macro-parentheses): a name, not a value */

using HANDLE = void*;
using HGDIOBJ = void*;
DECLARE_HANDLE(HINSTANCE);
DECLARE_HANDLE(HWND);
DECLARE_HANDLE(HDC);
DECLARE_HANDLE(HBITMAP);
DECLARE_HANDLE(HBRUSH);
DECLARE_HANDLE(HFONT);
DECLARE_HANDLE(HICON);
DECLARE_HANDLE(HKEY);
using HMODULE = HINSTANCE;

using FARPROC = INT_PTR (*)();

#define LOWORD(value) (static_cast<WORD>(static_cast<DWORD_PTR>(value) & 0xFFFF))
#define HIWORD(value) (static_cast<WORD>((static_cast<DWORD_PTR>(value) >> 16) & 0xFFFF))
#define MAKEWPARAM(low, high)                                                  \
    (static_cast<WPARAM>((static_cast<DWORD>(static_cast<WORD>(high)) << 16) | \
                         static_cast<WORD>(low)))
#define MAKELPARAM(low, high) (static_cast<LPARAM>(MAKEWPARAM(low, high)))
#define MAKEWORD(low, high) \
    (static_cast<WORD>(static_cast<BYTE>(low) | (static_cast<WORD>(static_cast<BYTE>(high)) << 8)))

struct POINT {
    LONG x;
    LONG y;
};

struct SIZE {
    LONG cx;
    LONG cy;
};
using SIZEL = SIZE;

struct RECT {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

struct RECTL {
    LONG left;
    LONG top;
    LONG right;
    LONG bottom;
};

struct FILETIME {
    DWORD dwLowDateTime;
    DWORD dwHighDateTime;
};

struct GUID {
    DWORD Data1;
    WORD Data2;
    WORD Data3;
    BYTE Data4[8];
};
using IID = GUID;
using CLSID = GUID;
using REFIID = const IID&;
using REFCLSID = const CLSID&;

inline bool operator==(const GUID& left, const GUID& right) {
    return __builtin_memcmp(&left, &right, sizeof(GUID)) == 0;
}

static_assert(sizeof(GUID) == 16 && sizeof(WCHAR) == 2 && sizeof(void*) == 8);
