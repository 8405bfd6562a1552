#include "host/driver/installed_options.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <string>

#include "host/spooler/printers.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

constexpr OptionSetting kInstalled = {"INSTALLED", u"Installed"};
constexpr OptionSetting kMissing = {"NOTINSTALLED", u"Not Installed"};

constexpr auto kOptions = std::to_array<InstallableOption>({
    {&InstalledOptions::autoConfig,
     "AutoConfig",
     u"Auto Configure",
     {"ON", u"On"},
     {"OFF", u"Off"}},
    {&InstalledOptions::tray2, "Tray2", u"Tray 2", kInstalled, kMissing},
    {&InstalledOptions::tray3, "Tray3", u"Tray 3", kInstalled, kMissing},
    {&InstalledOptions::duplexUnit, "DuplexUnit", u"Duplex Option (Double-sided)", kInstalled,
     kMissing},
});

bool Has(const Model& model, const InstallableOption& option) {
    return option.option != &InstalledOptions::tray3 || model.hasTray3;
}

const char* KeywordOf(const InstalledOptions& options, const InstallableOption& option) {
    return (options.*option.option ? option.installed : option.missing).keyword;
}

}  // namespace

std::vector<InstallableOption> InstallableOptions(const Model* model) {
    std::vector<InstallableOption> options;
    std::ranges::copy_if(kOptions, std::back_inserter(options), [&](const auto& option) {
        return model == nullptr || Has(*model, option);
    });
    return options;
}

InstalledOptions InstalledOptions::Read(HANDLE printer) {
    InstalledOptions options;
    for (const InstallableOption& option : kOptions) {
        const std::u16string stored =
            PrinterDataText(printer, platform::Utf16(option.feature).c_str());
        options.*option.option = platform::Utf8(stored) != option.missing.keyword;
    }
    return options;
}

void InstalledOptions::Store(HANDLE printer) const {
    for (const InstallableOption& option : kOptions) {
        SetPrinterDataText(printer, platform::Utf16(option.feature).c_str(),
                           platform::Utf16(KeywordOf(*this, option)));
    }
}

BOOL InstalledOptions::Answer(const Model& model, PCSTR feature, PVOID output, DWORD outputSize,
                              PDWORD needed, PDWORD returned) const {
    const auto* option = std::ranges::find_if(kOptions, [&](const InstallableOption& entry) {
        return feature != nullptr && std::string_view(feature) == entry.feature &&
               Has(model, entry);
    });
    const bool known = option != kOptions.end();
    if (returned != nullptr) *returned = known ? 1 : 0;
    if (!known) return E_NOTIMPL;
    const char* setting = KeywordOf(*this, *option);
    const auto size = static_cast<DWORD>(std::strlen(setting) + 1);
    if (needed != nullptr) *needed = size;
    if (output == nullptr || outputSize < size) {
        ::SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return FALSE;
    }
    std::memcpy(output, setting, size);
    return TRUE;
}

}  // namespace host
