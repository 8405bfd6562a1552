/// Watermarks, lists of them and the document's block as readable text.
#pragma once

#include <string>

#include "devmode/private_devmode.h"
#include "tests/support/states/state.h"
#include "watermark/watermark_list.h"

namespace tests {

/// All fields of a watermark in one line; texts that are not terminated go up to their array's end.
[[nodiscard]] std::string Describe(const oemui::WatermarkRecord& record);

/// A line for the header, and one for each listed entry. \param name  begins every part.
[[nodiscard]] State ListState(const std::string& name, const oemui::WatermarkList& list);

/// The bytes of a stored list, which may be shorter or longer than one.
[[nodiscard]] State StoredListState(const std::string& name, const std::string& bytes);

/// A line for each group of fields of the block.
[[nodiscard]] State BlockState(const oemui::PrivateDevmode& block);

}  // namespace tests
