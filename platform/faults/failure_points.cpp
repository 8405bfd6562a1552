#include "platform/faults/failure_points.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <mutex>
#include <string_view>

namespace platform {
namespace {

// The one plan of the process; `active` keeps the points cheap while there is none.
std::atomic<bool> active = false;
std::mutex mutex;
std::string armedPoint;  // empty: any point
int armedCall = -1;      // from 1; 0: every call; -1: none
DWORD armedError = 0;
Failing armedFailing = Failing::kOnce;
std::function<void()> armedAction;  // instead of the error
int matchingCalls = 0;
bool fired = false;
std::vector<const char*> passed;  // literals, so that a point costs next to nothing

void Begin(std::string point, int nthCall, DWORD error, Failing failing,
           std::function<void()> action = {}) {
    const std::lock_guard lock(mutex);
    armedPoint = std::move(point);
    armedCall = nthCall;
    armedError = error;
    armedFailing = failing;
    armedAction = std::move(action);
    matchingCalls = 0;
    fired = false;
    passed.clear();
    active = true;
}

bool GivesBack(std::string_view point) {
    constexpr std::array<std::string_view, 3> kPoints = {"RegCloseKey", "closesocket",
                                                         "WSACleanup"};
    return std::ranges::count(kPoints, point) != 0;
}

bool IsArmedCall(int call) {
    const bool forEver = armedFailing == Failing::kForEver && armedCall > 0 && call > armedCall;
    return armedCall == 0 || call == armedCall || forEver;
}

}  // namespace

std::optional<DWORD> InjectedFailure(const char* point) {
    if (!active.load(std::memory_order_relaxed)) return {};
    std::unique_lock lock(mutex);
    if (!active || (armedPoint.empty() && GivesBack(point))) return {};
    passed.push_back(point);
    if (!armedPoint.empty() && armedPoint != point) return {};
    if (!IsArmedCall(++matchingCalls)) return {};
    fired = true;
    if (!armedAction) return armedError;
    // What it calls is not counted and does not fail.
    active = false;
    lock.unlock();
    armedAction();
    active = true;
    return {};
}

FailurePlan::FailurePlan() {
    Begin({}, -1, 0, Failing::kOnce);
}

FailurePlan::FailurePlan(int nthCall, DWORD error, Failing failing) {
    Begin({}, nthCall, error, failing);
}

FailurePlan::FailurePlan(std::string point, int nthCall, DWORD error) {
    Begin(std::move(point), nthCall, error, Failing::kOnce);
}

FailurePlan::FailurePlan(std::string point, int nthCall, std::function<void()> meanwhile) {
    Begin(std::move(point), nthCall, 0, Failing::kOnce, std::move(meanwhile));
}

FailurePlan::~FailurePlan() {
    active = false;
}

int FailurePlan::Calls() const {
    const std::lock_guard lock(mutex);
    return static_cast<int>(passed.size());
}

bool FailurePlan::Fired() const {
    const std::lock_guard lock(mutex);
    return fired;
}

std::vector<std::string> FailurePlan::Passed() const {
    const std::lock_guard lock(mutex);
    return {passed.begin(), passed.end()};
}

}  // namespace platform
