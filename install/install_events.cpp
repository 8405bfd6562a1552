#include "install/install_events.h"

#include "common/model_identity.h"
#include "common/oem_driver_interface.h"
#include "common/unique_handle.h"
#include "install/pending_deletions.h"
#include "install/print_processor.h"
#include "install/uninstaller.h"

namespace oemui {
namespace {

/// Characters with terminator for a registry path that holds a printer's name.
constexpr std::size_t kKeyPathCapacity = 512;

constexpr INT kDefaultSetting = 1;
constexpr LPCWSTR kSettingName = TEXT("EAIDCDisable");

/// Leaves the bare printer name at the buffer's front: without server, and of pooled ports nothing.
/// A name that is bare already is not written to: its memory may be read-only.
void ReduceToShortName(PWSTR printerName) {
    const TextView name = printerName;
    TextView shortName = name.substr(name.rfind(TEXT('\\')) + 1);
    shortName = shortName.substr(0, shortName.find(TEXT(',')));
    if (shortName.size() == name.size()) return;
    std::copy(shortName.begin(), shortName.end(), printerName);
    printerName[shortName.size()] = 0;
}

}  // namespace

void HandlePrinterEvent(PWSTR printerName, INT event) {
    if (event != PRINTER_EVENT_INITIALIZE) return;
    const UINT setting = ::GetPrivateProfileIntW(TEXT("EAIDCData"), kSettingName, kDefaultSetting,
                                                 Model().SettingsFile);
    if (printerName != nullptr) ReduceToShortName(printerName);
    const LPCWSTR shortName = printerName == nullptr ? TEXT("") : printerName;
    static_cast<void>(SetPrinterDriverDataValue(shortName, setting));
    KeepFromPendingDeletion(UninstallerName().View());
    InstallPrintProcessor(shortName);
}

bool SetPrinterDriverDataValue(LPCWSTR shortName, DWORD number) {
    FixedText<kKeyPathCapacity> path;
    // Without a name the path would lead elsewhere.
    if (*shortName == 0 ||
        !path.Join({TEXT("System\\CurrentControlSet\\Control\\Print\\Printers\\"), shortName,
                    TEXT("\\PrinterDriverData")})) {
        return false;
    }
    const UniqueKey key = OpenMachineKey(path.c_str());
    return key &&
           ::RegSetValueExW(key.Get(), kSettingName, 0, REG_DWORD,
                            reinterpret_cast<const BYTE*>(&number), sizeof number) == ERROR_SUCCESS;
}

void HandleDriverEvent(DWORD event) {
    if (event == DRIVER_EVENT_DELETE) StartUninstaller();
}

}  // namespace oemui
