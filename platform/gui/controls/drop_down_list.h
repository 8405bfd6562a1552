/// Drop-down lists, sorted or not.
#pragma once

#include <QElapsedTimer>
#include <vector>

#include "platform/gui/controls/control.h"

class QListWidget;

namespace platform {

class DropDownList : public Control {
public:
    DropDownList(ControlOwner& owner, const ControlTemplate& made);
    /// After how long a typed letter begins a new search, in all lists; 1000 at first. 0: always.
    static void SetTypingPause(int milliseconds);

    ~DropDownList() override;

    [[nodiscard]] QString Text() const override;
    LRESULT Receive(UINT message, WPARAM first, LPARAM second) override;
    void FocusChanged(bool has) override;
    [[nodiscard]] bool WantsKey(const QKeyEvent& event) const override;
    [[nodiscard]] bool TypesText() const override { return true; }
    /// The height of a template's list is the one it has when open.
    void Place(const QRect& place) override;

    [[nodiscard]] int Count() const { return static_cast<int>(items_.size()); }
    [[nodiscard]] const QString& ItemText(int index) const {
        return items_[static_cast<std::size_t>(index)].text;
    }
    [[nodiscard]] int Selection() const { return selection_; }
    [[nodiscard]] int FindExact(const QString& text, int after) const;
    [[nodiscard]] bool IsOpen() const { return open_; }
    void Open();
    /// \param accepted  whether an item was picked or confirmed, or the list merely closed.
    void Close(bool accepted);
    /// The user picks an item of the open list.
    void Pick(int index);
    /// What shows the items when the list is open, made when it is first needed; null while the
    /// control itself is being made.
    [[nodiscard]] QListWidget* ItemsWidget();
    /// The open list's widget that shows item `index`, and the item's place in it; null when the
    /// list has never dropped.
    QWidget* ItemPlace(int index, QRect* place) const;

private:
    class Face;
    class Popup;
    struct Item {
        QString text;
        LPARAM value = 0;
    };

    [[nodiscard]] bool Has(WPARAM index) const { return index < items_.size(); }
    int Add(const QString& text);
    LRESULT Delete(WPARAM index);
    void Select(int index);
    void HandleKey(QKeyEvent& event);
    /// The item that a key leads to; -1 when it is no key of lists.
    [[nodiscard]] int TargetOfKey(const QKeyEvent& event);
    /// Where the letters typed in one go lead from the selection; -1: nowhere else.
    [[nodiscard]] int FindTyped(const QString& letter);
    [[nodiscard]] int FindBeginning(const QString& text, int from) const;
    /// The user moves to an item by key or wheel.
    void MoveTo(int index);
    [[nodiscard]] int DroppedWidth() const;
    void MakePopup();

    std::vector<Item> items_;
    Popup* popup_ = nullptr;  ///< made when it is first needed
    bool makesPopup_ = false;
    QString typed_;
    QElapsedTimer sinceLetter_;
    int selection_ = -1;
    int droppedWidth_ = 0;   ///< pixels, as asked for
    int droppedHeight_ = 0;  ///< pixels of the open list
    bool sorted_;
    bool open_ = false;
};

}  // namespace platform
