#include "platform/gui/dialogs/message_box.h"

#include <windows.h>

#include <QApplication>
#include <QDialog>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <algorithm>

#include "platform/base/fail.h"
#include "platform/faults/failure_points.h"
#include "platform/gui/controls/focus.h"
#include "platform/gui/templates/dialog_units.h"
#include "platform/gui/windows/active_window.h"
#include "platform/gui/windows/application.h"
#include "platform/gui/windows/picture.h"
#include "platform/gui/windows/window.h"

namespace platform {
namespace {

constexpr UINT kButtonsMask = 0x0F;
constexpr int kLongestLine = 60;  // mean characters before a text is broken

struct ButtonName {
    int id;
    const char16_t* text;
};
constexpr ButtonName kButtonNames[] = {
    {IDOK, u"OK"}, {IDCANCEL, u"Cancel"}, {IDYES, u"&Yes"}, {IDNO, u"&No"}};

QString NameOf(int button) {
    return QString::fromUtf16(std::ranges::find(kButtonNames, button, &ButtonName::id)->text);
}

class Box : public QDialog {
public:
    Box(const MessageBoxRequest& request, QWidget* owner) : QDialog(owner) {
        setStyle(DialogStyle());
        setFont(DialogFont(u"MS Sans Serif", 9));
        setWindowTitle(QString::fromStdU16String(request.caption));
        const std::vector<int> buttons = MessageBoxButtons(request.type);
        escape_ = buttons.back() == IDNO ? 0 : buttons.back();
        setWindowFlag(Qt::WindowCloseButtonHint, escape_ != 0);
        auto* layout = new QVBoxLayout(this);
        layout->setContentsMargins(16, 16, 16, 12);
        layout->setSpacing(16);
        layout->addWidget(MakeLabel(QString::fromStdU16String(request.text)));
        layout->addLayout(MakeButtons(buttons));
        layout->setSizeConstraint(QLayout::SetFixedSize);
    }

    void reject() override {
        if (escape_ != 0) done(escape_);
    }

private:
    QLabel* MakeLabel(const QString& text) {
        auto* label = new QLabel(text, this);
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        const int widest = fontMetrics().averageCharWidth() * kLongestLine;
        const int natural = fontMetrics().size(0, text).width();
        label->setWordWrap(natural > widest);
        label->setFixedWidth(std::min(natural, widest) + 2);
        return label;
    }

    QHBoxLayout* MakeButtons(const std::vector<int>& buttons) {
        auto* row = new QHBoxLayout;
        row->addStretch();
        for (const int id : buttons) {
            auto* button = new QPushButton(NameOf(id), this);
            button->setDefault(id == buttons.front());
            connect(button, &QPushButton::clicked, this, [this, id] { done(id); });
            row->addWidget(button);
        }
        return row;
    }

    int escape_;  ///< the button that closing stands for; 0: none
};

}  // namespace

std::vector<int> MessageBoxButtons(UINT type) {
    if ((type & kButtonsMask) == MB_OKCANCEL) return {IDOK, IDCANCEL};
    if ((type & kButtonsMask) == MB_YESNO) return {IDYES, IDNO};
    return {IDOK};
}

int ShowMessageBox(const MessageBoxRequest& request) {
    EnsureApplication();
    const Window* owner = Window::From(request.owner);
    // Without an owner it stands before whatever window the user works in.
    Box box(request, owner == nullptr ? QApplication::activeWindow() : owner->Widget());
    box.setWindowModality(Qt::ApplicationModal);
    const QPointer<QWidget> before = QApplication::activeWindow();
    const int button = box.exec();
    // The focus is back before the caller goes on, whenever the window manager gets to it.
    if (before != nullptr) Activate(*before);
    return button;
}

bool SaveMessageBoxPicture(const MessageBoxRequest& request, const std::filesystem::path& file) {
    EnsureApplication();
    Box box(request, nullptr);
    return SavePicture(box, file);
}

}  // namespace platform

int WINAPI MessageBoxW(HWND owner, LPCWSTR text, LPCWSTR caption, UINT type) try {
    if (const auto error = platform::InjectedFailure("MessageBoxW")) {
        return platform::Fail<int>(*error);
    }
    if (owner != nullptr && platform::RequireWindow(owner) == nullptr) return 0;
    const platform::FocusAway boxInFront;
    return platform::CurrentUser().AnswerMessageBox(
        {owner, text == nullptr ? u"" : text, caption == nullptr ? u"Error" : caption, type});
} catch (...) {
    return platform::FailCaught<int>();
}
