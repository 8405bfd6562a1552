#include "tests/hard/scenarios.h"

#include <array>
#include <stdexcept>

#include "frame/plugin_object.h"
#include "platform/gui/dialogs/hands.h"
#include "printerprops/pjl_query.h"
#include "printerprops/port_discovery.h"
#include "resources/resource_ids.h"
#include "tests/printerprops/printer_page.h"
#include "tests/support/loopback_printer.h"
#include "tests/support/plugin_fixture.h"
#include "tests/support/test_clock.h"

namespace hard {
namespace {

namespace hands = platform::hands;
using oemui::OemUiPlugin;
using tests::DocumentPage;

constexpr WORD kUnknownReason = 77;
constexpr WORD kReasons[] = {CPSUICB_REASON_SETACTIVE, CPSUICB_REASON_SEL_CHANGED,
                             CPSUICB_REASON_APPLYNOW, kUnknownReason};

/// The plug-in's object for one call.
struct ReleasePlugin {
    void operator()(OemUiPlugin* plugin) const { plugin->Release(); }
};
std::unique_ptr<OemUiPlugin, ReleasePlugin> Plugin() {
    return std::unique_ptr<OemUiPlugin, ReleasePlugin>(new OemUiPlugin);
}

void AskForInfo(PluginMachine*) {
    for (DWORD mode = 0; mode <= OEMGI_GETPUBLISHERINFO; ++mode) {
        DWORD answer = 0;
        DWORD needed = 0;
        Plugin()->GetInfo(mode, &answer, sizeof answer, &needed);
    }
}

void UseDevmodes(PluginMachine*) {
    oemui::PrivateDevmode in{};
    oemui::PrivateDevmode out{};
    OEMDMPARAM params = {};
    params.cbBufSize = sizeof out;
    params.pOEMDMIn = &in;
    params.pOEMDMOut = &out;
    for (DWORD mode = OEMDM_SIZE; mode <= OEMDM_MERGE; ++mode) Plugin()->DevMode(mode, &params);
}

void BuildPageFromDefaults(PluginMachine* machine) {
    machine->StoreList({});
    DocumentPage page(machine->PrinterName());
    BuildWhole(&page);
}

void ReportEveryReason(PluginMachine* machine) {
    tests::BecomeModel('U');
    DocumentPage page(machine->PrinterName());
    page.publicDevmode.dmPaperLength = 30000;
    BuildWhole(&page);
    page.Own(oemui::kScalingItem).Sel = 1;
    for (const WORD reason : kReasons) {
        page.Report(reason, &page.Own(oemui::kScalingItem));
    }
}

/// Opens the editor from the page and works in it.
void Edit(PluginMachine* machine, const std::function<void(HWND)>& work) {
    machine->user.work = work;
    DocumentPage page(machine->PrinterName());
    // A driver that cannot open its printer shows no page.
    if (page.Params().hPrinter == nullptr) return;
    BuildWhole(&page);
    OpenEditor(&page);
}

void ChangeAndConfirm(PluginMachine* machine) {
    Edit(machine, [](HWND dialog) {
        hands::TypeText(dialog, IDC_POINT_SIZE, TEXT("20"));
        hands::Click(dialog, IDC_BOLD);
        hands::Click(dialog, IDOK);
    });
}

void AddAndConfirm(PluginMachine* machine) {
    Edit(machine, [](HWND dialog) {
        hands::Click(dialog, IDC_NEW);
        if (hands::TypeText(dialog, IDC_NAME, TEXT("Zebra"))) hands::Click(dialog, IDOK);
    });
}

void DeleteAndConfirm(PluginMachine* machine) {
    Edit(machine, [](HWND dialog) {
        if (hands::Click(dialog, IDC_DELETE)) hands::Click(dialog, IDOK);
    });
}

void AskHelpAndCancel(PluginMachine* machine) {
    Edit(machine, [](HWND dialog) {
        hands::Click(dialog, IDC_HELP_BUTTON);
        hands::PressKey(dialog, VK_F1);
        hands::Click(dialog, IDC_CANCEL);
    });
}

void ReportPrinterEvents(PluginMachine*) {
    for (INT event = PRINTER_EVENT_INITIALIZE; event <= PRINTER_EVENT_DELETE; ++event) {
        tests::Text name = TEXT("\\\\server\\Office,LPT1:");
        Plugin()->PrinterEvent(name.data(), event, 0, 0);
    }
}

void ReportDriverEvents(PluginMachine*) {
    for (DWORD event = DRIVER_EVENT_INITIALIZE; event <= DRIVER_EVENT_DELETE; ++event) {
        Plugin()->DriverEvent(event, 0, nullptr, 0);
    }
}

void AskForProfile(PluginMachine*) {
    std::array<char, 64> profile = {};
    for (const ULONG room : {0U, 64U}) {
        ULONG size = room;
        DWORD flags = 0;
        Plugin()->QueryColorProfile(nullptr, nullptr, nullptr, nullptr, QCP_DEVICEPROFILE,
                                    room == 0 ? nullptr : profile.data(), &size, &flags);
    }
}

constexpr LONG kUntouched = 5;  // as the printer page's options come up

/// Activates the printer page and builds the document page of a printer behind a port, which both
/// ask.
void ShowAskingPages(PluginMachine* machine, const tests::Text& port) {
    const tests::TestClock clock;
    machine->UsePort(port);
    const auto printer = oemui::OpenPrinterFor(machine->PrinterName().c_str(), PRINTER_ACCESS_USE);
    tests::PrinterPage page(printer.Get(), machine->PrinterName());
    page.params.pOEMOptItems = nullptr;
    Plugin()->CommonUIProp(OEMCUIP_PRNPROP, &page.params);
    page.items[tests::kSwitch].Sel = 0;
    for (const WORD reason : kReasons) page.Report(reason);
    for (const auto option : {tests::kTray2, tests::kTray3, tests::kDuplex}) {
        const LONG chosen = page.items[option].Sel;
        if (chosen != kUntouched && chosen != 0 && chosen != 1) {
            throw std::runtime_error("an option's choice is none of its two");
        }
    }
    DocumentPage document(machine->PrinterName());
    document.Setting("AutoConfig", "ON");
    BuildWhole(&document);
}

const std::string kStatus = "@PJL INFO DSTATUS\r\nCODE=10001\r\n\f";
const std::string kConfig = "@PJL INFO CONFIG\r\nTRAY3=INSTALLED\r\n\f";

void AskDirectly(PluginMachine* machine) {
    const tests::LoopbackPrinter played({{kConfig}, {kConfig}, {kConfig}});
    ShowAskingPages(machine, TEXT("\\\\") + tests::Wide(played.Address()) + TEXT("\\SMB_PRI1"));
}

void AskThroughSpooler(PluginMachine* machine) {
    const tests::LoopbackPrinter played(
        {{kStatus}, {kConfig}, {kStatus}, {kConfig}, {kStatus}, {kConfig}});
    const tests::Text key = TEXT(
        "System\\CurrentControlSet\\Control\\Print\\Monitors\\Standard TCP/IP Port\\Ports\\IP_x");
    tests::WriteRegistryText(key, TEXT("IPAddress"), tests::Wide(played.Address()));
    ShowAskingPages(machine, TEXT("IP_x"));
}

using Operation = void (*)(PluginMachine*);

/// An operation of the plug-in on a machine of its own.
class PluginScenario : public Scenario {
public:
    explicit PluginScenario(Operation operation) : operation_(operation) {}
    void Restore() override { machine_.Restore(); }
    bool Run() override {
        operation_(&machine_);
        return true;
    }
    std::string StoredList() const override { return machine_.StoredList(); }

private:
    Operation operation_;
    PluginMachine machine_;
};

struct OperationRow {
    const char* name;
    Operation operation;
};
constexpr OperationRow kOperations[] = {
    {"get-info", AskForInfo},
    {"devmode", UseDevmodes},
    {"page-from-defaults", BuildPageFromDefaults},
    {"page-callback", ReportEveryReason},
    {"editor-change", ChangeAndConfirm},
    {"editor-new", AddAndConfirm},
    {"editor-delete", DeleteAndConfirm},
    {"editor-help", AskHelpAndCancel},
    {"printer-event", ReportPrinterEvents},
    {"driver-event", ReportDriverEvents},
    {"profile", AskForProfile},
    {"printer-page-direct", AskDirectly},
    {"printer-page-spooler", AskThroughSpooler},
};

}  // namespace

std::vector<ScenarioRow> Scenarios() {
    std::vector<ScenarioRow> rows;
    for (const OperationRow& row : kOperations) {
        rows.push_back({row.name, [operation = row.operation] {
                            return std::make_unique<PluginScenario>(operation);
                        }});
    }
    for (ScenarioRow& row : CommandScenarios()) rows.push_back(std::move(row));
    return rows;
}

}  // namespace hard
