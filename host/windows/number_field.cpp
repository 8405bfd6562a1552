#include "host/windows/number_field.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>

namespace host {
namespace {

constexpr int kMostDigits = 9;

bool IsNumber(const QString& text) {
    return !text.isEmpty() && text.size() <= kMostDigits &&
           std::ranges::all_of(text, [](QChar unit) { return unit >= u'0' && unit <= u'9'; });
}

}  // namespace

/// The spin box puts its value over a text that it does not take; this puts the text back.
class NumberField::KeptText {
public:
    explicit KeptText(NumberField& field)
        : edit_(*field.lineEdit()),
          text_(field.text()),
          cursor_(edit_.cursorPosition()),
          refused_(!field.hasAcceptableInput()) {}
    ~KeptText() {
        if (!refused_) return;
        const QSignalBlocker quiet(edit_);
        edit_.setText(text_);
        edit_.setCursorPosition(cursor_);
    }
    KeptText(const KeptText&) = delete;
    KeptText& operator=(const KeptText&) = delete;

private:
    QLineEdit& edit_;
    QString text_;
    int cursor_;
    bool refused_;
};

NumberField::NumberField(QWidget* parent, std::function<void()> refused)
    : QSpinBox(parent), refused_(std::move(refused)) {
    connect(lineEdit(), &QLineEdit::textEdited, this, [this] {
        if (!hasAcceptableInput()) Follow(settled_);
    });
}

void NumberField::Begin(int lowest, int highest, int number) {
    const QSignalBlocker quiet(this);
    setRange(lowest, highest);
    setValue(number);
    settled_ = number;
}

void NumberField::Follow(int number) {
    const KeptText kept(*this);
    setValue(number);
}

bool NumberField::Settle() {
    if (!hasAcceptableInput()) return false;
    settled_ = value();
    return true;
}

QValidator::State NumberField::validate(QString& text, int& at) const {
    // Keyboards of other scripts type other digits.
    for (QChar& unit : text) {
        if (unit.digitValue() >= 0) unit = QChar(u'0' + unit.digitValue());
    }
    const QValidator::State state = QSpinBox::validate(text, at);
    return state == QValidator::Invalid && IsNumber(text) ? QValidator::Intermediate : state;
}

void NumberField::keyPressEvent(QKeyEvent* event) {
    const bool enter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (enter && !hasAcceptableInput()) return event->ignore();  // the window says why it stays
    QSpinBox::keyPressEvent(event);
}

void NumberField::focusInEvent(QFocusEvent* event) {
    QSpinBox::focusInEvent(event);
    static_cast<void>(Settle());
}

void NumberField::focusOutEvent(QFocusEvent* event) {
    {
        const KeptText kept(*this);
        QSpinBox::focusOutEvent(event);
    }
    if (!hasAcceptableInput()) refused_();
}

}  // namespace host
