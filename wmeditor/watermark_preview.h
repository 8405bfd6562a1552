/// The picture of the page with the watermark on it, beside the editor's settings.
///
/// Drawn in memory and copied to the screen in one step, so that it never shows half drawn. Nothing
/// is kept between paints but the page control's place and size. User-interface thread only.
#pragma once

#include "common/current_printer.h"
#include "watermark/watermark_list.h"

namespace oemui {

/// Draws the whole preview: the area around the page, and the page with the watermark.
/// \param record  any content; angle and offsets alone place the text, their kinds are not read.
void PaintWatermarkPreview(HWND dialog, const WatermarkRecord& record, PageOrientation orientation);

/// Fills the preview area.
/// \param reference  the device context whose format the memory bitmap takes.
void PaintPreviewBackground(HWND dialog, HDC reference);

/// A paper's size in the preview.
struct PreviewPageSize {
    INT32 width;   ///< pixels, 0..170
    INT32 height;  ///< pixels, 0..170
    INT32 scale;   ///< pixels per inch; 0 for a paper longer than 170 inches
};

/// Scales a paper so that its longer side has at most 170 pixels; landscape exchanges the sides. A
/// paper without a size counts as A4.
[[nodiscard]] PreviewPageSize ScalePreviewPage(const PaperSize& paper, PageOrientation orientation);

struct PreviewPage {
    RECT rectangle;  ///< in the dialog's client coordinates, centred in the preview area
    INT32 scale;     ///< pixels per inch
};

/// Where the page selected on the document page (`PreviewPaperSize`) stands in the dialog.
[[nodiscard]] PreviewPage ComputePreviewPage(HWND dialog, PageOrientation orientation);

/// The point of the text's top centre that puts the middle of the turned text line on the page's
/// centre, moved by the record's offsets. Any record content; results wrap in 32 bits.
/// \param fontHeight  pixels.
/// \param scale  pixels per inch; with 0, one offset unit is a twentieth of the page.
[[nodiscard]] POINT ComputeTextOrigin(const RECT& page, INT32 fontHeight, INT32 scale,
                                      const WatermarkRecord& record);

/// The font of the preview: 15 pixels for 72 points, at least 3, whatever the paper's scale.
[[nodiscard]] LOGFONTW MakePreviewFont(const WatermarkRecord& record);

}  // namespace oemui
