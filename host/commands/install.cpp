// install, remove, uninstall.
#include <memory>
#include <ostream>

#include "host/commands/commands.h"
#include "host/errors/failure.h"
#include "host/installation/printer_install.h"

namespace host {
namespace {

struct InstallOptions {
    std::string name;
    std::string model;
    std::string port;
    std::string portKind;
    std::string address;
    std::string bidirectional = "off";
};

const Model& RequireModel(const std::string& letter) {
    const Model* model = FindModel(letter);
    if (model != nullptr) return *model;
    throw UsageFailure("no model " + Quoted(letter) + "; known: U, T and V");
}

void Install(const InstallOptions& options, const CommandContext& context) {
    const InstallRequest request = {options.name, &RequireModel(options.model),
                                    ParsePort(options.port, options.portKind, options.address),
                                    options.bidirectional == "on"};
    UseChosenMachine(context);
    const std::string name = InstallPrinter(request, context.source);
    context.out << "installed " << Escaped(name) << '\n';
    const std::string why = WhyNeverAsked(request.port.name, request.bidirectional);
    if (!why.empty()) {
        context.err << "driverhost: the printer is never asked for its options: " << why << '\n';
    }
}

void AddInstall(CLI::App& app, CommandContext& context) {
    CLI::App* command = app.add_subcommand("install", "install a printer and its driver");
    auto options = std::make_shared<InstallOptions>();
    command->add_option("name", options->name, "the printer's name")->required();
    command->add_option("--model", options->model, "U, T or V")->required();
    command->add_option("--port", options->port, "IP_127.0.0.5, \\\\host\\SMB_PRI1, USB001...")
        ->required();
    command->add_option("--port-kind", options->portKind,
                        "tcpip, lpr, regal or direct, where the port's name does not tell");
    command->add_option("--address", options->address, "of the port's host");
    command->add_option("--bidi", options->bidirectional, "bidirectional communication")
        ->check(CLI::IsMember({"on", "off"}))
        ->capture_default_str();
    command->callback([options, &context] { Install(*options, context); });
}

void AddRemove(CLI::App& app, CommandContext& context) {
    CLI::App* command = app.add_subcommand("remove", "remove a printer");
    auto name = std::make_shared<std::string>();
    command->add_option("name", *name, "the printer's name")->required();
    command->callback([name, &context] {
        UseChosenMachine(context);
        RemovePrinter(*name);
        context.out << "removed " << Escaped(*name) << '\n';
    });
}

void AddUninstall(CLI::App& app, CommandContext& context) {
    CLI::App* command =
        app.add_subcommand("uninstall", "remove a model's driver, with the printers that use it");
    auto letter = std::make_shared<std::string>();
    command->add_option("--model", *letter, "U, T or V")->required();
    command->callback([letter, &context] {
        const Model& model = RequireModel(*letter);
        UseChosenMachine(context);
        for (const std::string& printer : UninstallDriver(model)) {
            context.out << "removed " << Escaped(printer) << '\n';
        }
        context.out << "uninstalled the driver of model " << model.letter << '\n';
    });
}

}  // namespace

void AddInstallCommands(CLI::App& app, CommandContext& context) {
    AddInstall(app, context);
    AddRemove(app, context);
    AddUninstall(app, context);
}

}  // namespace host
