#include "host/driver/installed_options.h"

#include <algorithm>
#include <cstring>
#include <string>

#include "host/spooler/printers.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

constexpr std::array<OptionKeywords, kInstalledOptions> kKeywords = {{
    {InstalledOption::AutoConfig, "AutoConfig", {"ON", "OFF"}},
    {InstalledOption::Tray2, "Tray2", {"INSTALLED", "NOTINSTALLED"}},
    {InstalledOption::Tray3, "Tray3", {"INSTALLED", "NOTINSTALLED"}},
    {InstalledOption::DuplexUnit, "DuplexUnit", {"INSTALLED", "NOTINSTALLED"}},
}};

}  // namespace

const std::array<OptionKeywords, kInstalledOptions>& AllOptionKeywords() {
    return kKeywords;
}

InstalledOptions InstalledOptions::Read(HANDLE printer) {
    InstalledOptions options;
    for (const OptionKeywords& keywords : kKeywords) {
        const std::u16string stored =
            PrinterDataText(printer, platform::Utf16(keywords.feature).c_str());
        options.Set(keywords.option, platform::Utf8(stored) == keywords.settings[1] ? 1 : 0);
    }
    return options;
}

void InstalledOptions::Store(HANDLE printer) const {
    for (const OptionKeywords& keywords : kKeywords) {
        const char* setting = keywords.settings[Setting(keywords.option) == 0 ? 0 : 1];
        SetPrinterDataText(printer, platform::Utf16(keywords.feature).c_str(),
                           platform::Utf16(setting));
    }
}

BOOL InstalledOptions::Answer(const Model& model, PCSTR feature, PVOID output, DWORD outputSize,
                              PDWORD needed, PDWORD returned) const {
    const auto* keywords =
        std::find_if(kKeywords.begin(), kKeywords.end(), [&](const OptionKeywords& entry) {
            return feature && std::string_view(feature) == entry.feature;
        });
    const bool missing = keywords == kKeywords.end() ||
                         (keywords->option == InstalledOption::Tray3 && !model.hasTray3);
    if (returned) *returned = missing ? 0 : 1;
    if (missing) return E_NOTIMPL;
    const char* setting = keywords->settings[Setting(keywords->option) == 0 ? 0 : 1];
    const auto size = static_cast<DWORD>(std::strlen(setting) + 1);
    if (needed) *needed = size;
    if (!output || outputSize < size) {
        ::SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    std::memcpy(output, setting, size);
    return TRUE;
}

}  // namespace host
