/// A page as text.
#pragma once

#include <iosfwd>

#include "host/page/session.h"

namespace host {

/// The tree of visible items with what is selected, for reading.
void PrintPage(PageSession& page, std::ostream& out);

/// One line a visible item, for scripts: `Keyword/Text: choice *current choice`, choices by their
/// keywords, one in brackets when it cannot be chosen; numbers `Keyword/Text: 20..200 % *100`. The
/// name of the watermark that is printed follows in quotation marks; a disabled item ends with
/// " (disabled)".
void PrintItemLines(PageSession& page, std::ostream& out);

}  // namespace host
