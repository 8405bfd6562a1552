#include "platform/base/clock.h"

#include <winbase.h>

#include <chrono>
#include <mutex>
#include <numeric>
#include <thread>

namespace platform {
namespace {

std::mutex mutex;
bool underTest = false;
std::vector<DWORD> sleeps;

bool NoteSleep(DWORD milliseconds) {
    const std::lock_guard lock(mutex);
    if (underTest) sleeps.push_back(milliseconds);
    return underTest;
}

}  // namespace

TestClock::TestClock() {
    const std::lock_guard lock(mutex);
    sleeps.clear();
    underTest = true;
}

TestClock::~TestClock() {
    const std::lock_guard lock(mutex);
    underTest = false;
}

std::vector<DWORD> TestClock::Sleeps() const {
    const std::lock_guard lock(mutex);
    return sleeps;
}

std::uint64_t TestClock::Elapsed() const {
    const std::lock_guard lock(mutex);
    return std::accumulate(sleeps.begin(), sleeps.end(), std::uint64_t{0});
}

}  // namespace platform

void WINAPI Sleep(DWORD milliseconds) {
    if (platform::NoteSleep(milliseconds)) return;
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
