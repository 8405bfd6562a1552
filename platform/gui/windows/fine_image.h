/// Images that are as fine as the screen they are for: drawn on in pixels at 96 dots per inch,
/// whatever the screen's own pixels are. For the user-interface thread only.
#pragma once

#include <QImage>
#include <QRect>
#include <QWidget>

namespace platform {

/// Screen pixels in a pixel at 96 dots per inch where a widget is shown; at least 1, and 1 without
/// a widget.
[[nodiscard]] qreal FinenessOf(const QWidget* widget);

/// \param size  pixels at 96 dots per inch. \return an image that is not filled; null when there is
/// no memory for it.
[[nodiscard]] QImage FineImage(const QSize& size, qreal fineness);

/// The size of an image in pixels at 96 dots per inch.
[[nodiscard]] QSize LogicalSize(const QImage& image);

/// The pixels of an image that a rectangle in pixels at 96 dots per inch stands for. Rectangles
/// that share a side share no pixels and leave none out.
[[nodiscard]] QRect FinePixels(const QImage& image, const QRect& logical);

/// The image's own pixels, to be drawn on one by one while it lives.
[[nodiscard]] QImage PixelView(QImage& image);

}  // namespace platform
