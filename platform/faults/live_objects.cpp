#include "platform/faults/live_objects.h"

#include <mutex>

namespace platform {
namespace {

std::mutex mutex;

std::map<std::string, int>& Counts() {
    static std::map<std::string, int> counts;
    return counts;
}

}  // namespace

void CountObject(const char* kind, int change) {
    const std::lock_guard lock(mutex);
    auto& counts = Counts();
    if ((counts[kind] += change) == 0) counts.erase(kind);
}

std::map<std::string, int> LiveObjects() {
    const std::lock_guard lock(mutex);
    return Counts();
}

}  // namespace platform
