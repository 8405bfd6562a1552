// list, profile, forms.
#include <memory>
#include <nlohmann/json.hpp>
#include <ostream>

#include "host/commands/commands.h"
#include "host/driver/installed_options.h"
#include "host/errors/failure.h"
#include "host/installation/printer_install.h"
#include "host/spooler/printers.h"
#include "platform/text/text_encoding.h"

namespace host {
namespace {

using Json = nlohmann::ordered_json;

// What installing and using the printer left in its data.
Json DriverDataToJson(HANDLE printer) {
    Json written = Json::object();
    if (const std::optional<DWORD> setting = PrinterDataNumber(printer, u"EAIDCDisable")) {
        written["EAIDCDisable"] = *setting;
    }
    for (const InstallableOption& option : InstallableOptions()) {
        const std::u16string setting =
            PrinterDataText(printer, platform::Utf16(option.feature).c_str());
        if (!setting.empty()) written[option.feature] = platform::Utf8(setting);
    }
    if (const DWORD bytes = PrinterDataSize(printer, u"WaterMarkList")) {
        written["WaterMarkList"] = std::to_string(bytes) + " bytes";
    }
    return written;
}

Json PrinterToJson(const PrinterSummary& printer) {
    const std::string name = platform::Utf8(printer.name);
    const Model* model = ModelOfDriver(printer.driver);
    // A printer that was removed since, or whose record has a damaged name, cannot be opened by it;
    // the others are listed all the same.
    const oemui::UniquePrinter handle =
        oemui::OpenPrinterFor(printer.name.c_str(), PRINTER_ACCESS_USE);
    return {{"name", name},
            {"model", model != nullptr ? Json(std::string(1, model->letter)) : Json()},
            {"driver", platform::Utf8(printer.driver)},
            {"port", platform::Utf8(printer.port)},
            {"bidi", printer.bidirectional},
            {"neverAsked", WhyNeverAsked(platform::Utf8(printer.port), printer.bidirectional)},
            {"printProcessor", platform::Utf8(printer.printProcessor)},
            {"driverData", handle ? DriverDataToJson(handle.Get()) : Json()}};
}

std::string Bare(const Json& value) {
    return Escaped(value.is_string() ? value.get<std::string>() : value.dump());
}

void PrintPrinter(const Json& printer, std::ostream& out) {
    out << Bare(printer["name"]) << '\n';
    out << "  driver           " << Bare(printer["driver"]) << " (model " << Bare(printer["model"])
        << ")\n";
    out << "  port             " << Bare(printer["port"])
        << (printer["bidi"].get<bool>() ? ", bidirectional" : "") << '\n';
    const Json& why = printer["neverAsked"];
    if (why != "") out << "  never asked      " << Bare(why) << '\n';
    out << "  print processor  " << Bare(printer["printProcessor"]) << '\n';
    out << "  driver data     ";
    if (printer["driverData"].is_null()) out << " cannot be read";
    for (const auto& [value, content] : printer["driverData"].items()) {
        out << ' ' << value << '=' << Bare(content);
    }
    out << '\n';
}

void List(bool json, const CommandContext& context) {
    UseChosenMachine(context);
    Json printers = Json::array();
    for (const PrinterSummary& printer : ListPrinters()) {
        printers.push_back(PrinterToJson(printer));
    }
    if (json) {
        context.out << printers.dump(2) << '\n';
        return;
    }
    if (printers.empty()) context.err << "driverhost: no printer is installed\n";
    for (const Json& printer : printers) PrintPrinter(printer, context.out);
}

void PrintForms(HANDLE printer, std::ostream& out) {
    for (const Form& form : ListForms(printer)) {
        out << Escaped(platform::Utf8(form.name)) << '=' << Json(form.size.cx / 1000.0).dump()
            << 'x' << Json(form.size.cy / 1000.0).dump() << (form.ownToUser ? " (added)" : "")
            << '\n';
    }
}

void AddList(CLI::App& app, CommandContext& context) {
    CLI::App* command = app.add_subcommand("list", "list the printers");
    auto json = std::make_shared<bool>(false);
    command->add_flag("--json", *json, "as JSON");
    command->callback([json, &context] { List(*json, context); });
}

void AddProfile(CLI::App& app, CommandContext& context) {
    CLI::App* command = app.add_subcommand("profile", "the colour profile of a printer's output");
    auto name = std::make_shared<std::string>();
    command->add_option("name", *name, "the printer's name")->required();
    command->callback([name, &context] {
        UseChosenMachine(context);
        const ColorProfile profile = QueryProfile(*name);
        context.out << profile.name << " (flags " << profile.flags << ")\n";
    });
}

void AddForms(CLI::App& app, CommandContext& context) {
    CLI::App* command = app.add_subcommand("forms", "list the papers, add or remove some");
    auto name = std::make_shared<std::string>();
    auto added = std::make_shared<std::vector<std::string>>();
    auto removed = std::make_shared<std::vector<std::string>>();
    command->add_option("name", *name, "the printer's name")->required();
    command->add_option("--add", *added, "Name=WIDTHxHEIGHT, each 1 to 100000 millimetres")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command->add_option("--remove", *removed, "Name of a paper that was added")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command->callback([name, added, removed, &context] {
        UseChosenMachine(context);
        const bool onlyLists = added->empty() && removed->empty();
        const DWORD access = onlyLists ? PRINTER_ACCESS_USE : PRINTER_ALL_ACCESS;
        const oemui::UniquePrinter printer = OpenNamedPrinter(*name, access);
        for (const std::string& form : *removed) RemoveForm(printer.Get(), form);
        for (const std::string& form : *added) AddForm(printer.Get(), form);
        if (onlyLists) PrintForms(printer.Get(), context.out);
    });
}

}  // namespace

void AddListCommands(CLI::App& app, CommandContext& context) {
    AddList(app, context);
    AddProfile(app, context);
    AddForms(app, context);
}

}  // namespace host
