/// The parts of a path.
#pragma once

#include "common/fixed_text.h"

namespace oemui {

/// What follows the last slash or backslash; without either, what follows a drive ("C:NAME.EXE").
/// A colon anywhere else is part of the name.
TextView FileNameOf(TextView path);

/// The path up to its last backslash and with it; empty without one.
TextView DirectoryOf(TextView path);

}  // namespace oemui
