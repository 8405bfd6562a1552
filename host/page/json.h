/// A page as JSON.
#pragma once

#include <nlohmann/json.hpp>
#include <span>

#include "host/page/session.h"

namespace host {

/// One object: "printer", "model", "modelIndex", "items" in the page's order, hidden ones included,
/// and "privateDevmode". An item's "choices" are those of its record: of a number the first is the
/// unit and the second the range.
nlohmann::ordered_json PageToJson(PageSession& page);

/// The plug-in's block by the names of its fields; null when it is shorter than the format.
/// \param block  bytes from outside; texts in it end with their array, terminated or not.
nlohmann::ordered_json PrivateDevmodeToJson(std::span<const BYTE> block);

}  // namespace host
