/// Settings by name: "Item=Choice" as a person writes it, found on a page.
#pragma once

#include <string>
#include <string_view>

#include "host/page/session.h"

namespace host {

/// The visible item of a name: its displayed text or its keyword, case ignored. An unknown one is a
/// `Failure` that tells the near ones.
[[nodiscard]] PageItem& FindItem(PageSession& page, std::string_view name);

/// Sets one item as a user would. \param setting  "Item=Choice" or "Item=Number", the choice by its
/// displayed text or its keyword. Throws `UsageFailure` when it is no setting, `Failure` when the
/// page refuses it.
void SetItem(PageSession& page, const std::string& setting);

}  // namespace host
