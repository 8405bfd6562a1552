#include "platform/gui/controls/edit_control.h"

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMenu>
#include <QSignalBlocker>
#include <algorithm>
#include <limits>

#include "platform/gui/controls/control_owner.h"
#include "platform/gui/controls/up_down.h"

namespace platform {
namespace {

constexpr std::size_t kDefaultLimit = 30000;
constexpr std::size_t kNoLimit = 0x7FFFFFFE;

bool IsTyped(const QKeyEvent& event) {
    constexpr auto kCommandKeys = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    const bool command = event.modifiers().testAnyFlags(kCommandKeys);
    return !command && !event.text().isEmpty() &&
           (event.text().front().isPrint() || event.text().front().isSurrogate());
}

QString FirstLine(const QString& text) {
    const auto end =
        std::ranges::find_if(text, [](QChar unit) { return unit == u'\r' || unit == u'\n'; });
    return text.left(end - text.begin());
}

bool AreDigits(const QString& text) {
    return std::ranges::all_of(text, [](QChar unit) { return unit >= u'0' && unit <= u'9'; });
}

}  // namespace

/// Every way of the user's to put text in goes through the control's rules.
class EditControl::Face : public QLineEdit {
public:
    Face(EditControl& control, QWidget* parent) : QLineEdit(parent), control_(control) {
        setDragEnabled(false);
        setAcceptDrops(false);
    }

protected:
    void keyPressEvent(QKeyEvent* event) override {
        const bool up = event->key() == Qt::Key_Up;
        if (event->matches(QKeySequence::Paste)) {
            Paste(QClipboard::Clipboard);
        } else if (IsTyped(*event)) {
            control_.Type(event->text());
        } else if (control_.upDown_ != nullptr && (up || event->key() == Qt::Key_Down)) {
            control_.upDown_->StepByKey(up ? 1 : -1);
        } else if (up || event->key() == Qt::Key_Down) {
            cursorForward(event->modifiers().testFlag(Qt::ShiftModifier), up ? -1 : 1);
        } else {
            QLineEdit::keyPressEvent(event);
        }
    }

    void inputMethodEvent(QInputMethodEvent* event) override {
        const QString committed = event->commitString();
        if (!committed.isEmpty()) {
            event->setCommitString({});
            control_.Type(committed);
        }
        QLineEdit::inputMethodEvent(event);
    }

    void mouseReleaseEvent(QMouseEvent* event) override {
        if (event->button() == Qt::MiddleButton) {
            Paste(QClipboard::Selection);
        } else {
            QLineEdit::mouseReleaseEvent(event);
        }
    }

    void contextMenuEvent(QContextMenuEvent* event) override {
        auto* menu = new QMenu(this);
        menu->setAttribute(Qt::WA_DeleteOnClose);
        const bool selected = hasSelectedText();
        menu->addAction(tr("&Undo"), this, [this] { undo(); })->setEnabled(isUndoAvailable());
        menu->addSeparator();
        menu->addAction(tr("Cu&t"), this, [this] { cut(); })->setEnabled(selected);
        menu->addAction(tr("&Copy"), this, [this] { copy(); })->setEnabled(selected);
        menu->addAction(tr("&Paste"), this, [this] { Paste(QClipboard::Clipboard); });
        menu->addAction(tr("&Delete"), this, [this] { del(); })->setEnabled(selected);
        menu->addSeparator();
        menu->addAction(tr("Select &All"), this, [this] { selectAll(); });
        menu->popup(event->globalPos());
    }

private:
    void Paste(QClipboard::Mode mode) {
        // Only what is typed is held to digits.
        control_.Insert(QApplication::clipboard()->text(mode));
    }

    EditControl& control_;
};

EditControl::EditControl(ControlOwner& owner, const ControlTemplate& made)
    : Control(WindowKind::kEdit, owner, made),
      face_(new Face(*this, owner.Widget())),
      digitsOnly_((made.Style & ES_NUMBER) != 0),
      limit_(kDefaultLimit) {
    Equip(face_);
    // Tells assistive programs of itself at once: not before it is known as a control.
    face_->setMaxLength(std::numeric_limits<int>::max());
    face_->setText(QString::fromStdU16String(made.Text));
    QObject::connect(face_, &QLineEdit::textChanged, face_, [this] { NotifyChange(); });
}

QString EditControl::Text() const {
    return face_->text();
}

void EditControl::SetText(const QString& text) {
    {
        const QSignalBlocker noneOfTheUser(face_);  // tells of real changes alone
        face_->setText(text);
        face_->setCursorPosition(0);
    }
    NotifyChange();
}

void EditControl::SelectAll() {
    face_->selectAll();
}

void EditControl::NotifyChange() {
    Notify(EN_UPDATE);
    Notify(EN_CHANGE);
}

void EditControl::GiveFocus() {
    // First: who loses the focus may make the program set this text anew, and nothing is selected.
    SelectAll();
    Control::GiveFocus();
}

LRESULT EditControl::Receive(UINT message, WPARAM first, LPARAM) {
    if (message == EM_LIMITTEXT) {
        limit_ = first == 0 ? kNoLimit : std::min<std::size_t>(first, kNoLimit);
    }
    return 0;
}

void EditControl::FocusChanged(bool has) {
    Notify(has ? EN_SETFOCUS : EN_KILLFOCUS);
}

void EditControl::Type(const QString& text) {
    if (!digitsOnly_ || AreDigits(text)) Insert(text);
}

void EditControl::Insert(const QString& given) {
    const QString text = FirstLine(given);
    const auto kept = static_cast<std::size_t>(face_->text().size() - face_->selectedText().size());
    const std::size_t room = limit_ > kept ? limit_ - kept : 0;
    const auto length = static_cast<std::size_t>(text.size());
    if (room > 0 && length > 0)
        face_->insert(text.left(static_cast<qsizetype>(std::min(room, length))));
    if (length > room) Notify(EN_MAXTEXT);
}

}  // namespace platform
