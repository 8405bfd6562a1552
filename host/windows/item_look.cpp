#include "host/windows/item_look.h"

#include <QPainter>
#include <QPixmap>
#include <QStyle>

namespace host {
namespace {

constexpr QColor kStopRed(204, 32, 32);

int MarkSize(const QWidget& widget) {
    return widget.style()->pixelMetric(QStyle::PM_SmallIconSize, nullptr, &widget);
}

QPixmap EmptyMark(const QWidget& widget) {
    const qreal ratio = widget.devicePixelRatioF();
    QPixmap picture(QSize(MarkSize(widget), MarkSize(widget)) * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(Qt::transparent);
    return picture;
}

}  // namespace

QString RowText(const PageItem& item) {
    QString name = QString::fromStdString(item.Name());
    if (item.Kind() == ItemKind::Group) return name;
    const std::string detail = item.Detail().empty() ? "" : " " + item.Detail();
    return name + ": " + QString::fromStdString(item.SelectionText() + detail);
}

QString WithoutMnemonic(QString text) {
    return text.replace('&', "&&");
}

QString ButtonTitle(const PageItem& item) {
    const WCHAR* title = item.ButtonTitle();
    const QString text = title != nullptr ? QString::fromUtf16(title) : QStringLiteral("...");
    return text.contains('&') ? text : '&' + text;
}

QIcon StopMark(const QWidget& widget) {
    QPixmap picture = EmptyMark(widget);
    const int size = MarkSize(widget);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    const qreal width = size / 7.0;
    const QRectF circle = QRectF(0, 0, size, size).adjusted(width, width, -width, -width);
    painter.setPen(QPen(kStopRed, width));
    painter.drawEllipse(circle);
    const QPointF half(circle.width() * 0.34, -circle.height() * 0.34);
    painter.drawLine(circle.center() - half, circle.center() + half);
    painter.end();
    // The same whether the choice is greyed or not: the mark says why it is.
    QIcon icon(picture);
    icon.addPixmap(picture, QIcon::Disabled);
    return icon;
}

QIcon NoMark(const QWidget& widget) {
    return QIcon(EmptyMark(widget));
}

}  // namespace host
