#include "platform/faults/failure_points.h"

#include <atomic>
#include <mutex>

namespace platform {
namespace {

// The one plan of the process; `active` keeps the points cheap while there is none.
std::atomic<bool> active = false;
std::mutex mutex;
std::string armedPoint;  // empty: any point
int armedCall = -1;      // from 1; 0: every call; -1: none
DWORD armedError = 0;
std::function<void()> armedAction;  // instead of the error
int matchingCalls = 0;
bool fired = false;
std::vector<std::string> passed;

void Begin(std::string point, int nthCall, DWORD error, std::function<void()> action = {}) {
    const std::lock_guard lock(mutex);
    armedPoint = std::move(point);
    armedCall = nthCall;
    armedError = error;
    armedAction = std::move(action);
    matchingCalls = 0;
    fired = false;
    passed.clear();
    active = true;
}

}  // namespace

bool MustFail(const char* point, DWORD* error) {
    if (!active.load(std::memory_order_relaxed)) return false;
    std::unique_lock lock(mutex);
    if (!active) return false;
    passed.emplace_back(point);
    if (!armedPoint.empty() && armedPoint != point) return false;
    ++matchingCalls;
    if (armedCall != 0 && armedCall != matchingCalls) return false;
    fired = true;
    if (armedAction) {
        active = false;
        lock.unlock();
        armedAction();
        active = true;
        return false;
    }
    *error = armedError;
    return true;
}

std::optional<DWORD> InjectedFailure(const char* point) {
    DWORD error = 0;
    return MustFail(point, &error) ? std::optional(error) : std::nullopt;
}

FailurePlan::FailurePlan() {
    Begin({}, -1, 0);
}

FailurePlan::FailurePlan(int nthCall, DWORD error) {
    Begin({}, nthCall, error);
}

FailurePlan::FailurePlan(std::string point, int nthCall, DWORD error) {
    Begin(std::move(point), nthCall, error);
}

FailurePlan::FailurePlan(std::string point, int nthCall, std::function<void()> meanwhile) {
    Begin(std::move(point), nthCall, 0, std::move(meanwhile));
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
    return passed;
}

}  // namespace platform
