// document, printer: a page in text or in a window.
#include <algorithm>
#include <memory>
#include <ostream>
#include <span>

#include "host/commands/commands.h"
#include "host/errors/failure.h"
#include "host/page/json.h"
#include "host/page/session.h"
#include "host/page/settings.h"
#include "host/page/terminal_user.h"
#include "host/page/text.h"
#include "host/windows/page_window.h"

namespace host {
namespace {

struct PageOptions {
    std::string name;
    std::vector<std::string> settings;
    bool defaults = false;
    bool apply = false;
    bool lines = false;
    bool json = false;
    bool window = false;
    std::string script;
};

// The one item with a button opens the editor.
PageItem& ItemWithButton(PageSession& page) {
    const auto item = std::ranges::find_if(page.Items(), &PageItem::HasButton);
    if (item == page.Items().end()) throw Failure("the page has no editor");
    return *item;
}

void Edit(PageSession& page, const TerminalUser& user, const EditScript& script) {
    PageItem& item = ItemWithButton(page);
    const std::size_t before = user.Messages().size();
    page.PressButton(item);
    if (user.Dialogs() == 0) {
        throw Failure("the editor does not open while " + Quoted(item.Name()) + " is " +
                      Quoted(item.SelectionText()));
    }
    const std::string error = script.Error();
    if (!error.empty()) throw Failure("script " + error);
    for (const std::u16string& message : std::span(user.Messages()).subspan(before)) {
        if (page.TellsLostList(message)) throw Failure("the list of watermarks was not stored");
    }
}

void PrintResult(PageSession& page, const PageOptions& options, std::ostream& out) {
    if (options.json) {
        out << PageToJson(page).dump(2) << '\n';
    } else if (options.lines) {
        PrintItemLines(page, out);
    } else {
        PrintPage(page, out);
    }
}

void ShowPage(PageKind kind, const PageOptions& options, const CommandContext& context) {
    if (options.window) {
        UseChosenMachine(context);
        ShowPageWindow(options.name, kind);
        return;
    }
    const bool edits = !options.script.empty();
    EditScript script = edits ? EditScript::Read(options.script) : EditScript();
    UseChosenMachine(context);
    TerminalUser user(context.err, edits ? &script : nullptr);
    const platform::UserScope scope(user);
    auto page = std::make_unique<PageSession>(options.name, kind);
    if (options.defaults) page = page->WithDefaults();
    for (const std::string& setting : options.settings) SetItem(*page, setting);
    if (edits) Edit(*page, user, script);
    if (options.apply && !page->Apply()) throw Failure("the settings were refused");
    // A command that only changes says nothing when all went well.
    if (!options.apply || options.json || options.lines) PrintResult(*page, options, context.out);
}

void AddPage(CLI::App& app, CommandContext& context, const char* name, const char* description,
             PageKind kind) {
    CLI::App* command = app.add_subcommand(name, description);
    auto options = std::make_shared<PageOptions>();
    command->add_option("name", options->name, "the printer's name")->required();
    command->add_flag("--defaults", options->defaults, "restore the defaults, before any --set");
    command->add_option("-o,--set", options->settings, "Item=Choice, by displayed text or keyword")
        ->expected(1)
        ->multi_option_policy(CLI::MultiOptionPolicy::TakeAll);
    command->add_flag("--apply", options->apply, "keep the settings");
    command->add_flag("-l", options->lines, "a line for each item and its choices");
    command->add_flag("--json", options->json, "as JSON");
    CLI::Option* window = command->add_flag("--window", options->window, "in a window");
    for (const char* text : {"--defaults", "--set", "--apply", "-l", "--json"})
        window->excludes(text);
    if (kind == PageKind::Document) {
        command->add_option("--edit", options->script, "script to work in the watermark editor")
            ->check(CLI::ExistingFile)
            ->excludes(window);
    }
    command->callback([options, kind, &context] { ShowPage(kind, *options, context); });
}

}  // namespace

void AddPageCommands(CLI::App& app, CommandContext& context) {
    AddPage(app, context, "document", "show or change the document settings of a printer",
            PageKind::Document);
    AddPage(app, context, "printer", "show or change the settings of the printer itself",
            PageKind::Printer);
}

}  // namespace host
