/// A page as JSON.
#pragma once

#include <nlohmann/json.hpp>

#include "host/page/session.h"

namespace host {

/// One object: "printer", "model", "modelIndex", "items" in the page's order, hidden ones included,
/// and "privateDevmode". An item's "choices" are those of its record: of a number the first is the
/// unit and the second the range. docs/page.schema.json tells each member.
nlohmann::ordered_json PageToJson(PageSession& page);

}  // namespace host
