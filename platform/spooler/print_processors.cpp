#include "platform/spooler/print_processors.h"

#include <winspool.h>

#include <algorithm>

#include "platform/faults/failure_points.h"
#include "platform/spooler/drivers.h"
#include "platform/spooler/print_keys.h"
#include "platform/spooler/record_buffer.h"

namespace platform::spooler {
namespace {

constexpr std::u16string_view kOwnProcessor = u"winprint";

DWORD AddProcessor(LPCWSTR server, LPCWSTR environment, LPCWSTR file, LPCWSTR name) {
    if (server || !file || *file == u'\0' || !name || !IsKeyName(name))
        return ERROR_INVALID_PARAMETER;
    if (!IsOwnEnvironment(environment)) return ERROR_INVALID_ENVIRONMENT;
    bool known = false;
    if (const DWORD error = IsPrintProcessor(name, &known)) return error;
    if (known) return ERROR_PRINT_PROCESSOR_ALREADY_INSTALLED;
    PrintKey key;
    const std::u16string path = SubKeyPath(kPrintProcessorsPath, name);
    DWORD error = key.Create(path);
    if (error != ERROR_SUCCESS) return error;
    error = key.SetText(u"Driver", file);
    if (error != ERROR_SUCCESS) RemoveKey(path);
    return error;
}

PRINTPROCESSOR_INFO_1W PackProcessor(const std::u16string& name, RecordTail& tail) {
    return {tail.AddText(name)};
}

DWORD Enumerate(LPCWSTR server, LPCWSTR environment, DWORD level, const CallerBuffer& buffer,
                LPDWORD returned) {
    if (const DWORD error = CheckBuffer(level, 1, buffer)) return error;
    if (!returned || server) return ERROR_INVALID_PARAMETER;
    if (!IsOwnEnvironment(environment)) return ERROR_INVALID_ENVIRONMENT;
    *returned = 0;
    std::vector<std::u16string> names;
    if (const DWORD error = ListPrintProcessors(&names)) return error;
    const DWORD error = FillRecords(names, buffer, PackProcessor);
    if (error == ERROR_SUCCESS) *returned = static_cast<DWORD>(names.size());
    return error;
}

}  // namespace

DWORD ListPrintProcessors(std::vector<std::u16string>* names) {
    std::vector<std::u16string> registered;
    if (const DWORD error = ListSubKeys(kPrintProcessorsPath, &registered)) return error;
    names->assign(1, std::u16string(kOwnProcessor));
    for (std::u16string& name : registered)
        if (!SameName(name, kOwnProcessor)) names->push_back(std::move(name));
    return ERROR_SUCCESS;
}

DWORD IsPrintProcessor(std::u16string_view name, bool* known) {
    std::vector<std::u16string> names;
    if (const DWORD error = ListPrintProcessors(&names)) return error;
    *known = std::any_of(names.begin(), names.end(),
                         [name](const std::u16string& other) { return SameName(name, other); });
    return ERROR_SUCCESS;
}

}  // namespace platform::spooler

namespace spooler = platform::spooler;

BOOL EnumPrintProcessorsW(LPWSTR server, LPWSTR environment, DWORD level, LPBYTE buffer, DWORD size,
                          LPDWORD needed, LPDWORD returned) {
    DWORD error = 0;
    if (!platform::MustFail("EnumPrintProcessorsW", &error))
        error = spooler::Enumerate(server, environment, level, {buffer, size, needed}, returned);
    return spooler::Answer(error);
}

BOOL AddPrintProcessorW(LPWSTR server, LPWSTR environment, LPWSTR file, LPWSTR name) {
    DWORD error = 0;
    if (!platform::MustFail("AddPrintProcessorW", &error))
        error = spooler::AddProcessor(server, environment, file, name);
    return spooler::Answer(error);
}
