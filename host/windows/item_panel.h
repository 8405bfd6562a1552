/// The control of the chosen item: a list of choices or a number with its range, and the push
/// button beside it.
#pragma once

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPushButton>
#include <functional>

#include "host/page/item.h"
#include "host/windows/number_field.h"

namespace host {

/// What the panel tells of: the item shown, and what the user wants of it.
struct ItemActions {
    std::function<void(PageItem&, std::size_t)> choose;
    std::function<void(PageItem&, LONG)> setNumber;
    std::function<void(PageItem&)> pressButton;
    std::function<void()> leaveNumber;  ///< with one out of the range typed
};

class ItemPanel : public QGroupBox {
public:
    ItemPanel(QWidget* parent, const ItemActions& actions);

    /// Shows an item, or the same one again after a change; a text being typed stays. Null shows
    /// nothing.
    void ShowItem(PageItem* item);
    /// Takes what is typed as it is. \return why it does not count; empty when it does.
    [[nodiscard]] QString Settle();
    void ReturnToNumber();

private:
    void Connect(const ItemActions& actions);
    void ShowChoices();
    void AddChoice(const PageChoice& choice, std::size_t number);
    void LineUpChoices();
    void ShowNumber(bool anew);

    PageItem* item_ = nullptr;
    QLabel* label_;
    QComboBox* choices_;
    NumberField* number_;
    QLabel* range_;
    QPushButton* button_;
};

}  // namespace host
