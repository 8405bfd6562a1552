#include "platform/gui/controls/control_owner.h"

#include <algorithm>

namespace platform {

Control* ControlOwner::Find(int controlId) const {
    const auto found = std::find_if(controls_.begin(), controls_.end(), [&](const auto& control) {
        return control->ControlId() == controlId;
    });
    return found == controls_.end() ? nullptr : found->get();
}

Control* ControlOwner::Before(const Control& control) const {
    for (std::size_t i = 1; i < controls_.size(); ++i) {
        if (controls_[i].get() == &control) return controls_[i - 1].get();
    }
    return nullptr;
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
