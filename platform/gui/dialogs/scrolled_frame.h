/// The window of a dialog that is larger than the screen: it shows a part and scrolls.
#pragma once

#include <QScrollArea>

namespace platform {

class ScrolledFrame : public QScrollArea {
public:
    /// Whether a dialog's window needs one on its screen.
    [[nodiscard]] static bool IsNeededFor(const QWidget& frame);

    /// Takes the frame in; it stays the dialog's, with its own coordinates.
    explicit ScrolledFrame(QWidget& frame);
    ~ScrolledFrame() override;

protected:
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool) override { return false; }  // the dialog's own rules hold
};

}  // namespace platform
