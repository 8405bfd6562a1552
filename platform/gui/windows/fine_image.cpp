#include "platform/gui/windows/fine_image.h"

#include <algorithm>

namespace platform {

qreal FinenessOf(const QWidget* widget) {
    return widget == nullptr ? 1.0 : std::max(1.0, widget->devicePixelRatioF());
}

QImage FineImage(const QSize& size, qreal fineness) {
    QImage image(size * fineness, QImage::Format_RGB32);
    image.setDevicePixelRatio(fineness);
    return image;
}

QSize LogicalSize(const QImage& image) {
    return image.size() / image.devicePixelRatio();
}

QRect FinePixels(const QImage& image, const QRect& logical) {
    const qreal fineness = image.devicePixelRatio();
    const QPoint outside = QPoint(logical.right() + 1, logical.bottom() + 1) * fineness;
    return QRect(logical.topLeft() * fineness, outside - QPoint(1, 1));
}

QImage PixelView(QImage& image) {
    return QImage(image.bits(), image.width(), image.height(), image.bytesPerLine(),
                  image.format());
}

}  // namespace platform
