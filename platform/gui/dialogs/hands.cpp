#include <windows.h>

#include <QApplication>
#include <QClipboard>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPointer>
#include <algorithm>
#include <cstdlib>

#include "platform/gui/controls/drop_down_list.h"
#include "platform/gui/controls/focus.h"
#include "platform/gui/dialogs/dialog.h"
#include "platform/gui/dialogs/hands.h"
#include "platform/gui/windows/active_window.h"

namespace platform::hands {
namespace {

struct KeyName {
    int virtualKey;
    Qt::Key key;
    const char* text;  ///< what the key types
};
constexpr KeyName kKeys[] = {{VK_BACK, Qt::Key_Backspace, "\b"},
                             {VK_TAB, Qt::Key_Tab, "\t"},
                             {VK_RETURN, Qt::Key_Return, "\r"},
                             {VK_ESCAPE, Qt::Key_Escape, "\x1b"},
                             {VK_SPACE, Qt::Key_Space, " "},
                             {VK_PRIOR, Qt::Key_PageUp, ""},
                             {VK_NEXT, Qt::Key_PageDown, ""},
                             {VK_END, Qt::Key_End, ""},
                             {VK_HOME, Qt::Key_Home, ""},
                             {VK_LEFT, Qt::Key_Left, ""},
                             {VK_UP, Qt::Key_Up, ""},
                             {VK_RIGHT, Qt::Key_Right, ""},
                             {VK_DOWN, Qt::Key_Down, ""},
                             {VK_DELETE, Qt::Key_Delete, "\x7f"},
                             {VK_F1, Qt::Key_F1, ""},
                             {VK_F4, Qt::Key_F4, ""}};

Dialog* OpenDialog(HWND handle) {
    Dialog* dialog = Dialog::Require(handle);
    if (dialog == nullptr || dialog->HasEnded()) return nullptr;
    Activate(*dialog->Widget()->window());
    return dialog;
}

/// A control that a person can see and use; null otherwise.
Control* UsableControl(HWND handle, int controlId) {
    const Dialog* dialog = OpenDialog(handle);
    Control* control = dialog == nullptr ? nullptr : dialog->Find(controlId);
    if (control == nullptr) return nullptr;
    return control->Widget()->isVisible() && control->Widget()->isEnabled() ? control : nullptr;
}

DropDownList* UsableList(HWND dialog, int controlId) {
    Control* control = UsableControl(dialog, controlId);
    if (control == nullptr || control->Kind() != WindowKind::kList) return nullptr;
    return static_cast<DropDownList*>(control);
}

/// A click beside an open list closes it and does no more.
void ClosePopups() {
    while (QWidget* popup = QApplication::activePopupWidget()) popup->close();
}

void SendMouse(const QPointer<QWidget>& widget, QEvent::Type type, const QPoint& place) {
    if (widget.isNull()) return;
    const bool moves = type == QEvent::MouseMove;
    const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, place, widget->mapToGlobal(place),
                      moves ? Qt::NoButton : Qt::LeftButton, held, Qt::NoModifier);
    QApplication::sendEvent(widget, &event);
}

void ClickAt(QWidget* widget, const QPoint& place) {
    const QPointer<QWidget> clicked = widget;
    if ((widget->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus) {
        widget->setFocus(Qt::MouseFocusReason);
    }
    SendMouse(clicked, QEvent::MouseMove, place);
    SendMouse(clicked, QEvent::MouseButtonPress, place);
    SendMouse(clicked, QEvent::MouseButtonRelease, place);
}

/// To the open list, the control with the focus, or the dialog itself.
void SendKey(const Dialog& dialog, int key, Qt::KeyboardModifiers modifiers, const QString& text) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        if (dialog.HasEnded()) return;
        QWidget* target = QApplication::activePopupWidget();
        if (target == nullptr) target = dialog.Widget()->focusWidget();
        if (target == nullptr) target = dialog.Widget();
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(target, &event);
    }
}

void TypeUnits(const Dialog& dialog, const QString& text) {
    for (qsizetype i = 0; i < text.size();) {
        const bool pair =
            text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const QString character = text.mid(i, pair ? 2 : 1);
        const char16_t unit = character.front().toUpper().unicode();
        const int key = unit < 0x80 ? int{unit} : int{Qt::Key_unknown};
        SendKey(dialog, key, Qt::NoModifier, character);
        i += character.size();
    }
}

}  // namespace

bool IsOpen(HWND dialog) {
    const Dialog* found = Dialog::Require(dialog);
    return found != nullptr && !found->HasEnded();
}

bool Click(HWND dialog, int controlId) {
    Control* control = UsableControl(dialog, controlId);
    if (control == nullptr) return false;
    const bool closesItsList =
        control->Kind() == WindowKind::kList && static_cast<const DropDownList&>(*control).IsOpen();
    ClosePopups();
    if (closesItsList) return true;
    // A list that closes tells the program, which may have disabled the control.
    control = UsableControl(dialog, controlId);
    if (control == nullptr) return false;
    ClickAt(control->Widget(), control->Widget()->rect().center());
    return true;
}

