/// The field of a number. Any number can be typed; one out of the range stays to be seen and
/// mended, and the value goes back to what it was before the typing.
#pragma once

#include <QSpinBox>
#include <functional>

namespace host {

class NumberField : public QSpinBox {
public:
    /// \param refused  called when the field is left with what is no number of the range in it.
    NumberField(QWidget* parent, std::function<void()> refused);

    /// Begins anew with a range and a value, quietly.
    void Begin(int lowest, int highest, int number);
    /// Brings the value in step; what was typed and refused stays to be seen.
    void Follow(int number);
    /// Whether the field shows its value; later typing goes back to that one then.
    [[nodiscard]] bool Settle();

    [[nodiscard]] QValidator::State validate(QString& text, int& at) const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    class KeptText;

    std::function<void()> refused_;
    int settled_ = 0;  ///< the value before the typing
};

}  // namespace host
