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

constexpr auto kErrorTexts = std::to_array<ErrorText>({
    {ERROR_FILE_NOT_FOUND, "not found"},
    {ERROR_ACCESS_DENIED, "access denied"},
    {ERROR_NOT_ENOUGH_MEMORY, "out of memory"},
    {ERROR_INVALID_DATA, "invalid contents"},
    {ERROR_WRITE_FAULT, "the machine's store cannot be written"},
    {ERROR_FILE_EXISTS, "the name is taken"},
    {ERROR_INVALID_PARAMETER, "wrong parameter"},
    {ERROR_MOD_NOT_FOUND, "the module or one that it needs is missing"},
    {ERROR_PROC_NOT_FOUND, "the module lacks an entry"},
    {ERROR_BADDB, "the machine's store is damaged or locked"},
    {ERROR_UNKNOWN_PORT, "unknown port"},
    {ERROR_UNKNOWN_PRINTER_DRIVER, "unknown driver"},
    {ERROR_UNKNOWN_PRINTPROCESSOR, "unknown print processor"},
    {ERROR_INVALID_PRINTER_NAME, "no printer of that name"},
    {ERROR_PRINTER_ALREADY_EXISTS, "a printer of that name exists"},
    {ERROR_INVALID_FORM_NAME, "not a name for a form (1 to 31 characters)"},
    {ERROR_INVALID_FORM_SIZE, "not a size for a form"},
    {ERROR_PRINTER_DRIVER_IN_USE, "a printer uses the driver"},
});

}  // namespace

std::string Quoted(std::string_view name) {
    return "\"" + std::string(name) + "\"";
}

void FailWith(const std::string& what, DWORD error) {
    const auto* known = std::ranges::find(kErrorTexts, error, &ErrorText::error);
    const std::string why = known != kErrorTexts.end() ? known->text : "failed";
    throw Failure(what + ": " + why + " (error " + std::to_string(error) + ")");
}

void FailWithLastError(const std::string& what) {
    FailWith(what, ::GetLastError());
}

}  // namespace host
