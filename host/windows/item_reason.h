/// Why the page does not do what a person would like it to, in a sentence. UTF-8, no line breaks.
#pragma once

#include <string>

#include "host/page/item.h"

namespace host {

/// Why an item is greyed, or its selection marked with a stop; empty when neither is so.
[[nodiscard]] std::string WhyUnavailable(const PageItem& item);

/// Why the button beside an item does nothing now; empty when it does something.
[[nodiscard]] std::string WhyButtonIdle(const PageItem& item);

/// That a number out of an item's range was typed.
[[nodiscard]] std::string WhyNumberRefused(const PageItem& item);

}  // namespace host
