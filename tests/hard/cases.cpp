#include "tests/hard/cases.h"

#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>

#include "tests/support/watchdog.h"

namespace hard {
namespace {

constexpr auto kLongestCase = std::chrono::seconds(20);

/// What the process of the cases lets the one that watches it know; shared between the two.
struct Progress {
    std::size_t next = 0;  ///< the first case that was not begun
    Tally tally;
    bool isDone = false;
    std::array<char, 200> doing = {};

    void Doing(const std::string& name) {
        const std::size_t length = std::min(name.size(), doing.size() - 1);
        *std::copy_n(name.begin(), length, doing.begin()) = '\0';
    }
};

Progress* ShareProgress() {
    void* page = ::mmap(nullptr, sizeof(Progress), PROT_READ | PROT_WRITE,
                        MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    if (page == MAP_FAILED) throw std::bad_alloc();
    return new (page) Progress;
}

void TellViolation(Progress* progress, const std::string& what) {
    ++progress->tally.violations;
    std::cout << "violation: " << progress->doing.data() << ": " << what << std::endl;
}

void RunFromNext(const std::string& kind, CaseSet* set, const Choice& choice, Progress* progress) {
    tests::Watchdog watchdog(kLongestCase);
    for (std::size_t place = progress->next; place < set->Count(); ++place) {
        progress->next = place + 1;
        const std::string name = kind + ' ' + set->NameOf(place);
        if (!choice.Takes(place, name)) continue;
        progress->Doing(name);
        watchdog.Report(name);
        ++progress->tally.tried;
        const std::string wrong = set->Run(place);
        if (!wrong.empty()) TellViolation(progress, wrong);
    }
}

[[noreturn]] void BeTheProcessOfTheCases(const std::string& kind,
                                         const std::function<std::unique_ptr<CaseSet>()>& make,
                                         const Choice& choice, Progress* progress) {
    // Whoever ends the run ends its cases.
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    try {
        progress->Doing(kind + " preparing");
        RunFromNext(kind, make().get(), choice, progress);
        progress->Doing(kind + " at its end");
        progress->isDone = true;
    } catch (const std::exception& failure) {
        TellViolation(progress, failure.what());
    }
    std::exit(0);
}

std::string EndOf(int status) {
    if (WIFSIGNALED(status)) return "ended by signal " + std::to_string(WTERMSIG(status));
    return "ended with code " + std::to_string(WEXITSTATUS(status));
}

}  // namespace

Tally RunCases(const std::string& kind, const std::function<std::unique_ptr<CaseSet>()>& make,
               const Choice& choice) {
    Progress* progress = ShareProgress();
    for (bool moves = true; moves && !progress->isDone;) {
        const std::size_t begun = progress->next;
        std::cout.flush();
        const pid_t process = ::fork();
        if (process < 0) throw std::bad_alloc();
        if (process == 0) BeTheProcessOfTheCases(kind, make, choice, progress);
        int status = 0;
        ::waitpid(process, &status, 0);
        if (status != 0) TellViolation(progress, EndOf(status));
        moves = progress->next > begun;
    }
    const Tally tally = progress->tally;
    ::munmap(progress, sizeof *progress);
    return tally;
}

}  // namespace hard
