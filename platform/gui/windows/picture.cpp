#include "platform/gui/windows/picture.h"

#include <QPixmap>

#include "platform/gui/windows/window.h"

namespace platform {

bool SavePicture(HWND window, const std::filesystem::path& file) {
    const Window* found = RequireWindow(window);
    return found != nullptr && found->Widget() != nullptr && SavePicture(*found->Widget(), file);
}

bool SavePicture(QWidget& widget, const std::filesystem::path& file) {
    return widget.grab().save(QString::fromStdU16String(file.u16string()), "PNG");
}

}  // namespace platform
