#include "platform/gui/controls/control_owner.h"

#include <algorithm>
#include <utility>

namespace platform {

ControlOwner::~ControlOwner() {
    // Whoever asks while they go finds no control any more, rather than half of one.
    const auto going = std::move(controls_);
}

Control* ControlOwner::Find(int controlId) const {
    const auto found = std::ranges::find(controls_, controlId, &Control::ControlId);
    return found == controls_.end() ? nullptr : found->get();
}

Control* ControlOwner::Before(const Control& control) const {
    const auto found =
        std::ranges::find(controls_, &control, [](const auto& each) { return each.get(); });
    return found == controls_.begin() || found == controls_.end() ? nullptr : (found - 1)->get();
}

std::vector<Control*> ControlOwner::GroupOf(const Control& control) const {
    std::vector<Control*> group;
    bool found = false;
    for (const auto& each : controls_) {
        if (each->StartsGroup()) {
            if (found) break;
            group.clear();
        }
        group.push_back(each.get());
        found = found || each.get() == &control;
    }
    return group;
}

}  // namespace platform