bool TypeText(HWND dialog, int controlId, std::u16string_view text) {
    const Control* control = UsableControl(dialog, controlId);
    if (control == nullptr || control->Kind() != WindowKind::kEdit) return false;
    if (!Click(dialog, controlId)) return false;
    const Dialog& owner = *Dialog::Require(dialog);
    SendKey(owner, Qt::Key_A, Qt::ControlModifier, QStringLiteral("\x01"));
    if (text.empty()) SendKey(owner, Qt::Key_Delete, Qt::NoModifier, QStringLiteral("\x7f"));
    TypeUnits(owner, QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())));
    return true;
}

bool Type(HWND dialog, std::u16string_view text) {
    const Dialog* found = OpenDialog(dialog);
    if (found == nullptr) return false;
    TypeUnits(*found, QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())));
    return true;
}

bool Paste(HWND dialog, std::u16string_view text) {
    const Dialog* found = OpenDialog(dialog);
    const Control* focused = FocusedControl();
    if (found == nullptr || focused == nullptr || focused->Kind() != WindowKind::kEdit) {
        return false;
    }
    QApplication::clipboard()->setText(
        QString::fromUtf16(text.data(), static_cast<qsizetype>(text.size())));
    SendKey(*found, Qt::Key_V, Qt::ControlModifier, QStringLiteral("\x16"));
    return true;
}

bool PressKey(HWND dialog, int virtualKey, bool alt) {
    const Dialog* found = OpenDialog(dialog);
    if (found == nullptr) return false;
    const Qt::KeyboardModifiers modifiers = alt ? Qt::AltModifier : Qt::NoModifier;
    const auto* known = std::ranges::find(kKeys, virtualKey, &KeyName::virtualKey);
    if (known != std::end(kKeys)) {
        SendKey(*found, known->key, modifiers, QString::fromLatin1(known->text));
    } else {  // letters and digits have the same numbers in both worlds
        SendKey(*found, virtualKey, modifiers, QString(QChar(virtualKey).toLower()));
    }
    return true;
}

std::vector<std::u16string> ItemsOf(HWND dialog, int listId) {
    const Dialog* found = OpenDialog(dialog);
    const Control* control = found == nullptr ? nullptr : found->Find(listId);
    std::vector<std::u16string> items;
    if (control == nullptr || control->Kind() != WindowKind::kList) return items;
    const auto& list = static_cast<const DropDownList&>(*control);
    for (int i = 0; i < list.Count(); ++i) items.push_back(list.ItemText(i).toStdU16String());
    return items;
}

bool Choose(HWND dialog, int listId, std::u16string_view itemText) {
    const DropDownList* list = UsableList(dialog, listId);
    if (list == nullptr) return false;
    const auto sought =
        QString::fromUtf16(itemText.data(), static_cast<qsizetype>(itemText.size()));
    int index = 0;
    while (index < list->Count() && list->ItemText(index) != sought) ++index;
    return ChooseAt(dialog, listId, index);
}

bool ChooseAt(HWND dialog, int listId, int index) {
    DropDownList* list = UsableList(dialog, listId);
    if (list == nullptr || index < 0 || index >= list->Count()) return false;
    const QString sought = list->ItemText(index);
    if (!list->IsOpen() && !Click(dialog, listId)) return false;
    // The program hears that the list drops, and may fill it anew, hide or close it.
    const bool isThere = list->IsOpen() && index < list->Count() && list->ItemText(index) == sought;
    QRect place;
    QWidget* items = isThere ? list->ItemPlace(index, &place) : nullptr;
    if (items == nullptr) {
        list->Close(false);
        return false;
    }
    ClickAt(items, place.center());
    return true;
}

bool StepUpDown(HWND dialog, int upDownId, int steps) {
    Control* control = UsableControl(dialog, upDownId);
    if (control == nullptr || control->Kind() != WindowKind::kUpDown || steps == 0) return false;
    ClosePopups();
    for (long long step = std::abs(static_cast<long long>(steps)); step > 0; --step) {
        control = UsableControl(dialog, upDownId);
        if (control == nullptr) return false;
        const QRect face = control->Widget()->rect();
        const int y = steps > 0 ? face.height() / 4 : face.height() * 3 / 4;
        ClickAt(control->Widget(), QPoint(face.center().x(), y));
    }
    return true;
}

bool AskHelp(HWND dialog, int controlId) {
    Dialog* found = OpenDialog(dialog);
    if (found == nullptr || found->Find(controlId) == nullptr) return false;
    found->AwaitHelpClick();
    // In the corner, where no control that lies within this one is.
    const QPoint corner = found->Find(controlId)->Widget()->pos() + QPoint(3, 3);
    SendMouse(found->Widget(), QEvent::MouseButtonPress, corner);
    return true;
}

void TypeSlowly() {
    DropDownList::SetTypingPause(0);
}

void Close(HWND dialog) {
    const Dialog* found = OpenDialog(dialog);
    if (found != nullptr) found->Widget()->close();
}

}  // namespace platform::hands
