/// The program's commands run in a fresh machine.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include "host/commands/commands.h"
#include "host/errors/failure.h"
#include "host/played_printer/printer.h"
#include "tests/support/machine_fixture.h"

namespace host {

using ::testing::HasSubstr;

struct CommandResult {
    int code;
    std::string out;
    std::string err;

    nlohmann::json Json() const { return nlohmann::json::parse(out); }
};

class HostTest : public tests::MachineTest {
protected:
    CommandResult Run(std::vector<std::string> arguments) {
        std::ostringstream out;
        std::ostringstream err;
        arguments.insert(arguments.end(), {"--machine", Folder().native()});
        const int code = RunHost(arguments, out, err, source_);
        return {code, out.str(), err.str()};
    }

    /// Runs a command that must succeed.
    CommandResult Do(std::vector<std::string> arguments) {
        CommandResult result = Run(std::move(arguments));
        EXPECT_EQ(result.code, 0) << result.err;
        return result;
    }

    void Install(const std::string& name, const std::string& model,
                 const std::string& port = "USB001", const std::string& bidi = "off") {
        Do({"install", name, "--model", model, "--port", port, "--bidi", bidi});
    }

    PackageSource source_ = OwnPackageSource();
};

/// The item of a name in a page's JSON; a failed test and null when there is none.
inline nlohmann::json ItemNamed(const nlohmann::json& page, const std::string& name) {
    for (const nlohmann::json& item : page["items"]) {
        if (item["name"] == name) return item;
    }
    ADD_FAILURE() << "no item " << name;
    return nullptr;
}

inline nlohmann::json ChoiceNamed(const nlohmann::json& item, const std::string& text) {
    for (const nlohmann::json& choice : item["choices"]) {
        if (choice["text"] == text) return choice;
    }
    ADD_FAILURE() << "no choice " << text;
    return nullptr;
}

/// A played printer on a thread of its own, at an address of this process's own.
class PrinterThread {
public:
    explicit PrinterThread(PlayedPrinterOptions options)
        : printer_(At(std::move(options)),
                   [this](const std::string& line) { lines_.push_back(line); }),
          thread_([this] { printer_.Serve(std::chrono::seconds(60), false); }) {}
    ~PrinterThread() { Stop(); }
    PrinterThread(const PrinterThread&) = delete;
    PrinterThread& operator=(const PrinterThread&) = delete;

    void Stop() {
        printer_.Stop();
        if (thread_.joinable()) thread_.join();
    }

    /// What was received, a line after the other; only after `Stop`.
    const std::vector<std::string>& Lines() const { return lines_; }

    static std::string Address() {
        const unsigned id = static_cast<unsigned>(::getpid());
        return "127." + std::to_string(64 + id / 65536 % 64) + "." +
               std::to_string(id / 256 % 256) + "." + std::to_string(1 + id % 254);
    }

private:
    static PlayedPrinterOptions At(PlayedPrinterOptions options) {
        options.address = Address();
        return options;
    }

    std::vector<std::string> lines_;
    PlayedPrinter printer_;
    std::thread thread_;
};

}  // namespace host
