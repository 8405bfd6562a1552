/// What the document page shows and keeps as readable text.
#pragma once

#include "tests/support/document_page.h"
#include "tests/support/states/state.h"

namespace tests {

/// A line for each of the plug-in's and the driver's items with selection and flags, then the
/// block, what is changed of the public devmode, and what the driver was asked and told.
[[nodiscard]] State PageState(DocumentPage* page);

}  // namespace tests
