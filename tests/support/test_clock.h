/// A clock under a test's control.
#pragma once

#include <mutex>
#include <numeric>
#include <vector>

#include "platform/base/clock.h"

namespace tests {

/// While it lives, `Sleep` returns at once on every thread and is noted here. One at a time.
class TestClock {
public:
    TestClock() {
        const std::lock_guard lock(mutex_);
        sleeps_.clear();
        platform::ReplaceSleep([](DWORD milliseconds) {
            const std::lock_guard noting(mutex_);
            sleeps_.push_back(milliseconds);
        });
    }
    ~TestClock() { platform::ReplaceSleep(nullptr); }
    TestClock(const TestClock&) = delete;
    TestClock& operator=(const TestClock&) = delete;

    /// The milliseconds of every `Sleep` so far, in order.
    std::vector<DWORD> Sleeps() const {
        const std::lock_guard lock(mutex_);
        return sleeps_;
    }
    /// Their sum: how far the clock has advanced.
    DWORD Elapsed() const {
        const std::vector<DWORD> sleeps = Sleeps();
        return std::accumulate(sleeps.begin(), sleeps.end(), DWORD{0});
    }

private:
    static inline std::mutex mutex_;
    static inline std::vector<DWORD> sleeps_;
};

}  // namespace tests
