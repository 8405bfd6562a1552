/// The parts of a path.
#pragma once

#include "common/fixed_text.h"

namespace oemui {

/// What follows the last slash or backslash; without either, what follows a drive ("C:NAME.EXE").
/// A colon anywhere else is part of the name.
inline TextView FileNameOf(TextView path) {
    const std::size_t slash = path.find_last_of(TEXT("\\/"));
    if (slash != TextView::npos) return path.substr(slash + 1);
    const bool hasDrive = path.size() > 1 && path[1] == TEXT(':');
    return path.substr(hasDrive ? 2 : 0);
}

/// The path up to its last backslash and with it; empty without one.
inline TextView DirectoryOf(TextView path) {
    return path.substr(0, path.rfind(TEXT('\\')) + 1);
}

}  // namespace oemui
