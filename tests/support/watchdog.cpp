#include "tests/support/watchdog.h"

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace tests {

Watchdog::Watchdog(std::chrono::milliseconds patience)
    : patience_(patience), thread_([this] { Watch(); }) {}

Watchdog::~Watchdog() {
    {
        const std::lock_guard lock(mutex_);
        over_ = true;
    }
    changed_.notify_one();
    thread_.join();
}

void Watchdog::Report(std::string where) {
    {
        const std::lock_guard lock(mutex_);
        where_ = std::move(where);
        ++reports_;
    }
    changed_.notify_one();
}

void Watchdog::Watch() {
    std::unique_lock lock(mutex_);
    while (!over_) {
        const unsigned seen = reports_;
        const bool heard =
            changed_.wait_for(lock, patience_, [&] { return over_ || reports_ != seen; });
        if (heard) continue;
        std::fprintf(stderr, "The run hangs: %s\n", where_.c_str());
        std::abort();
    }
}

}  // namespace tests
