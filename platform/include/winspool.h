/// The spooler: printers and their data, drivers, forms, print processors, device capabilities.
///
/// All strings are UTF-16. Operations that fill a buffer with records put every string of a record
/// inside the same buffer, behind the records, and report the size needed in bytes; a buffer too
/// small answers ERROR_INSUFFICIENT_BUFFER and nothing is written to it. Except where told
/// otherwise, false or zero means failure with the thread's last error set. Every operation may be
/// called from any thread.
#pragma once

#include <windef.h>
#include <wingdi.h>

#define STANDARD_RIGHTS_REQUIRED 0x000F0000

#define PRINTER_ACCESS_ADMINISTER 0x00000004
#define PRINTER_ACCESS_USE 0x00000008
#define PRINTER_ALL_ACCESS \
    (STANDARD_RIGHTS_REQUIRED | PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE)

#define PRINTER_ATTRIBUTE_LOCAL 0x00000040
#define PRINTER_ATTRIBUTE_ENABLE_BIDI 0x00000800

#define PRINTER_ENUM_LOCAL 0x00000002

#define FORM_USER 0x00000000
#define FORM_BUILTIN 0x00000001

/// What `DeviceCapabilitiesW` answers.
#define DC_PAPERS 2       ///< one WORD a paper: its number
#define DC_PAPERSIZE 3    ///< one POINT a paper: width and length in tenths of a millimetre
#define DC_PAPERNAMES 16  ///< 64 characters a paper, terminated when shorter

/// Numbers of the platform's papers; papers of one machine's own count from DMPAPER_USER.
#define DMPAPER_LETTER 1
#define DMPAPER_LEGAL 5
#define DMPAPER_STATEMENT 6
#define DMPAPER_EXECUTIVE 7
#define DMPAPER_A3 8
#define DMPAPER_A4 9
#define DMPAPER_A5 11
#define DMPAPER_B5 13
#define DMPAPER_FOLIO 14
#define DMPAPER_ENV_10 20
#define DMPAPER_ENV_DL 27
#define DMPAPER_ENV_C5 28
#define DMPAPER_ENV_C6 31
#define DMPAPER_ENV_B5 34
#define DMPAPER_ENV_MONARCH 37
#define DMPAPER_JAPANESE_POSTCARD 43
#define DMPAPER_LETTER_PLUS 59
#define DMPAPER_DBL_JAPANESE_POSTCARD 69
#define DMPAPER_A6 70
#define DMPAPER_JENV_CHOU3 73
#define DMPAPER_JENV_CHOU4 74
#define DMPAPER_JENV_YOU4 91
#define DMPAPER_P16K 93
#define DMPAPER_P32K 94
#define DMPAPER_USER 256

/// What a printer is opened with.
struct PRINTER_DEFAULTSW {
    LPWSTR pDatatype;     ///< null: the printer's own
    DEVMODEW* pDevMode;   ///< null: the printer's own
    DWORD DesiredAccess;  ///< PRINTER_ACCESS_*; 0 asks for PRINTER_ACCESS_USE
};
static_assert(sizeof(PRINTER_DEFAULTSW) == 24 && offsetof(PRINTER_DEFAULTSW, DesiredAccess) == 16);

/// A printer. When read, texts that a printer has not are empty.
struct PRINTER_INFO_2W {
    LPWSTR pServerName;  ///< always null here: printers are local
    LPWSTR pPrinterName;
    LPWSTR pShareName;
    LPWSTR pPortName;  ///< one port, or several with commas between
    LPWSTR pDriverName;
    LPWSTR pComment;
    LPWSTR pLocation;
    DEVMODEW* pDevMode;  ///< dmSize + dmDriverExtra bytes; null when the printer has none
    LPWSTR pSepFile;
    LPWSTR pPrintProcessor;
    LPWSTR pDatatype;
    LPWSTR pParameters;
    PVOID pSecurityDescriptor;  ///< always null here
    DWORD Attributes;           ///< PRINTER_ATTRIBUTE_*
    DWORD Priority;
    DWORD DefaultPriority;
    DWORD StartTime;
    DWORD UntilTime;
    DWORD Status;
    DWORD cJobs;
    DWORD AveragePPM;
};
static_assert(sizeof(PRINTER_INFO_2W) == 136 && offsetof(PRINTER_INFO_2W, pPortName) == 24);
static_assert(offsetof(PRINTER_INFO_2W, pDevMode) == 56 &&
              offsetof(PRINTER_INFO_2W, pPrintProcessor) == 72);
static_assert(offsetof(PRINTER_INFO_2W, Attributes) == 104);

/// A driver; the files by their full paths when read, by path or bare name when added.
struct DRIVER_INFO_2W {
    DWORD cVersion;  ///< 3
    LPWSTR pName;
    LPWSTR pEnvironment;  ///< null when added: this machine's
    LPWSTR pDriverPath;
    LPWSTR pDataFile;
    LPWSTR pConfigFile;
};
static_assert(sizeof(DRIVER_INFO_2W) == 48 && offsetof(DRIVER_INFO_2W, pDriverPath) == 24);

/// A form; sizes in thousandths of a millimetre.
struct FORM_INFO_1W {
    DWORD Flags;  ///< FORM_*
    LPWSTR pName;
    SIZEL Size;
    RECTL ImageableArea;
};
static_assert(sizeof(FORM_INFO_1W) == 40 && offsetof(FORM_INFO_1W, Size) == 16);
static_assert(offsetof(FORM_INFO_1W, ImageableArea) == 24);

/// A print processor.
struct PRINTPROCESSOR_INFO_1W {
    LPWSTR pName;
};
static_assert(sizeof(PRINTPROCESSOR_INFO_1W) == 8);

