// demo: a machine with one printer of each model, and a page in a window or all pages as text.
#include <algorithm>
#include <array>
#include <memory>
#include <ostream>

#include "host/commands/commands.h"
#include "host/page/session.h"
#include "host/page/terminal_user.h"
#include "host/page/text.h"
#include "host/spooler/printers.h"
#include "host/windows/page_window.h"
#include "platform/base/machine.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

struct DemoPrinter {
    const char* name;
    const char* model;
    const char* port;
};

constexpr auto kDemoPrinters = std::to_array<DemoPrinter>({
    {"Office", "T", "USB001"},
    {"Studio", "U", "USB002"},
    {"Workshop", "V", "USB003"},
});

void InstallMissing(const DemoPrinter& demo, const CommandContext& context) {
    const auto isIt = [&](const PrinterSummary& printer) {
        return printer.isComplete && platform::Utf8(printer.name) == demo.name;
    };
    if (std::ranges::any_of(ListPrinters(), isIt)) return;
    InstallPrinter({demo.name, FindModel(demo.model), ParsePort(demo.port), false}, context.source);
}

void PrintPages(const CommandContext& context) {
    for (const DemoPrinter& demo : kDemoPrinters) {
        for (const PageKind kind : {PageKind::Document, PageKind::Printer}) {
            PageSession page(demo.name, kind);
            PrintPage(page, context.out);
            context.out << '\n';
        }
    }
}

// What to try next, on the machine that was just made.
void TellNextCommand(const CommandContext& context, bool isDefaultMachine) {
    context.out << "The machine is in " << platform::MachineFolder().native()
                << "\nNext, try: ./run "
                << "document " << kDemoPrinters.front().name << " -l"
                << (isDefaultMachine ? "" : " --machine " + context.machine.native()) << std::endl;
}

void Demonstrate(const std::string& folder, CommandContext& context) {
    if (!folder.empty()) context.machine = folder;
    UseChosenMachine(context);
    {
        TerminalUser user(context.err);
        const platform::UserScope scope(user);
        for (const DemoPrinter& demo : kDemoPrinters) InstallMissing(demo, context);
        if (!HasScreen()) PrintPages(context);
    }
    TellNextCommand(context, folder.empty());
    if (HasScreen()) ShowPageWindow(kDemoPrinters.front().name, PageKind::Document);
}

}  // namespace

void AddDemoCommand(CLI::App& app, CommandContext& context) {
    CLI::App* command =
        app.add_subcommand("demo", "a machine with a printer of each model, and their pages");
    auto folder = std::make_shared<std::string>();
    command->add_option("folder", *folder, "folder for the machine, in place of --machine");
    command->callback([folder, &context] { Demonstrate(*folder, context); });
}

}  // namespace host
