/// The tree of a page's items, a row each.
#pragma once

#include <QTreeWidget>
#include <functional>
#include <vector>

#include "host/page/item.h"

namespace host {

class ItemTreeView : public QTreeWidget {
public:
    /// \param rows  how many rows the tree would like to show at once.
    ItemTreeView(QWidget* parent, int rows);

    /// Makes the rows; the items must live as long as they are shown. The first one that can be
    /// changed is chosen.
    void ShowItems(std::vector<PageItem>& items);
    /// Brings the rows in step with their items. \param kept  the selections that count as
    /// unchanged, in the items' order.
    void Refresh(const std::vector<LONG>& kept);
    /// The item of the chosen row; null when there is none.
    [[nodiscard]] PageItem* Chosen() const;
    void Choose(const PageItem& item);

    [[nodiscard]] QSize sizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void RefreshRow(QTreeWidgetItem& row, const PageItem& item, bool changed);
    void LeaveHiddenRow();

    int preferredRows_;
    std::vector<PageItem>* items_ = nullptr;
    std::vector<QTreeWidgetItem*> rows_;  ///< in the items' order
};

}  // namespace host
