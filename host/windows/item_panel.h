/// The control of the chosen item: a list of choices or a number with its range, and the push
/// button beside it.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <functional>

#include "host/page/item.h"

namespace host {

/// What the panel tells of: the item shown, and what the user wants of it.
struct ItemActions {
    std::function<void(PageItem&, std::size_t)> choose;
    std::function<void(PageItem&, LONG)> setNumber;
    std::function<void(PageItem&)> pressButton;
};

class ItemPanel : public QGroupBox {
public:
    ItemPanel(QWidget* parent, const ItemActions& actions);

    /// Shows an item, or the same one again after a change; a text being typed stays. Null shows
    /// nothing.
    void ShowItem(PageItem* item);

private:
    void Connect(const ItemActions& actions);
    void ShowChoices();
    void AddChoice(const PageChoice& choice, std::size_t number);
    void LineUpChoices();
    void ShowNumber();

    PageItem* item_ = nullptr;
    QLabel* label_;
    QComboBox* choices_;
    QSpinBox* number_;
    QLabel* range_;
    QPushButton* button_;
};

}  // namespace host
