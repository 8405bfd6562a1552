/// The file's part of a path.
#pragma once

#include "common/text.h"

namespace oemui {

/// What follows the last slash or backslash; without either, what follows a drive ("C:NAME.EXE").
/// A colon anywhere else is part of the name.
TextView FileNameOf(TextView path);

}  // namespace oemui
