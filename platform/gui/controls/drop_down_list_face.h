/// What a drop-down list shows: its closed face, and the list below it.
#pragma once

#include <QFrame>

#include "platform/gui/controls/drop_down_list.h"

class QListWidget;

namespace platform {

class DropDownList::Face : public QWidget {
public:
    Face(DropDownList& list, QWidget* parent);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    DropDownList& list_;
    int turned_ = 0;  ///< eighths of a degree that the wheel has turned and not yet moved by
};

/// A click outside closes it and does nothing else.
class DropDownList::Popup : public QFrame {
public:
    Popup(DropDownList& list, QWidget* face);

    /// Fills and shows it below the face, above where there is no room. \param width  of the items.
    void Drop(int width, int height);
    void ShowSelection();
    QWidget* ItemPlace(int index, QRect* place) const;
    [[nodiscard]] QListWidget* Items() const { return items_; }

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    [[nodiscard]] QRect PlaceOnScreen(int width, int height) const;

    DropDownList& list_;
    QListWidget* items_;
};

}  // namespace platform
