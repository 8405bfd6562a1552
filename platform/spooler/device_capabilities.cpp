// What a printer can do: its papers.
#include <winspool.h>

#include <algorithm>
#include <cstring>

#include "platform/base/fail.h"
#include "platform/faults/failure_points.h"
#include "platform/spooler/forms.h"
#include "platform/spooler/printer_record.h"
#include "platform/spooler/record_buffer.h"

namespace {

using platform::spooler::Form;

namespace spooler = platform::spooler;

constexpr std::size_t kPaperNameLength = 64;

void WriteNumber(const Form& form, BYTE* entry) {
    std::memcpy(entry, &form.number, sizeof form.number);
}

void WriteSize(const Form& form, BYTE* entry) {
    const POINT size = {spooler::Tenths(form.size.cx), spooler::Tenths(form.size.cy)};
    std::memcpy(entry, &size, sizeof size);
}

void WriteName(const Form& form, BYTE* entry) {
    std::u16string padded = form.name.substr(0, kPaperNameLength);
    padded.resize(kPaperNameLength);
    std::memcpy(entry, padded.data(), kPaperNameLength * sizeof(WCHAR));
}

struct PaperCapability {
    WORD capability;
    std::size_t entryBytes;
    void (*write)(const Form& form, BYTE* entry);
};

constexpr PaperCapability kPaperCapabilities[] = {
    {DC_PAPERS, sizeof(WORD), WriteNumber},
    {DC_PAPERSIZE, sizeof(POINT), WriteSize},
    {DC_PAPERNAMES, kPaperNameLength * sizeof(WCHAR), WriteName},
};

DWORD ListPapers(LPCWSTR printer, WORD capability, BYTE* output, int* count) {
    const auto* kind =
        std::ranges::find(kPaperCapabilities, capability, &PaperCapability::capability);
    if (kind == std::end(kPaperCapabilities)) return ERROR_NOT_SUPPORTED;
    const std::u16string name =
        printer != nullptr ? spooler::ShortPrinterName(printer) : std::u16string();
    if (name.empty()) return ERROR_INVALID_PRINTER_NAME;
    spooler::PrinterRecord record;
    if (const DWORD error = spooler::LoadPrinter(name, &record)) return error;
    std::vector<Form> forms;
    if (const DWORD error = spooler::ListForms(&forms)) return error;
    *count = static_cast<int>(forms.size());
    if (output == nullptr) return ERROR_SUCCESS;
    for (std::size_t i = 0; i < forms.size(); ++i) {
        kind->write(forms[i], output + i * kind->entryBytes);
    }
    return ERROR_SUCCESS;
}

}  // namespace

int WINAPI DeviceCapabilitiesW(LPCWSTR printer, LPCWSTR /*port*/, WORD capability, LPWSTR output,
                               const DEVMODEW* /*devmode*/) {
    if (const auto error = platform::InjectedFailure("DeviceCapabilitiesW")) {
        return platform::Fail(*error, -1);
    }
    int count = -1;
    const DWORD error = platform::Contained(
        [&] { return ListPapers(printer, capability, reinterpret_cast<BYTE*>(output), &count); });
    return error == ERROR_SUCCESS ? count : platform::Fail(error, -1);
}
