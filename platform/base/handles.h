/// Handles: numbers that stand for objects of the layer. A number is given out once in the life of
/// the process, whatever the kind of object, so a stale handle or one of another kind is never
/// mistaken for a good one.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

#include "platform/faults/live_objects.h"

namespace platform {

/// A number not given out before: above 0, a multiple of four.
[[nodiscard]] std::uintptr_t NextHandleValue();

/// The objects of one kind that are open, counted among the live objects. For any thread; an
/// object found stays alive while it is held, also when its handle is closed meanwhile.
template <typename Object>
class HandleTable {
public:
    /// \param kind  what the live objects are counted as; a literal.
    explicit HandleTable(const char* kind) : kind_(kind) {}

    [[nodiscard]] void* Insert(std::shared_ptr<Object> object) {
        const std::lock_guard lock(mutex_);
        const std::uintptr_t value = NextHandleValue();
        objects_.emplace(value, std::move(object));
        CountObject(kind_, 1);
        return reinterpret_cast<void*>(value);
    }

    /// Null when the handle is not open.
    [[nodiscard]] std::shared_ptr<Object> Find(const void* handle) const {
        const std::lock_guard lock(mutex_);
        const auto found = objects_.find(reinterpret_cast<std::uintptr_t>(handle));
        return found == objects_.end() ? nullptr : found->second;
    }

    /// Closes a handle; null when it is not open.
    [[nodiscard]] std::shared_ptr<Object> Remove(const void* handle) {
        const std::lock_guard lock(mutex_);
        auto node = objects_.extract(reinterpret_cast<std::uintptr_t>(handle));
        if (node.empty()) return nullptr;
        CountObject(kind_, -1);
        return std::move(node.mapped());
    }

private:
    const char* kind_;
    mutable std::mutex mutex_;
    std::unordered_map<std::uintptr_t, std::shared_ptr<Object>> objects_;
};

}  // namespace platform
