/// "Transmit Once" sends the pages once for all copies: it has nothing to offer a single copy, and
/// nothing to copies that are not collated.
#pragma once

#include "docprops/document_settings.h"

namespace oemui {

/// Switches the setting off for a page that is being built when the copies do not allow it.
void DropTransmitOnce(const DocumentSettings& settings, PrivateDevmode* devmode);

/// The selection that a page shows when it becomes active: off for one copy, or uncollated ones.
[[nodiscard]] LONG ShownTransmitOnce(const DocumentSettings& settings,
                                     const PrivateDevmode& devmode);

/// Enables the item for two or more copies, collated or not; for fewer it is disabled.
void EnableTransmitOnceByCopies(const OEMCUIPPARAM& params);

/// Takes the item's selection at apply; off for fewer than two copies.
void StoreTransmitOnce(const OEMCUIPPARAM& params, PrivateDevmode* devmode);

}  // namespace oemui
