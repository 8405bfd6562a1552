/// The window that a dialog shows.
#pragma once

#include <QWidget>

#include "platform/gui/dialogs/dialog.h"

namespace platform {

/// Also sees the keys of every control first.
class Dialog::Frame : public QWidget {
public:
    Frame(Dialog& dialog, QWidget* owner, bool withHelpMark);
    ~Frame() override;
    void AwaitHelpClick();

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool focusNextPrevChild(bool) override { return false; }  // the dialog's own rules hold
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// \return whether the event was taken while a help click is awaited.
    bool TakeHelpClick(const QEvent& event);
    void StopAwaiting();

    Dialog& dialog_;
    bool awaitsHelpClick_ = false;
};

}  // namespace platform
