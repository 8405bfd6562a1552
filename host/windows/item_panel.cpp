#include "host/windows/item_panel.h"

#include <QHBoxLayout>
#include <QSignalBlocker>
#include <QStandardItemModel>
#include <utility>

#include "host/windows/item_look.h"
#include "host/windows/item_reason.h"

namespace host {
namespace {

constexpr int kChoiceColumns = 24;  // characters that the list has room for at least
constexpr int kShownChoices = 20;
constexpr int kButtonColumns = 12;

}  // namespace

ItemPanel::ItemPanel(QWidget* parent, const ItemActions& actions)
    : QGroupBox(parent),
      label_(new QLabel("&Setting:", this)),
      choices_(new QComboBox(this)),
      number_(new NumberField(this, actions.leaveNumber)),
      range_(new QLabel(this)),
      button_(new QPushButton(this)) {
    choices_->setMinimumContentsLength(kChoiceColumns);
    choices_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    choices_->setMaxVisibleItems(kShownChoices);
    button_->setMinimumWidth(fontMetrics().averageCharWidth() * kButtonColumns);
    button_->setAutoDefault(true);
    auto* row = new QHBoxLayout(this);
    row->addWidget(label_);
    row->addWidget(choices_, 1);
    row->addWidget(number_);
    row->addWidget(range_, 1);
    row->addWidget(button_);
    Connect(actions);
    setTitle(" ");  // room for the item's name
    setFixedHeight(sizeHint().height());
    // The widest case, a list with its button: the window keeps its width whatever is chosen.
    number_->hide();
    range_->hide();
    setMinimumWidth(sizeHint().width());
    ShowItem(nullptr);
}

void ItemPanel::Connect(const ItemActions& actions) {
    connect(choices_, &QComboBox::activated, this, [this, choose = actions.choose](int row) {
        choose(*item_, choices_->itemData(row).toULongLong());
    });
    connect(number_, &QSpinBox::valueChanged, this,
            [this, set = actions.setNumber](int number) { set(*item_, number); });
    connect(button_, &QPushButton::clicked, this,
            [this, press = actions.pressButton] { press(*item_); });
}

void ItemPanel::ShowItem(PageItem* item) {
    const bool anew = std::exchange(item_, item) != item;
    const bool isList = item != nullptr && item->Kind() == ItemKind::List;
    const bool isNumber = item != nullptr && item->Kind() == ItemKind::Number;
    setTitle(item != nullptr ? WithoutMnemonic(QString::fromStdString(item->Name()))
                             : QString(" "));
    label_->setVisible(isList || isNumber);
    choices_->setVisible(isList);
    number_->setVisible(isNumber);
    range_->setVisible(!isList);
    button_->setVisible(item != nullptr && item->HasButton());
    range_->setText(item != nullptr ? "Choose one of the settings below it to change it." : "");
    if (isList) ShowChoices();
    if (isNumber) ShowNumber(anew);
    if (item != nullptr && item->HasButton()) button_->setText(ButtonTitle(*item));
    for (QWidget* control : std::initializer_list<QWidget*>{label_, choices_, number_, button_}) {
        control->setEnabled(item != nullptr && item->Enabled());
    }
}

QString ItemPanel::Settle() {
    const bool isNumber = item_ != nullptr && item_->Kind() == ItemKind::Number;
    if (!isNumber || number_->Settle()) return {};
    return QString::fromStdString(WhyNumberRefused(*item_));
}

void ItemPanel::ReturnToNumber() {
    number_->setFocus();
    number_->selectAll();
}

void ItemPanel::ShowChoices() {
    const QSignalBlocker quiet(choices_);
    label_->setBuddy(choices_);
    choices_->clear();
    const std::vector<PageChoice> choices = item_->Choices();
    for (std::size_t i = 0; i < choices.size(); ++i) {
        if (choices[i].visible) AddChoice(choices[i], i);
    }
    LineUpChoices();
    choices_->setCurrentIndex(choices_->findData(qulonglong(item_->Record().Sel)));
}

void ItemPanel::AddChoice(const PageChoice& choice, std::size_t number) {
    const QIcon mark = choice.stopped ? StopMark(*this) : QIcon();
    choices_->addItem(mark, QString::fromStdString(choice.text), qulonglong(number));
    auto* rows = static_cast<QStandardItemModel*>(choices_->model());
    rows->item(rows->rowCount() - 1)->setEnabled(choice.Usable());
}

void ItemPanel::LineUpChoices() {
    bool marked = false;
    for (int row = 0; row < choices_->count(); ++row) marked |= !choices_->itemIcon(row).isNull();
    for (int row = 0; marked && row < choices_->count(); ++row) {
        if (choices_->itemIcon(row).isNull()) choices_->setItemIcon(row, NoMark(*this));
    }
}

void ItemPanel::ShowNumber(bool anew) {
    label_->setBuddy(number_);
    const LONG selection = item_->Record().Sel;
    if (anew) number_->Begin(item_->Lowest(), item_->Highest(), selection);
    const QSignalBlocker quiet(number_);
    if (number_->value() != selection) number_->Follow(selection);
    range_->setText(QString("%1 [%2 - %3]")
                        .arg(QString::fromStdString(item_->Unit()))
                        .arg(item_->Lowest())
                        .arg(item_->Highest())
                        .trimmed());
}

}  // namespace host
