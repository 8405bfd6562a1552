/// The driver's items of the two property pages.
#pragma once

#include "host/driver/devmode.h"
#include "host/driver/installed_options.h"
#include "host/driver/models.h"
#include "host/driver/option_items.h"

namespace host {

/// The items of the document page, over a devmode, which must live as long as they do.
[[nodiscard]] OptionItems DocumentPageItems(HANDLE printer, const Model& model, Devmode& devmode);

/// The items of the printer page, over its options, which must live as long as they do.
[[nodiscard]] OptionItems PrinterPageItems(const Model& model, InstalledOptions& options);

}  // namespace host
