// The hard mode's part within one process: hard_tests [sweep] [bits] [printer] [--share N]
// [--seed N] [--only CASE]. Exit code 1 when a rule was broken, 2 when not understood.

#include <CLI/CLI.hpp>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <iterator>

#include "tests/hard/sections.h"

namespace {

struct Section {
    const char* name;
    hard::Tally (*run)(const hard::Choice& choice);
};
constexpr Section kSections[] = {
    {"sweep", hard::SweepFailures}, {"bits", hard::FlipBits}, {"printer", hard::CutReplies}};

/// A folder for the machines of all cases, gone at the end with what a crash left in it.
class Scratch {
public:
    Scratch() {
        if (::mkdtemp(name_.data()) == nullptr) throw std::runtime_error("no temporary folder");
        ::setenv("TMPDIR", name_.c_str(), 1);
    }
    ~Scratch() {
        std::error_code ignored;
        std::filesystem::remove_all(name_, ignored);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

private:
    std::string name_ = (std::filesystem::temp_directory_path() / "oemui-hard-XXXXXX").string();
};

}  // namespace

int main(int count, char** arguments) {
    CLI::App app("Looks for what breaks the plug-in and its host.", "hard_tests");
    hard::Choice choice;
    app.add_option("--share", choice.share, "runs every N-th case")->check(CLI::PositiveNumber);
    app.add_option("--seed", choice.seed, "which case is the first");
    app.add_option("--only", choice.only, "runs the case of a name, as a violation tells it");
    for (const Section& section : kSections) app.add_subcommand(section.name)->fallthrough();
    app.require_subcommand(0, static_cast<int>(std::size(kSections)));
    CLI11_PARSE(app, count, arguments);
    ::setenv("QT_QPA_PLATFORM", "offscreen", 1);
    const Scratch scratch;
    bool isSound = true;
    for (const Section& section : kSections) {
        if (!app.get_subcommands().empty() && !app.got_subcommand(section.name)) continue;
        const hard::Tally tally = section.run(choice);
        std::cout << section.name << ": tried " << tally.tried << ", violations "
                  << tally.violations << std::endl;
        isSound = isSound && tally.violations == 0;
    }
    return isSound ? 0 : 1;
}
