#include "host/errors/failure.h"

#include <windows.h>

#include <winspool.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <new>

namespace host {
namespace {

struct ErrorText {
    DWORD error;
    const char* text;
};

constexpr auto kErrorTexts = std::to_array<ErrorText>({
    {ERROR_FILE_NOT_FOUND, "not found"},
    {ERROR_PATH_NOT_FOUND, "the folder is not there"},
    {ERROR_ACCESS_DENIED, "access denied"},
    {ERROR_INVALID_HANDLE, "it was removed in the meantime"},
    {ERROR_NOT_ENOUGH_MEMORY, "out of memory"},
    {ERROR_INVALID_DATA, "invalid contents"},
    {ERROR_WRITE_FAULT, "the machine's store cannot be written"},
    {ERROR_FILE_EXISTS, "the name is taken"},
    {ERROR_GEN_FAILURE, "a device or file does not work"},
    {ERROR_NOT_SUPPORTED, "not supported"},
    {ERROR_INVALID_PARAMETER, "wrong parameter"},
    {ERROR_DISK_FULL, "the disk is full"},
    {ERROR_INSUFFICIENT_BUFFER, "the answer grew while it was read"},
    {ERROR_MOD_NOT_FOUND, "the module or one that it needs is missing"},
    {ERROR_PROC_NOT_FOUND, "the module lacks an entry"},
    {ERROR_BAD_PATHNAME, "not a path"},
    {ERROR_BUSY, "another program is busy with it; try again"},
    {ERROR_BAD_EXE_FORMAT, "not a module of this system, or damaged"},
    {ERROR_MORE_DATA, "the answer grew while it was read"},
    {ERROR_BADDB, "the machine's store is damaged"},
    {ERROR_REGISTRY_IO_FAILED, "the machine's store cannot be read or written"},
    {ERROR_KEY_DELETED, "it was removed in the meantime"},
    {ERROR_DLL_INIT_FAILED, "the module refuses to start"},
    {ERROR_UNKNOWN_REVISION, "the machine's store is of a later version"},
    {ERROR_TIMEOUT, "no answer in time"},
    {ERROR_UNKNOWN_PORT, "unknown port"},
    {ERROR_UNKNOWN_PRINTER_DRIVER, "unknown driver"},
    {ERROR_UNKNOWN_PRINTPROCESSOR, "unknown print processor"},
    {ERROR_INVALID_PRINTER_NAME, "no printer of that name"},
    {ERROR_PRINTER_ALREADY_EXISTS, "a printer of that name exists"},
    {ERROR_INVALID_FORM_NAME, "not a name for a form (1 to 31 characters)"},
    {ERROR_INVALID_FORM_SIZE, "not a size for a form"},
    {ERROR_PRINTER_DRIVER_IN_USE, "a printer uses the driver"},
});

constexpr std::size_t kMostShownBytes = 200;

bool IsControl(unsigned char byte) {
    return byte < 0x20 || byte == 0x7F;
}

// U+0080 to U+009F are control characters too; in UTF-8 two bytes.
bool BeginsHighControl(std::string_view rest) {
    return rest.size() > 1 && rest[0] == '\xC2' && (rest[1] & 0xE0) == 0x80;
}

std::string HexEscape(unsigned char byte) {
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    return {'\\', 'x', kDigits[byte / 16], kDigits[byte % 16]};
}

}  // namespace

std::string Escaped(std::string_view text) {
    std::string shown;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const bool isHigh = BeginsHighControl(text.substr(at));
        if (isHigh) ++at;
        const auto byte = static_cast<unsigned char>(text[at]);
        shown += isHigh || IsControl(byte) ? HexEscape(byte) : std::string(1, text[at]);
    }
    return shown;
}

std::string Shortened(std::string_view text, std::size_t mostBytes) {
    if (text.size() <= mostBytes) return std::string(text);
    // Never within a character.
    while (mostBytes > 0 && (text[mostBytes] & 0xC0) == 0x80) --mostBytes;
    return std::string(text.substr(0, mostBytes)) + "...";
}

std::string Quoted(std::string_view name) {
    return "\"" + Escaped(Shortened(name, kMostShownBytes)) + "\"";
}

void FailWith(const std::string& what, DWORD error) {
    const auto* known = std::ranges::find(kErrorTexts, error, &ErrorText::error);
    const std::string why = known != kErrorTexts.end() ? known->text : "failed";
    throw Failure(what + ": " + why + " (error " + std::to_string(error) + ")");
}

void FailWithLastError(const std::string& what) {
    FailWith(what, ::GetLastError());
}

void FailWith(const std::string& what, const std::error_code& error) {
    throw Failure(what + ": " + error.message());
}

std::string MessageOf(const std::exception& error) {
    if (dynamic_cast<const Failure*>(&error) != nullptr) return error.what();
    if (const auto* file = dynamic_cast<const std::filesystem::filesystem_error*>(&error)) {
        return Quoted(file->path1().native()) + ": " + file->code().message();
    }
    if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) return "out of memory";
    const auto* system = dynamic_cast<const std::system_error*>(&error);
    return system != nullptr ? system->code().message() : "the program itself failed";
}

}  // namespace host
