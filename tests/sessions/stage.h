/// How the printer and the watermark editor are made ready for sessions, on the layer and on the
/// platform itself.
#pragma once

#include <windows.h>

#include "tests/support/text.h"

namespace sessions {

/// Makes the diagonal of the printer's page the same everywhere.
void PreparePrinter(const tests::Text& name);
/// Takes away what would make traces differ without a fault, and what only costs time.
void PrepareEditor(HWND dialog);

}  // namespace sessions
