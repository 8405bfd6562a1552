#include "platform/gui/windows/picture.h"

#include <QPixmap>

#include "platform/gui/windows/window.h"

namespace platform {

bool SavePicture(HWND window, const std::filesystem::path& file) {
    const Window* found = RequireWindow(window);
    if (found == nullptr || found->Widget() == nullptr) return false;
    return found->Widget()->grab().save(QString::fromStdU16String(file.u16string()), "PNG");
}

}  // namespace platform
