/// How items look in windows: their texts, and the mark of what is not installed.
#pragma once

#include <QIcon>
#include <QString>
#include <QWidget>

#include "host/page/item.h"

namespace host {

/// The row of an item in the tree: "Name: selection", with the detail if there is one, or the name
/// alone for a group.
[[nodiscard]] QString RowText(const PageItem& item);

/// A text for a place where '&' marks a letter: every '&' of the text stays one.
[[nodiscard]] QString WithoutMnemonic(QString text);

/// A button's title; without a letter of its own the first one works with Alt.
[[nodiscard]] QString ButtonTitle(const PageItem& item);

/// The stop mark, as large as the small icons of a widget.
[[nodiscard]] QIcon StopMark(const QWidget& widget);

/// Nothing, in the same size: texts line up with those that have a mark.
[[nodiscard]] QIcon NoMark(const QWidget& widget);

}  // namespace host
