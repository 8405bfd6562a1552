#include "platform/faults/live_objects.h"

#include <algorithm>
#include <array>
#include <mutex>
#include <string_view>

namespace platform {
namespace {

struct Kind {
    std::string_view name;
    int count = 0;
};

// Room for more kinds than there are: counting takes no memory, and so cannot fail.
std::mutex mutex;
std::array<Kind, 32> kinds;

}  // namespace

void CountObject(const char* kind, int change) noexcept {
    const std::lock_guard lock(mutex);
    auto* known = std::ranges::find_if(
        kinds, [kind](const Kind& each) { return each.name.empty() || each.name == kind; });
    if (known == kinds.end()) return;
    known->name = kind;
    known->count += change;
}

std::map<std::string, int> LiveObjects() {
    const std::lock_guard lock(mutex);
    std::map<std::string, int> counts;
    for (const Kind& kind : kinds) {
        if (kind.count != 0) counts.emplace(kind.name, kind.count);
    }
    return counts;
}

}  // namespace platform
