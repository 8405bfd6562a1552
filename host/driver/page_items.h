/// The driver's part of a page: its items, and where their values come from and go to.
#pragma once

#include "host/driver/option_items.h"

namespace host {

class PageItems {
public:
    virtual ~PageItems() = default;

    ItemTree& Tree() { return tree_; }
    const ItemTree& Tree() const { return tree_; }

    /// Brings the driver's settings in step with an item's selection.
    virtual void Take(std::size_t item) = 0;
    void TakeAll() {
        for (std::size_t item = 0; item < tree_.Records().size(); ++item) Take(item);
    }

    /// Keeps the settings in the machine.
    virtual void Save() = 0;

private:
    ItemTree tree_;
};

}  // namespace host
