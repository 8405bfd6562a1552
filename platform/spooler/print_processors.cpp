#include "platform/spooler/print_processors.h"

#include <winspool.h>

#include <algorithm>

#include "platform/base/fail.h"
#include "platform/faults/failure_points.h"
#include "platform/spooler/drivers.h"
#include "platform/spooler/print_keys.h"
#include "platform/spooler/record_buffer.h"
#include "platform/text/letter_case.h"

namespace platform::spooler {
namespace {

constexpr std::u16string_view kOwnProcessor = u"winprint";

DWORD StoreProcessor(LPCWSTR file, LPCWSTR name) {
    bool known = false;
    if (const DWORD error = IsPrintProcessor(name, &known)) return error;
    if (known) return ERROR_PRINT_PROCESSOR_ALREADY_INSTALLED;
    PrintKey key;
    const DWORD error = key.Create(SubKeyPath(kPrintProcessorsPath, name));
    return error != ERROR_SUCCESS ? error : key.SetText(u"Driver", file);
}

DWORD AddProcessor(LPCWSTR server, LPCWSTR environment, LPCWSTR file, LPCWSTR name) {
    if (server != nullptr || file == nullptr || *file == u'\0' || name == nullptr ||
        !IsKeyName(name)) {
        return ERROR_INVALID_PARAMETER;
    }
    if (!IsOwnEnvironment(environment)) return ERROR_INVALID_ENVIRONMENT;
    return ChangeAtOnce([=] { return StoreProcessor(file, name); });
}

PRINTPROCESSOR_INFO_1W PackProcessor(const std::u16string& name, RecordTail& tail) {
    return {tail.AddText(name)};
}

DWORD Enumerate(LPCWSTR server, LPCWSTR environment, DWORD level, const CallerBuffer& buffer,
                LPDWORD returned) {
    if (const DWORD error = CheckBuffer(level, 1, buffer)) return error;
    if (returned == nullptr || server != nullptr) return ERROR_INVALID_PARAMETER;
    if (!IsOwnEnvironment(environment)) return ERROR_INVALID_ENVIRONMENT;
    *returned = 0;
    std::vector<std::u16string> names;
    if (const DWORD error = ListPrintProcessors(&names)) return error;
    return FillRecords(names, buffer, PackProcessor, returned);
}

}  // namespace

DWORD ListPrintProcessors(std::vector<std::u16string>* names) {
    std::vector<std::u16string> registered;
    if (const DWORD error = ListSubKeys(kPrintProcessorsPath, &registered)) return error;
    names->assign(1, std::u16string(kOwnProcessor));
    for (std::u16string& name : registered) {
        if (!EqualIgnoringUnicodeCase(name, kOwnProcessor)) names->push_back(std::move(name));
    }
    return ERROR_SUCCESS;
}

DWORD IsPrintProcessor(std::u16string_view name, bool* known) {
    std::vector<std::u16string> names;
    if (const DWORD error = ListPrintProcessors(&names)) return error;
    *known = std::ranges::any_of(
        names, [name](const auto& other) { return EqualIgnoringUnicodeCase(name, other); });
    return ERROR_SUCCESS;
}

}  // namespace platform::spooler

using platform::Answer;
using platform::Fail;
using platform::InjectedFailure;

namespace spooler = platform::spooler;

BOOL WINAPI EnumPrintProcessorsW(LPWSTR server, LPWSTR environment, DWORD level, LPBYTE buffer,
                                 DWORD size, LPDWORD needed, LPDWORD returned) {
    if (const auto error = InjectedFailure("EnumPrintProcessorsW")) return Fail(*error);
    return Answer(platform::Contained([&] {
        return spooler::Enumerate(server, environment, level, {buffer, size, needed}, returned);
    }));
}

BOOL WINAPI AddPrintProcessorW(LPWSTR server, LPWSTR environment, LPWSTR file, LPWSTR name) {
    if (const auto error = InjectedFailure("AddPrintProcessorW")) return Fail(*error);
    return Answer(platform::Contained(
        [&] { return spooler::AddProcessor(server, environment, file, name); }));
}
