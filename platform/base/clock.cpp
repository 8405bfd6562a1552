#include "platform/base/clock.h"

#include <winbase.h>

#include <atomic>
#include <chrono>
#include <thread>

namespace platform {
namespace {

std::atomic<void (*)(DWORD)> replacement = nullptr;

}  // namespace

void ReplaceSleep(void (*standIn)(DWORD milliseconds)) {
    replacement = standIn;
}

}  // namespace platform

void WINAPI Sleep(DWORD milliseconds) {
    if (const auto standIn = platform::replacement.load()) return standIn(milliseconds);
    std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
}
