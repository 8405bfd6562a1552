/// Heaps, last errors, strings, modules, processes, versions and INI files.
///
/// Functions may be called from any thread. Where nothing else is said, failure is 0 or null and
/// sets the thread's last error. Text is UTF-16; sizes are in WCHARs with terminator.
#pragma once

#include <windef.h>

#define HEAP_ZERO_MEMORY 0x00000008

#define CP_ACP 0

#define DLL_PROCESS_DETACH 0
#define DLL_PROCESS_ATTACH 1

#define VER_PLATFORM_WIN32_WINDOWS 1
#define VER_PLATFORM_WIN32_NT 2
#define VER_NT_WORKSTATION 1

struct OSVERSIONINFOW {
    DWORD dwOSVersionInfoSize;  ///< bytes; set by the caller: of this record or the longer one
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;  ///< VER_PLATFORM_*
    WCHAR szCSDVersion[128];
};
using LPOSVERSIONINFOW = OSVERSIONINFOW*;
static_assert(sizeof(OSVERSIONINFOW) == 276);

struct OSVERSIONINFOEXW {
    DWORD dwOSVersionInfoSize;
    DWORD dwMajorVersion;
    DWORD dwMinorVersion;
    DWORD dwBuildNumber;
    DWORD dwPlatformId;
    WCHAR szCSDVersion[128];
    WORD wServicePackMajor;
    WORD wServicePackMinor;
    WORD wSuiteMask;
    BYTE wProductType;
    BYTE wReserved;
};
static_assert(sizeof(OSVERSIONINFOEXW) == 284);

struct SECURITY_ATTRIBUTES {
    DWORD nLength;
    LPVOID lpSecurityDescriptor;
    BOOL bInheritHandle;
};
using LPSECURITY_ATTRIBUTES = SECURITY_ATTRIBUTES*;

struct STARTUPINFOW {
    DWORD cb;  ///< bytes, 104
    LPWSTR lpReserved;
    LPWSTR lpDesktop;
    LPWSTR lpTitle;
    DWORD dwX;
    DWORD dwY;
    DWORD dwXSize;
    DWORD dwYSize;
    DWORD dwXCountChars;
    DWORD dwYCountChars;
    DWORD dwFillAttribute;
    DWORD dwFlags;
    WORD wShowWindow;
    WORD cbReserved2;
    LPBYTE lpReserved2;
    HANDLE hStdInput;
    HANDLE hStdOutput;
    HANDLE hStdError;
};
using LPSTARTUPINFOW = STARTUPINFOW*;
static_assert(sizeof(STARTUPINFOW) == 104);

struct PROCESS_INFORMATION {
    HANDLE hProcess;  ///< to be closed with `CloseHandle`
    HANDLE hThread;   ///< to be closed with `CloseHandle`
    DWORD dwProcessId;
    DWORD dwThreadId;
};
using LPPROCESS_INFORMATION = PROCESS_INFORMATION*;
static_assert(sizeof(PROCESS_INFORMATION) == 24);

