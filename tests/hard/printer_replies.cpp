// Printers whose replies end early, by close and by reset, that drip, or that send something else,
// asked over both ways. The question ends in time, and every socket is closed.

#include <algorithm>
#include <iterator>
#include <vector>

#include "platform/faults/live_objects.h"
#include "printerprops/pjl_query.h"
#include "tests/hard/plugin_machine.h"
#include "tests/hard/sections.h"
#include "tests/support/loopback_printer.h"
#include "tests/support/test_clock.h"

namespace hard {
namespace {

using tests::LoopbackPrinter;
using Answers = std::vector<LoopbackPrinter::Answer>;

constexpr DWORD kLongestQuestion = 15500;  // milliseconds of the clock, for each of two questions
const std::string kStatus = "@PJL INFO DSTATUS\r\nCODE=10001\r\n\f";
const std::string kConfig = "@PJL INFO CONFIG\r\nTRAY3=INSTALLED\r\n\f";

struct Play {
    std::string name;
    oemui::PortKind kind;
    Answers answers;  ///< a connection each
};

/// Answers to the one question of the direct way, or to the two of the spooler's.
void AddBothWays(std::vector<Play>* plays, const std::string& name,
                 const LoopbackPrinter::Answer& answer) {
    plays->push_back({"direct " + name, oemui::PortKindShare, {answer}});
    plays->push_back({"spooler " + name, oemui::PortKindTcpIp, {{kStatus}, answer}});
}

void AddCuts(std::vector<Play>* plays) {
    for (const auto& [end, how] : {std::pair(LoopbackPrinter::kHangsUp, " close"),
                                   std::pair(LoopbackPrinter::kResets, " reset")}) {
        for (std::size_t cut = 0; cut <= kConfig.size(); ++cut) {
            AddBothWays(plays, "config " + std::to_string(cut) + how,
                        {kConfig.substr(0, cut), end});
        }
        for (std::size_t cut = 0; cut <= kStatus.size(); ++cut) {
            plays->push_back({"spooler status " + std::to_string(cut) + how,
                              oemui::PortKindTcpIp,
                              {{kStatus.substr(0, cut), end}, {kConfig}}});
        }
    }
}

/// Bytes from a simple generator; every second text has an echo in front and a form feed behind.
std::string Junk(unsigned number) {
    std::string junk;
    unsigned state = number * 2654435761U + 1;
    for (unsigned i = 0; i < 1U << number % 17; ++i) {
        state = state * 1664525U + 1013904223U;
        junk += static_cast<char>(state >> 24);
    }
    return number % 2 == 0 ? junk : "@PJL INFO CONFIG" + junk + '\f';
}

std::vector<Play> AllPlays() {
    std::vector<Play> plays;
    AddCuts(&plays);
    for (unsigned number = 0; number < 100; ++number) {
        AddBothWays(&plays, "junk " + std::to_string(number),
                    {Junk(number), LoopbackPrinter::kHangsUp});
    }
    for (const std::size_t piece : {4U, 7U, 13U, 30U}) {
        LoopbackPrinter::Answer drip;
        for (std::size_t at = 0; at < kConfig.size(); at += piece) {
            drip.push_back(kConfig.substr(at, piece));
        }
        AddBothWays(&plays, "drip " + std::to_string(piece), drip);
    }
    return plays;
}

class Replies : public CaseSet {
public:
    Replies() { machine_.Restore(); }
    std::size_t Count() const override { return plays_.size(); }
    std::string NameOf(std::size_t place) const override { return plays_[place].name; }
    std::string Run(std::size_t place) override {
        const Play& play = plays_[place];
        LoopbackPrinter printer(play.answers);
        const tests::TestClock clock;
        Connect(printer.Address());
        const auto open = platform::LiveObjects();
        oemui::PrinterLink link = {};
        link.Found = oemui::ResolveHost(tests::Wide(printer.Address()).c_str(), &link.Address);
        link.Kind = play.kind;
        static_cast<void>(oemui::QueryInstalledOptions(machine_.PrinterName().c_str(), link));
        const bool isLate = clock.Elapsed() > kLongestQuestion * play.answers.size();
        return (isLate ? "waited " + std::to_string(clock.Elapsed()) + " ms " : "") +
               ChangeSince(open);
    }

private:
    void Connect(const std::string& address) {
        const tests::Text key = TEXT(
            "System\\CurrentControlSet\\Control\\Print\\Monitors\\Standard TCP/IP Port\\Ports\\"
            "IP_x");
        tests::WriteRegistryText(key, TEXT("IPAddress"), tests::Wide(address));
        machine_.UsePort(TEXT("IP_x"));
    }

    PluginMachine machine_;
    const std::vector<Play> plays_ = AllPlays();
};

}  // namespace

Tally CutReplies(const Choice& choice) {
    return RunCases(
        "printer", [] { return std::make_unique<Replies>(); }, choice);
}

}  // namespace hard
