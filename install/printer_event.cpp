#include "install/printer_event.h"

#include <winspool.h>

#include <algorithm>
#include <memory>
#include <new>

#include "common/file_name.h"
#include "common/join_text.h"
#include "common/model_identity.h"
#include "common/oem_driver_interface.h"
#include "common/spooler_records.h"
#include "common/unique_handle.h"
#include "install/uninstaller_setting.h"

namespace oemui {
namespace {

/// Characters with terminator for a registry path that holds a printer's name.
constexpr std::size_t kKeyPathCapacity = 512;

constexpr INT kDefaultSetting = 1;
constexpr LPCWSTR kSettingName = TEXT("EAIDCDisable");
constexpr LPCWSTR kPendingOperations = TEXT("PendingFileRenameOperations");

/// A value of the registry as it is stored.
struct StoredValue {
    DWORD Type = REG_NONE;
    DWORD Size = 0;                       ///< bytes
    std::unique_ptr<WCHAR[]> Characters;  ///< room for the whole value; null when there is none

    BYTE* Bytes() const { return reinterpret_cast<BYTE*>(Characters.get()); }
};

/// Leaves the bare printer name at the buffer's front: without server, and of pooled ports nothing.
void ReduceToShortName(PWSTR printerName) {
    const TextView name = printerName;
    TextView shortName = name.substr(name.rfind(TEXT('\\')) + 1);
    shortName = shortName.substr(0, shortName.find(TEXT(',')));
    std::copy(shortName.begin(), shortName.end(), printerName);
    printerName[shortName.size()] = 0;
}

StoredValue ReadValue(HKEY key, LPCWSTR name) {
    StoredValue value;
    if (::RegQueryValueExW(key, name, nullptr, &value.Type, nullptr, &value.Size) !=
            ERROR_SUCCESS ||
        value.Size == 0) {
        return {};
    }
    // Half a character at the end needs room as well.
    value.Characters.reset(new (std::nothrow) WCHAR[value.Size / sizeof(WCHAR) + 1]);
    if (!value.Characters || ::RegQueryValueExW(key, name, nullptr, &value.Type, value.Bytes(),
                                                &value.Size) != ERROR_SUCCESS) {
        return {};
    }
    return value;
}

/// The next text of a list, with `*rest` moved behind its terminator.
/// \return false when the list ends before the terminator.
bool TakeText(TextView* rest, TextView* text) {
    const std::size_t length = rest->find(WCHAR{0});
    if (length == TextView::npos) return false;
    *text = rest->substr(0, length);
    rest->remove_prefix(length + 1);
    return true;
}

void InstallPrintProcessor(LPCWSTR shortName) {
    WCHAR file[kModelFileNameCapacity];
    WCHAR processor[kModelFileNameCapacity];
    const TextView fileName = TextIn(Model().PrintProcessorFile);
    CopyText(file, fileName);
    CopyText(processor, fileName.substr(0, fileName.find(TEXT('.'))));
    if (!IsPrintProcessorInstalled(processor) &&
        !::AddPrintProcessorW(nullptr, nullptr, file, processor)) {
        return;
    }
    AssignPrintProcessor(shortName, processor);
}

}  // namespace

HRESULT HandlePrinterEvent(PWSTR printerName, INT event) {
    if (event != PRINTER_EVENT_INITIALIZE) return E_NOTIMPL;
    const UINT setting = ::GetPrivateProfileIntW(TEXT("EAIDCData"), kSettingName, kDefaultSetting,
                                                 Model().SettingsFile);
    if (printerName != nullptr) ReduceToShortName(printerName);
    const LPCWSTR shortName = printerName == nullptr ? TEXT("") : printerName;
    SetPrinterDriverDataValue(shortName, setting);
    KeepUninstallerFromDeletion(UninstallerSetting().Executable);
    InstallPrintProcessor(shortName);
    return E_NOTIMPL;
}

bool SetPrinterDriverDataValue(LPCWSTR shortName, DWORD number) {
    WCHAR path[kKeyPathCapacity];
    // Without a name the path would lead elsewhere.
    if (*shortName == 0 ||
        !JoinText(path, {TEXT("System\\CurrentControlSet\\Control\\Print\\Printers\\"), shortName,
                         TEXT("\\PrinterDriverData")})) {
        return false;
    }
    const UniqueKey key = OpenMachineKey(path);
    return key &&
           ::RegSetValueExW(key.Get(), kSettingName, 0, REG_DWORD,
                            reinterpret_cast<const BYTE*>(&number), sizeof number) == ERROR_SUCCESS;
}

void KeepUninstallerFromDeletion(LPCWSTR fileName) {
    UniqueKey key;
    if (::RegOpenKeyW(HKEY_LOCAL_MACHINE,
                      TEXT("System\\CurrentControlSet\\Control\\Session Manager"),
                      key.Receive()) != ERROR_SUCCESS) {
        return;
    }
    const StoredValue value = ReadValue(key.Get(), kPendingOperations);
    if (!value.Characters) return;
    if (SpoilPendingDeletions(value.Characters.get(), value.Size / sizeof(WCHAR), fileName)) {
        ::RegSetValueExW(key.Get(), kPendingOperations, 0, value.Type, value.Bytes(), value.Size);
    }
}

bool SpoilPendingDeletions(WCHAR* operations, std::size_t length, TextView fileName) {
    constexpr std::size_t kSpoiltFromEnd = 3;
    bool isChanged = false;
    TextView rest(operations, length);
    TextView path;
    TextView target;
    while (TakeText(&rest, &path) && !path.empty() && TakeText(&rest, &target)) {
        const bool isDeletion = target.empty() && path.size() >= kSpoiltFromEnd;
        if (!isDeletion || fileName.empty()) continue;
        if (!EqualIgnoringAsciiCase(FileNameOf(path), fileName)) continue;
        const auto end = static_cast<std::size_t>(path.data() - operations) + path.size();
        operations[end - kSpoiltFromEnd] = TEXT('_');
        isChanged = true;
    }
    return isChanged;
}

bool IsPrintProcessorInstalled(LPCWSTR processorName) {
    const SpoolerRecords<PRINTPROCESSOR_INFO_1W> installed(
        [](BYTE* buffer, DWORD size, DWORD* needed, DWORD* count) {
            return ::EnumPrintProcessorsW(nullptr, nullptr, 1, buffer, size, needed, count);
        });
    return std::ranges::any_of(installed.All(), [processorName](const auto& entry) {
        return entry.pName != nullptr && EqualIgnoringAsciiCase(entry.pName, processorName);
    });
}

void AssignPrintProcessor(LPCWSTR shortName, LPCWSTR processorName) {
    // An empty name would open the print server.
    if (*shortName == 0) return;
    const UniquePrinter printer =
        OpenPrinterFor(shortName, PRINTER_ACCESS_ADMINISTER | PRINTER_ACCESS_USE);
    if (!printer) return;
    const auto records = ReadPrinterInfo(printer.Get());
    for (PRINTER_INFO_2W& info : records.All()) {
        if (info.pPrintProcessor != nullptr && TextView(info.pPrintProcessor) == processorName) {
            return;
        }
        // The record's text is not const in the platform's declaration, but only read.
        if (*processorName != 0) info.pPrintProcessor = const_cast<LPWSTR>(processorName);
        ::SetPrinterW(printer.Get(), 2, reinterpret_cast<BYTE*>(&info), 0);
    }
}

}  // namespace oemui
