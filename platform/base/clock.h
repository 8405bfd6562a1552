/// A clock under a test's control.
#pragma once

#include <windef.h>

#include <cstdint>
#include <vector>

namespace platform {

/// While it lives, `Sleep` returns at once on every thread and is noted here. One at a time.
class TestClock {
public:
    TestClock();
    ~TestClock();
    TestClock(const TestClock&) = delete;
    TestClock& operator=(const TestClock&) = delete;

    /// The milliseconds of every `Sleep` so far, in order.
    std::vector<DWORD> Sleeps() const;
    /// Their sum: how far the clock has advanced.
    std::uint64_t Elapsed() const;
};

}  // namespace platform