extern "C" {

/// Opens a printer by its name, in any case; a server part (`\\machine\Name`) and ports behind a
/// comma (`Name,LPT1:`) are allowed and dropped. A null name opens the machine's print server,
/// which has the forms. \param defaults  may be null. Fails with ERROR_INVALID_PRINTER_NAME, or
/// ERROR_ACCESS_DENIED when the access asked is refused;
/// `*printer` is null then.
BOOL WINAPI OpenPrinterW(LPWSTR name, HANDLE* printer, PRINTER_DEFAULTSW* defaults);
BOOL WINAPI ClosePrinter(HANDLE printer);

/// Reads a printer. \param level  2. \param size  of the buffer, bytes. \param needed  bytes.
BOOL WINAPI GetPrinterW(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed);
/// Writes a printer: texts that are null are emptied, except the printer's own name, which must
/// stay the same, and those of its driver, port and print processor, which must be there. A null
/// `pDevMode` leaves the devmode as it is. Needs PRINTER_ACCESS_ADMINISTER. \param level  2. \param
/// command  0.
BOOL WINAPI SetPrinterW(HANDLE printer, DWORD level, LPBYTE record, DWORD command);
/// Adds a printer and opens it with PRINTER_ALL_ACCESS; null on failure. \param server  null.
/// \param level  2. Its driver and print processor must be registered (else
/// ERROR_UNKNOWN_PRINTER_DRIVER, ERROR_UNKNOWN_PRINTPROCESSOR), its port must have a name; ports
/// that no monitor knows are taken.
HANDLE WINAPI AddPrinterW(LPWSTR server, DWORD level, LPBYTE record);
/// Removes the printer with its data; the handle is to be closed as usual. Needs
/// PRINTER_ACCESS_ADMINISTER.
BOOL WINAPI DeletePrinter(HANDLE printer);
/// Lists the printers. \param flags  PRINTER_ENUM_LOCAL. \param server  null. \param level  2.
BOOL WINAPI EnumPrintersW(DWORD flags, LPWSTR server, DWORD level, LPBYTE buffer, DWORD size,
                          LPDWORD needed, LPDWORD returned);

/// Reads a value of the printer's data. \return a result code, ERROR_MORE_DATA (with `*needed`)
/// when the buffer is too small, ERROR_FILE_NOT_FOUND when there is no such value. The last error
/// is not touched. \param type  REG_* of the value; may be null. \param size  of the buffer, bytes.
/// Names that begin with "#GET#" ask the printer instead: see `SetPrinterDataW`.
DWORD WINAPI GetPrinterDataW(HANDLE printer, LPWSTR name, LPDWORD type, LPBYTE buffer, DWORD size,
                             LPDWORD needed);
/// Replaces a value of the printer's data, whole. \return a result code. Needs
/// PRINTER_ACCESS_ADMINISTER.
/// Names of "#GET#" or "#SET#", a blank or line feed, and PJL text are not stored: the port monitor
/// carries the text to the printer. "#SET#" sends it when it is set. "#GET#" is only announced when
/// it is set, which fails when the printer's port cannot be asked, and sent when it is read: its
/// answer is the value. ERROR_NOT_SUPPORTED when the printer's port has no address,
/// ERROR_GEN_FAILURE when the printer cannot be reached, ERROR_TIMEOUT when it is silent for 15
/// seconds.
DWORD WINAPI SetPrinterDataW(HANDLE printer, LPWSTR name, DWORD type, LPBYTE bytes, DWORD size);

/// Reads the printer's driver. \param environment  null: this machine's. \param level  2.
BOOL WINAPI GetPrinterDriverW(HANDLE printer, LPWSTR environment, DWORD level, LPBYTE buffer,
                              DWORD size, LPDWORD needed);
/// Registers a driver, or replaces its record; its files are not looked for. \param server  null.
/// \param level  2.
BOOL WINAPI AddPrinterDriverW(LPWSTR server, DWORD level, LPBYTE record);
/// Removes a driver that no printer uses (else ERROR_PRINTER_DRIVER_IN_USE).
BOOL WINAPI DeletePrinterDriverW(LPWSTR server, LPWSTR environment, LPWSTR driver);

/// Lists the forms of the printer's machine: the platform's own, then the user's. \param level  1.
BOOL WINAPI EnumFormsW(HANDLE printer, DWORD level, LPBYTE buffer, DWORD size, LPDWORD needed,
                       LPDWORD returned);
/// Adds a form of the user's to the printer's machine. \param level  1. Needs
/// PRINTER_ACCESS_ADMINISTER. Fails with ERROR_INVALID_FORM_NAME for an empty or too long name,
/// ERROR_INVALID_FORM_SIZE for an empty size, ERROR_FILE_EXISTS when the name is taken.
BOOL WINAPI AddFormW(HANDLE printer, DWORD level, LPBYTE record);

/// What a printer can do. \param port  any. \param output  null to learn the number of entries.
/// \param devmode  not looked at. \return the number of entries; -1 on failure.
int WINAPI DeviceCapabilitiesW(LPCWSTR printer, LPCWSTR port, WORD capability, LPWSTR output,
                               const DEVMODEW* devmode);

/// Lists the print processors. \param server, environment  null: this machine's. \param level  1.
BOOL WINAPI EnumPrintProcessorsW(LPWSTR server, LPWSTR environment, DWORD level, LPBYTE buffer,
                                 DWORD size, LPDWORD needed, LPDWORD returned);
/// Registers a print processor. \param file  its library's bare name; it is not looked for. Fails
/// with ERROR_PRINT_PROCESSOR_ALREADY_INSTALLED when the name is taken.
BOOL WINAPI AddPrintProcessorW(LPWSTR server, LPWSTR environment, LPWSTR file, LPWSTR name);

}  // extern "C"
