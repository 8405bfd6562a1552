#include "platform/gui/windows/picture.h"

#include <QPixmap>
#include <QSaveFile>

#include "platform/gui/windows/window.h"

namespace platform {

bool SavePicture(HWND window, const std::filesystem::path& file) {
    const Window* found = RequireWindow(window);
    return found != nullptr && found->Widget() != nullptr && SavePicture(*found->Widget(), file);
}

bool SavePicture(QWidget& widget, const std::filesystem::path& file) {
    return SavePicture(widget.grab(), file);
}

bool SavePicture(const QPixmap& picture, const std::filesystem::path& file) {
    QSaveFile made(QString::fromStdU16String(file.u16string()));
    // Committing alone would not tell that what is still in the buffer finds no room.
    return made.open(QIODevice::WriteOnly) && picture.save(&made, "PNG") && made.flush() &&
           made.commit();
}

}  // namespace platform
