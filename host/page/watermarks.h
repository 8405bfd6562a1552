/// The watermarks of a page's printer, for people and for programs.
#pragma once

#include <iosfwd>
#include <nlohmann/json.hpp>
#include <string>

#include "host/page/session.h"
#include "host/page/terminal_user.h"

namespace host {

/// The printer's stored watermarks in their order, an object each by the names of the stored
/// fields, and "selected", true for the one that the page's settings select.
[[nodiscard]] nlohmann::ordered_json PrinterWatermarks(const PageSession& page);

/// A line for each: name and what it prints; the selected one is marked with '*'.
void PrintWatermarks(const PageSession& page, std::ostream& out);

/// Works in the page's editor by a script. Throws `Failure` when the script could not be carried
/// out; what an OK before that has stored stays.
void Edit(PageSession& page, TerminalUser& user, EditScript& script);

/// Selects a watermark by its name, as the editor's OK does, and switches it on.
void SelectWatermark(PageSession& page, TerminalUser& user, const std::string& name);

}  // namespace host
