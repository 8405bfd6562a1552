// play-printer.
#include <csignal>
#include <fstream>
#include <memory>
#include <ostream>

#include "host/commands/commands.h"
#include "host/errors/failure.h"
#include "host/played_printer/printer.h"

namespace host {
namespace {

constexpr int kLongestLife = 24 * 60 * 60;  // seconds

struct PlayOptions {
    PlayedPrinterOptions printer;
    bool once = false;
    int seconds = 60 * 60;
    std::string log;
};

struct Switch {
    const char* name;
    bool PlayedPrinterOptions::*option;
    const char* description;
};

constexpr Switch kSwitches[] = {
    {"--tray2", &PlayedPrinterOptions::tray2, "has the second tray"},
    {"--tray3", &PlayedPrinterOptions::tray3, "has the third tray"},
    {"--duplex", &PlayedPrinterOptions::duplex, "has the duplex unit"},
    {"--silent", &PlayedPrinterOptions::silent, "never answers"},
    {"--slow-drip", &PlayedPrinterOptions::slowDrip, "answers one byte a second"},
    {"--no-echo", &PlayedPrinterOptions::noEcho, "leaves the question's echo out"},
    {"--no-formfeed", &PlayedPrinterOptions::noFormFeed, "leaves the closing form feed out"},
    {"--stale-block-first", &PlayedPrinterOptions::staleBlockFirst,
     "sends an older block before the answer"},
    {"--lower-case", &PlayedPrinterOptions::lowerCase, "answers in small letters"},
    {"--refuse", &PlayedPrinterOptions::refuse, "refuses connections"},
};

// Signals have no other way to reach the printer.
std::atomic<PlayedPrinter*> signalledPrinter{nullptr};

extern "C" void StopOnSignal(int) {
    PlayedPrinter* printer = signalledPrinter.load();
    if (printer != nullptr) printer->Stop();
}

class SignalScope {
public:
    explicit SignalScope(PlayedPrinter& printer) {
        signalledPrinter = &printer;
        struct sigaction action {};
        action.sa_handler = StopOnSignal;
        ::sigaction(SIGINT, &action, &oldInterrupt_);
        ::sigaction(SIGTERM, &action, &oldTerminate_);
    }
    ~SignalScope() {
        ::sigaction(SIGINT, &oldInterrupt_, nullptr);
        ::sigaction(SIGTERM, &oldTerminate_, nullptr);
        signalledPrinter = nullptr;
    }
    SignalScope(const SignalScope&) = delete;
    SignalScope& operator=(const SignalScope&) = delete;

private:
    struct sigaction oldInterrupt_ {};
    struct sigaction oldTerminate_ {};
};

void Play(const PlayOptions& options, const CommandContext& context) {
    std::ofstream file;
    if (!options.log.empty()) {
        file.open(options.log, std::ios::trunc);
        if (!file) throw Failure(options.log + " cannot be written");
    }
    std::ostream& log = options.log.empty() ? context.out : file;
    PlayedPrinter printer(options.printer, [&](const std::string& line) {
        // A printer whose log nobody can read plays for nobody.
        if (!(log << line << '\n' << std::flush)) printer.Stop();
    });
    const SignalScope signals(printer);
    printer.Serve(std::chrono::seconds(options.seconds), options.once);
    if (!log) {
        throw Failure((options.log.empty() ? "the log" : options.log) +
                      " cannot be written any further");
    }
}

}  // namespace

void AddPlayCommand(CLI::App& app, CommandContext& context) {
    CLI::App* command = app.add_subcommand("play-printer", "play a printer that answers PJL");
    auto options = std::make_shared<PlayOptions>();
    PlayedPrinterOptions& printer = options->printer;
    command->add_option("--address", printer.address, "loopback address")->capture_default_str();
    for (const Switch& entry : kSwitches) {
        command->add_flag(entry.name, printer.*entry.option, entry.description);
    }
    command->add_option("--split", printer.split, "answers in so many pieces")
        ->check(CLI::Range(1, 1000));
    command->add_option("--junk", printer.junk, "bytes of junk before the answer")
        ->check(CLI::Range(0, 16 * 1024 * 1024));
    command->add_option("--reset-after", printer.resetAfter, "resets after so many bytes");
    command->add_flag("--once", options->once, "ends after the first connection");
    command->add_option("--for", options->seconds, "ends after so many seconds")
        ->check(CLI::Range(1, kLongestLife))
        ->capture_default_str();
    command->add_option("--log", options->log, "file for what was received, in place of stdout");
    command->callback([options, &context] { Play(*options, context); });
}

}  // namespace host
