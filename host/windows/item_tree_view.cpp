#include "host/windows/item_tree_view.h"

#include <QScrollBar>
#include <algorithm>

#include "host/windows/item_look.h"
#include "host/windows/item_reason.h"

namespace host {
namespace {

constexpr int kColumns = 58;  // mean characters of a row

// What a screen reader says beside the text.
QString Remarks(const PageItem& item, bool changed) {
    QString remarks;
    if (changed) remarks += ", changed";
    if (!item.Enabled()) remarks += ", not available";
    if (item.SelectionStopped()) remarks += ", not installed";
    return remarks;
}

}  // namespace

ItemTreeView::ItemTreeView(QWidget* parent, int rows) : QTreeWidget(parent), preferredRows_(rows) {
    setHeaderHidden(true);
    setColumnCount(1);
    setUniformRowHeights(true);
    setAccessibleName("Settings");
}

void ItemTreeView::ShowItems(std::vector<PageItem>& items) {
    items_ = &items;
    clear();
    rows_.clear();
    std::vector<QTreeWidgetItem*> levels;  // the last row of each level
    for (const PageItem& item : items) {
        const std::size_t level = std::min<std::size_t>(item.Record().Level, levels.size());
        levels.resize(level);
        QTreeWidgetItem* parent = level == 0 ? invisibleRootItem() : levels.back();
        rows_.push_back(levels.emplace_back(new QTreeWidgetItem(parent)));
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        rows_[i]->setExpanded((items[i].Record().Flags & OPTIF_COLLAPSE) == 0);
    }
    const auto usable = std::ranges::find_if(items, &PageItem::IsSetting);
    if (usable != items.end()) Choose(*usable);
}

void ItemTreeView::Refresh(const std::vector<LONG>& kept) {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        const PageItem& item = (*items_)[i];
        RefreshRow(*rows_[i], item, item.Record().Sel != kept[i]);
    }
    LeaveHiddenRow();
}

void ItemTreeView::RefreshRow(QTreeWidgetItem& row, const PageItem& item, bool changed) {
    const QString text = RowText(item);
    row.setText(0, text);
    row.setData(0, Qt::AccessibleTextRole, text + Remarks(item, changed));
    const QString reason = QString::fromStdString(WhyUnavailable(item));
    row.setToolTip(0, reason);
    row.setData(0, Qt::AccessibleDescriptionRole, reason);
    row.setHidden(!item.Visible());
    // A greyed row can still be chosen: its help tells what it needs.
    row.setForeground(
        0, palette().brush(item.Enabled() ? QPalette::Active : QPalette::Disabled, QPalette::Text));
    row.setIcon(0, item.SelectionStopped() ? StopMark(*this) : QIcon());
    QFont face = font();
    face.setBold(changed);
    row.setFont(0, face);
}

void ItemTreeView::LeaveHiddenRow() {
    if (currentItem() == nullptr || !currentItem()->isHidden()) return;
    QTreeWidgetItem* above = itemAbove(currentItem());
    setCurrentItem(above != nullptr ? above : topLevelItem(0));
}

PageItem* ItemTreeView::Chosen() const {
    const auto row = std::ranges::find(rows_, currentItem());
    if (currentItem() == nullptr || row == rows_.end()) return nullptr;
    return &(*items_)[static_cast<std::size_t>(row - rows_.begin())];
}

void ItemTreeView::Choose(const PageItem& item) {
    setCurrentItem(rows_[static_cast<std::size_t>(&item - items_->data())]);
}

void ItemTreeView::resizeEvent(QResizeEvent* event) {
    QTreeWidget::resizeEvent(event);
    if (currentItem() != nullptr) scrollToItem(currentItem());
}

QSize ItemTreeView::sizeHint() const {
    const int rowHeight = std::max(fontMetrics().height(), iconSize().height()) + 2;
    return {fontMetrics().averageCharWidth() * kColumns,
            rowHeight * preferredRows_ + 2 * frameWidth()};
}

}  // namespace host
