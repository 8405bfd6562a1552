// document, printer: a page in text or in a window. watermarks.
#include <chrono>
#include <condition_variable>
#include <memory>
#include <mutex>
#include <optional>
#include <ostream>
#include <thread>

#include "host/commands/commands.h"
#include "host/errors/failure.h"
#include "host/page/json.h"
#include "host/page/session.h"
#include "host/page/settings.h"
#include "host/page/terminal_user.h"
#include "host/page/text.h"
#include "host/page/watermarks.h"
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
    std::optional<std::string> watermark;
    std::string script;
};

constexpr std::chrono::seconds kPatience{1};

/// Tells that the printer is being asked, once that takes longer than a person expects.
class SlowAnswerNotice {
public:
    explicit SlowAnswerNotice(std::ostream& err) : thread_([this, &err] { Wait(err); }) {}
    ~SlowAnswerNotice() {
        {
            const std::scoped_lock lock(mutex_);
            isOver_ = true;
        }
        over_.notify_one();
        thread_.join();
    }
    SlowAnswerNotice(const SlowAnswerNotice&) = delete;
    SlowAnswerNotice& operator=(const SlowAnswerNotice&) = delete;

private:
    void Wait(std::ostream& err) {
        std::unique_lock lock(mutex_);
        if (over_.wait_for(lock, kPatience, [this] { return isOver_; })) return;
        err << "driverhost: asking the printer...\n" << std::flush;
    }

    std::mutex mutex_;
    std::condition_variable over_;
    bool isOver_ = false;
    std::thread thread_;
};

std::unique_ptr<PageSession> OpenPage(const std::string& name, PageKind kind, std::ostream& err) {
    const SlowAnswerNotice notice(err);
    return std::make_unique<PageSession>(name, kind);
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
    if (options.watermark && options.watermark->empty()) {
        throw UsageFailure("--watermark needs a name");
    }
    std::optional<EditScript> script;
    if (!options.script.empty()) script = EditScript::Read(options.script);
    UseChosenMachine(context);
    TerminalUser user(context.err);
    const platform::UserScope scope(user);
    std::unique_ptr<PageSession> page = OpenPage(options.name, kind, context.err);
    if (options.defaults) {
        const SlowAnswerNotice notice(context.err);
        page = page->WithDefaults();
    }
    for (const std::string& setting : options.settings) SetItem(*page, setting);
    if (options.watermark) SelectWatermark(*page, user, *options.watermark);
    if (script) Edit(*page, user, *script);
    if (options.apply && !page->Apply()) throw Failure("the settings were refused");
    // A command that only changes says nothing when all went well.
    if (!options.apply || options.json || options.lines) PrintResult(*page, options, context.out);
}

void AddWatermarkOptions(CLI::App& command, CLI::Option& window, PageOptions& options) {
    CLI::Option* script =
        command.add_option("--edit", options.script, "script to work in the watermark editor")
            ->check(CLI::ExistingFile)
            ->excludes(&window);
    command.add_option("--watermark", options.watermark, "selects a watermark by its name")
        ->excludes(script)
        ->excludes(&window);
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
    CLI::Option* lines =
        command->add_flag("-l", options->lines, "a line for each item and its choices");
    command->add_flag("--json", options->json, "as JSON")->excludes(lines);
    CLI::Option* window = command->add_flag("--window", options->window, "in a window");
    for (const char* text : {"--defaults", "--set", "--apply", "-l", "--json"}) {
        window->excludes(text);
    }
    if (kind == PageKind::Document) AddWatermarkOptions(*command, *window, *options);
    command->callback([options, kind, &context] { ShowPage(kind, *options, context); });
}

void AddWatermarks(CLI::App& app, CommandContext& context) {
    CLI::App* command = app.add_subcommand("watermarks", "list the watermarks of a printer");
    auto name = std::make_shared<std::string>();
    auto json = std::make_shared<bool>(false);
    command->add_option("name", *name, "the printer's name")->required();
    command->add_flag("--json", *json, "as JSON");
    command->callback([name, json, &context] {
        UseChosenMachine(context);
        TerminalUser user(context.err);
        const platform::UserScope scope(user);
        const auto page = OpenPage(*name, PageKind::Document, context.err);
        if (*json) {
            context.out << PrinterWatermarks(*page).dump(2) << '\n';
        } else {
            PrintWatermarks(*page, context.out);
        }
    });
}

}  // namespace

void AddPageCommands(CLI::App& app, CommandContext& context) {
    AddPage(app, context, "document", "show or change the document settings of a printer",
            PageKind::Document);
    AddPage(app, context, "printer", "show or change the settings of the printer itself",
            PageKind::Printer);
    AddWatermarks(app, context);
}

}  // namespace host
