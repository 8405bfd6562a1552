/// Modal dialogs. For the user-interface thread only.
#pragma once

#include <memory>

#include "platform/gui/controls/control_owner.h"
#include "platform/gui/templates/dialog_template.h"
#include "platform/gui/templates/dialog_units.h"

class QEventLoop;

namespace platform {

class ScrolledFrame;

class Dialog : public ControlOwner {
public:
    /// Null when a control's class is not supported.
    static std::unique_ptr<Dialog> Make(const DialogTemplate& made, Window* owner,
                                        DLGPROC procedure);
    ~Dialog() override;

    /// The dialog of a handle; null with the last error set when it is none.
    [[nodiscard]] static Dialog* Require(HWND handle);

    /// Shows the dialog and lets the user work until it ends. \return what it ended with.
    INT_PTR Run(LPARAM parameter);
    void End(INT_PTR result);
    [[nodiscard]] bool HasEnded() const override { return ended_; }
    /// Runs the windows' own loop until the dialog has ended.
    void WaitForEnd();

    void Command(int controlId, int code, HWND control) override;
    /// What Enter does: presses the push button with the focus, else the default one.
    void PressDefault();
    /// What Escape and the close box do.
    void Cancel();
    void ShowDefaultButton(Control* button) override;
    bool HandleKey(Control* focused, const QKeyEvent& event) override;
    /// Sends WM_HELP.
    void AskHelp(int controlId);
    /// The next click asks for help on what it hits; Escape ends that.
    void AwaitHelpClick();
    /// Sends WM_PAINT soon, once however often it is asked for.
    void RequestPaint();

    [[nodiscard]] QString Text() const override;
    void SetText(const QString& text) override;
    LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;
    void MoveFocus(WPARAM target, bool isControl);
    void Place(const QRect& place) override;

private:
    class Frame;
    Dialog(const DialogTemplate& made, Window* owner, DLGPROC procedure);
    bool MakeControls(const DialogTemplate& made, const DialogUnits& units);
    void Show();

    DLGPROC procedure_;
    Frame* frame_;
    std::unique_ptr<ScrolledFrame> scroller_;  ///< where the frame is larger than the screen
    QEventLoop* loop_ = nullptr;
    INT_PTR result_ = -1;
    bool ended_ = false;
    bool goingAway_ = false;
    bool paintRequested_ = false;
};

}  // namespace platform
