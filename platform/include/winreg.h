/// The registry: keys and values, kept in the machine's folder and shared by its processes.
///
/// Functions may be called from any thread and answer an error code instead of setting the last
/// error; ERROR_SUCCESS is success. A wrong or stale key answers ERROR_INVALID_HANDLE, a damaged
/// store ERROR_BADDB. Names of keys and values are found in any case and keep their spelling.
#pragma once

#include <windef.h>

#define HKEY_CURRENT_USER (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0xFFFFFFFF80000001u)))
/// The only root that the layer has.
#define HKEY_LOCAL_MACHINE (reinterpret_cast<HKEY>(static_cast<ULONG_PTR>(0xFFFFFFFF80000002u)))

#define DELETE 0x00010000

#define KEY_QUERY_VALUE 0x0001
#define KEY_SET_VALUE 0x0002
#define KEY_CREATE_SUB_KEY 0x0004
#define KEY_ENUMERATE_SUB_KEYS 0x0008
#define KEY_READ 0x20019
#define KEY_ALL_ACCESS 0xF003F

#define REG_NONE 0
#define REG_SZ 1
#define REG_EXPAND_SZ 2
#define REG_BINARY 3
#define REG_DWORD 4
#define REG_MULTI_SZ 7

#define REG_OPTION_NON_VOLATILE 0
#define REG_CREATED_NEW_KEY 1
#define REG_OPENED_EXISTING_KEY 2

using REGSAM = DWORD;
using LSTATUS = LONG;
using PHKEY = HKEY*;

struct SECURITY_ATTRIBUTES;

extern "C" {

/// Opens a key below another; ERROR_FILE_NOT_FOUND when there is none. An empty or null path opens
/// the key itself once more.
/// \param access  KEY_*: later calls on the key answer ERROR_ACCESS_DENIED for rights not asked
/// for.
LSTATUS WINAPI RegOpenKeyExW(HKEY key, LPCWSTR path, DWORD options, REGSAM access, PHKEY result);

/// The same with all rights. An empty or null path gives the very same handle back.
LSTATUS WINAPI RegOpenKeyW(HKEY key, LPCWSTR path, PHKEY result);

/// Opens a key, made with all its parents when missing.
/// \param disposition  REG_CREATED_NEW_KEY or REG_OPENED_EXISTING_KEY; may be null.
LSTATUS WINAPI RegCreateKeyExW(HKEY key, LPCWSTR path, DWORD reserved, LPWSTR className,
                               DWORD options, REGSAM access, SECURITY_ATTRIBUTES* security,
                               PHKEY result, DWORD* disposition);

/// The sub-key at a place from 0, in the order of names without regard to case;
/// ERROR_NO_MORE_ITEMS behind the last. Walking up is cheap.
/// \param size  in: WCHARs at `name`, with room for the terminator; out: the length without.
///        ERROR_MORE_DATA when too small.
/// \param className  as `lastWritten`, must be null or is filled with nothing.
LSTATUS WINAPI RegEnumKeyExW(HKEY key, DWORD index, LPWSTR name, LPDWORD size, LPDWORD reserved,
                             LPWSTR className, LPDWORD classSize, FILETIME* lastWritten);

/// Reads a value (null or empty name: the unnamed one) as it was stored, any bytes; a text is not
/// sure to be terminated.
/// \param size  in: bytes at `bytes`; out: the size of the value. ERROR_MORE_DATA when too small;
///        with `bytes` null only the size is told. May be null when `bytes` is.
LSTATUS WINAPI RegQueryValueExW(HKEY key, LPCWSTR name, LPDWORD reserved, LPDWORD type,
                                LPBYTE bytes, LPDWORD size);

/// Writes a value whole: whatever happens, a reader sees the old value or the new one.
/// \param size  bytes, with the terminator of a text.
LSTATUS WINAPI RegSetValueExW(HKEY key, LPCWSTR name, DWORD reserved, DWORD type, const BYTE* bytes,
                              DWORD size);

/// Deletes a key below another with everything in it, at once. The path must name one.
LSTATUS WINAPI RegDeleteTreeW(HKEY key, LPCWSTR path);

/// Closes a key; the root stays open.
LSTATUS WINAPI RegCloseKey(HKEY key);

}  // extern "C"
