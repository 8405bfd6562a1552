#include "host/errors/failure.h"

#include <windows.h>

#include <winspool.h>

#include <algorithm>
#include <array>

namespace host {
namespace {

struct ErrorText {
    DWORD error;
    const char* text;
};

constexpr std::array kErrorTexts = {
    ErrorText{ERROR_FILE_NOT_FOUND, "not found"},
    ErrorText{ERROR_ACCESS_DENIED, "access denied"},
    ErrorText{ERROR_NOT_ENOUGH_MEMORY, "out of memory"},
    ErrorText{ERROR_INVALID_DATA, "invalid contents"},
    ErrorText{ERROR_WRITE_FAULT, "the machine's store cannot be written"},
    ErrorText{ERROR_FILE_EXISTS, "the name is taken"},
    ErrorText{ERROR_INVALID_PARAMETER, "wrong parameter"},
    ErrorText{ERROR_MOD_NOT_FOUND, "the module or one that it needs is missing"},
    ErrorText{ERROR_PROC_NOT_FOUND, "the module lacks an entry"},
    ErrorText{ERROR_BADDB, "the machine's store is damaged or locked"},
    ErrorText{ERROR_UNKNOWN_PORT, "unknown port"},
    ErrorText{ERROR_UNKNOWN_PRINTER_DRIVER, "unknown driver"},
    ErrorText{ERROR_UNKNOWN_PRINTPROCESSOR, "unknown print processor"},
    ErrorText{ERROR_INVALID_PRINTER_NAME, "no printer of that name"},
    ErrorText{ERROR_PRINTER_ALREADY_EXISTS, "a printer of that name exists"},
    ErrorText{ERROR_INVALID_FORM_NAME, "not a name for a form (1 to 31 characters)"},
    ErrorText{ERROR_INVALID_FORM_SIZE, "not a size for a form"},
    ErrorText{ERROR_PRINTER_DRIVER_IN_USE, "a printer uses the driver"},
};

}  // namespace

std::string PlatformErrorText(DWORD error) {
    const auto* known = std::find_if(kErrorTexts.begin(), kErrorTexts.end(),
                                     [&](const ErrorText& entry) { return entry.error == error; });
    const std::string words = known != kErrorTexts.end() ? known->text : "failed";
    return words + " (error " + std::to_string(error) + ")";
}

void FailWith(const std::string& what, DWORD error) {
    throw Failure(what + ": " + PlatformErrorText(error));
}

void FailWithLastError(const std::string& what) {
    FailWith(what, ::GetLastError());
}

}  // namespace host
