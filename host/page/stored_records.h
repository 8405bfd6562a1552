/// The plug-in's stored records by the names of their fields: the block of a devmode, a printer's
/// list of watermarks. The host knows them as the formats that they are, not by the module's types.
///
/// All bytes are from outside: what is shorter than its format counts as none, texts end with their
/// array, terminated or not.
#pragma once

#include <windef.h>

#include <nlohmann/json.hpp>
#include <span>
#include <string>

namespace host {

/// The plug-in's block of a devmode; null when it is shorter than the format.
[[nodiscard]] nlohmann::ordered_json PrivateDevmodeToJson(std::span<const BYTE> block);

/// The name of the watermark that the block selects, UTF-8; empty when it is shorter than the
/// format.
[[nodiscard]] std::string WatermarkNameIn(std::span<const BYTE> block);

/// The entries of a stored list, an array, as many as it counts; empty when it is shorter than the
/// format.
[[nodiscard]] nlohmann::ordered_json WatermarksToJson(std::span<const BYTE> list);

}  // namespace host