extern "C" {

DWORD WINAPI GetLastError();
void WINAPI SetLastError(DWORD error);

/// A heap that grows as needed: the initial size is a hint, options and maximum size must be 0.
HANDLE WINAPI HeapCreate(DWORD options, SIZE_T initialSize, SIZE_T maximumSize);

/// Frees the heap and every block still in it. The process's heap is refused.
BOOL WINAPI HeapDestroy(HANDLE heap);

/// The heap that the process always has; it is not to be destroyed.
HANDLE WINAPI GetProcessHeap();

/// A block of `size` bytes, aligned to 16; a size of 0 gives a block as well. Null when memory or
/// the heap is wrong; the last error stays as it was, as on the platform.
/// \param flags  HEAP_ZERO_MEMORY or 0.
LPVOID WINAPI HeapAlloc(HANDLE heap, DWORD flags, SIZE_T size);

/// Resizes a block; with HEAP_ZERO_MEMORY what it grows by is zero. On failure null, and the old
/// block is as it was.
LPVOID WINAPI HeapReAlloc(HANDLE heap, DWORD flags, LPVOID block, SIZE_T size);

/// Frees a block; null is allowed. A block that is not of this heap fails with
/// ERROR_INVALID_PARAMETER.
BOOL WINAPI HeapFree(HANDLE heap, DWORD flags, LPVOID block);

/// Copies at most `capacity` - 1 characters and terminates; null when one of the texts is.
LPWSTR WINAPI lstrcpynW(LPWSTR destination, LPCWSTR source, int capacity);

/// Orders two texts as a person of the United States would look for them: punctuation before digits
/// before letters, accents and then case (small first) only among otherwise equal texts, hyphen and
/// apostrophe only as a last resort. A null text comes before every other.
/// \return below 0, 0 or above 0.
int WINAPI lstrcmpW(LPCWSTR left, LPCWSTR right);

/// The same without regard to case.
int WINAPI lstrcmpiW(LPCWSTR left, LPCWSTR right);

/// Converts from UTF-16. What Windows-1252 lacks becomes '?'.
/// \param codePage  CP_ACP (Windows-1252). \param length  -1: the text is terminated, and its
///        terminator converted too. \param capacity  bytes. The last two must be null.
/// \return the bytes written; 0 with ERROR_INSUFFICIENT_BUFFER when they do not fit.
int WINAPI WideCharToMultiByte(UINT codePage, DWORD flags, LPCWSTR text, int length,
                               LPSTR destination, int capacity, LPCSTR defaultCharacter,
                               BOOL* usedDefault);

/// `number` * `numerator` / `denominator` with 64 bits in between, rounded to nearest, halves away
/// from zero; -1 when the denominator is 0 or the result does not fit.
int WINAPI MulDiv(int number, int numerator, int denominator);

/// Maps a module, or counts one more use of it. A bare name is that of a module in use, or
/// looked for in the program's directory, System32, the Windows directory and the current one (the
/// first and last only below the machine). ERROR_MOD_NOT_FOUND when there is no such file,
/// ERROR_BAD_EXE_FORMAT when it is no module.
HMODULE WINAPI LoadLibraryW(LPCWSTR fileName);

/// Ends one use of a module; with the last one it goes.
BOOL WINAPI FreeLibrary(HMODULE module);

/// An exported function; ERROR_PROC_NOT_FOUND when there is none of that name.
FARPROC WINAPI GetProcAddress(HMODULE module, LPCSTR name);

/// The platform path of a module's file (null: of the program).
/// \return its length; `size` when it was cut, terminated all the same, with
///         ERROR_INSUFFICIENT_BUFFER.
DWORD WINAPI GetModuleFileNameW(HMODULE module, LPWSTR fileName, DWORD size);

/// The handle of the program itself: only null can be asked for.
HMODULE WINAPI GetModuleHandleW(LPCWSTR moduleName);

/// Fills in the version of the platform. ERROR_INSUFFICIENT_BUFFER when the record's size is none
/// of the two known.
BOOL WINAPI GetVersionExW(LPOSVERSIONINFOW version);

/// The path of the system directory, without a backslash at the end.
/// \return its length; the size needed, with terminator, when it does not fit.
UINT WINAPI GetSystemDirectoryW(LPWSTR path, UINT size);

void WINAPI Sleep(DWORD milliseconds);

/// Starts a program. What it writes goes to the machine's log, after a line with the command line.
/// \param applicationName  must be null: the program is the first word of the command line, looked
///        up without regard to case in the program's directory and the current one (both only below
///        the machine), System32 and the Windows directory; ".exe" is added to a name without
///        ending. Of an unquoted path with blanks the shortest file that exists is started.
/// \param currentDirectory  must be null, like the environment.
/// \return false with ERROR_FILE_NOT_FOUND, ERROR_BAD_EXE_FORMAT, ERROR_INVALID_PARAMETER...
BOOL WINAPI CreateProcessW(LPCWSTR applicationName, LPWSTR commandLine,
                           LPSECURITY_ATTRIBUTES processAttributes,
                           LPSECURITY_ATTRIBUTES threadAttributes, BOOL inheritHandles,
                           DWORD creationFlags, LPVOID environment, LPCWSTR currentDirectory,
                           LPSTARTUPINFOW startup, LPPROCESS_INFORMATION process);

/// Closes a handle of a process or thread; the process runs on.
BOOL WINAPI CloseHandle(HANDLE handle);

/// Reads a value of an INI file; a bare file name is looked up in the Windows directory. Names of
/// sections and keys are found in any case, blanks around the value are trimmed, one pair of
/// quotes around it is removed.
/// \param section, key  null: the names of all sections, or of the section's keys, each terminated.
/// \param defaultText  what a missing value reads as; null means empty.
/// \return the characters copied, without (the last) terminator: at most `size` - 1; `size` - 2
/// when
///         names did not fit, which then end with two terminators.
DWORD WINAPI GetPrivateProfileStringW(LPCWSTR section, LPCWSTR key, LPCWSTR defaultText,
                                      LPWSTR value, DWORD size, LPCWSTR fileName);

/// Reads a number of an INI file: decimal with sign, or hexadecimal after "0x", up to the first
/// other character; 32 bits, too large a number wraps. A missing or empty value is the default.
UINT WINAPI GetPrivateProfileIntW(LPCWSTR section, LPCWSTR key, INT defaultNumber,
                                  LPCWSTR fileName);

// The platform declares these two with its windows; they need none.

/// A text of a module's string table (null: the program's own), cut to fit and terminated.
/// \return its length; 0 when there is no such text.
int WINAPI LoadStringW(HINSTANCE module, UINT id, LPWSTR text, int size);

/// Formats into a buffer of 1024 WCHARs: %d, %i, %u, %x, %X (32 bits wide, with or without h or l;
/// 64 with I64), %p, %s, %c (with h, or as %S and %C, of 8 bits) and %%, without flags, width or
/// precision. Of any other the letter itself is written.
/// \return the characters written, without terminator: at most 1023.
int wsprintfW(LPWSTR text, LPCWSTR format, ...);

}  // extern "C"
