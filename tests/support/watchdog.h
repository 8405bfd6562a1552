/// Ends a run that hangs, and says where.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>
#include <thread>

namespace tests {

/// Watches for as long as it lives. When nothing is reported for too long it writes the last
/// report to the standard error stream and aborts the process.
class Watchdog {
public:
    /// \param patience  the longest time between two reports.
    explicit Watchdog(std::chrono::milliseconds patience);
    ~Watchdog();
    Watchdog(const Watchdog&) = delete;
    Watchdog& operator=(const Watchdog&) = delete;

    /// \param where  what the run is doing now, UTF-8. From any thread.
    void Report(std::string where);

private:
    void Watch();

    const std::chrono::milliseconds patience_;
    std::mutex mutex_;
    std::condition_variable changed_;
    std::string where_ = "before the first report";
    unsigned reports_ = 0;
    bool over_ = false;
    std::thread thread_;
};

}  // namespace tests
