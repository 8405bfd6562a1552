#include "common/file_name.h"

namespace oemui {

TextView FileNameOf(TextView path) {
    const std::size_t slash = path.find_last_of(TEXT("\\/"));
    if (slash != TextView::npos) return path.substr(slash + 1);
    const bool hasDrive = path.size() > 1 && path[1] == TEXT(':');
    return path.substr(hasDrive ? 2 : 0);
}

TextView DirectoryOf(TextView path) {
    return path.substr(0, path.rfind(TEXT('\\')) + 1);
}

}  // namespace oemui
